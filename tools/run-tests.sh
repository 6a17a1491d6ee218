#!/usr/bin/env bash
# Builds everything and runs every test: once normally, once under AddressSanitizer and
# UndefinedBehaviorSanitizer. A throwaway PostgreSQL server on 127.0.0.1 serves the tests that
# depend on the server kind; it is stopped when the tests end.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
tools/install-deps.sh --tests

jobs=$(nproc)

source tools/postgres-throwaway.sh

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
