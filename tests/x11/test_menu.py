# SPDX-License-Identifier: MIT
"""Choosing a dictionary from the menu of installed ones."""
from harness.scenario import Scenario
from harness.waiting import wait_until


class FileMenu(Scenario):

    def test_lists_the_installed_dictionaries_by_name(self):
        self.install_samples()
        self.home.install(self.samples["Eng2Ger"], "eng2ger_copy.PDB")
        reader = self.start()
        reader.wait_for_title("Teskel-Eng2Ger")
        names = [entry.name for entry in reader.open_file_menu()]
        self.assertEqual(names, ["Eng2Ger", "eng2ger_copy", "Ger2Eng"])
        reader.desktop.press("Escape")

    def test_a_choice_opens_that_dictionary(self):
        reader = self.start_on("Eng2Ger")
        reader.choose_dictionary("Ger2Eng")
        reader.wait_for_title("Teskel-Ger2Eng")
        self.assertEqual(reader.article_text.strip(), "Sample Ger2Eng")
        self.assertEqual(reader.rows[0], "Apfel")
        reader.choose_dictionary("Eng2Ger")
        reader.wait_for_title("Teskel-Eng2Ger")
        self.assertEqual(reader.rows[0], "apple")

    def test_the_word_of_the_entry_is_looked_up_in_the_dictionary_chosen(self):
        reader = self.start_on("Eng2Ger")
        reader.look_up("hand")
        reader.wait_for_article("hand")
        reader.choose_dictionary("Ger2Eng")
        reader.wait_for_title("Teskel-Ger2Eng")
        reader.wait_for_article("Hand")
        self.assertEqual(reader.entry_text, "hand")

    def test_an_ampersand_in_a_file_name_is_shown(self):
        self.home.install(self.samples["Eng2Ger"], "R&D2Q&A.PDB")
        reader = self.start()
        reader.wait_for_title("Teskel-R&D2Q&A")
        entries = reader.open_file_menu()
        self.assertEqual([entry.name for entry in entries], ["R&D2Q&A"])
        reader.desktop.press("Escape")

    def test_an_empty_menu_does_nothing(self):
        reader = self.start()
        reader.wait_for_title("Teskel-Teskel")
        reader.click_button("Select a dictionary")
        reader.desktop.press("Escape")
        wait_until("the reader to answer", lambda: reader.title == "Teskel-Teskel")
        self.assertEqual(reader.dialogs, [])
