#!/usr/bin/env bash
# Builds the Debian package of 岚舟云记账 (Release build in build/package) and prints its path.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/install-deps.sh
# cpack installs without building everything first: only the program goes into the package.
cmake -S . -B build/package -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr \
  -DCMAKE_SKIP_INSTALL_ALL_DEPENDENCY=ON
cmake --build build/package --target lanzhou -j"${JOBS:-$(nproc)}"
(cd build/package && cpack -G DEB > cpack.log) || { cat build/package/cpack.log; exit 1; }
ls "$PWD"/build/package/lanzhou_*.deb
