#!/usr/bin/env bash
# Runs clang-tidy over our sources, or over those named: tools/tidy.sh [FILE...]. Needs a configured build/dev
# (cmake --preset dev) and Debian's clang-tidy. A flag of the other compiler is no finding. Slow: some seconds a file.
set -euo pipefail
cd "$(dirname "$0")/.."
files=("$@")
[ ${#files[@]} -gt 0 ] || mapfile -t files < <(git ls-files 'src/*.cpp' 'hosts/*.cpp')
printf '%s\n' "${files[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p build/dev --quiet \
  --extra-arg=-Wno-unknown-warning-option 2>/dev/null
