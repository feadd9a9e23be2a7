# SPDX-License-Identifier: MIT
"""Draws cost against the size of the dictionary, as a picture for the document.

Both scales are logarithmic; a cost is given as a multiple of that in the smallest dictionary.
"""
import math

WIDTH, HEIGHT = 720, 400
LEFT, RIGHT, TOP, BOTTOM = 56, 232, 24, 48
WORDS = (1e3, 1e4, 1e5, 1e6, 3e6)
COSTS = (0.5, 1, 2, 4, 8)
# (name of the rows, what it is called, colours on light and on dark ground)
SERIES = (
    ("open and look up", "first look-up, with opening", "#b35900", "#ffa94d"),
    ("look up cold", "look-up, nothing unpacked", "#1c6dd0", "#74b0ff"),
    ("look up warm", "look-up, unpacked already", "#2b8a3e", "#69db7c"),
    ("open", "open", "#9c36b5", "#e599f7"),
)
STYLE = """
  text { font: 13px sans-serif; fill: #333 }
  .grid { stroke: #ccc; stroke-width: 1 }
  .line { fill: none; stroke-width: 2 }
"""
DARK = """  text { fill: #ddd }
  .grid { stroke: #555 }
"""


def horizontal(words):
    share = math.log(words / WORDS[0]) / math.log(WORDS[-1] / WORDS[0])
    return LEFT + share * (WIDTH - LEFT - RIGHT)


def vertical(cost):
    share = math.log(cost / COSTS[0]) / math.log(COSTS[-1] / COSTS[0])
    return HEIGHT - BOTTOM - share * (HEIGHT - TOP - BOTTOM)


def points_of(rows, name):
    """(words, multiple) in the order of the words."""
    return sorted((row.words, row.ratio() or 1.0) for row in rows if row.words and
                  name == (row.series or row.what))


def style():
    light = "".join(f"  .s{index} {{ stroke: {series[2]} }} .d{index} {{ fill: {series[2]} }}\n"
                    for index, series in enumerate(SERIES))
    dark = "".join(f"  .s{index} {{ stroke: {series[3]} }} .d{index} {{ fill: {series[3]} }}\n"
                   for index, series in enumerate(SERIES))
    return f"<style>{STYLE}{light}@media (prefers-color-scheme: dark) {{\n{DARK}{dark}}}\n</style>"


def grid():
    parts = []
    for cost in COSTS:
        y = vertical(cost)
        parts.append(f'<line class="grid" x1="{LEFT}" x2="{WIDTH - RIGHT}" y1="{y:.1f}" '
                     f'y2="{y:.1f}"/>')
        parts.append(f'<text x="{LEFT - 8}" y="{y + 4:.1f}" text-anchor="end">{cost:g}</text>')
    for words in WORDS:
        x = horizontal(words)
        parts.append(f'<line class="grid" x1="{x:.1f}" x2="{x:.1f}" y1="{TOP}" '
                     f'y2="{HEIGHT - BOTTOM}"/>')
        parts.append(f'<text x="{x:.1f}" y="{HEIGHT - BOTTOM + 18}" text-anchor="middle">'
                     f'{int(words):,}</text>')
    middle = (LEFT + WIDTH - RIGHT) / 2
    parts.append(f'<text x="{middle}" y="{HEIGHT - 8}" text-anchor="middle">headwords</text>')
    return parts


def label_places(ends):
    """Heights of the labels: those of the lines' ends, but none over another."""
    places = {}
    free = HEIGHT
    for index, height in sorted(ends.items(), key=lambda end: -end[1]):
        places[index] = min(height, free)
        free = places[index] - 18
    return places


def curves(rows):
    parts, ends = [], {}
    for index, (name, _, _, _) in enumerate(SERIES):
        points = [(horizontal(words), vertical(min(max(cost, COSTS[0]), COSTS[-1])))
                  for words, cost in points_of(rows, name)]
        if not points:
            continue
        way = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        parts.append(f'<polyline class="line s{index}" points="{way}"/>')
        parts += [f'<circle class="d{index}" cx="{x:.1f}" cy="{y:.1f}" r="3"/>' for x, y in points]
        ends[index] = points[-1][1]
    for index, y in label_places(ends).items():
        x = WIDTH - RIGHT + 10
        parts.append(f'<circle class="d{index}" cx="{x}" cy="{y:.1f}" r="4"/>')
        parts.append(f'<text x="{x + 10}" y="{y + 4:.1f}">{SERIES[index][1]}</text>')
    return parts


def drawing(rows):
    title = "Cost against the number of headwords, as a multiple of that in the smallest dictionary"
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" role="img">',
        f"<title>{title}</title>", style(), *grid(), *curves(rows), "</svg>", ""])


def write(path, rows):
    path.write_text(drawing(rows), encoding="utf-8")
