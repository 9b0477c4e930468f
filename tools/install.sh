#!/usr/bin/env bash
# Installs what Tessel is built with, from Debian's packages. `tools/install.sh run` takes what the programs
# need, `tools/install.sh test` also what the tests need. Nothing happens when all is there already.
set -euo pipefail

run_packages=(g++ cmake ninja-build ccache pkg-config libsqlite3-dev libutf8proc-dev nlohmann-json3-dev
  libcli11-dev mdbtools qt6-base-dev qt6-svg-dev libqscintilla2-qt6-dev fonts-dejavu-core)
test_packages=(libgtest-dev libbenchmark-dev g++-mingw-w64-i686-posix python3 patch locales)

packages=("${run_packages[@]}")
[ "${1:-run}" = test ] && packages+=("${test_packages[@]}")

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

root=()
[ "$(id -u)" -eq 0 ] || root=(sudo)
echo "Installing: ${missing[*]}"
"${root[@]}" apt-get update -qq
"${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
