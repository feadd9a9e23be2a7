# SPDX-License-Identifier: MIT
"""How the reader starts: with nothing, with something missing, and with arguments."""
from pathlib import Path

from harness.scenario import Scenario
from harness.waiting import wait_until

NO_LEXICONS = "There are no dictionary lexicons installed for Teskel Dictionary Reader."


class Start(Scenario):

    def test_without_settings_and_dictionaries(self):
        reader = self.start()
        reader.wait_for_title("Teskel-Teskel")
        self.assertEqual(reader.dialogs, [])
        self.assertTrue(reader.article_text.startswith(NO_LEXICONS), reader.article_text)
        self.assertEqual(reader.rows, [])
        self.assertEqual(reader.entry_text, "")
        tool_bar, entry = reader.tool_bar.rectangle, reader.entry.rectangle
        self.assertLess(tool_bar[1] + tool_bar[3], entry[1] + 1, "the tool bar is at the top")
        self.assertTrue(reader.window.has_state("showing"))

    def test_the_window_fills_the_screen(self):
        reader = self.start_on("Eng2Ger")
        _, _, width, height = reader.window.rectangle
        wait_until("the window to fill the screen",
                   lambda: reader.window.rectangle[2] > self.desktop.width - 10,
                   detail=lambda: reader.window.rectangle)
        _, _, width, height = reader.window.rectangle
        self.assertGreater(height, self.desktop.height - 40)

    def test_no_plug_in_for_pictures_is_loaded(self):
        reader = self.start_on("Eng2Ger")
        self.assertTrue(reader.window.has_state("showing"))
        mapped = Path("/proc", str(reader.pid), "maps").read_text(encoding="utf-8")
        self.assertIn("/plugins/platforms/", mapped)
        self.assertNotIn("/plugins/imageformats/", mapped)

    def test_a_last_file_that_is_gone_is_passed_over_silently(self):
        gone = self.home.path / "Gone2Away.PDB"
        self.home.write_settings(f"[ViewPreferences]\nLastOpenFile = {gone}\n")
        self.install_samples()
        reader = self.start()
        reader.wait_for_title("Teskel-Eng2Ger")
        self.assertEqual(reader.dialogs, [])
        self.end(reader)
        self.assertEqual(self.home.view_setting("LastOpenFile"),
                         str(self.home.dictionaries / "Eng2Ger.PDB"))

    def test_a_last_file_that_is_gone_and_no_other_dictionary(self):
        gone = self.home.path / "Gone2Away.PDB"
        self.home.write_settings(f"[ViewPreferences]\nLastOpenFile = {gone}\n")
        reader = self.start()
        reader.wait_for_title("Teskel-Teskel")
        self.assertEqual(reader.dialogs, [])
        self.assertTrue(reader.article_text.startswith(NO_LEXICONS), reader.article_text)

    def test_the_last_file_is_opened_again_though_another_comes_first(self):
        self.install_samples()
        last = self.home.dictionaries / "Ger2Eng.PDB"
        self.home.write_settings(f"[ViewPreferences]\nLastOpenFile = {last}\n")
        self.start().wait_for_title("Teskel-Ger2Eng")

    def test_the_first_installed_dictionary_that_opens_is_taken(self):
        self.install_samples()
        (self.home.dictionaries / "A2B.PDB").write_bytes(b"no dictionary")
        reader = self.start()
        reader.wait_for_title("Teskel-Eng2Ger")
        self.assertEqual(reader.dialogs, [])

    def test_dictionaries_lie_in_the_data_home_when_no_other_place_is_set(self):
        self.home.place("data/teskel/Eng2Ger.PDB", self.samples["Eng2Ger"].read_bytes())
        self.start(environment={"QPEDIR": None}).wait_for_title("Teskel-Eng2Ger")

    def test_a_dictionary_on_the_command_line_opens_and_stays_open(self):
        self.install_samples()
        reader = self.start("-f", self.samples["Ger2Eng"])
        reader.wait_for_title("Teskel-Ger2Eng")
        self.assertEqual(len(reader.rows), 20)
        self.assertEqual(reader.article_text.strip(), "Sample Ger2Eng")
        self.assertEqual(reader.dialogs, [])

    def test_a_single_argument_is_ignored(self):
        self.home.install(self.samples["Eng2Ger"])
        reader = self.start(self.samples["Ger2Eng"])
        reader.wait_for_title("Teskel-Eng2Ger")
        self.assertEqual(reader.dialogs, [])

    def test_three_arguments_are_ignored(self):
        self.home.install(self.samples["Eng2Ger"])
        reader = self.start("-f", self.samples["Ger2Eng"], "more")
        reader.wait_for_title("Teskel-Eng2Ger")
        self.assertEqual(reader.dialogs, [])

    def test_without_a_message_bus(self):
        self.install_samples()
        reader = self.start("-f", self.samples["Eng2Ger"], environment={
            "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent"})
        reader.wait_for_title("Teskel-Eng2Ger")


