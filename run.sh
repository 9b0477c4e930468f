#!/usr/bin/env bash
# Where there is a screen: opens the workbench on a copy of the large sample project. Without one: formats such
# a copy through the whole road (connection, a click on "Code Formatter", the dialog, run, save) and shows what
# changed. The repository itself stays as it is.
#   ./run.sh --screenshot FILE.png    draws the workbench, and its formatter dialog into FILE-dialog.png
#   ./run.sh --format                 the formatting road, also where there is a screen
set -euo pipefail
cd "$(dirname "$0")"
tools/install.sh run

cmake --preset release -DTESSEL_BENCH=OFF >/dev/null
cmake --build --preset release --target tessel tessel-workbench

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r samples/ledger "$work/ledger"

workbench() {
  build/release/hosts/tessel-workbench --data "$work/program" --registry "$work/settings" "$@" "$work/ledger/Ledger.vbp"
}

if [ "${1:-}" = --screenshot ]; then
  workbench --screenshot "$2" --dialog "Code Formatter"
  exit
fi
if [ "${1:-}" != --format ] && [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  workbench
  exit
fi

build/release/hosts/tessel drive --data "$work/program" --registry "$work/settings" <<REQUESTS >"$work/replies"
{"do":"open","file":"$work/ledger/Ledger.vbp"}
{"do":"connect"}
{"do":"click","path":["Tessel","Tessel","Code Formatter"]}
{"do":"pick","control":"ComModule","text":"Current Project   [Ledger]"}
{"do":"press","control":"btmRun"}
{"do":"save"}
{"do":"disconnect"}
REQUESTS

if grep '"ok":false' "$work/replies"; then
  echo "The run was refused; see the reply above." >&2
  exit 1
fi
diff -ru samples/ledger "$work/ledger" | iconv -f CP1251 -t UTF-8//TRANSLIT 2>/dev/null || true
echo
echo "Files written: $(grep -o '"files":\[[^]]*\]' "$work/replies" | grep -o '\.[a-z]*"' | wc -l)"
