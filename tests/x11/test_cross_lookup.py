# SPDX-License-Identifier: MIT
"""From a word of the article into the dictionary of the opposite direction, and back."""
from harness.scenario import Scenario
from harness.waiting import wait_for_value

NOTHING_SELECTED = ("The cross-lookup button will only \n"
                    "operate when there is a word \n"
                    "selected in the article field.")


class CrossLookup(Scenario):

    def test_there_and_back(self):
        reader = self.start_on("Eng2Ger")
        reader.look_up("hand")
        reader.wait_for_article("hand")
        reader.select_in_article("Hand")
        reader.click_button("Cross lookup")
        reader.wait_for_title("Teskel-Ger2Eng")
        wait_for_value("the entry's text", lambda: reader.entry_text, "Hand")
        wait_for_value("the current row", lambda: reader.current_word, "Hand")
        reader.wait_for_article("Hand")
        self.assertIn("hand", reader.article_text)

        reader.select_in_article("hand")
        reader.click_button("Cross lookup")
        reader.wait_for_title("Teskel-Eng2Ger")
        reader.wait_for_word("hand")
        self.assertIn("Hand", reader.article_text)

    def test_a_word_that_the_open_dictionary_lacks_goes_over_as_its_known_beginning(self):
        reader = self.start_on("Eng2Ger")
        reader.look_up("house")
        reader.wait_for_article("house")
        reader.select_in_article("Haus")
        reader.click_button("Cross lookup")
        reader.wait_for_title("Teskel-Ger2Eng")
        wait_for_value("the entry's text", lambda: reader.entry_text, "Ha")
        wait_for_value("the first row", lambda: reader.rows[0], "Hand")
        self.assertEqual(reader.article_text, "")

    def test_without_a_selected_word_a_message_explains(self):
        reader = self.start_on("Eng2Ger")
        reader.look_up("hand")
        reader.wait_for_article("hand")
        reader.click_button("Cross lookup")
        self.assertEqual(reader.message("Teskel"), NOTHING_SELECTED)
        reader.dismiss("Escape")
        self.assertEqual(reader.title, "Teskel-Eng2Ger")
        self.assertEqual(reader.entry_text, "hand")

    def test_without_the_reverse_dictionary_the_word_is_looked_up_in_this_one(self):
        lexicon = self.home.install(self.samples["Eng2Ger"])
        reader = self.start("-f", lexicon)
        reader.wait_for_title("Teskel-Eng2Ger")
        reader.look_up("hand")
        reader.wait_for_article("hand")
        reader.look_up("summer")
        reader.wait_for_article("summer")
        reader.select_in_article("Sommer")
        reader.click_button("Cross lookup")
        wait_for_value("the entry's text", lambda: reader.entry_text, "S")
        wait_for_value("the current row", lambda: reader.current_word, "sea")
        self.assertEqual(reader.title, "Teskel-Eng2Ger")
        self.assertEqual(reader.article_text, "")

    def test_without_an_open_dictionary_nothing_happens(self):
        reader = self.start()
        reader.wait_for_title("Teskel-Teskel")
        reader.select_in_article("dictionary")
        reader.click_button("Cross lookup")
        # A command that does answer shows that the click before it has been dealt with.
        reader.click_button("Add/Edit Word")
        reader.message("Teskel")
        self.assertEqual(len(reader.dialogs), 1)
        reader.dismiss()
        self.assertEqual(reader.title, "Teskel-Teskel")
        self.assertEqual(reader.entry_text, "")
