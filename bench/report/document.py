# SPDX-License-Identifier: MIT
"""Renews the tables of a document that were measured, and leaves its words alone.

A table stands between the lines "<!-- measured: NAME -->" and "<!-- end -->".
"""
import datetime
import platform
import re
import subprocess


def renew(path, tables):
    """Puts `tables` (name -> Markdown) in their places; a table without a place is an error."""
    text = path.read_text(encoding="utf-8")
    for name, table in tables.items():
        place = re.compile(rf"(<!-- measured: {re.escape(name)} -->\n).*?(<!-- end -->)", re.DOTALL)
        if not place.search(text):
            raise RuntimeError(f"{path} has no place for the table of {name}")
        text = place.sub(lambda match, table=table: match[1] + table + "\n" + match[2], text)
    path.write_text(text, encoding="utf-8")


def version_of(package):
    shown = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package], check=False,
                           capture_output=True, text=True)
    version = re.match(r"(?:\d+:)?([^-+]*)", shown.stdout.strip())[1]
    return version or "not installed"


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        models = re.findall(r"^model name\s*:\s*(.*)$", file.read(), re.MULTILINE)
    return f"{len(models)} cores of {models[0]}" if models else platform.machine()


def machine():
    """One sentence about the day and the machine."""
    with open("/proc/loadavg", encoding="utf-8") as file:
        load = file.read().split()[0]
    versions = ", ".join(f"{title} {version_of(package)}" for title, package in (
        ("GCC", "g++"), ("Qt", "libqt6core6"), ("7-Zip", "7zip"),
        ("libdeflate", "libdeflate-dev"), ("sdcv", "sdcv")))
    return (f"Measured on {datetime.date.today():%-d %B %Y}: {processor()}, {platform.system()} "
            f"{platform.machine()}, {versions}; load at the end {load}.")
