#!/usr/bin/env bash
# Draws the workbench with three windows of the large sample at scale 1, 1.5 and 2, light and dark, and its Project
# Explorer docked, narrow, floating and filtered, into screenshots/.
#   tools/window-pictures.sh [BUILD]     BUILD is a build's folder; default build/release
set -euo pipefail
cd "$(dirname "$0")/.."
program=${1:-build/release}/hosts/tessel-workbench

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r samples/ledger "$work/ledger"

# draw PICTURE SCALE SCHEME [OPTION...]: the same desktop each time; the screen has more points at a higher scale.
draw() {
  python3 - "$2" >"$work/screens.json" <<'SCREENS'
import json, sys
scale = float(sys.argv[1])
print(json.dumps({"screens": [{"name": "s", "x": 0, "y": 0, "width": int(1120 * scale), "height": int(760 * scale),
                               "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}))
SCREENS
  mkdir -p "$work/state"
  printf '[window]\ncolors=%d\n' "$([ "$3" = dark ] && echo 2 || echo 1)" >"$work/state/workbench.ini"
  QT_QPA_PLATFORM="offscreen:configfile=$work/screens.json" QT_SCALE_FACTOR=$2 "$program" \
    --data "$work/program" --registry "$work/state/settings" --screenshot "screenshots/workbench-$1.png" "${@:4}" \
    "$work/ledger/Ledger.vbp"
  rm -rf "$work/state"
}

for scheme in light dark; do
  for scale in 1 1.5 2; do draw "$scheme-$scale" "$scale" "$scheme"; done
  draw "explorer-docked-$scheme" 1 "$scheme" --explorer docked
  draw "explorer-narrow-$scheme" 1 "$scheme" --explorer narrow
  draw "explorer-floating-$scheme" 1 "$scheme" --explorer floating
  draw "explorer-filtered-$scheme" 1 "$scheme" --explorer floating --find "add -click"
done

# Few colours make small files.
if command -v pngquant >/dev/null; then pngquant --force --ext .png --skip-if-larger 64 screenshots/workbench-*.png; fi
