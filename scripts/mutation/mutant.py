# SPDX-License-Identifier: MIT
"""One small fault at one place, and the finding of all that a file can have."""
from dataclasses import dataclass

import faults
from cppsource import code_of


@dataclass(frozen=True)
class Mutant:
    file: str  # from the root of the tree
    start: int  # in characters
    end: int
    kind: str
    line: int  # of `start`, from 1
    original: str  # the lines it touches, on one line; enough of them to be the only such ones
    mutated: str
    replacement: str

    def applied_to(self, text):
        return text[:self.start] + self.replacement + text[self.end:]

    @property
    def key(self):
        """The same as long as the place in the file is."""
        return [self.file, self.start, self.end, self.replacement, self.original]


def on_one_line(text):
    return " ".join(text.split())


def lines_round(text, start, end):
    """From where to where the lines go that hold it, with those before them when they are not the
    only ones of their kind."""
    first = text.rfind("\n", 0, start) + 1
    last = text.find("\n", end)
    last = len(text) if last < 0 else last
    while first > 0 and text.count("\n" + text[first:last] + "\n") > 1:
        first = text.rfind("\n", 0, first - 1) + 1
    return first, last


def mutants_of(file, text):
    """All mutants of a file, in the order of their places."""
    code = code_of(text)
    found = []
    for kind, finder in faults.KINDS.items():
        for start, end, instead in finder(code):
            replacement = instead.replace("{}", text[start:end])
            first, last = lines_round(text, start, end)
            found.append(Mutant(
                file, start, end, kind, text.count("\n", 0, start) + 1,
                on_one_line(text[first:last]),
                on_one_line(text[first:start] + replacement + text[end:last]), replacement))
    return sorted(found, key=lambda mutant: (mutant.start, mutant.end, mutant.replacement))
