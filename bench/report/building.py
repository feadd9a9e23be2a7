# SPDX-License-Identifier: MIT
"""Building: the lexicon tool and its packing alone beside `arj a` on the same records."""
import re
import shutil

import processes
from archiver import Records
from table import Row

RECORD_SIZES = (2000, 8000, 16000, 32000)
WORDS = 60_000
METHODS = (1, 2, 3)  # of arj, whose best is not always its first
HOSTILE_ARTICLES = 100


def hostile_text(data):
    """Articles made to have as many repetitions as can be, none of them the best."""
    path = data.directory / "hostile.tsv"
    count = 4 if data.smoke else HOSTILE_ARTICLES
    with path.open("w", encoding="ascii") as file:
        for index in range(count):
            for kind, text in (("run", "a" * 30000), ("turns", "ab" * 15000),
                               ("period", ("abcdefgh" * 32)[:255] * 117),
                               ("grow", "".join("x" * length + "y" for length in range(240)))):
                file.write(f"{kind}{index:04}\t{text}\n")
    return path


def packed(data, lexicon):
    """Bytes of text and of packed records, and seconds of CPU."""
    told = processes.run([data.program("bench_pack"), lexicon, 1, data.repeats]).decode()
    return re.fullmatch(r"(\d+) bytes of text, (\d+) packed, (\S+) seconds of CPU\n", told).groups()


def compare(data, entries, title, column, options, has_whole):
    lexicon = data.build_lexicon(entries, "built", *options)
    text, size, seconds = packed(data, lexicon)
    per_byte = 1e9 / int(text)
    records = Records(lexicon, data.directory, shutil.which("7zz") or shutil.which("7z"))
    others = records.pack(METHODS, data.repeats)
    records.remove()
    best = min(other.size for other in others.values())
    rows = [Row(f"pack{title}, each byte{column}", float(seconds) * per_byte, "ns",
                others[1].seconds * per_byte, "arj a -m1", limit=1.0),
            Row(f"packed size{title}{column}", 100 * int(size) / int(text), "%",
                100 * best / int(text), "arj a, best method", limit=1.0)]
    if has_whole:
        build = processes.cpu([data.tool, "build", entries, "-o", lexicon, "--quiet", *options],
                              data.repeats)
        rows.append(Row(f"build in whole, each byte{column}", build * per_byte, "ns",
                        others[1].whole_seconds * per_byte, "arj a -m1", limit=1.0))
    lexicon.unlink()
    return rows


def measure(data):
    if not shutil.which("arj"):
        return []
    entries = data.part(WORDS)
    rows = []
    for size in RECORD_SIZES:
        rows += compare(data, entries, "", f", records of {size:,} bytes", ["--record-size", size],
                        has_whole=True)
    return rows + compare(data, hostile_text(data), " hostile text", "",
                          ["--record-size", RECORD_SIZES[-1]], has_whole=False)
