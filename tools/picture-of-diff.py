#!/usr/bin/env python3
"""Draws the beginning of a difference on standard input as an SVG on standard output.

    ./run.sh | tools/picture-of-diff.py > docs/format-diff.svg
    rsvg-convert docs/format-diff.svg -o docs/format-diff.png
"""
import html
import sys

ROWS, WIDTH, HEIGHT = 40, 860, 17
COLOURS = {"+": "#1a7f37", "-": "#b42318", "@": "#1f5fa8"}

lines = [line.rstrip("\r\n").expandtabs() for line in sys.stdin if not line.startswith(("diff ", "---", "+++", "["))]
lines = lines[:ROWS]
height = HEIGHT * len(lines) + 20
print(f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{height}">')
print(f'<rect width="{WIDTH}" height="{height}" fill="#fbfcfe" stroke="#d7e6f7"/>')
for row, line in enumerate(lines):
    colour = COLOURS.get(line[:1], "#333333")
    text = html.escape(line[:100]).replace(" ", "\u00a0")
    print(f'<text x="12" y="{20 + row * HEIGHT}" font-family="DejaVu Sans Mono" font-size="13" fill="{colour}">{text}</text>')
print("</svg>")
