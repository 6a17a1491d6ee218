#!/usr/bin/env bash
# Builds 岚舟云记账 and starts it on the embedded SQLite ledger database (or LANZHOU_DATABASE).
set -euo pipefail
cd "$(dirname "$0")/.."
tools/install-deps.sh
cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build/release --target lanzhou
exec build/release/src/app/lanzhou "$@"
