#!/usr/bin/env bash
# Tries what users and tools do to files on a copy of every project and component below a folder, and
# prints each file where more than the intended change was written. Usage: tools/check-projects.sh FOLDER
set -eu
cd "$(dirname "$0")/.."
folder=$(realpath "${1:?usage: tools/check-projects.sh FOLDER}")
[ -f build/dev/build.ninja ] || cmake --preset dev >&2
ninja -C build/dev check-projects >&2
exec build/dev/tools/check-projects "$folder"
