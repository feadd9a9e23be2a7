# SPDX-License-Identifier: MIT
"""The window at rest: memory that is the process's own, and threads."""
import subprocess
import time
from pathlib import Path

import display
import start
from table import Row


def private_memory(process):
    """Bytes of memory that the process shares with no other."""
    lines = (process / "smaps_rollup").read_text().splitlines()
    return sum(int(line.split()[1]) * 1024 for line in lines if line.startswith("Private_"))


def threads(process):
    """The names of its threads, sorted."""
    return sorted((task / "comm").read_text().strip() for task in (process / "task").iterdir())


def at_rest(command, environment):
    """(private memory, threads) of a program that waits for its user."""
    child = subprocess.Popen([str(part) for part in command], env=environment,
                             stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                             stderr=subprocess.DEVNULL)
    try:
        place = Path("/proc", str(child.pid))
        start.wait_for_rest(place / "task")
        time.sleep(1)  # a thread may wait a moment for more to do before it ends
        return private_memory(place), threads(place)
    finally:
        child.terminate()
        child.wait()


def least_at_rest(commands, environment, repeats):
    """at_rest() of each command, run by turns; of several runs the one with the least memory."""
    least = [None] * len(commands)
    for _ in range(repeats):
        for index, command in enumerate(commands):
            found = at_rest(command, environment)
            if least[index] is None or found[0] < least[index][0]:
                least[index] = found
    return least


def measure(data):
    rows = []
    commands = [[data.program("bench_start_bare"), "--stay"],
                [data.build / "src/app/teskel", "-f", data.whole]]
    with display.platforms(data) as platforms:
        for name, environment in platforms:
            bare, reader = least_at_rest(commands, environment, 1 if data.smoke else 5)
            marked = name == "Xvfb"
            rows.append(Row(f"private memory at rest, {name}", reader[0] / 1024, "KiB",
                            bare[0] / 1024, "bare Qt window", limit=1.1 if marked else None))
            rows.append(Row(f"threads at rest, {name}", len(reader[1]), "", len(bare[1]),
                            "bare Qt window", limit=1.0 if marked else None))
    return rows
