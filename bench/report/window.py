# SPDX-License-Identifier: MIT
"""The lookup window: the word list, the article, and one typed character from the key to the
painted window."""
import display
import processes
from table import Row


def measure(data):
    rows = []
    option = [f"--lexicon={data.whole}"]
    with display.platforms(data) as platforms:
        for name, environment in platforms:
            typing = processes.google_benchmark(data.program("bench_typing"), option, data,
                                                environment)
            rows.append(Row(f"one typed character, {name}", typing["reader"]["ns"] / 1e3, "us",
                            typing["bare"]["ns"] / 1e3, "bare Qt window", limit=1.5))
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
