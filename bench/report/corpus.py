# SPDX-License-Identifier: MIT
"""The data that is measured on: dictionaries of several sizes, made once for a run."""
import random
import string
from functools import cached_property

import processes

SIZES = (1_000, 10_000, 100_000)


def made_up_lines(count):
    """A small dictionary for trials, the same at every run."""
    chance = random.Random(7)
    words = {"".join(chance.choices(string.ascii_lowercase, k=chance.randint(3, 9)))
             for _ in range(count)}
    for word in sorted(words):
        senses = "".join(f"\\n{number}. sense {word[::-1]}" for number in range(1, 4))
        yield f"{word}\t<i>noun</i>{senses}\n"


class Corpus:
    """Dictionaries and word lists below `directory`, by way of the lexicon tool of `build`."""

    def __init__(self, build, directory, lexicon, smoke):
        self.build = build
        self.directory = directory
        self.smoke = smoke
        self.repeats = 1 if smoke else 7
        self._lexicon = lexicon

    def program(self, name):
        return self.build / "bench" / name

    @property
    def tool(self):
        return self.build / "src" / "lexicon" / "teskel-lexicon"

    def build_lexicon(self, tsv, name, *options):
        target = self.directory / f"{name}.PDB"
        processes.run([self.tool, "build", tsv, "-o", target, "--quiet", *options])
        return target

    @cached_property
    def whole(self):
        """The dictionary with all its words."""
        if self._lexicon:
            return self._lexicon
        made_up = self.directory / "made-up.tsv"
        made_up.write_text("".join(made_up_lines(2000)), encoding="utf-8")
        return self.build_lexicon(made_up, "MadeUp")

    @cached_property
    def lines(self):
        """Its entries, one a line: headword, tabulator, article, escaped, UTF-8."""
        exported = processes.run([self.tool, "export", self.whole]).splitlines(keepends=True)
        # A line without a headword describes the dictionary.
        return [line for line in exported if not line.startswith(b"\t")]

    def part(self, size):
        """Entries from all over the dictionary as a file to build from."""
        path = self.directory / f"words{size}.tsv"
        step = max(1.0, len(self.lines) / size)
        size = min(size, len(self.lines))
        path.write_bytes(b"".join(self.lines[int(index * step)] for index in range(size)))
        return path

    @cached_property
    def by_size(self):
        """(words, dictionary): evenly spread parts of the whole, and the whole."""
        sizes = (100, 500) if self.smoke else SIZES
        result = []
        for size in sizes:
            if size >= len(self.lines):
                continue
            result.append((size, self.build_lexicon(self.part(size), f"words{size}")))
        return result + [(len(self.lines), self.whole)]

    def words(self, count):
        """Headwords from all over the dictionary, in no order, the same at every run."""
        step = max(1, len(self.lines) // count)
        chosen = [line.split(b"\t", 1)[0].decode("utf-8") for line in self.lines[::step][:count]]
        # An option, or a wildcard of the other program, is no word to look up.
        plain = [word for word in chosen if word[0].isalnum() and not set(word) & set("*?\\/|:\"")]
        random.Random(3).shuffle(plain)
        return plain
