# SPDX-License-Identifier: MIT
"""What all scenarios share: one desktop a run, one home a test, and no reader left running."""
import pathlib
import re
import signal
import unittest

from .home import Home
from .reader import Reader


class Context:
    """Set once by run.py before the tests start."""

    desktop = None
    program = None
    lexicon_tool = None
    samples = {}
    real_lexicons = None
    failures = None


class Scenario(unittest.TestCase):
    """A test with a person, a home and readers."""

    # A start without a last file says so on the console; nobody else may say anything there.
    allowed_output = "Cannot open file "

    def setUp(self):
        self.desktop = Context.desktop
        self.samples = Context.samples
        self.failed = False
        self.home = Home()
        self.addCleanup(self.home.remove)
        self._readers = []
        self._expected_output = []
        self.addCleanup(self._end_readers)

    def start(self, *arguments, environment=None):
        """Starts the reader; it is ended with the test."""
        reader = Reader(self.desktop, Context.program, self.home, arguments, environment)
        self._readers.append(reader)
        return reader

    def start_on(self, name):
        """Starts the reader on an installed sample and waits for its window."""
        self.install_samples()
        reader = self.start("-f", self.home.dictionaries / f"{name}.PDB")
        reader.wait_for_title(f"Teskel-{name}")
        return reader

    def install_samples(self):
        """Installs both sample dictionaries."""
        for lexicon in self.samples.values():
            self.home.install(lexicon)

    def end(self, reader, *how):
        """Ends a reader and checks that it ended well."""
        self._readers.remove(reader)
        self.assertEqual(reader.end(*how), 0, "exit status; " + reader.output())

    def kill(self, reader):
        """Ends a reader that is given no time to do anything."""
        self._readers.remove(reader)
        self.assertEqual(reader.end(signal.SIGKILL), -signal.SIGKILL)

    def has_ended(self, reader):
        """Waits for a reader that ends by itself and checks that it ended well."""
        self._readers.remove(reader)
        self.assertEqual(reader.wait_for_end(), 0, "exit status; " + reader.output())

    def expect_output(self, pattern):
        """Allows, and demands, a line that the program prints."""
        self._expected_output.append(pattern)

    def _end_readers(self):
        for reader in list(self._readers):
            self.end(reader)
        log = self.home.path / "reader.log"
        if self.failed or not log.exists():
            return
        lines = log.read_text(errors="replace").splitlines()
        for pattern in self._expected_output:
            matching = [line for line in lines if re.search(pattern, line)]
            self.assertTrue(matching, f"no line printed matches {pattern!r}: {lines}")
            lines = [line for line in lines if line not in matching]
        lines = [line for line in lines if not re.match(self.allowed_output, line)]
        self.assertEqual(lines, [], "the reader printed")

    def keep_evidence(self):
        """Called at the failure, while all is still on the screen."""
        self.failed = True
        path = pathlib.Path(Context.failures) / f"{self.id()}-{self.desktop.width}.png"
        path.parent.mkdir(parents=True, exist_ok=True)
        self.desktop.save_picture(path)
        print(f"\nThe screen at the failure: {path}")
        for reader in self._readers:
            print(reader.output())
            if reader.is_running:
                print("\n".join(reader.application.tree()))


class Result(unittest.TextTestResult):
    """Reports as usual, and lets a failed scenario keep its evidence."""

    def addFailure(self, test, err):
        super().addFailure(test, err)
        self._keep_evidence(test)

    def addError(self, test, err):
        super().addError(test, err)
        self._keep_evidence(test)

    @staticmethod
    def _keep_evidence(test):
        if isinstance(test, Scenario) and not test.failed:
            test.keep_evidence()
