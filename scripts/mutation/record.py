# SPDX-License-Identifier: MIT
"""What became of each fault, kept on disk so that a run can go on where it was ended."""
import json
from pathlib import Path

NOTICED = "noticed"
SURVIVED = "survived"
SURVIVED_NEAR = "survived the tests of its folder"
NOT_BUILT = "not built"


class Record:
    """A line for each fault; the first one says of which tree."""

    def __init__(self, path, fingerprint, retry=False, near=False):
        """With `retry`, what survived in another state of the tree is to be tried again, and what
        was noticed then counts. With `near`, surviving the tests of its folder is to survive."""
        self.path = Path(path)
        self.near = near
        self.outcomes = {}
        lines = self.path.read_text(encoding="utf-8").splitlines() if self.path.is_file() else []
        entries = [json.loads(line) for line in lines]
        if entries and (retry or entries[0] == fingerprint):
            self.outcomes = {json.dumps(key): (outcome, by) for key, outcome, by in entries[1:]
                             if not (retry and outcome in (SURVIVED, SURVIVED_NEAR))}
        self.path.parent.mkdir(parents=True, exist_ok=True)
        with self.path.open("w", encoding="utf-8") as file:
            print(json.dumps(fingerprint), file=file)
            for key, (outcome, by) in self.outcomes.items():
                print(json.dumps([json.loads(key), outcome, by]), file=file)

    def outcome(self, mutant):
        """What became of it and the test that noticed it; None when it was not tried."""
        outcome, by = self.outcomes.get(json.dumps(mutant.key), (None, ""))
        if outcome == SURVIVED_NEAR:
            return (SURVIVED, by) if self.near else None
        return None if outcome is None else (outcome, by)

    def add(self, mutant, outcome, by=""):
        outcome = SURVIVED_NEAR if self.near and outcome == SURVIVED else outcome
        self.outcomes[json.dumps(mutant.key)] = (outcome, by)
        with self.path.open("a", encoding="utf-8") as file:
            print(json.dumps([mutant.key, outcome, by]), file=file)
