# SPDX-License-Identifier: MIT
"""Files that are no dictionaries, given to "-f": one message each, and a reader that goes on."""
import random

from harness.scenario import Scenario
from harness.waiting import wait_until


class BrokenFiles(Scenario):

    allowed_output = "Cannot |Invalid database|bytes to read |Decompressed record is null"

    def check_is_reported_and_another_opens(self, path):
        self.install_samples()
        reader = self.start("-f", path)
        self.assertEqual(reader.message("Teskel"), f"File\n{path}\nis not a valid dictionary")
        reader.dismiss()
        # The start goes on as without the file, and the person opens another.
        reader.wait_for_title("Teskel-Eng2Ger")
        reader.choose_dictionary("Ger2Eng")
        reader.wait_for_title("Teskel-Ger2Eng")
        reader.look_up("Haus")
        reader.wait_for_article("Haus")

    def truncated(self, size):
        whole = self.samples["Eng2Ger"].read_bytes()
        self.assertGreater(len(whole), size)
        return self.home.place("Truncated.PDB", whole[:size])

    def test_truncated_in_the_header(self):
        self.check_is_reported_and_another_opens(self.truncated(70))

    def test_truncated_in_the_record_list(self):
        self.check_is_reported_and_another_opens(self.truncated(90))

    def test_truncated_in_the_word_index(self):
        # The index is the first record and ends where the second begins.
        header = self.samples["Eng2Ger"].read_bytes()[:78 + 2 * 8]
        second = int.from_bytes(header[86:90], "big")
        self.check_is_reported_and_another_opens(self.truncated(second - 1))

    def test_zero_length(self):
        self.check_is_reported_and_another_opens(self.home.place("Empty.PDB", b""))

    def test_directory(self):
        directory = self.home.path / "Directory.PDB"
        directory.mkdir()
        self.check_is_reported_and_another_opens(directory)

    def test_random_bytes(self):
        noise = random.Random(1).randbytes(4096)
        self.check_is_reported_and_another_opens(self.home.place("Noise.PDB", noise))

    def test_missing(self):
        self.check_is_reported_and_another_opens(self.home.path / "Missing.PDB")

    def test_a_name_with_tags_is_shown_letter_by_letter(self):
        name = "<b>bold</b>&amp;.PDB"
        self.check_is_reported_and_another_opens(self.home.path / name)

    def test_from_the_menu_the_open_dictionary_stays(self):
        broken = self.home.dictionaries / "Broken.PDB"
        broken.write_bytes(b"no dictionary")
        reader = self.start_on("Eng2Ger")
        reader.look_up("house")
        reader.wait_for_article("house")
        reader.choose_dictionary("Broken")
        self.assertEqual(reader.message("Teskel"), f"File\n{broken}\nis not a valid dictionary")
        reader.dismiss("Escape")
        self.assertEqual(reader.title, "Teskel-Eng2Ger")
        self.assertTrue(reader.article_text.startswith("house"), reader.article_text)
        self.assertEqual(reader.current_word, "house")

    def test_a_dictionary_that_shrinks_while_it_is_open(self):
        reader = self.start_on("Eng2Ger")
        path = self.home.dictionaries / "Eng2Ger.PDB"
        with open(path, "r+b") as file:
            file.truncate(80)
        reader.look_up("winter")
        reader.desktop.press("Down", "Next", "End", "Home")
        reader.choose("Lexicon", "Random Word")
        reader.choose_dictionary("Ger2Eng")
        reader.wait_for_title("Teskel-Ger2Eng")
        wait_until("the rows of the other dictionary", lambda: len(reader.rows) == 20)
