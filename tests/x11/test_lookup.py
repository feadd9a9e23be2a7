# SPDX-License-Identifier: MIT
"""Looking words up and walking through a dictionary of real size."""
import itertools
import subprocess

from harness.reader import ROWS
from harness.scenario import Context, Scenario
from harness.waiting import wait_for_value, wait_until

BLUE = (0, 0, 255)


class Lookup(Scenario):

    def setUp(self):
        super().setUp()
        if Context.real_lexicons:
            lexicon = Context.real_lexicons / "Eng2Ger.PDB"
        else:
            lexicon = self.samples["Eng2Ger"]
        self.lexicon = lexicon
        self.reader = self.start("-f", lexicon)
        self.reader.wait_for_title("Teskel-Eng2Ger")

    def words_from(self, word, count):
        """What the dictionary holds from `word` on, read with the tool that made it."""
        answer = subprocess.run(
            [Context.lexicon_tool, "list", str(self.lexicon),
             "--from", word, "--count", str(count)],
            check=True, stdout=subprocess.PIPE, text=True)
        return answer.stdout.splitlines()

    def show_house(self):
        self.reader.look_up("house")
        self.reader.wait_for_article("house")
        wait_for_value("the current row", lambda: self.reader.current_word, "house")

    def check_shows(self, word):
        self.reader.wait_for_word(word)
        self.assertEqual(len(self.reader.rows), ROWS)
        self.assertIn(word, self.reader.rows)

    def test_title_names_the_dictionary(self):
        self.assertEqual(self.reader.title, "Teskel-Eng2Ger")
        self.assertEqual(len(self.reader.rows), ROWS)

    def test_typing_house_shows_its_article_with_blue_sense_numbers(self):
        self.show_house()
        text = self.reader.article_text
        self.assertIn("Haus", text)
        self.assertIn("1.", text)
        self.assertIn("2.", text)
        wait_until("blue pixels in the article",
                   lambda: self.desktop.picture().count(BLUE, self.reader.article.rectangle) > 5)
        picture = self.desktop.picture()
        self.assertEqual(picture.count(BLUE, self.reader.word_list.rectangle), 0)

    def test_each_typed_letter_moves_the_list(self):
        self.reader.look_up("hou")
        beginning = self.words_from("hou", 1)[0]
        wait_for_value("the first row", lambda: self.reader.rows[0], beginning)
        self.assertEqual(self.reader.article_text, "")
        self.desktop.write("se")
        self.reader.wait_for_article("house")
        wait_for_value("the first row", lambda: self.reader.rows[0], "house")

    def test_a_word_that_begins_nothing_leaves_the_list_where_it_was(self):
        self.show_house()
        rows = self.reader.rows
        self.desktop.write("qqq")
        wait_for_value("the article", lambda: self.reader.article_text, "")
        self.assertEqual(self.reader.rows, rows)

    def test_down_walks_on_beyond_the_last_row(self):
        self.show_house()
        words = self.words_from("house", ROWS + 6)
        # The press that reaches the last row shows its word until the key comes up.
        for word in words[1:ROWS - 1] + words[ROWS:]:
            self.desktop.press("Down")
            wait_for_value("the entry's text", lambda: self.reader.entry_text, word)
        self.check_shows(words[-1])
        self.assertEqual(self.reader.rows, words[-ROWS:])

    def test_up_walks_back_beyond_the_first_row(self):
        self.show_house()
        words = self.words_from("house", 4)
        self.desktop.press(*["Down"] * 3)
        self.reader.wait_for_word(words[3])
        for further in (2, 1):
            self.desktop.press("Up")
            self.reader.wait_for_word(words[further])
        for before in range(1, 5):
            self.desktop.press("Up")
            wait_for_value("the row of house",
                           lambda: self.reader.rows.index("house"), before)
        self.check_shows(self.reader.rows[0])
        self.assertEqual(self.words_from(self.reader.rows[0], 5)[-1], "house")

    def test_page_down_walks_on_by_pages_and_then_by_words(self):
        self.show_house()
        words = self.words_from("house", ROWS + 12)
        reached = 0
        for _ in range(ROWS + 5):
            self.desktop.press("Next")
            wait_until("a later word", lambda: self.reader.entry_text in words[reached + 1:],
                       detail=lambda: self.reader.entry_text)
            reached = words.index(self.reader.entry_text, reached + 1)
            if reached > ROWS + 4:
                break
        self.assertGreater(reached, ROWS)
        self.check_shows(words[reached])

    def test_end_goes_to_the_last_row_and_one_word_further(self):
        self.show_house()
        words = self.words_from("house", ROWS + 3)
        for further in range(3):
            self.desktop.press("End")
            self.reader.wait_for_word(words[ROWS + further])
        self.assertEqual(self.reader.rows, words[3:])

    def test_home_goes_to_the_first_row_and_one_word_back(self):
        self.show_house()
        words = self.words_from("house", 5)
        self.desktop.press("Down", "Down")
        self.reader.wait_for_word(words[2])
        self.desktop.press("Home")
        wait_until("the word before house",
                   lambda: self.reader.rows[1] == "house", detail=lambda: self.reader.rows)
        self.check_shows(self.reader.rows[0])

    def test_the_scroll_bar_walks_on_word_by_word(self):
        self.show_house()
        words = self.words_from("house", ROWS + 4)
        arrow = self.reader.scroll_bar_arrow(down=True)
        for word in words[1:]:
            self.desktop.click(arrow)
            wait_for_value("the entry's text", lambda: self.reader.entry_text, word)
        self.check_shows(words[-1])
        arrow = self.reader.scroll_bar_arrow(down=False)
        for word in itertools.islice(reversed(words[:-1]), ROWS + 2):
            self.desktop.click(arrow)
            wait_for_value("the entry's text", lambda: self.reader.entry_text, word)

    def test_the_scroll_bar_held_walks_on_until_let_go(self):
        self.show_house()
        words = self.words_from("house", 3 * ROWS)
        self.desktop.hold(self.reader.scroll_bar_arrow(down=True))
        try:
            wait_until("a word beyond the first rows",
                       lambda: self.reader.entry_text in words[ROWS + 5:],
                       detail=lambda: self.reader.entry_text)
        finally:
            self.desktop.let_go()
        # A step may still be under way. The key comes after the release, and is obeyed after it.
        self.desktop.press("Home")
        wait_until("the first row to be the word",
                   lambda: self.reader.entry_text == self.reader.rows[0],
                   detail=lambda: self.reader.entry_text)
        self.check_shows(self.reader.rows[0])

    def test_a_tap_on_a_row_shows_its_article(self):
        self.show_house()
        row = self.reader.word_list.all("list item")[2]
        self.desktop.click(row.centre)
        self.check_shows(self.words_from("house", 3)[2])

    def test_words_passed_over_stay_out_of_the_history(self):
        self.show_house()
        self.desktop.press(*["Down"] * 5)
        wait_for_value("the entry's text", lambda: self.reader.entry_text,
                       self.words_from("house", 6)[5])
        self.end(self.reader)
        self.assertNotIn(self.words_from("house", 6)[5],
                         self.home.history())
