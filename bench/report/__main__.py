# SPDX-License-Identifier: MIT
"""Compares the reader with other programs, on the same data in the same run, and prints a table.

usage: python3 bench/report [--smoke] [--lexicon FILE] [--only SECTION,...] [--write] [--counts]
                            BUILD-DIRECTORY

Ends with 1 when a ratio is above its limit.
"""
import argparse
import sys
import tempfile
from dataclasses import replace
from pathlib import Path

import building
import corpus
import counts
import damaged
import decoding
import deflating
import document
import growth
import large
import lookups
import plot
import rest
import start
import table
import window

DOCUMENT = Path(__file__).resolve().parents[2] / "docs/performance.md"
PICTURE = DOCUMENT.parent / "growth.svg"
PLOTTED = ("growth", "large")

SECTIONS = {
    "build": building.measure,
    "decoder": decoding.measure,
    "deflate": deflating.measure,
    "growth": growth.measure,
    "large": large.measure,
    "lookups": lookups.measure,
    "window": window.measure,
    "damaged": damaged.measure,
    "start": start.measure,
    "rest": rest.measure,
}


def parse_arguments():
    parser = argparse.ArgumentParser(prog="bench/report", description=__doc__.splitlines()[0])
    parser.add_argument("build", type=Path, help="build directory")
    parser.add_argument("--lexicon", type=Path, help="the dictionary to measure with")
    parser.add_argument("--only", help="sections, by commas: " + ", ".join(SECTIONS))
    parser.add_argument("--smoke", action="store_true",
                        help="everything once over on a small made-up dictionary")
    parser.add_argument("--write", action="store_true",
                        help="renew the tables of the measured sections in docs/performance.md, "
                             "and its plot when the sections that it shows were measured")
    parser.add_argument("--counts", action="store_true",
                        help="instead, the instructions that fixed work takes, beside those in "
                             "bench/counts.txt, which --write renews")
    arguments = parser.parse_args()
    chosen = arguments.only.split(",") if arguments.only else list(SECTIONS)
    unknown = [name for name in chosen if name not in SECTIONS]
    if unknown:
        parser.error("no such section: " + ", ".join(unknown))
    if not arguments.smoke and not arguments.lexicon and not arguments.counts:
        parser.error("--lexicon or --smoke is needed")
    return arguments, chosen


def main():
    arguments, chosen = parse_arguments()
    tables, missed, plotted = {}, [], []
    with tempfile.TemporaryDirectory(prefix="teskel-bench-") as directory:
        data = corpus.Corpus(arguments.build, Path(directory), arguments.lexicon,
                             smoke=arguments.smoke)
        if arguments.counts:
            return counts.compare(data, arguments.write)
        for name in chosen:
            print(f"{name}:", flush=True)
            rows = SECTIONS[name](data)
            if arguments.smoke:  # nothing is long enough to be judged by
                rows = [replace(row, limit=None) for row in rows]
            print(table.format_rows(rows) + "\n", flush=True)
            missed += [row.shortfall() for row in rows if row.is_missed()]
            plotted += rows if name in PLOTTED else []
            tables[name] = table.markdown(rows)
    if arguments.write:
        tables["machine"] = document.machine()
        document.renew(DOCUMENT, tables)
        if set(PLOTTED) <= set(chosen):
            plot.write(PICTURE, plotted)
    for shortfall in missed:
        print(f"missed: {shortfall}", file=sys.stderr)
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
