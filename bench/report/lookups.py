# SPDX-License-Identifier: MIT
"""Exact look-ups with their articles: the lexicon tool and the engine beside `sdcv`."""
import os
import shutil

import processes
import stardict
from table import Row

COUNT = 20_000


def sdcv_command(directory):
    # Nothing but the one dictionary is searched, nothing is guessed, nothing converted.
    return ["sdcv", "--non-interactive", "--exact-search", "--utf8-input", "--utf8-output",
            "--only-data-dir", "--data-dir", directory]


def per_word(commands, words, data, environment):
    """CPU microseconds for each word, and of a start with one word."""
    full = processes.cpu_pairs([command + words for command in commands], data.repeats, environment)
    single = processes.cpu_pairs([command + words[:1] for command in commands],
                                 4 * data.repeats, environment)
    return [(all_words - one) / (len(words) - 1) * 1e6 for all_words, one in zip(full, single)], \
        [one * 1e6 for one in single]


UNPACKING = "three quarters of it is unpacking, of a record of 8 KB for nearly every word"
LOADING = "a program that is linked with Qt Core and does nothing takes three quarters of it"


def measure(data):
    words = data.words(200 if data.smoke else COUNT)
    commands = [[data.tool, "find", data.whole]]
    # sdcv keeps an index cache of its own there from its first start on.
    environment = {**os.environ, "HOME": str(data.directory), "LC_ALL": "C.UTF-8",
                   "XDG_CACHE_HOME": str(data.directory / "cache")}
    if shutil.which("sdcv") and shutil.which("dictzip"):
        stardict.write(data.lines, data.directory / "stardict")
        commands.append(sdcv_command(data.directory / "stardict"))
        processes.cpu(commands[1] + words[:1], 1, environment)
        check_found(commands, words, environment)
    rows = []
    for title, listed, limit in (("in any order", words, 1 / 9),
                                 ("in alphabetical order", sorted(words), 1 / 3)):
        each, start = per_word(commands, listed, data, environment)
        each.append(None)
        start.append(None)
        rows.append(Row(f"look up {len(words)} words {title}, each", each[0], "us", each[1],
                        "sdcv, .dict.dz", limit=limit, obstacle=UNPACKING))
    rows.append(Row("look up one word, from start to end", start[0], "us", start[1],
                    "sdcv, .dict.dz", limit=0.5, obstacle=LOADING))
    return rows


def check_found(commands, words, environment):
    """Both must find the words, or the comparison says nothing."""
    sample = words[:100]
    found = processes.run(commands[1] + sample, env=environment).decode("utf-8")
    missing = [word for word in sample if f"\n-->{word}\n" not in found]
    if missing:
        raise RuntimeError("sdcv does not find: " + ", ".join(missing))
    processes.run(commands[0] + sample, env=environment)
