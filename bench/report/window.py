# SPDX-License-Identifier: MIT
"""The lookup window: the word list, the article, and one typed character from the key to the
painted window."""
import statistics
import subprocess

import display
import processes
from table import Row

KEYS = 500
# Highest ratios to the bare window.
TYPED = {"Xvfb": 0.6, "offscreen": 1.5}
PAINTING = "half of it is painting and handing the picture to the display, as in the bare window"
LONG_ARTICLES = ("they show the longest articles and rows of long phrases; the bare window's own 99th "
                 "is some four times its median")


def each_key(data, environment, *options):
    """CPU microseconds of every typed key, rising."""
    keys, passes = (20, 1) if data.smoke else (KEYS, 5)
    printed = processes.run([data.program("bench_keys"), "--keys", keys, "--passes", passes,
                             *options, data.whole], env=environment, stderr=subprocess.DEVNULL)
    return sorted(float(line) for line in printed.split())


def slowest_keys(data, name, environment):
    """The 99th of 100 typed keys, beside the median of the bare window."""
    reader = each_key(data, environment)
    bare = each_key(data, environment, "--bare")
    return Row(f"99th of 100 typed characters, {name}", reader[len(reader) * 99 // 100 - 1], "us",
               statistics.median(bare), "bare Qt window, median",
               limit=2.0 if name == "Xvfb" else None, obstacle=LONG_ARTICLES)


def measure(data):
    rows = []
    option = [f"--lexicon={data.whole}"]
    with display.platforms(data) as platforms:
        for name, environment in platforms:
            typing = processes.google_benchmark(data.program("bench_typing"), option, data,
                                                environment)
            rows.append(Row(f"one typed character, {name}", typing["reader"]["ns"] / 1e3, "us",
                            typing["bare"]["ns"] / 1e3, "bare Qt window", limit=TYPED[name],
                            obstacle=PAINTING))
            rows.append(slowest_keys(data, name, environment))
            lists = processes.google_benchmark(data.program("bench_list"), option, data,
                                               environment)
            for how in ("unpainted", "painted"):
                for what in ("fill", "move"):
                    rows.append(Row(f"{what} the list, {how}, {name}",
                                    lists[f"{what}/{how}"]["ns"] / 1e3, "us",
                                    lists[f"stock rows/{how}"]["ns"] / 1e3, "QListWidget"))
            articles = processes.google_benchmark(data.program("bench_article"), option, data,
                                                  environment)
            for texts, what in (("articles", "an article"), ("references", "4,500 references")):
                rows.append(Row(f"set {what}, {name}", articles[f"{texts}/reader"]["ns"] / 1e3,
                                "us", articles[f"{texts}/stock"]["ns"] / 1e3, "QTextEdit"))
    return rows
