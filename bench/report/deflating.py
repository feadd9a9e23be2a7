# SPDX-License-Identifier: MIT
"""Unpacking in memory with checksum, beside libdeflate on the same texts as gzip members.

What is to be reached is said as speed, in parts of libdeflate's; a limit here is a ratio of costs,
one part over that.
"""
import processes
from table import Row

WORDS = 50_000
MEMBERS = ((8192, "8 KB"), (16384, "16 KB"))
SPEED = {1: 1.1, 2: 1.1, 3: 1.1, 4: 1.3}
PORTABLE_SPEED = 0.8  # with the checksum by our table, libdeflate as fast as it can


def rows_of(data, program, lexicons, title, speeds):
    costs = processes.google_benchmark(data.program(program),
                                       [f"--lexicon={lexicons[key]}" for key in speeds], data)
    rows = []
    for key, speed in speeds.items():
        method, size = key
        ours, other = (costs[f"{kind}/{lexicons[key].stem}"]["bytes_per_second"] / 1e6
                       for kind in ("unpack", "inflate"))
        rows.append(Row(f"{title}, method {method}, members of {size}", ours, "MB/s", other,
                        "libdeflate", limit=round(1 / speed, 3), more_is_better=True))
    return rows


def measure(data):
    entries = data.part(WORDS)
    lexicons = {(method, title): data.build_lexicon(entries, f"deflate{method}of{size}", "--method",
                                                    method, "--record-size", size)
                for method in SPEED for size, title in MEMBERS}
    rows = rows_of(data, "bench_deflate", lexicons, "unpack",
                   {key: SPEED[key[0]] for key in lexicons})
    rows += rows_of(data, "bench_deflate_portable", lexicons, "unpack, portable",
                    dict.fromkeys(lexicons, PORTABLE_SPEED))
    return rows
