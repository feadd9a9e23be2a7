# SPDX-License-Identifier: MIT
"""What processes cost: CPU time, user and system, of a child and everything it waited for."""
import json
import os
import subprocess


def run(command, **options):
    """Runs a command that must succeed; its output as bytes."""
    done = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, check=True,
                          **options)
    return done.stdout


def cpu_once(command, environment=None, accept=(0,)):
    """CPU seconds of one run, and its output."""
    child = subprocess.Popen([str(part) for part in command], stdin=subprocess.DEVNULL,
                             stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, env=environment)
    output = child.stdout.read()
    _, status, usage = os.wait4(child.pid, 0)
    child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode not in accept:
        raise RuntimeError(f"{command[0]} ended with {child.returncode}")
    return usage.ru_utime + usage.ru_stime, output


def cpu(command, repeats, environment=None, accept=(0,)):
    """The least CPU seconds of several runs: what else runs on the machine only adds to them."""
    return min(cpu_once(command, environment, accept)[0] for _ in range(repeats))


def cpu_pairs(commands, repeats, environment=None):
    """The least CPU seconds of each command, run by turns so that all meet the same weather."""
    least = [float("inf")] * len(commands)
    for _ in range(repeats):
        for index, command in enumerate(commands):
            least[index] = min(least[index], cpu_once(command, environment)[0])
    return least


def google_benchmark(program, arguments, data, environment=None, select=None):
    """Runs a Google Benchmark program: name -> the least CPU nanoseconds of an iteration, with
    throughput and counters where it reports them."""
    command = [program, *arguments, "--benchmark_format=json"]
    command += (["--benchmark_min_time=0.001"] if data.smoke else
                ["--benchmark_min_time=0.1", "--benchmark_repetitions=5",
                 "--benchmark_enable_random_interleaving=true"])
    if select:
        command.append(f"--benchmark_filter={select}")
    report = json.loads(run(command, stderr=subprocess.DEVNULL, env=environment))
    scale = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
    best = {}
    for entry in report["benchmarks"]:
        if entry.get("error_occurred"):
            raise RuntimeError(f"{entry['name']}: {entry['error_message']}")
        if entry["run_type"] != "iteration":
            continue
        name = entry["run_name"].removesuffix("/process_time").partition("/iterations:")[0]
        cost = entry["cpu_time"] * scale[entry["time_unit"]]
        if name not in best or cost < best[name]["ns"]:
            best[name] = {**entry, "ns": cost}
    return best
