# SPDX-License-Identifier: MIT
"""Rows of figures, as a table for a terminal and for a document."""
from dataclasses import dataclass
from typing import Optional


@dataclass
class Row:
    """One comparison. Costs are in `unit`, less is better, unless `more_is_better`."""
    what: str
    ours: float
    unit: str
    other: Optional[float] = None
    other_name: str = ""
    limit: Optional[float] = None  # highest ratio of costs that is good enough
    more_is_better: bool = False
    column: str = ""  # of rows that differ in this alone a document makes one row
    series: str = ""  # the line of a plot to which it belongs, if not the one named `what`
    words: int = 0  # headwords of the dictionary that was measured, for a plot
    obstacle: str = ""  # what is known to stand in the way of the limit

    def ratio(self):
        """Our cost for each unit of the other's cost."""
        if not self.other or not self.ours:
            return None
        return self.other / self.ours if self.more_is_better else self.ours / self.other

    def title(self):
        return f"{self.what}, {self.column}" if self.column else self.what

    def is_missed(self):
        return self.limit is not None and self.ratio() is not None and self.ratio() > self.limit

    def shortfall(self):
        """Of a missed limit: by how much, and why."""
        told = f"{self.title()}: {self.ratio():.2f} instead of {self.limit:.3g}"
        return f"{told}; {self.obstacle}" if self.obstacle else told

    def verdict(self):
        if self.limit is None or self.ratio() is None:
            return ""
        return "MISSED" if self.is_missed() else "ok"


def number(value):
    return "-" if value is None else f"{value:,.{0 if value >= 1000 else 1 if value >= 10 else 3}f}"


def format_rows(rows):
    lines = [("what", "ours", "other", "unit", "against", "ratio", "limit", "")]
    for row in rows:
        ratio = row.ratio()
        lines.append((row.title(), number(row.ours), number(row.other), row.unit, row.other_name,
                      "" if ratio is None else f"{ratio:.2f}",
                      "" if row.limit is None else f"{row.limit:.3g}", row.verdict()))
    widths = [max(len(line[column]) for line in lines) for column in range(len(lines[0]))]
    text = []
    for line in lines:
        cells = [cell.rjust(width) if column in (1, 2, 5, 6) else cell.ljust(width)
                 for column, (cell, width) in enumerate(zip(line, widths))]
        text.append("  ".join(cells).rstrip())
    return "\n".join(text)


def markdown_line(cells):
    return "| " + " | ".join(cells) + " |"


def markdown(rows):
    """The rows as a Markdown table, costs that differ in their column side by side."""
    if any(row.column for row in rows):
        return markdown_by_column(rows)
    lines = [markdown_line(("", "ours", "other", "unit", "other is", "ratio", "limit", "")),
             "|---|--:|--:|---|---|--:|--:|---|"]
    for row in rows:
        ratio = row.ratio()
        lines.append(markdown_line((
            row.what, number(row.ours), number(row.other) if row.other else "", row.unit,
            row.other_name, "" if ratio is None else f"{ratio:.2f}",
            "" if row.limit is None else f"{row.limit:.3g}", row.verdict())))
    return "\n".join(lines)


def markdown_by_column(rows):
    columns = list(dict.fromkeys(row.column for row in rows))
    lines = [markdown_line(("", "unit", *columns)), "|---|---|" + "--:|" * len(columns)]
    for what in dict.fromkeys(row.what for row in rows):
        costs = {row.column: row for row in rows if row.what == what}
        unit = next(iter(costs.values())).unit
        lines.append(markdown_line((what, unit, *(number(costs[column].ours) if column in costs
                                                  else "" for column in columns))))
    return "\n".join(lines)
