# SPDX-License-Identifier: MIT
"""Preferences accepted and cancelled, and what they do to the window."""
from harness.preferences import Preferences
from harness.scenario import Scenario
from harness.waiting import wait_until


def is_above(upper, lower):
    return upper[1] + upper[3] <= lower[1] + 2


def is_left_of(left, right):
    return left[0] + left[2] <= right[0] + 2


class PreferencesCommand(Scenario):

    def setUp(self):
        super().setUp()
        self.reader = self.start_on("Eng2Ger")

    def wait_for_order(self, what, relation, first, second):
        wait_until(what, lambda: relation(first.rectangle, second.rectangle),
                   detail=lambda: (first.rectangle, second.rectangle))

    def change(self, group, caption):
        dialog = Preferences(self.reader)
        dialog.select(group, caption)
        dialog.accept()

    def test_at_first_list_left_of_article_below_entry_below_tool_bar(self):
        reader = self.reader
        self.wait_for_order("list left of article", is_left_of, reader.word_list, reader.article)
        self.wait_for_order("entry above list", is_above, reader.entry, reader.word_list)
        self.wait_for_order("tool bar above entry", is_above, reader.tool_bar, reader.entry)

    def test_stacked_panels_have_the_article_above(self):
        self.change("Panel View", "Horizontal")
        self.wait_for_order("article above list", is_above, self.reader.article,
                            self.reader.word_list)
        self.end(self.reader)
        self.assertEqual(self.home.view_setting("PanelView"), "0")

    def test_a_right_handed_user_has_the_list_on_the_right(self):
        self.change("Accessibillity", "Right handed user")
        self.wait_for_order("article left of list", is_left_of, self.reader.article,
                            self.reader.word_list)
        self.end(self.reader)
        self.assertEqual(self.home.view_setting("UserHandType"), "1")

    def test_the_word_field_at_the_bottom(self):
        self.change("Word Field Position", "Bottom")
        self.wait_for_order("entry below list", is_above, self.reader.word_list, self.reader.entry)
        self.reader.look_up("house")
        self.reader.wait_for_article("house")
        self.end(self.reader)
        self.assertEqual(self.home.view_setting("ComboPosition"), "1")

    def test_the_menu_bar_at_the_bottom(self):
        self.change("Menu Position", "Bottom")
        self.wait_for_order("tool bar below list", is_above, self.reader.word_list,
                            self.reader.tool_bar)
        # It works there, also after a second accepted dialog.
        self.change("Panel View", "Horizontal")
        self.wait_for_order("tool bar below list", is_above, self.reader.word_list,
                            self.reader.tool_bar)
        self.reader.choose("Lexicon", "Random Word")
        wait_until("a word", lambda: self.reader.entry_text)
        self.reader.choose_dictionary("Ger2Eng")
        self.reader.wait_for_title("Teskel-Ger2Eng")
        self.end(self.reader)
        self.assertEqual(self.home.view_setting("MenuPosition"), "1")
        again = self.start()
        again.wait_for_title("Teskel-Ger2Eng")
        self.wait_for_order("tool bar below list", is_above, again.word_list, again.tool_bar)

    def test_everything_at_once_and_back(self):
        reader = self.reader
        dialog = Preferences(reader)
        dialog.select("Panel View", "Horizontal")
        dialog.select("Accessibillity", "Right handed user")
        dialog.select("Word Field Position", "Bottom")
        dialog.select("Menu Position", "Bottom")
        dialog.accept()
        self.wait_for_order("article above list", is_above, reader.article, reader.word_list)
        self.wait_for_order("list above entry", is_above, reader.word_list, reader.entry)
        self.wait_for_order("entry above tool bar", is_above, reader.entry, reader.tool_bar)

        dialog = Preferences(reader)
        for group, caption in (("Panel View", "Horizontal"),
                               ("Accessibillity", "Right handed user"),
                               ("Word Field Position", "Bottom"), ("Menu Position", "Bottom")):
            self.assertTrue(dialog.radio_button(group, caption).has_state("checked"), group)
        dialog.select("Panel View", "Vertical")
        dialog.select("Accessibillity", "Left handed user")
        dialog.select("Word Field Position", "Top")
        dialog.select("Menu Position", "Top")
        dialog.accept()
        self.wait_for_order("tool bar above entry", is_above, reader.tool_bar, reader.entry)
        self.wait_for_order("entry above list", is_above, reader.entry, reader.word_list)
        self.wait_for_order("list left of article", is_left_of, reader.word_list, reader.article)

    def check_cancelled(self, leave):
        reader = self.reader
        reader.look_up("house")
        reader.wait_for_article("house")

        def seen():
            return [part.rectangle for part in
                    (reader.article, reader.word_list, reader.entry, reader.tool_bar)] + [
                        reader.article.character_rectangle(0), reader.article_text]
        before = seen()
        dialog = Preferences(reader)
        dialog.select("Panel View", "Horizontal")
        dialog.select("Accessibillity", "Right handed user")
        dialog.select("Word Field Position", "Bottom")
        dialog.select("Menu Position", "Bottom")
        dialog.show_page("Font")
        dialog.select_size(2)
        leave(dialog)
        self.assertEqual(seen(), before)
        self.end(reader)
        for key, value in (("PanelView", "1"), ("UserHandType", "0"), ("ComboPosition", "0"),
                           ("MenuPosition", "0")):
            self.assertEqual(self.home.view_setting(key), value, key)

    def test_cancelled_changes_nothing(self):
        self.check_cancelled(lambda dialog: dialog.cancel())

    def test_left_by_escape_changes_nothing(self):
        self.check_cancelled(lambda dialog: self.reader.dismiss("Escape"))

    def test_closed_by_the_window_frame_changes_nothing(self):
        self.check_cancelled(lambda dialog: self.reader.dismiss("alt+F4"))

    def test_a_larger_font_is_for_this_dictionary_only(self):
        reader = self.reader

        def height():
            return reader.article.character_rectangle(0)[3]
        normal = height()
        dialog = Preferences(reader)
        dialog.show_page("Font")
        dialog.select_size(2)
        dialog.accept()
        wait_until("larger letters", lambda: height() > normal, detail=height)
        large = height()
        reader.choose_dictionary("Ger2Eng")
        reader.wait_for_title("Teskel-Ger2Eng")
        wait_until("normal letters again", lambda: height() == normal, detail=height)
        reader.choose_dictionary("Eng2Ger")
        reader.wait_for_title("Teskel-Eng2Ger")
        wait_until("larger letters", lambda: height() == large, detail=height)
        self.end(reader)
        path = str(self.home.dictionaries / "Eng2Ger.PDB")
        self.assertEqual(self.home.settings()[path]["FontSize"], "14")

    def test_return_accepts_whatever_has_the_keyboard(self):
        dialog = Preferences(self.reader)
        dialog.select("Panel View", "Horizontal")
        self.reader.dismiss("Return")
        self.wait_for_order("article above list", is_above, self.reader.article,
                            self.reader.word_list)
