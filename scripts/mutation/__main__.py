# SPDX-License-Identifier: MIT
"""Puts small faults into a copy of the sources, one at a time, and lists those no test notices.

Each fault is built in build/mutation, where only what it changes is compiled again, and the tests
run, the nearest first, until one fails; one that hangs has failed. What became of a fault is kept
there, so that the same command goes on where it was ended. Faults that no one could notice are
argued in tests/mutation/equivalents.txt and do not count. Exit status: 0 when the share that was
noticed is large enough, 1 when it is not, 3 when the time was over before all were tried.
"""
import argparse
import os
import sys
import time
from pathlib import Path

import record
from building import Build
from equivalents import LIST, Equivalents
from mutant import mutants_of
from record import Record
from report import Summary
from sample import by_place, sample
from tree import Tree
from trial import Trial

ROOT = Path(__file__).resolve().parents[2]
USUAL = ["src/dictionary", "src/lookup", "src/settings", "src/widgets"]


def parse_arguments():
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folders", nargs="*", metavar="FOLDER", default=USUAL,
                        help="folders or files below src/ (usually " + " ".join(USUAL) + ")")
    parser.add_argument("--seed", type=int, default=1, help="which faults (1)")
    parser.add_argument("--count", type=int, default=100, help="how many that build (100)")
    parser.add_argument("--least", type=float, default=90, metavar="PERCENT",
                        help="the share that must be noticed (90)")
    parser.add_argument("--minutes", type=float, help="end after so long; the next run goes on")
    parser.add_argument("--retry", action="store_true",
                        help="try the survivors of the last run again, and keep what was noticed")
    parser.add_argument("--near", action="store_true",
                        help="run the tests of a fault's own folder alone: quicker, and more survive")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="compilers at once")
    parser.add_argument("--list", action="store_true", help="print the faults and put none in")
    return parser.parse_args()


class Run:
    def __init__(self, arguments, tree, equivalents):
        self.arguments = arguments
        self.tree = tree
        self.end = time.monotonic() + 60 * arguments.minutes if arguments.minutes else None
        found = [mutant for name in tree.sources(arguments.folders)
                 for mutant in mutants_of(name, tree.text(name))]
        self.order = [mutant for mutant in sample(found, arguments.seed)
                      if not equivalents.holds(mutant)]
        self.argued = len(found) - len(self.order)

    def chosen(self, kept):
        """The first ones that build, as far as that is known."""
        chosen = []
        for mutant in self.order:
            outcome = kept.outcome(mutant)
            if not outcome or outcome[0] != record.NOT_BUILT:
                chosen.append(mutant)
            if len(chosen) == self.arguments.count:
                break
        return chosen

    def go(self, trial, kept):
        """False when the time was over before all were tried."""
        while left := [mutant for mutant in self.chosen(kept) if not kept.outcome(mutant)]:
            for mutant in by_place(left):
                if self.end and time.monotonic() > self.end:
                    return False
                outcome, by = trial.outcome(mutant)
                kept.add(mutant, outcome, by)
                print(f"{outcome} {by} {mutant.file}:{mutant.line}: {mutant.kind}", flush=True)
        return True


def main():
    arguments = parse_arguments()
    equivalents = Equivalents.of(ROOT)
    if equivalents.faults:
        sys.exit(f"{LIST}: " + "; ".join(equivalents.faults))
    work = ROOT / "build/mutation"
    tree = Tree(ROOT, work / "tree")
    run = Run(arguments, tree, equivalents)
    if not run.order:
        sys.exit("There is no source in " + " ".join(arguments.folders))
    if arguments.list:
        for mutant in run.order[:arguments.count]:
            print(f"{mutant.file}:{mutant.line}: {mutant.kind}\n"
                  f"    - {mutant.original}\n    + {mutant.mutated}")
        return 0

    trial = Trial(tree, Build(tree.copy, work / "build", arguments.jobs), work / "tmp",
                  arguments.near)
    trial.prepare({mutant.file.split("/")[1] for mutant in run.order}, work / "usual.json")
    names = "-".join(sorted(folder.strip("/").replace("/", ".") for folder in arguments.folders))
    kept = Record(work / "records" / f"{arguments.seed}-{names}", tree.fingerprint(), arguments.retry,
                  arguments.near)
    try:
        whole = run.go(trial, kept)
    finally:
        tree.take_out()
    summary = Summary(run.order, kept, run.argued)
    summary.print()
    if not whole:
        return 3
    return 0 if summary.share >= arguments.least else 1


if __name__ == "__main__":
    sys.exit(main())
