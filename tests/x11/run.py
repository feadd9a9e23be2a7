#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Runs one group of scenarios on a desktop of its own."""
import argparse
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
sys.dont_write_bytecode = True

from harness import tools  # noqa: E402  pylint: disable=wrong-import-position


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("group", help="file name without .py, e.g. test_start")
    parser.add_argument("--teskel", required=True, help="the reader")
    parser.add_argument("--lexicon-tool", required=True, help="teskel-lexicon")
    parser.add_argument("--real-lexicons", help="directory of Eng2Ger.PDB and Ger2Eng.PDB")
    parser.add_argument("--screen", default="640x480", metavar="WIDTHxHEIGHT")
    parser.add_argument("--failures", default=".", help="where pictures of failures are kept")
    parser.add_argument("--only", nargs="+", default=[], metavar="CLASS.TEST")
    return parser.parse_args()


def main():
    arguments = parse_arguments()
    missing = tools.missing_packages()
    if missing:
        print("The tests in a real X server need these Debian packages:", *missing)
        return 1

    from harness import lexicons
    from harness.desktop import Desktop
    from harness.scenario import Context, Result

    Context.program = arguments.teskel
    Context.lexicon_tool = arguments.lexicon_tool
    Context.failures = arguments.failures
    if arguments.real_lexicons:
        Context.real_lexicons = pathlib.Path(arguments.real_lexicons)
    names = [f"{arguments.group}.{test}" for test in arguments.only] or [arguments.group]
    suite = unittest.defaultTestLoader.loadTestsFromNames(names)
    with tempfile.TemporaryDirectory(prefix="teskel-samples-") as directory:
        Context.samples = lexicons.build(arguments.lexicon_tool, directory)
        Context.desktop = Desktop(*map(int, arguments.screen.split("x")))
        try:
            result = unittest.TextTestRunner(verbosity=2, stream=sys.stdout,
                                             resultclass=Result).run(suite)
        finally:
            Context.desktop.end()
    if result.testsRun == 0:
        print("no test was run")
        return 1
    return 0 if result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
