#!/usr/bin/env bash
# Takes over what the golden tests of the builders wrote last, and shows the difference: read it like code.
#   tools/renew-goldens.sh [BUILD-FOLDER]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/test}
"$build/tests/test_builders" --gtest_filter='*BuilderGoldens*' >/dev/null || true
cp "$build"/actual/builders/*.golden tests/data/builders/
git diff --stat -- tests/data/builders
git --no-pager diff -- tests/data/builders
