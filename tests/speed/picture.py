"""The table as a picture: how far each row is from its target, on a logarithmic scale."""

import html
import math

from rows import Row

LINE = 22
LEFT = 330
WIDTH = 960
BAR_WIDTH = 420
FACTOR = 8.0  # how far the scale goes to both sides of the target


def needed(row: Row) -> float:
    """The part of what is allowed that the row takes: 1 is the target itself."""
    return row.target / row.ratio if row.at_least else row.ratio / row.target


def place(part: float) -> float:
    part = min(max(part, 1 / FACTOR), FACTOR)
    return LEFT + BAR_WIDTH * (1 + math.log(part) / math.log(FACTOR)) / 2


def bar(number: int, row: Row) -> list[str]:
    top = 40 + number * LINE
    colour = "#3a7d44" if row.met else "#b3261e"
    sign = "≥" if row.at_least else "≤"
    told = f"{row.ratio:.3g} ({sign} {row.target:g})  {row.ours}"
    return [
        f'<text x="{LEFT - 8}" y="{top + 14}" text-anchor="end">{html.escape(row.work)}</text>',
        f'<rect x="{LEFT}" y="{top + 3}" width="{place(needed(row)) - LEFT:.1f}" height="14"'
        f' fill="{colour}"/>',
        f'<text x="{LEFT + BAR_WIDTH + 8}" y="{top + 14}">{html.escape(told)}</text>',
    ]


def picture(rows: list[Row]) -> str:
    height = 50 + len(rows) * LINE
    middle = place(1)
    lines = [
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{height}"'
        ' font-family="sans-serif" font-size="12">',
        f'<rect width="{WIDTH}" height="{height}" fill="white"/>',
        f'<text x="{middle}" y="20" text-anchor="middle">target</text>',
        f'<text x="{LEFT}" y="20">better</text>',
    ]
    for number, row in enumerate(rows):
        lines += bar(number, row)
    lines.append(f'<line x1="{middle}" y1="28" x2="{middle}" y2="{height - 6}" stroke="black"/>')
    lines.append("</svg>")
    return "\n".join(lines) + "\n"
