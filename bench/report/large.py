# SPDX-License-Identifier: MIT
"""The engine and the reader's start on the largest dictionaries there can be, made up, each beside
one of 70 records of the same kind."""
import struct
from dataclasses import dataclass

import display
import processes
from table import Row

ENTRIES = 43  # of a record
SMALL = 70  # records
LIMITS = {"open": 1.3, "look up cold": 1.2, "look up warm": 1.2, "open and look up": None}


@dataclass
class Kind:
    """Dictionaries of records of one size."""
    name: str
    record_bytes: int
    records: int  # of the large one

    def words(self):
        return self.records * ENTRIES


KINDS = (Kind("Usual", 8000, 32_618), Kind("Longest", 32_767, 65_530))


def index_bytes(lexicon):
    """Of the word index, record 0."""
    with open(lexicon, "rb") as file:
        first, _, second = struct.unpack_from(">III", file.read(78 + 16), 78)
    return second - first


def make(data, kind, records):
    target = data.directory / f"{kind.name}{records}.PDB"
    processes.run([data.program("bench_makelexicon"), target, records, ENTRIES, kind.record_bytes])
    return target


def measure(data):
    rows = []
    for kind in KINDS:
        if data.smoke:
            kind = Kind(kind.name, kind.record_bytes, 3 * SMALL)
        lexicons = [make(data, kind, records) for records in (SMALL, kind.records)]
        title = f"{kind.words():,} words in {kind.records:,} records"
        rows += engine(data, lexicons, kind, title)
        rows.append(start(data, lexicons, title))
        rows.append(memory(data, lexicons, title))
        for lexicon in lexicons:
            lexicon.unlink()
    return rows


def engine(data, lexicons, kind, title):
    options = [f"--lexicon={path}" for path in lexicons]
    select = "^(" + "|".join(LIMITS) + ")/"
    costs = processes.google_benchmark(data.program("bench_dictionary"), options, data,
                                       select=select)
    rows = []
    for operation, limit in LIMITS.items():
        small, large = (costs[f"{operation}/{path.stem}"]["ns"] / 1e3 for path in lexicons)
        rows.append(Row(f"{operation}, {title}", large, "us", small, f"{SMALL} records", limit,
                        series=operation, words=kind.words()))
    return rows


def start(data, lexicons, title):
    environment = {**display.own_settings(data.directory), "QT_QPA_PLATFORM": "offscreen"}
    commands = [[data.program("bench_start_reader"), "-f", path] for path in lexicons]
    small, large = processes.cpu_pairs(commands, 1 if data.smoke else 25, environment)
    return Row(f"start until painted, {title}", large * 1e3, "ms", small * 1e3,
               f"{SMALL} records", limit=1.1)


def memory(data, lexicons, title):
    """What is held at rest after a search, beyond what the small dictionary takes."""
    options = [f"--lexicon={path}" for path in lexicons]
    small, large = map(int, processes.run([data.program("bench_memory"), *options]).split())
    growth = index_bytes(lexicons[1]) - index_bytes(lexicons[0])
    return Row(f"memory held after a search, {title}", (large - small) / 1024, "KiB",
               growth / 1024, "growth of the word index", limit=1.1)
