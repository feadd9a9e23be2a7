# SPDX-License-Identifier: MIT
"""How far a source is from a test, counted in includes."""
import re
from pathlib import Path

INCLUDE = re.compile(r'^#include "([^"]+)"', re.MULTILINE)


class Reach:
    """A header and the source beside it are one unit, named without suffix from the tree's root."""

    def __init__(self, root):
        self.root = Path(root)
        self._included = {}
        self._headerless = self._by_first_header()

    def _by_first_header(self):
        """For a unit, the sources without a header of their own that begin with its header: they
        hold what it declares."""
        found = {}
        for path in sorted(self.root.glob("src/**/*.cpp")):
            if not path.with_suffix(".h").is_file():
                names = INCLUDE.findall(path.read_text(encoding="utf-8"))
                if names:
                    unit = str(path.relative_to(self.root).with_suffix(""))
                    found.setdefault(self._unit(names[0]), set()).add(unit)
        return found

    def included_by(self, unit):
        """The units that a unit includes."""
        if unit not in self._included:
            names = []
            for suffix in (".h", ".cpp"):
                path = self.root / (unit + suffix)
                if path.is_file():
                    names += INCLUDE.findall(path.read_text(encoding="utf-8"))
            self._included[unit] = {self._unit(name) for name in names} | self._headerless.get(unit, set())
        return self._included[unit]

    def _unit(self, name):
        name = str(Path(name).with_suffix(""))
        return name if name.startswith("tests/") else "src/" + name

    def distances(self, unit):
        """Each unit that code of this one may call, and how many includes are between."""
        found, border, steps = {unit: 0}, [unit], 0
        while border:
            steps += 1
            border = [other for one in border for other in self.included_by(one) if other not in found]
            found.update(dict.fromkeys(border, steps))
        return found
