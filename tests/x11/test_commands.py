# SPDX-License-Identifier: MIT
"""The commands of the menus and the tool bar: random word, clipboard, view, messages."""
from harness import lexicons
from harness.scenario import Scenario
from harness.waiting import wait_for_value, wait_until

DELETE_ADVICE = ("The recomended way to delete lexicon \n"
                 "files is to use the standard \n"
                 "uninstalation procedure. Go to the \n"
                 "application launcher, select \"Settings\" \n"
                 "tab and from there select icon for \n"
                 "adding/removing software!")


class Commands(Scenario):

    def setUp(self):
        super().setUp()
        self.reader = self.start_on("Eng2Ger")

    def show_house(self):
        self.reader.look_up("house")
        self.reader.wait_for_article("house")

    # Random word

    def test_random_word_shows_some_word_ready_to_be_replaced(self):
        reader = self.reader
        words = lexicons.words("Eng2Ger")
        drawn = set()
        for _ in range(4):
            before = reader.entry_text
            reader.choose("Lexicon", "Random Word")
            wait_until("another word", lambda: reader.entry_text not in ("", before),
                       detail=lambda: reader.entry_text)
            word = reader.entry_text
            self.assertIn(word, words)
            reader.wait_for_word(word)
            wait_for_value("the selected text", lambda: reader.entry.selected_text, word)
            drawn.add(word)
        self.assertGreater(len(drawn), 2)
        self.desktop.write("sun")
        reader.wait_for_word("sun")

    # Clipboard

    def test_copy_puts_the_word_on_the_clipboard(self):
        self.show_house()
        self.reader.choose("Edit", "Copy")
        wait_for_value("the clipboard", self.desktop.clipboard, "house")

    def test_copy_translation_puts_the_source_of_the_article_on_the_clipboard(self):
        self.show_house()
        self.reader.choose("Edit", "Copy translation")

        def number(digit):
            return f"<b><font color=\"#0000FF\">{digit}.</font></b>"
        wait_for_value("the clipboard", self.desktop.clipboard,
                       f"<p><b>house</b></p><p>{number(1)} Haus (Wohnhaus)</p><p>\n"
                       f"{number(2)} Gebäude</p><p>\n{number(3)} Kammer")

    def test_paste_looks_up_the_word_of_the_clipboard(self):
        self.desktop.set_clipboard("tree")
        self.reader.choose("Edit", "Paste")
        wait_for_value("the entry's text", lambda: self.reader.entry_text, "tree")
        self.reader.wait_for_article("tree")
        wait_for_value("the current row", lambda: self.reader.current_word, "tree")

    def test_paste_replaces_what_the_entry_held(self):
        self.show_house()
        self.desktop.set_clipboard("Fluss")
        self.reader.choose_dictionary("Ger2Eng")
        self.reader.wait_for_title("Teskel-Ger2Eng")
        self.reader.choose("Edit", "Paste")
        self.reader.wait_for_article("Fluss")
        self.assertEqual(self.reader.entry_text, "Fluss")

    def test_accented_letters_pass_the_clipboard_both_ways(self):
        self.reader.choose_dictionary("Ger2Eng")
        self.reader.wait_for_title("Teskel-Ger2Eng")
        self.desktop.set_clipboard("Brücke")
        self.reader.choose("Edit", "Paste")
        self.reader.wait_for_article("Brücke")
        # The same letters, the accent written as a character of its own.
        self.desktop.set_clipboard("Hu\u0308gel")
        self.reader.choose("Edit", "Paste")
        self.reader.wait_for_article("Hügel")
        self.reader.choose("Edit", "Copy translation")
        wait_until("the article on the clipboard",
                   lambda: self.desktop.clipboard().startswith("<p><b>Hügel</b></p>"),
                   detail=self.desktop.clipboard)

    def test_paste_of_an_empty_clipboard_changes_nothing(self):
        self.show_house()
        self.desktop.set_clipboard("")
        self.reader.choose("Edit", "Paste")
        self.reader.choose("Lexicon", "Delete current")
        self.reader.message("Teskel")
        self.reader.dismiss()
        self.assertEqual(self.reader.entry_text, "house")
        self.assertTrue(self.reader.article_text.startswith("house"))

    # View

    def test_toggle_view_changes_the_proportions_and_back(self):
        reader = self.reader

        def share():
            article, words = reader.article.rectangle[2], reader.word_list.rectangle[2]
            return article / (article + words)
        wide_list = share()
        self.assertLess(wide_list, 0.5)
        button = reader.button("Toggle View")
        self.assertTrue(button.has_state("checked"))
        reader.click_button("Toggle View")
        wait_until("a wide article", lambda: share() > 0.6, detail=share)
        self.assertFalse(button.has_state("checked"))
        reader.click_button("Toggle View")
        wait_until("a wide list", lambda: abs(share() - wide_list) < 0.01, detail=share)

    # Messages

    def test_add_or_edit_word_is_not_yet_available(self):
        self.reader.choose("Lexicon", "Add/Edit Word")
        self.assertEqual(self.reader.message("Teskel"),
                         "Sorry, this feature is not yet available.")
        self.reader.dismiss()

    def test_delete_current_gives_advice(self):
        self.reader.choose("Lexicon", "Delete current")
        self.assertEqual(self.reader.message("Teskel"), DELETE_ADVICE)
        self.reader.dismiss()
        self.assertTrue((self.home.dictionaries / "Eng2Ger.PDB").exists())

    def test_about_fills_the_screen_and_names_the_product(self):
        self.reader.choose("Lexicon", "About ...")
        dialog = self.reader.dialog("About")
        labels = " ".join(label.name for label in dialog.all("label"))
        self.assertIn("Teskel", labels)
        self.assertIn("Copyright", labels)
        wait_until("the dialog to fill the screen",
                   lambda: dialog.rectangle[2] > self.desktop.width - 10,
                   detail=lambda: dialog.rectangle)
        self.reader.dismiss("Escape")
