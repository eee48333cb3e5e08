#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""usage: bench/speed_plot.py [--check]

Draws docs/speed.svg, the plot of the README, from the table of docs/performance.md for one thread and a plain file. With
--check it writes nothing, and fails if the plot is not what it would draw."""

import html
import pathlib
import re
import sys

DOCS = pathlib.Path(__file__).resolve().parent.parent / "docs"
TITLE = "One thread, plain file, each message written at once: time per line"
_SECTION = re.compile(r"^## A\. .*?(?=^## )", re.MULTILINE | re.DOTALL)
_ROW = re.compile(r"^\| ([^|]+) \| ([\d,]+) \([^)]*\) ns \| ([\d.]+) \([^)]*\) \|$", re.MULTILINE)
LEFT, BAR, STEP, WIDTH = 110, 18, 28, 720


def rows_of(page):
    """(subject, nanoseconds, ratio to raw), as the page has them."""
    return _ROW.findall(_SECTION.search(page).group(0))


def drawing(page):
    rows = rows_of(page)
    scale = (WIDTH - LEFT - 150) / max(float(ratio) for _, _, ratio in rows)
    height = 40 + STEP * len(rows) + 24
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {height}" '
             'font-family="DejaVu Sans, Arial, sans-serif" font-size="13">',
             f"  <title>{TITLE}</title>",
             f'  <rect width="{WIDTH}" height="{height}" fill="#fff"/>',
             f'  <text x="10" y="22" font-weight="bold">{TITLE}</text>']
    for number, (subject, nanoseconds, ratio) in enumerate(rows):
        top = 40 + STEP * number
        length = float(ratio) * scale
        colour = "#1a5fb4" if subject.startswith("qmrk") else "#9a9996"
        lines += [f'  <text x="{LEFT - 8}" y="{top + 14}" text-anchor="end">{html.escape(subject)}</text>',
                  f'  <rect x="{LEFT}" y="{top}" width="{length:.1f}" height="{BAR}" fill="{colour}"/>',
                  f'  <text x="{LEFT + length + 8:.1f}" y="{top + 14}">{ratio} times, {nanoseconds} ns</text>']
    lines += [f'  <text x="10" y="{height - 8}" fill="#555" font-size="11">1.00 is "raw": the same line formatted by hand '
              'and written by one system call. Medians of docs/performance.md.</text>', "</svg>"]
    return "\n".join(lines) + "\n"


def write(folder):
    (folder / "speed.svg").write_text(drawing((folder / "performance.md").read_text(encoding="utf-8")), encoding="utf-8")


def main(arguments):
    if "-h" in arguments or "--help" in arguments:
        print(__doc__)
    elif "--check" not in arguments:
        write(DOCS)
    elif (DOCS / "speed.svg").read_text(encoding="utf-8") != drawing((DOCS / "performance.md").read_text(encoding="utf-8")):
        print("docs/speed.svg does not show the figures of docs/performance.md: bench/speed_plot.py draws it.")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
