#!/usr/bin/env python3
"""Draws what a terminal shows as an SVG picture. Usage: ... | tools/terminal_picture.py > docs/pictures/terminal.svg"""
import sys
from xml.sax.saxutils import escape

CHARACTER_WIDTH, LINE_HEIGHT, MARGIN = 8.4, 18, 16


def colour(line):
    if line.startswith("$ "):
        return "#8bd5ff"
    return "#ffd787" if line[:2].rstrip(".").isdigit() and ". " in line[:4] else "#d8dee9"


def picture(lines):
    width = max(map(len, lines)) * CHARACTER_WIDTH + 2 * MARGIN
    height = len(lines) * LINE_HEIGHT + 2 * MARGIN
    yield (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width:.0f}" height="{height}" '
           'font-family="DejaVu Sans Mono, Menlo, Consolas, monospace" font-size="14">')
    yield '<rect width="100%" height="100%" rx="8" fill="#1b2028"/>'
    for number, line in enumerate(lines):
        y = MARGIN + LINE_HEIGHT * (number + 0.75)
        yield (f'<text x="{MARGIN}" y="{y:.0f}" fill="{colour(line)}" xml:space="preserve">'
               f'{escape(line)}</text>')
    yield "</svg>"


print("\n".join(picture([line.rstrip("\n").expandtabs() for line in sys.stdin])))
