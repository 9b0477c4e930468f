#!/usr/bin/env bash
# Builds everything under the sanitizers and passes all tests; compiles src/ for 32-bit Windows as well.
set -euo pipefail
cd "$(dirname "$0")"
tools/install.sh test

cmake --preset test -DTESSEL_MINGW=ON -DTESSEL_BENCH=ON >/dev/null
cmake --build --preset test
ctest --preset test -j "$(nproc)"
