# SPDX-License-Identifier: MIT
"""The engine on dictionaries of several sizes: how cost grows with the number of words."""
import processes
from table import Row

OPERATIONS = ("open", "find exact cold", "find exact warm", "find prefix cold", "find prefix warm",
              "article cold", "article warm", "look up cold", "look up warm", "open and look up",
              "walk")
LIMITS = {"open": 1.3, "look up warm": 1.2}


def measure(data):
    options = [f"--lexicon={path}" for _, path in data.by_size]
    costs = processes.google_benchmark(data.program("bench_dictionary"), options, data)
    smallest_words, smallest = data.by_size[0]
    rows = []
    for operation in OPERATIONS:
        base = costs[f"{operation}/{smallest.stem}"]["ns"] / 1e3
        for words, path in data.by_size:
            cost = costs[f"{operation}/{path.stem}"]["ns"] / 1e3
            # Of a walk the cost of a word is what should stay.
            scale = (words, "us/1000 words") if operation == "walk" else (1000, "us")
            first = smallest_words if operation == "walk" else 1000
            is_first = path == smallest
            rows.append(Row(operation, cost / scale[0] * 1000, scale[1],
                            None if is_first else base / first * 1000,
                            "" if is_first else f"{smallest_words} words",
                            limit=LIMITS.get(operation), column=f"{words:,} words", words=words))
    return rows
