#!/usr/bin/env bash
# Builds the benchmarks optimised and prints their figures, on SQLite and on a throwaway PostgreSQL.
# Arguments name the benchmarks to run (all when none); see `lanzhou_bench --list`.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/install-deps.sh --bench
LANZHOU_TEST_PG_PORT=${LANZHOU_TEST_PG_PORT:-55442}
source tools/postgres-throwaway.sh
cmake -S . -B build/bench -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build/bench --target lanzhou_bench
QT_QPA_PLATFORM=offscreen build/bench/bench/lanzhou_bench "$@"
