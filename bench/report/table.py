# SPDX-License-Identifier: MIT
"""The table that is printed at the end."""
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

    def ratio(self):
        """Our cost for each unit of the other's cost."""
        if not self.other or not self.ours:
            return None
        return self.other / self.ours if self.more_is_better else self.ours / self.other

    def verdict(self):
        if self.limit is None or self.ratio() is None:
            return ""
        return "ok" if self.ratio() <= self.limit else "MISSED"


def number(value):
    return "-" if value is None else f"{value:,.{0 if value >= 1000 else 1 if value >= 10 else 3}f}"


def format_rows(rows):
    lines = [("what", "ours", "other", "unit", "against", "ratio", "limit", "")]
    for row in rows:
        ratio = row.ratio()
        lines.append((row.what, number(row.ours), number(row.other), row.unit, row.other_name,
                      "" if ratio is None else f"{ratio:.2f}",
                      "" if row.limit is None else f"{row.limit:g}", row.verdict()))
    widths = [max(len(line[column]) for line in lines) for column in range(len(lines[0]))]
    text = []
    for line in lines:
        cells = [cell.rjust(width) if column in (1, 2, 5, 6) else cell.ljust(width)
                 for column, (cell, width) in enumerate(zip(line, widths))]
        text.append("  ".join(cells).rstrip())
    return "\n".join(text)
