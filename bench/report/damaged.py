# SPDX-License-Identifier: MIT
"""The one key that shows a large damaged article, beside the key that shows a good one."""
import subprocess

import display
import processes
from table import Row


def measure(data):
    rows = []
    passes = 1 if data.smoke else 15
    with display.platforms(data) as platforms:
        for name, environment in platforms:
            printed = processes.run([data.program("bench_damaged"), passes], env=environment,
                                    stderr=subprocess.DEVNULL).decode()
            for line in printed.splitlines():
                what, damaged, good = line.split("\t")
                rows.append(Row(f"29 kB of {what}, {name}", float(damaged), "us", float(good),
                                "good article", limit=50.0))
    return rows
