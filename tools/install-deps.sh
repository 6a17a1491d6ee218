#!/usr/bin/env bash
# Installs the Debian packages the program needs to build, run and be tested, when any is missing.
set -euo pipefail

packages=(
  build-essential cmake ninja-build
  qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite libqt6sql6-psql libqt6sql6-odbc
  libpq-dev qt6-charts-dev libqt6opengl6-dev qt6-translations-l10n unixodbc odbc-postgresql tdsodbc fonts-noto-cjk
)
case "${1:-}" in
  --tests) packages+=(postgresql xvfb xauth) ;;
  # The benchmarks compare with ledger-cli and hledger, timed by GNU time.
  --bench) packages+=(postgresql ledger hledger time) ;;
esac

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -q
$sudo apt-get install -y -q --no-install-recommends "${missing[@]}"
