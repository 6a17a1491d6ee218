#!/usr/bin/env bash
# Builds everything and runs every test: once normally, once under AddressSanitizer and
# UndefinedBehaviorSanitizer. A throwaway PostgreSQL server on 127.0.0.1 serves the tests that
# depend on the server kind; it is stopped when the tests end.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
tools/install-deps.sh --tests

jobs=$(nproc)

# The throwaway PostgreSQL server: its own data folder and port.
pg_bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)
pg_dir=$(mktemp -d /tmp/lanzhou-pg.XXXXXX)
pg_port=${LANZHOU_TEST_PG_PORT:-55432}
as_pg=()
if [ "$(id -u)" -eq 0 ]; then
  chown postgres:postgres "$pg_dir"
  as_pg=(runuser -u postgres --)
fi
stop_pg() {
  "${as_pg[@]}" "$pg_bin/pg_ctl" -D "$pg_dir/data" -m immediate stop >/dev/null 2>&1 || true
  rm -rf "$pg_dir"
}
trap stop_pg EXIT
"${as_pg[@]}" "$pg_bin/initdb" -D "$pg_dir/data" -U postgres -A trust -E UTF8 --locale=C.UTF-8 >/dev/null
"${as_pg[@]}" "$pg_bin/pg_ctl" -D "$pg_dir/data" -l "$pg_dir/server.log" -w \
  -o "-p $pg_port -k $pg_dir -c listen_addresses=127.0.0.1 -c fsync=off -c synchronous_commit=off" start >/dev/null
export LANZHOU_TEST_POSTGRES="postgresql://postgres@127.0.0.1:$pg_port/postgres"

run_suite() {
  local build_dir=$1; shift
  cmake -S "$root" -B "$build_dir" -G Ninja "$@" >/dev/null
  cmake --build "$build_dir" -j "$jobs"
  ctest --test-dir "$build_dir" --output-on-failure -j "$jobs"
}

echo "== Tests =="
run_suite build/tests -DCMAKE_BUILD_TYPE=Debug
echo "== Tests under AddressSanitizer and UndefinedBehaviorSanitizer =="
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export LSAN_OPTIONS=suppressions=$root/tools/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
run_suite build/sanitize -DCMAKE_BUILD_TYPE=Debug -DLANZHOU_SANITIZE=ON
