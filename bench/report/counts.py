# SPDX-License-Identifier: MIT
"""Instructions that fixed work takes, counted by valgrind: the same on a busy machine, so that a
change can be weighed where times say nothing."""
import os
import re
from pathlib import Path

import arjarchive
import corpus
import display
import processes

KEPT = Path(__file__).resolve().parents[1] / "counts.txt"

ENTRIES = 20_000
WORDS = 1_000
KEYS = 200

HEADING = """\
# Instructions for one unit of fixed work on a made-up dictionary, Qt's included; `bench/run --counts`
# counts them again, and with --write renews them. They differ by some hundredths between machines.
"""


def instructions(data, command, environment):
    """How many instructions a command takes, without those of programs that it starts."""
    report = data.directory / "valgrind.log"
    processes.run(["valgrind", "--tool=cachegrind", "--cache-sim=no", "--cachegrind-out-file=/dev/null",
                   f"--log-file={report}", *command], env=environment)
    counted = re.search(r"I\s+refs:\s+([\d,]+)", report.read_text(encoding="utf-8"))
    return int(counted[1].replace(",", ""))


def difference(data, more, less, environment):
    """What one command takes beyond another."""
    return instructions(data, more, environment) - instructions(data, less, environment)


def made_up(data):
    """A dictionary that is the same everywhere."""
    entries = data.directory / "counted.tsv"
    lines = list(corpus.made_up_lines(100 if data.smoke else ENTRIES))
    entries.write_text("".join(lines), encoding="utf-8")
    words = [line.split("\t", 1)[0] for line in lines]
    return data.build_lexicon(entries, "counted"), words[::max(1, len(words) // WORDS)]


def unpack(data, lexicon, _words, environment):
    archive = arjarchive.write(lexicon, data.directory / "counted.arj")
    command = [data.program("bench_unpack"), archive]
    size = int(processes.run(command).split()[2])
    return instructions(data, command, environment) / size


def look_ups(data, lexicon, words, environment):
    command = [data.tool, "find", lexicon]
    return difference(data, command + words, command + words[:1], environment) / (len(words) - 1)


def typing(data, lexicon, _words, environment):
    keys = 5 if data.smoke else KEYS
    command = [data.program("bench_keys"), lexicon, "--keys", keys, "--passes"]
    return difference(data, command + [1], command + [0], environment) / keys


WORKLOADS = {
    "unpacked byte": unpack,
    "look-up": look_ups,
    "typed character": typing,
}


def kept():
    if not KEPT.exists():
        return {}
    lines = KEPT.read_text(encoding="utf-8").splitlines()
    return {name: float(count) for name, count in
            (line.split("\t") for line in lines if line and not line.startswith("#"))}


def compare(data, write):
    """Prints the counts beside the kept ones; with `write`, keeps them. The program's exit code."""
    environment = {**display.own_settings(data.directory), "QT_QPA_PLATFORM": "offscreen",
                   "QT_HASH_SEED": "0", "HOME": os.fspath(data.directory)}
    lexicon, words = made_up(data)
    before = kept()
    counted = {}
    for name, workload in WORKLOADS.items():
        counted[name] = workload(data, lexicon, words, environment)
        ratio = f"{counted[name] / before[name]:.3f}" if name in before else "-"
        print(f"{name:<16} {counted[name]:>14,.1f} instructions, {ratio} of what is kept",
              flush=True)
    if write:
        KEPT.write_text(HEADING + "".join(f"{name}\t{count:.1f}\n" for name, count in
                                          counted.items()), encoding="utf-8")
    return 0
