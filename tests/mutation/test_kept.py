#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""What scripts/mutate keeps and says: outcomes of a run that is ended, the share, equivalents."""
import contextlib
import io
import pathlib
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts/mutation"))
import record  # noqa: E402
from equivalents import Equivalents  # noqa: E402
from mutant import mutants_of  # noqa: E402
from record import Record  # noqa: E402
from report import Summary  # noqa: E402

FILE = "src/a/b.cpp"
MUTANTS = mutants_of(FILE, "a = b < c;\nd = e + f;\ng = h && i;\nj = k == l;\n")


class Kept(unittest.TestCase):
    def setUp(self):
        stage = tempfile.TemporaryDirectory()
        self.addCleanup(stage.cleanup)
        self.path = pathlib.Path(stage.name) / "records/1"
        kept = Record(self.path, "state")
        kept.add(MUTANTS[0], record.NOTICED, "test_a_b")
        kept.add(MUTANTS[1], record.SURVIVED)

    def test_goes_on_in_the_same_state(self):
        kept = Record(self.path, "state")
        self.assertEqual([kept.outcome(mutant) for mutant in MUTANTS],
                         [(record.NOTICED, "test_a_b"), (record.SURVIVED, ""), None, None])

    def test_begins_anew_in_another(self):
        kept = Record(self.path, "other")
        self.assertIsNone(kept.outcome(MUTANTS[0]))
        self.assertIsNone(Record(self.path, "state").outcome(MUTANTS[0]))

    def test_tries_survivors_again(self):
        kept = Record(self.path, "other", retry=True)
        self.assertEqual(kept.outcome(MUTANTS[0]), (record.NOTICED, "test_a_b"))
        self.assertIsNone(kept.outcome(MUTANTS[1]))

    def test_what_only_the_near_tests_did_not_notice_is_open(self):
        Record(self.path, "state", near=True).add(MUTANTS[2], record.SURVIVED)
        self.assertEqual(Record(self.path, "state", near=True).outcome(MUTANTS[2]), (record.SURVIVED, ""))
        self.assertIsNone(Record(self.path, "state").outcome(MUTANTS[2]))

    def test_share_and_survivors(self):
        kept = Record(self.path, "state")
        kept.add(MUTANTS[2], record.NOT_BUILT)
        kept.add(MUTANTS[3], record.NOTICED, "test_a_b")
        summary = Summary(MUTANTS, kept, argued=5)
        self.assertAlmostEqual(summary.share, 200 / 3)
        said = io.StringIO()
        with contextlib.redirect_stdout(said):
            summary.print()
        self.assertEqual(said.getvalue(), (
            "src/a/b.cpp:2: operator\n    - d = e + f;\n    + d = e - f;\n"
            "src/a: 2 of 3 noticed\n"
            "2 of 3 faults noticed (66.7 %), 1 survived; besides, 5 argued to be equivalent, "
            "1 did not build\n"))


class Argued(unittest.TestCase):
    def test_by_file_and_lines(self):
        argued = Equivalents(f"# why\n\n{FILE}\ta = b < c;\ta = b <= c;\tboth give the same\n")
        self.assertEqual([argued.holds(mutant) for mutant in MUTANTS], [True, False, False, False])
        self.assertEqual(argued.faults, [])

    def test_a_line_without_a_reason_is_a_fault(self):
        self.assertTrue(Equivalents(f"{FILE}\ta = b < c;\ta = b <= c;\n").faults)
        self.assertTrue(Equivalents(f"{FILE}\ta = b < c;\ta = b <= c;\t \n").faults)

    def test_one_that_is_there_twice_is_a_fault(self):
        self.assertTrue(Equivalents(f"{FILE}\ta\tb\twhy\n{FILE}\ta\tb\twhy\n").faults)

    def test_each_has_a_place_in_the_sources(self):
        argued = Equivalents.of(ROOT)
        self.assertEqual(argued.faults, [])
        files = {file for file, _, _ in argued.reasons}
        found = [mutant for file in files if (ROOT / file).is_file()
                 for mutant in mutants_of(file, (ROOT / file).read_text(encoding="utf-8"))]
        self.assertEqual(argued.stale(found), [])


if __name__ == "__main__":
    unittest.main()
