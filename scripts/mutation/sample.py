# SPDX-License-Identifier: MIT
"""Which faults a seed stands for."""
import random


def sample(mutants, seed):
    """All of them in an order that hangs on the seed alone, each as likely as another."""
    order = sorted(mutants, key=lambda mutant: mutant.key)
    random.Random(seed).shuffle(order)
    return order


def by_place(mutants):
    """Those of one file after each other: what was compiled for one need not be for the next."""
    return sorted(mutants, key=lambda mutant: (mutant.file, mutant.start, mutant.replacement))
