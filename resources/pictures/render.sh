#!/usr/bin/env bash
# Draws the bitmaps beside the vector sources. Needs rsvg-convert (Debian: librsvg2-bin).
set -euo pipefail
cd "$(dirname "$0")"
for source in *.svg; do
  rsvg-convert -w 16 -h 16 "$source" -o "${source%.svg}.png"
done
