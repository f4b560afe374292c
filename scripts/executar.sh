#!/usr/bin/env bash
# Builds Toldex and starts it on its embedded store (TOLDEX.db beside the program);
# with --exemplo, on the sample shop instead, built afresh in its own folder.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/instalar-dependencias.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release -DTOLDEX_TESTS=OFF
cmake --build build -j"$(nproc)" --target toldex
exec build/toldex "$@"
