# SPDX-License-Identifier: MIT
"""Tries one fault after the other: put in, build, run the tests nearest first, until one fails."""
import json
import sys
from math import ceil

import record
import testprograms

# A test that takes so many times what it takes without a fault hangs: by the processor, which does
# not hang on what else runs, and when it waits for ever by the clock.
CPU_PATIENCE = 2
CPU_LEAST = 5
PATIENCE = 20
LEAST_SECONDS = 60


class Trial:
    def __init__(self, tree, build, scratch, near=False):
        """With `near`, only the tests of a fault's own folder are built and run."""
        self.tree = tree
        self.build = build
        self.scratch = scratch
        self.near = near
        self.programs = []
        self.seconds = {}

    def prepare(self, folders, kept):
        """Builds the copy without a fault and finds the tests that pass there.

        `kept` is a file that says how long they took in this state of the tree.
        """
        self.tree.renew()
        self.build.configure()
        wanted = set(folders)
        if not self.near:
            wanted.update(*(testprograms.FOLDERS.get(folder, ()) for folder in folders))
        programs = [program for program in testprograms.programs_of(self.build.directory, self.tree.copy)
                    if program.folder in wanted]
        said = self.build.make([program.name for program in programs])
        if said:
            sys.exit(f"The tree does not build without a fault:\n{said}")
        state = self.tree.fingerprint()
        known = json.loads(kept.read_text(encoding="utf-8")) if kept.is_file() else {}
        if known.get("state") != state:
            known = {"state": state, "seconds": {}}
        for program in programs:
            if program.name not in known["seconds"]:
                passed, seconds = testprograms.run(program, self.scratch, 600, 3600)
                known["seconds"][program.name] = seconds if passed else None
                kept.write_text(json.dumps(known), encoding="utf-8")
        for program in programs:
            if known["seconds"][program.name] is None:
                print(f"{program.name} fails without a fault and is left out", file=sys.stderr)
        self.seconds = {name: seconds for name, seconds in known["seconds"].items()
                        if seconds is not None}
        self.programs = [program for program in programs if program.name in self.seconds]

    def outcome(self, mutant):
        """What becomes of a fault, and the test that notices it."""
        self.tree.put_in(mutant)
        folder = mutant.file.split("/")[1]
        near = [program for program in self.programs if not self.near or program.folder == folder]
        for group in testprograms.nearest_first(near, mutant.file, self.seconds):
            if self.build.make([program.name for program in group]):
                return record.NOT_BUILT, ""
            for program in group:
                usual = self.seconds[program.name]
                if not testprograms.run(program, self.scratch, ceil(CPU_LEAST + CPU_PATIENCE * usual),
                                        LEAST_SECONDS + PATIENCE * usual)[0]:
                    return record.NOTICED, program.name
        return record.SURVIVED, ""
