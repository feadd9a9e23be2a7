# SPDX-License-Identifier: MIT
"""What a screen reader is told."""
from harness.preferences import Preferences
from harness.reader import ROWS
from harness.scenario import Scenario
from harness.waiting import wait_for_value, wait_until

# Kinds of things that a person acts on.
ACTED_ON = {"push button", "button menu", "toggle button", "check box", "radio button",
            "menu item", "check menu item", "page tab", "text", "list", "list item", "slider",
            "spin button", "combo box"}


class Accessibility(Scenario):

    def setUp(self):
        super().setUp()
        self.reader = self.start_on("Eng2Ger")

    def check_all_is_named(self, root):
        nameless = [repr(found) for found, role in root.descendants()
                    if role in ACTED_ON and found.has_state("showing") and not found.name]
        self.assertEqual(nameless, [], "\n".join(root.tree()))

    def test_the_window_has_its_title(self):
        wait_for_value("the name of the window", lambda: self.reader.window.name,
                       "Teskel-Eng2Ger")

    def test_menus_and_their_commands(self):
        for menu, commands in (
                ("Lexicon", ["Add/Edit Word", "Random Word", "Delete current", "About ..."]),
                ("Edit", ["Copy", "Copy translation", "Paste", "Preferences ..."])):
            popup = self.reader.open_menu(menu)
            named = [item.name for item in popup.children if item.role != "separator"]
            self.assertEqual([name for name in named if name], commands)
            self.check_all_is_named(popup)
            self.desktop.press("Escape", "Escape")
            wait_until("the menu to close", lambda: not popup.has_state("showing"))

    def test_tool_buttons_in_their_order(self):
        bar = self.reader.tool_bar
        buttons = [found for found, role in bar.descendants()
                   if role in ("push button", "button menu", "check box")
                   and found.has_state("showing")]
        buttons.sort(key=lambda button: button.rectangle[0])
        self.assertEqual([button.name for button in buttons],
                         ["Add/Edit Word", "Select a dictionary", "Cross lookup", "Toggle View",
                          "Preferences"])

    def test_the_menu_of_dictionaries(self):
        entries = self.reader.open_file_menu()
        self.assertEqual([(entry.role, entry.name) for entry in entries],
                         [("menu item", "Eng2Ger"), ("menu item", "Ger2Eng")])
        self.desktop.press("Escape")

    def test_the_entry(self):
        entry = self.reader.entry
        self.assertEqual(self.reader.window.first("combo box").name, "Word")
        self.assertTrue(entry.has_state("editable"))
        self.reader.look_up("house")
        self.assertEqual(entry.text, "house")

    def test_the_list_with_its_rows(self):
        words = self.reader.word_list
        self.assertEqual(words.name, "Words")
        rows = words.children
        rows = [row for row in rows if row.role == "list item"]
        self.assertEqual(len(rows), ROWS)
        self.reader.look_up("house")
        self.reader.wait_for_article("house")
        wait_for_value("the current row", lambda: self.reader.current_word, "house")
        self.assertEqual(self.reader.rows[:3], ["house", "houseboat", "household"])
        self.assertEqual(len(set(self.reader.rows)), ROWS)

    def test_the_article(self):
        self.reader.look_up("house")
        self.reader.wait_for_article("house")
        lines = [line for line in self.reader.article.text.split("\n") if line.strip()]
        self.assertEqual(lines, ["house", "1. Haus (Wohnhaus)", "2. Gebäude", "3. Kammer"])

    def test_everything_in_the_window(self):
        self.check_all_is_named(self.reader.window.first("tool bar"))
        self.check_all_is_named(self.reader.word_list)

    def test_everything_in_the_preferences(self):
        dialog = Preferences(self.reader)
        self.check_all_is_named(dialog.window)
        self.assertEqual([tab.name for tab in dialog.window.all("page tab")], ["Common", "Font"])
        self.assertEqual([button.name for button in dialog.window.all("radio button")],
                         ["Top", "Bottom", "Left handed user", "Right handed user",
                          "Horizontal", "Vertical", "Top", "Bottom"])
        dialog.show_page("Font")
        self.check_all_is_named(dialog.window)
        # All three are captioned "A"; a listener must be able to tell them apart.
        sizes = [(button.name, button.description) for button in dialog.size_buttons()]
        self.assertEqual(len(set(sizes)), 3, sizes)
        dialog.cancel()

    def test_everything_in_the_other_boxes(self):
        for command, title in (("About ...", "About"), ("Delete current", "Teskel"),
                               ("Add/Edit Word", "Teskel")):
            self.reader.choose("Lexicon", command)
            self.check_all_is_named(self.reader.dialog(title))
            self.reader.dismiss("Escape")
