#!/usr/bin/env bash
# Installs, from Debian's packages, everything that building, running and testing Toldex
# needs. Runs apt-get only when something is missing.
set -euo pipefail
PACOTES=(build-essential cmake ninja-build ccache pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-translations-l10n libqt6sql6-sqlite libqt6sql6-psql qt6-multimedia-dev
  libgl1-mesa-dev libsodium-dev libzip-dev libpugixml-dev libsqlite3-dev
  libxlsxwriter-dev libzint-dev
  libqrencode-dev zbar-tools
  qt6-charts-dev libqt6opengl6-dev
  postgresql postgresql-contrib poppler-utils fonts-dejavu-core xvfb xauth)
FALTAM=()
for p in "${PACOTES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || FALTAM+=("$p")
done
if [ ${#FALTAM[@]} -gt 0 ]; then
  SUDO=""; [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  $SUDO apt-get update
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y --no-install-recommends "${FALTAM[@]}"
fi
