#!/usr/bin/env bash
# Kills saves of a project of many files at random moments and looks at what the next start finds.
# Usage: tools/kill-loop.sh [KILLS [FILES]], 2000 and 400 when nothing is said.
set -eu
cd "$(dirname "$0")/.."
[ -f build/dev/build.ninja ] || cmake --preset dev >&2
ninja -C build/dev kill-loop >&2
exec build/dev/tools/kill-loop "$@"
