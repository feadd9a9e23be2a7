# SPDX-License-Identifier: MIT
"""Writes a dictionary in the form that StarDict programs read, from the export of a lexicon."""
import struct
import subprocess

ESCAPES = {b"n": b"\n", b"t": b"\t", b"\\": b"\\"}


def unescape(text):
    parts = text.split(b"\\")
    result = parts[0]
    index = 1
    while index < len(parts):
        part = parts[index]
        if part:
            result += ESCAPES[part[:1]] + part[1:]
        else:  # an escaped backslash; the next part follows it as it is
            index += 1
            result += b"\\" + (parts[index] if index < len(parts) else b"")
        index += 1
    return result


def sort_key(word):
    """The format's order: ASCII without regard to case, then bytes."""
    return word.lower(), word


def write(lines, directory):
    """Writes bench.ifo, .idx and .dict.dz; `lines` are headword, tabulator, article."""
    entries = [line.rstrip(b"\n").split(b"\t", 1) for line in lines]
    entries = sorted(((unescape(word), unescape(article)) for word, article in entries),
                     key=lambda entry: sort_key(entry[0]))
    directory.mkdir()
    offset = 0
    index = bytearray()
    with open(directory / "bench.dict", "wb") as texts:
        for word, article in entries:
            texts.write(article)
            index += word + b"\0" + struct.pack(">II", offset, len(article))
            offset += len(article)
    (directory / "bench.idx").write_bytes(index)
    (directory / "bench.ifo").write_text(
        "StarDict's dict ifo file\nversion=2.4.2\nbookname=bench\n"
        f"wordcount={len(entries)}\nidxfilesize={len(index)}\nsametypesequence=m\n",
        encoding="utf-8")
    subprocess.run(["dictzip", str(directory / "bench.dict")], check=True)
