# SPDX-License-Identifier: MIT
"""What a run has come to, for a person."""
from collections import Counter

import record


class Summary:
    """Of the faults of a run: those that build and are not argued to be equivalent count."""

    def __init__(self, mutants, kept, argued):
        self.argued = argued
        self.outcomes = [(mutant, kept.outcome(mutant)) for mutant in mutants]
        tried = [outcome[0] for _, outcome in self.outcomes if outcome]
        counted = Counter(tried)
        self.noticed = counted[record.NOTICED]
        self.survived = counted[record.SURVIVED]
        self.not_built = counted[record.NOT_BUILT]

    @property
    def share(self):
        """Percent of those that count which were noticed."""
        count = self.noticed + self.survived
        return 100 * self.noticed / count if count else 0.0

    def survivors(self):
        return [mutant for mutant, outcome in self.outcomes if outcome and outcome[0] == record.SURVIVED]

    def folders(self):
        """Noticed and survived in each folder below src/."""
        counts = {}
        for mutant, outcome in self.outcomes:
            if outcome and outcome[0] in (record.NOTICED, record.SURVIVED):
                counts.setdefault("/".join(mutant.file.split("/")[:2]), Counter())[outcome[0]] += 1
        return counts

    def print(self):
        for mutant in sorted(self.survivors(), key=lambda mutant: (mutant.file, mutant.line)):
            print(f"{mutant.file}:{mutant.line}: {mutant.kind}\n"
                  f"    - {mutant.original}\n    + {mutant.mutated}")
        for folder, counts in sorted(self.folders().items()):
            print(f"{folder}: {counts[record.NOTICED]} of {sum(counts.values())} noticed")
        print(f"{self.noticed} of {self.noticed + self.survived} faults noticed ({self.share:.1f} %), "
              f"{self.survived} survived; besides, {self.argued} argued to be equivalent, "
              f"{self.not_built} did not build")
