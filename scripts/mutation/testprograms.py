# SPDX-License-Identifier: MIT
"""The tests of the copy: which are nearest to a source, how they are built and run."""
import json
import os
import re
import resource
import shutil
import signal
import subprocess
from dataclasses import dataclass
from pathlib import Path

from reach import Reach

# The tests of which folders may notice a fault in a folder, the nearest first.
FOLDERS = {
    "base": ("base", "dictionary"),
    "dictionary": ("dictionary", "lookup"),
    "files": ("files", "app"),
    "lookup": ("lookup", "app"),
    "platform": ("platform", "settings", "files", "app"),
    "script": ("script", "widgets", "lookup"),
    "settings": ("settings", "lookup", "app"),
    "widgets": ("widgets", "lookup", "settings", "app"),
}
GIGABYTE = 1 << 30
SKIPPED_A_PART = 77


@dataclass(frozen=True)
class TestProgram:
    name: str  # of ctest
    folder: str
    command: tuple
    environment: dict
    directory: str
    reach: dict  # units that it may call, and how many includes they are away


def environment_of(values):
    """What ctest would run a test with, in the environment that there is."""
    environment = dict(os.environ)
    for change in values.get("ENVIRONMENT_MODIFICATION", []):
        name, _, what = change.partition("=")
        if what.startswith("unset:"):
            environment.pop(name, None)
    environment.update(line.split("=", 1) for line in values.get("ENVIRONMENT", []))
    return environment


def programs_of(build, tree):
    """The test programs named after their folders: test_FOLDER_SUBJECT."""
    shown = subprocess.run(["ctest", "--show-only=json-v1"], cwd=build, check=True,
                           capture_output=True, text=True).stdout
    found = []
    reach = Reach(tree)
    for test in json.loads(shown)["tests"]:
        match = re.fullmatch(r"test_([a-z0-9]+)_(\w+)", test["name"])
        if match and "command" in test:
            unit = f"tests/{match[1]}/test_{match[2]}"
            values = {entry["name"]: entry["value"] for entry in test["properties"]}
            found.append(TestProgram(
                test["name"], match[1], tuple(test["command"]), environment_of(values),
                values.get("WORKING_DIRECTORY", str(build)), reach.distances(unit)))
    return found


def distance(program, file):
    """How far a test is from a source: those of its folder first, then by the includes between; None
    for one that cannot come there."""
    path = Path(file)
    folders = FOLDERS.get(path.parts[1], (path.parts[1],))
    steps = program.reach.get(str(path.with_suffix("")))
    if program.folder not in folders or steps is None:
        return None
    return folders.index(program.folder), steps


def nearest_first(programs, file, seconds):
    """Groups of tests, the nearest first; in a group the quickest first."""
    groups = {}
    for program in programs:
        far = distance(program, file)
        if far is not None:
            groups.setdefault(far, []).append(program)
    return [sorted(groups[far], key=lambda program: seconds.get(program.name, 0))
            for far in sorted(groups)]


def limit(cpu_seconds):
    """A fault may go on for ever, ask for all the memory and fill the disk; tests make files of
    more than 4 GB that are all holes."""
    resource.setrlimit(resource.RLIMIT_CPU, (cpu_seconds, cpu_seconds + 1))
    resource.setrlimit(resource.RLIMIT_AS, (8 * GIGABYTE, 8 * GIGABYTE))
    resource.setrlimit(resource.RLIMIT_FSIZE, (5 * GIGABYTE, 5 * GIGABYTE))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run(program, scratch, cpu_seconds, seconds):
    """Whether a test passes within so many seconds of the processor and of the clock, and how many
    of the processor it took."""
    shutil.rmtree(scratch, ignore_errors=True)
    scratch.mkdir(parents=True)
    process = subprocess.Popen(
        program.command, cwd=program.directory, env=program.environment | {"TMPDIR": str(scratch)},
        stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        start_new_session=True, preexec_fn=lambda: limit(cpu_seconds))
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    try:
        passed = process.wait(timeout=seconds) in (0, SKIPPED_A_PART)
    except subprocess.TimeoutExpired:
        passed = False
    finally:
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        process.wait()
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return passed, after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
