# SPDX-License-Identifier: MIT
"""What one session leaves for the next, and the ways in which a session ends."""
import signal

from harness.preferences import Preferences
from harness.scenario import Scenario
from harness.waiting import wait_for_value, wait_until


class Session(Scenario):

    def test_a_restart_finds_everything_as_it_was_left(self):
        reader = self.start_on("Eng2Ger")
        for word in ("house", "tree", "moon"):
            reader.look_up(word)
            reader.wait_for_article(word)
        dialog = Preferences(reader)
        dialog.select("Panel View", "Vertical")
        dialog.select("Accessibillity", "Right handed user")
        dialog.select("Word Field Position", "Bottom")
        dialog.select("Menu Position", "Bottom")
        dialog.show_page("Font")
        dialog.select_size(2)
        dialog.accept()
        reader.click_button("Toggle View")
        wait_until("the button to be up",
                   lambda: not reader.button("Toggle View").has_state("checked"))

        def arrangement(reader):
            parts = (reader.article, reader.word_list, reader.entry, reader.tool_bar)
            return [part.rectangle for part in parts]

        def letters(reader):
            return reader.article.character_rectangle(0)[3]
        reader.look_up("house")
        reader.wait_for_article("house")
        left = arrangement(reader), letters(reader), reader.history
        self.assertEqual(reader.history, ["moon", "tree", "house"])
        self.end(reader)

        again = self.start()
        again.wait_for_title("Teskel-Eng2Ger")
        wait_until("the arrangement", lambda: arrangement(again) == left[0],
                   detail=lambda: (arrangement(again), left[0]))
        self.assertFalse(again.button("Toggle View").has_state("checked"))
        # The history is stored in the order of looking up and its first word is shown.
        self.assertEqual(again.history, ["house", "tree", "moon"])
        again.wait_for_article("house")
        self.assertEqual(again.entry_text, "house")
        self.assertEqual(letters(again), left[1])

    def test_the_history_keeps_six_words(self):
        reader = self.start_on("Eng2Ger")
        words = ["apple", "bird", "cat", "dog", "eye", "fish", "girl"]
        for word in words:
            reader.look_up(word)
            reader.wait_for_article(word)
        wait_for_value("the length of the history", lambda: len(reader.history), 6)
        self.assertEqual(reader.history[0], "girl")
        self.end(reader)
        self.assertEqual(self.home.history(), ["girl", "apple", "bird", "cat", "dog", "eye"])

    def check_is_saved(self, leave):
        reader = self.start_on("Eng2Ger")
        reader.look_up("house")
        reader.wait_for_article("house")
        reader.click_button("Toggle View")
        wait_until("the button to be up",
                   lambda: not reader.button("Toggle View").has_state("checked"))
        leave(reader)
        self.assertEqual(self.home.history(), ["house"])
        self.assertEqual(self.home.view_setting("ViewType"), "0")
        self.assertEqual(self.home.view_setting("LastOpenFile"),
                         str(self.home.dictionaries / "Eng2Ger.PDB"))

    def test_a_request_to_terminate_saves(self):
        self.check_is_saved(lambda reader: self.end(reader, signal.SIGTERM))

    def test_an_interrupt_saves(self):
        self.check_is_saved(lambda reader: self.end(reader, signal.SIGINT))

    def test_a_hang_up_saves(self):
        self.check_is_saved(lambda reader: self.end(reader, signal.SIGHUP))

    def test_a_kill_a_moment_later_loses_nothing(self):
        def kill(reader):
            wait_until("the settings", lambda: self.home.history() == ["house"] and
                       self.home.view_setting("ViewType") == "0", detail=self.home.settings)
            self.kill(reader)
        self.check_is_saved(kill)

    def test_the_close_button_saves(self):
        def close(reader):
            self.desktop.press("alt+F4")
            self.has_ended(reader)
        self.check_is_saved(close)

    def test_a_request_to_terminate_saves_while_a_dialog_is_open(self):
        def terminate(reader):
            Preferences(reader).select("Panel View", "Horizontal")
            self.end(reader, signal.SIGTERM)
            self.assertEqual(self.home.view_setting("PanelView"), "1")
        self.check_is_saved(terminate)

    def test_a_request_to_terminate_ends_a_reader_with_a_message(self):
        reader = self.start("-f", self.home.path / "Missing.PDB")
        reader.dialog("Teskel")
        self.end(reader, signal.SIGTERM)

    def test_settings_that_cannot_be_written_are_one_line_and_nothing_else(self):
        self.home.place("config/teskel", b"in the way of the directory")
        self.install_samples()
        self.expect_output("Teskel.conf")
        reader = self.start()
        reader.wait_for_title("Teskel-Eng2Ger")
        reader.look_up("house")
        reader.wait_for_article("house")
        self.assertEqual(reader.dialogs, [])
        self.end(reader)
        lines = [line for line in reader.output().splitlines() if "Teskel.conf" in line]
        self.assertEqual(len(lines), 1, reader.output())

    def test_settings_full_of_nonsense_start_like_any(self):
        self.home.write_settings("[ViewPreferences]\nPanelView = 7\nUserHandType = many\n"
                                 "ViewType = -3\nComboPosition = 99\nMenuPosition = 5\n"
                                 "FontSize = 0\nLastOpenFile = \n[MRU List]\nList1 = moon\n")
        self.install_samples()
        reader = self.start()
        reader.wait_for_title("Teskel-Eng2Ger")
        reader.wait_for_article("moon")
        self.assertLess(reader.tool_bar.rectangle[1], reader.entry.rectangle[1])

    def test_find_on_enter_moves_the_list_only_when_enter_is_pressed(self):
        self.home.write_settings("[ViewPreferences]\nFindType = 1\n")
        reader = self.start_on("Eng2Ger")
        rows = reader.rows
        reader.look_up("house")
        self.assertEqual(reader.rows, rows)
        self.desktop.press("Return")
        wait_for_value("the first row", lambda: reader.rows[0], "house")
        self.desktop.press("Down")
        reader.wait_for_word("houseboat")
