#!/usr/bin/env bash
# Builds the Debian package from a build folder and checks that it installs the program,
# its templates, version file, icon and menu entry, and that it depends on Debian's
# runtime libraries. Usage: verificar-pacote.sh <build folder>
set -euo pipefail
BUILD=$(cd "$1" && pwd)
SAIDA=$(mktemp -d /tmp/toldex-pacote.XXXXXX)
trap 'rm -rf "$SAIDA"' EXIT

cpack -G DEB --config "$BUILD/CPackConfig.cmake" -B "$SAIDA" >"$SAIDA/cpack.log" 2>&1 || {
  cat "$SAIDA/cpack.log"; exit 1; }
DEB=$(ls "$SAIDA"/*.deb)
dpkg-deb -c "$DEB" | awk '{print $NF}' >"$SAIDA/arquivos"

falhou=0
for f in ./usr/bin/toldex \
         ./usr/share/toldex/Versao.txt \
         ./usr/share/applications/toldex.desktop \
         ./usr/share/icons/hicolor/256x256/apps/toldex.png \
         ./usr/share/toldex/modelos/{entrada,saida,orcamento,devolucao,pedido}.{odt,docx}; do
  if ! grep -qxF "$f" "$SAIDA/arquivos"; then
    echo "falta no pacote: $f"; falhou=1
  fi
done
# Nothing of the build or the sources leaks in.
if grep -E '\.(o|cpp|h|py)$|CMakeFiles|/tests/' "$SAIDA/arquivos"; then
  echo "arquivos que não deviam estar no pacote (acima)"; falhou=1
fi
DEPENDE=$(dpkg-deb -f "$DEB" Depends)
for d in libqt6widgets6 libqt6sql6 libqt6printsupport6 libsqlite3-0 libqt6sql6-sqlite qt6-translations-l10n; do
  if ! grep -q "$d" <<<"$DEPENDE"; then
    echo "o pacote não depende de $d: $DEPENDE"; falhou=1
  fi
done
[ "$(dpkg-deb -f "$DEB" Package)" = toldex ] || { echo "nome do pacote errado"; falhou=1; }
dpkg-deb --fsys-tarfile "$DEB" | tar -xO ./usr/share/applications/toldex.desktop | grep -qx 'Exec=toldex' \
  || { echo "a entrada do menu não chama o programa"; falhou=1; }
if [ $falhou -eq 0 ]; then
  echo "pacote $(basename "$DEB") confere: $(wc -l <"$SAIDA/arquivos") entradas"
fi
exit $falhou
