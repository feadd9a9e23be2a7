#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""How scripts/mutate tries a fault: the copy that it is put into, which tests run, when they end."""
import os
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts/mutation"))
import record  # noqa: E402
import testprograms  # noqa: E402
from mutant import mutants_of  # noqa: E402
from reach import Reach  # noqa: E402
from testprograms import TestProgram  # noqa: E402
from tree import Tree  # noqa: E402
from trial import Trial  # noqa: E402

SOURCE = "bool small(int a)\n{\n    return a < 3;\n}\n"


def program(name, folder, command=(), reach=()):
    return TestProgram(f"test_{folder}_{name}", folder, tuple(command), dict(os.environ), "/",
                       dict(reach) or {"src/base/small": 1})


class Staged(unittest.TestCase):
    def setUp(self):
        stage = tempfile.TemporaryDirectory()
        self.addCleanup(stage.cleanup)
        self.root = pathlib.Path(stage.name) / "root"
        self.copy = pathlib.Path(stage.name) / "copy"
        self.scratch = pathlib.Path(stage.name) / "scratch"
        (self.root / "src/base").mkdir(parents=True)
        (self.root / "src/base/small.cpp").write_text(SOURCE)
        (self.root / "src/base/other.cpp").write_text("int a = b + c;\n")
        self.tree = Tree(self.root, self.copy)
        self.tree.renew()
        self.mutants = mutants_of("src/base/small.cpp", SOURCE)


class Copy(Staged):
    def test_the_tree_itself_is_not_touched(self):
        self.tree.put_in(self.mutants[0])
        self.assertEqual((self.root / "src/base/small.cpp").read_text(), SOURCE)
        self.assertNotEqual((self.copy / "src/base/small.cpp").read_text(), SOURCE)

    def test_one_fault_at_a_time(self):
        self.tree.put_in(self.mutants[0])
        self.tree.put_in(mutants_of("src/base/other.cpp", self.tree.text("src/base/other.cpp"))[0])
        self.assertEqual((self.copy / "src/base/small.cpp").read_text(), SOURCE)
        self.assertEqual((self.copy / "src/base/other.cpp").read_text(), "int a = b - c;\n")
        self.tree.take_out()
        self.assertEqual((self.copy / "src/base/other.cpp").read_text(), "int a = b + c;\n")

    def test_renewed_after_a_run_that_was_killed(self):
        self.tree.put_in(self.mutants[0])
        (self.root / "src/base/other.cpp").unlink()
        untouched = self.copy / "src/base/new.cpp"
        (self.root / "src/base/new.cpp").write_text("")
        Tree(self.root, self.copy).renew()
        self.assertEqual((self.copy / "src/base/small.cpp").read_text(), SOURCE)
        self.assertTrue(untouched.is_file())
        self.assertFalse((self.copy / "src/base/other.cpp").exists())

    def test_what_did_not_change_is_not_written(self):
        before = (self.copy / "src/base/small.cpp").stat().st_mtime_ns
        self.tree.renew()
        self.assertEqual((self.copy / "src/base/small.cpp").stat().st_mtime_ns, before)

    def test_what_is_built_is_not_copied(self):
        (self.root / "build").mkdir()
        (self.root / "build/made.cpp").write_text("")
        self.assertNotIn("build/made.cpp", self.tree.files())

    def test_sources_of_folders(self):
        (self.root / "src/base/notes.txt").write_text("")
        (self.root / "src/baseline.cpp").write_text("")
        self.assertEqual(self.tree.sources(["src/base/"]), ["src/base/other.cpp", "src/base/small.cpp"])
        self.assertEqual(self.tree.sources(["src/base/small.cpp"]), ["src/base/small.cpp"])


class Nearness(unittest.TestCase):
    def test_nearest_first(self):
        source = "src/dictionary/unpacking/cdecoder"
        programs = [program("teskelmainwidget", "lookup", reach={source: 1}),
                    program("slow", "dictionary", reach={source: 2}),
                    program("far", "dictionary", reach={"src/dictionary/far": 1}),
                    program("combobox", "widgets", reach={source: 1}),
                    program("quick", "dictionary", reach={source: 2}),
                    program("cdecoder", "dictionary", reach={source: 1})]
        seconds = {"test_dictionary_slow": 2.0, "test_dictionary_quick": 1.0}
        groups = testprograms.nearest_first(programs, source + ".cpp", seconds)
        self.assertEqual([[one.name for one in group] for group in groups],
                         [["test_dictionary_cdecoder"],
                          ["test_dictionary_quick", "test_dictionary_slow"],
                          ["test_lookup_teskelmainwidget"]])


class Reaching(Staged):
    def test_by_headers_and_the_sources_beside_them(self):
        (self.root / "tests/a").mkdir(parents=True)
        (self.root / "tests/a/test_b.cpp").write_text('#include "base/other.h"\n#include <QTest>\n')
        (self.root / "src/base/other.cpp").write_text('#include "base/small.h"\n')
        (self.root / "src/base/away.cpp").write_text('#include "base/away.h"\n#include "base/other.h"\n')
        for name in ("small", "other", "away"):
            (self.root / f"src/base/{name}.h").write_text("")
        self.assertEqual(Reach(self.root).distances("tests/a/test_b"),
                         {"tests/a/test_b": 0, "src/base/other": 1, "src/base/small": 2})

    def test_sources_without_a_header_hold_what_the_first_that_they_include_declares(self):
        (self.root / "tests/a").mkdir(parents=True)
        (self.root / "tests/a/test_b.cpp").write_text('#include "base/other.h"\n')
        for name in ("small", "other"):
            (self.root / f"src/base/{name}.h").write_text("")
        (self.root / "src/base/iterator.cpp").write_text('#include "base/other.h"\n#include "base/small.h"\n')
        self.assertEqual(Reach(self.root).distances("tests/a/test_b"),
                         {"tests/a/test_b": 0, "src/base/other": 1, "src/base/iterator": 2,
                          "src/base/small": 3})


class Running(Staged):
    def passes(self, script, cpu_seconds=20, seconds=60):
        return testprograms.run(program("a", "base", ["sh", "-c", script]), self.scratch, cpu_seconds,
                                seconds)[0]

    def test_exit_status(self):
        self.assertTrue(self.passes("exit 0"))
        self.assertTrue(self.passes("exit 77"))
        self.assertFalse(self.passes("exit 1"))
        self.assertFalse(self.passes("kill -SEGV $$"))

    def test_one_that_hangs_has_failed(self):
        self.assertFalse(self.passes("sleep 600 & wait", seconds=0.5))
        self.assertFalse(self.passes("while :; do :; done", cpu_seconds=1))

    def test_temporary_files_are_its_own(self):
        self.assertTrue(self.passes('touch "$TMPDIR/left"'))
        self.assertTrue(self.passes('test ! -e "$TMPDIR/left"'))


class FakeBuild:
    def __init__(self, says=""):
        self.says = says
        self.made = []

    def make(self, targets):
        self.made += targets
        return self.says


class Trying(Staged):
    def trial(self, build, *scripts):
        trial = Trial(self.tree, build, self.scratch)
        trial.programs = [program(name, folder, ["sh", "-c", script]) for name, folder, script in scripts]
        trial.seconds = {one.name: 0.1 for one in trial.programs}
        return trial

    def test_noticed_by_the_nearest(self):
        build = FakeBuild()
        sees = f"grep -q 'a < 3' {self.copy}/src/base/small.cpp"
        trial = self.trial(build, ("words", "dictionary", "exit 1"), ("small", "base", sees))
        self.assertEqual(trial.outcome(self.mutants[0]), (record.NOTICED, "test_base_small"))
        self.assertEqual(build.made, ["test_base_small"])

    def test_survives_when_all_pass(self):
        build = FakeBuild()
        trial = self.trial(build, ("words", "dictionary", "exit 0"), ("small", "base", "exit 0"))
        self.assertEqual(trial.outcome(self.mutants[0]), (record.SURVIVED, ""))
        self.assertEqual(build.made, ["test_base_small", "test_dictionary_words"])

    def test_only_the_tests_of_its_folder(self):
        trial = self.trial(FakeBuild(), ("words", "dictionary", "exit 1"), ("small", "base", "exit 0"))
        trial.near = True
        self.assertEqual(trial.outcome(self.mutants[0]), (record.SURVIVED, ""))

    def test_one_that_does_not_build_is_neither(self):
        trial = self.trial(FakeBuild("error"), ("small", "base", "exit 1"))
        self.assertEqual(trial.outcome(self.mutants[0]), (record.NOT_BUILT, ""))


if __name__ == "__main__":
    unittest.main()
