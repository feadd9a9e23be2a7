# SPDX-License-Identifier: MIT
"""Faults of which someone has argued that nobody could notice them."""
from pathlib import Path

LIST = "tests/mutation/equivalents.txt"


class Equivalents:
    """A line each: file, the line as it is, the line with the fault, why; tabulators between them."""

    def __init__(self, text=""):
        self.reasons = {}
        self.faults = []
        for number, line in enumerate(text.splitlines(), 1):
            if not line.strip() or line.startswith("#"):
                continue
            fields = line.split("\t")
            if len(fields) != 4 or not all(field.strip() for field in fields):
                self.faults.append(f"line {number} has not four fields")
                continue
            if tuple(fields[:3]) in self.reasons:
                self.faults.append(f"line {number} is there twice")
            self.reasons[tuple(fields[:3])] = fields[3]

    @classmethod
    def of(cls, root):
        path = Path(root) / LIST
        return cls(path.read_text(encoding="utf-8") if path.is_file() else "")

    def holds(self, mutant):
        return (mutant.file, mutant.original, mutant.mutated) in self.reasons

    def stale(self, mutants):
        """Those that the sources have no place for any more."""
        there = {(mutant.file, mutant.original, mutant.mutated) for mutant in mutants}
        return [entry for entry in self.reasons if entry not in there]
