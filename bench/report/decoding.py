# SPDX-License-Identifier: MIT
"""Unpacking: `7z t` and the engine test one and the same archive of word records."""
import shutil

import arjarchive
import processes
from table import Row

# Large records leave 7z the least to do beside unpacking: one entry of a list for each member.
LARGE_RECORDS = 32000
WORDS = 100_000


def compare(data, title, lexicon, seven_zip):
    archive = arjarchive.write(lexicon, data.directory / f"{lexicon.stem}.arj")
    commands = [[data.program("bench_unpack"), archive]]
    if seven_zip:
        commands.append([seven_zip, "t", "-mmt1", archive])
    costs = processes.cpu_pairs(commands, data.repeats)
    size = int(processes.run(commands[0]).split()[2])
    speeds = [size / 1e6 / cost for cost in costs] + [None]
    return Row(title, speeds[0], "MB/s", speeds[1], "7z t", limit=1.0, more_is_better=True)


def measure(data):
    seven_zip = shutil.which("7zz") or shutil.which("7z")
    entries = data.part(WORDS)
    rows = []
    for method in (1, 2, 3, 4):
        for title, name, options in (
                ("", "", []), (", large records", "large", ["--record-size", LARGE_RECORDS])):
            lexicon = data.build_lexicon(entries, f"method{method}{name}", "--method", method,
                                         *options)
            rows.append(compare(data, f"test an archive, method {method}{title}", lexicon,
                                seven_zip))
            speed = processes.google_benchmark(data.program("bench_decoder"),
                                               [f"--lexicon={lexicon}"], data)
            rows.append(Row(f"unpack in memory, method {method}{title}",
                            next(iter(speed.values()))["bytes_per_second"] / 1e6, "MB/s"))
            lexicon.unlink()
    return rows
