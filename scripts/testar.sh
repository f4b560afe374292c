#!/usr/bin/env bash
# Builds Toldex with AddressSanitizer and UndefinedBehaviorSanitizer and runs the whole
# test suite against both stores. PostgreSQL runs as a throwaway cluster of its own, in
# a temporary folder on a Unix socket, stopped at the end: nothing else on the machine
# is touched.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/instalar-dependencias.sh

cmake -S . -B build-testes -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTOLDEX_SANITIZERS=ON
cmake --build build-testes -j"$(nproc)"

PGBIN=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)
PGDIR=$(mktemp -d /tmp/toldex-pg.XXXXXX)
PGPORTA=${TOLDEX_PG_PORT:-54329}
if [ "$(id -u)" -eq 0 ]; then
  chown postgres "$PGDIR"
  COMO=(runuser -u postgres --)   # PostgreSQL refuses to run as root
else
  COMO=()
fi
parar() {
  "${COMO[@]}" "$PGBIN/pg_ctl" -D "$PGDIR/dados" -m immediate stop >/dev/null 2>&1 || true
  rm -rf "$PGDIR"
}
trap parar EXIT
"${COMO[@]}" "$PGBIN/initdb" -D "$PGDIR/dados" -A trust -U postgres -E UTF8 --locale=C.UTF-8 >/dev/null
"${COMO[@]}" "$PGBIN/pg_ctl" -D "$PGDIR/dados" -l "$PGDIR/servidor.log" -w \
  -o "-k $PGDIR -c listen_addresses='' -p $PGPORTA -c fsync=off -c max_connections=200" start >/dev/null

export TOLDEX_PG_HOST="$PGDIR" TOLDEX_PG_PORT="$PGPORTA" TOLDEX_PG_USUARIO=postgres
export QT_QPA_PLATFORM=offscreen
ctest --test-dir build-testes --output-on-failure -j"$(nproc)"
