# SPDX-License-Identifier: MIT
"""From the start of the process to the painted window."""
import struct
import subprocess
import time
from pathlib import Path

import display
import processes
from table import Row

# Highest ratios to the bare window.
PAINTING = "Qt paints the gradients of bars and buttons, which the bare window does not have"
PAINTED = {"Xvfb": 1.1, "offscreen": 2.0}
ENDED = {"Xvfb": 1.15, "offscreen": 2.0}


def index_size(lexicon):
    """Bytes of the word index, record 0."""
    with open(lexicon, "rb") as file:
        header = file.read(78 + 16)
    first, = struct.unpack_from(">I", header, 78)
    second, = struct.unpack_from(">I", header, 86)
    return second - first


def measure(data):
    rows = []
    reader = data.program("bench_start_reader")
    bare = data.program("bench_start_bare")
    repeats = 1 if data.smoke else 25
    with display.platforms(data) as platforms:
        for name, environment in platforms:
            commands = [[bare]] + [[reader, "-f", path] for _, path in data.by_size]
            costs = processes.cpu_pairs(commands, repeats, environment)
            for (words, _), cost in zip(data.by_size, costs[1:]):
                rows.append(Row(f"start until painted, {words} words, {name}", cost * 1e3, "ms",
                                costs[0] * 1e3, "bare Qt window", limit=PAINTED[name],
                                obstacle=PAINTING))
            whole = [command + ["--to-end"] for command in (commands[0], commands[-1])]
            costs = processes.cpu_pairs(whole, repeats, environment)
            rows.append(Row(f"start to the end, {name}", costs[1] * 1e3, "ms", costs[0] * 1e3,
                            "bare Qt window", limit=ENDED[name]))
            stay = [cpu_at_rest(command, environment, repeats // 4 + 1) for command in
                    ([bare, "--stay"], [data.build / "src/app/teskel", "-f", data.whole])]
            rows.append(Row(f"the program itself, started until it rests, {name}", stay[1] * 1e3,
                            "ms", stay[0] * 1e3, "bare Qt window", limit=2.0))
        rows += bytes_read(data, reader, environment)
    return rows


def bytes_read(data, reader, environment):
    """What is read at start beyond what is read with the smallest dictionary, beside what the
    word index is longer."""
    read = [int(processes.cpu_once([reader, "-f", path], environment)[1]) for _, path in
            data.by_size]
    first_index = index_size(data.by_size[0][1])
    rows = []
    for (words, path), count in list(zip(data.by_size, read))[1:]:
        rows.append(Row(f"bytes read at start beyond those of {data.by_size[0][0]} words, "
                        f"{words} words", (count - read[0]) / 1024, "KiB",
                        (index_size(path) - first_index) / 1024, "growth of the word index"))
    return rows


def cpu_at_rest(command, environment, repeats):
    """The least CPU seconds of several starts, until the program waits for its user."""
    costs = []
    for _ in range(repeats):
        child = subprocess.Popen([str(part) for part in command], env=environment,
                                 stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                 stderr=subprocess.DEVNULL)
        try:
            costs.append(wait_for_rest(Path("/proc", str(child.pid), "task")))
        finally:
            child.terminate()
            child.wait()
    return min(costs)


def wait_for_rest(tasks):
    """Until no thread wants to run for a while: the CPU seconds that it took."""
    asleep = 0
    cost = 0
    deadline = time.monotonic() + 60
    while asleep < 12:
        if time.monotonic() > deadline:
            raise RuntimeError("a program never comes to rest")
        time.sleep(0.02)
        try:
            states = [(task / "stat").read_text().rpartition(")")[2].split()[0]
                      for task in tasks.iterdir()]
            now = sum(int((task / "schedstat").read_text().split()[0])
                      for task in tasks.iterdir())
        except (FileNotFoundError, ProcessLookupError):  # a thread that ended between
            asleep = 0
            continue
        asleep = asleep + 1 if set(states) == {"S"} and now == cost else 0
        cost = now
    return cost / 1e9
