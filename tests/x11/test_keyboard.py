# SPDX-License-Identifier: MIT
"""Every command by the keyboard alone."""
from harness.scenario import Scenario
from harness.waiting import wait_for_value, wait_until


class Keyboard(Scenario):

    def setUp(self):
        super().setUp()
        self.reader = self.start_on("Eng2Ger")

    # Walking

    def focused_object(self, root):
        """The innermost object below `root` that has the keyboard, or None."""
        # The tab in front and the current row of a list say so of themselves all the time.
        focused = [found for found, role in root.descendants(into_lists=False)
                   if role != "page tab" and found.has_state("focused")]
        return focused[-1] if focused else None

    def focused(self, root):
        """The name of that object, or an empty text."""
        found = self.focused_object(root)
        return found.name if found else ""

    def walk_to(self, name, root, key):
        """Presses `key` until the object of that name has the keyboard."""
        here = self.focused_object(root)
        passed = []
        while here is None or here.name != name:
            self.assertNotIn(here, passed, f"{name!r} is not among {passed}")
            passed.append(here)
            self.desktop.press(key)
            here = wait_until(f"{key} to move the keyboard on from {here!r}",
                              lambda: self.focused_beside(root, passed[-1]))

    def focused_beside(self, root, other):
        found = self.focused_object(root)
        return found if found != other else None

    def enter_tool_bar(self, key="F10"):
        self.desktop.press(key)
        wait_for_value("what has the keyboard", lambda: self.focused(self.reader.tool_bar),
                       "Lexicon")

    def choose(self, menu, command):
        self.enter_tool_bar()
        self.walk_to(menu, self.reader.tool_bar, "Right")
        self.desktop.press("Down")
        title = self.reader.tool_bar.first("menu item", menu)
        popup = wait_until("the menu to open", lambda: next(
            (popup for popup in title.all("popup menu") if popup.has_state("showing")), None))
        wait_until("an entry to be marked", lambda: self.focused(popup))
        self.walk_to(command, popup, "Down")
        self.desktop.press("Return")

    def press_button(self, name):
        self.enter_tool_bar()
        self.walk_to(name, self.reader.tool_bar, "Right")
        self.desktop.press("Return")

    def check_entry_has_the_keyboard(self):
        self.reader.wait_for_keyboard()
        self.reader.look_up("moon")
        self.reader.wait_for_article("moon")

    # The way in and out

    def test_f10_leads_into_the_tool_bar_and_back(self):
        self.enter_tool_bar()
        self.desktop.press("F10")
        wait_for_value("what has the keyboard", lambda: self.focused(self.reader.tool_bar), "")
        self.check_entry_has_the_keyboard()

    def test_the_menu_key_leads_into_the_tool_bar_and_escape_back(self):
        self.enter_tool_bar("Menu")
        self.desktop.press("Escape")
        wait_for_value("what has the keyboard", lambda: self.focused(self.reader.tool_bar), "")
        self.check_entry_has_the_keyboard()

    def test_right_walks_through_titles_and_buttons_in_a_ring(self):
        self.enter_tool_bar()
        for name in ("Edit", "Add/Edit Word", "Select a dictionary", "Cross lookup",
                     "Toggle View", "Preferences", "Lexicon"):
            self.desktop.press("Right")
            wait_for_value("what has the keyboard", lambda: self.focused(self.reader.tool_bar),
                           name)
        self.desktop.press("Left")
        wait_for_value("what has the keyboard", lambda: self.focused(self.reader.tool_bar),
                       "Preferences")

    # Commands

    def test_the_commands_of_the_lexicon_menu(self):
        self.choose("Lexicon", "Add/Edit Word")
        self.assertIn("not yet available", self.reader.message())
        self.reader.dismiss()
        self.choose("Lexicon", "Random Word")
        wait_until("a word", lambda: self.reader.entry_text)
        self.choose("Lexicon", "Delete current")
        self.assertIn("recomended", self.reader.message())
        self.reader.dismiss()
        self.choose("Lexicon", "About ...")
        self.reader.dialog("About")
        self.reader.dismiss("Escape")
        self.check_entry_has_the_keyboard()

    def test_the_commands_of_the_edit_menu(self):
        self.reader.look_up("house")
        self.reader.wait_for_article("house")
        self.choose("Edit", "Copy")
        wait_for_value("the clipboard", self.desktop.clipboard, "house")
        self.choose("Edit", "Copy translation")
        wait_until("the article on the clipboard",
                   lambda: self.desktop.clipboard().startswith("<p><b>house</b></p>"))
        self.desktop.set_clipboard("tree")
        self.choose("Edit", "Paste")
        self.reader.wait_for_article("tree")
        self.choose("Edit", "Preferences ...")
        self.reader.dialog("Preferences")
        self.reader.dismiss("Escape")
        self.check_entry_has_the_keyboard()

    def test_the_buttons_of_the_tool_bar(self):
        self.press_button("Add/Edit Word")
        self.assertIn("not yet available", self.reader.message())
        self.reader.dismiss()
        self.press_button("Cross lookup")
        self.assertIn("cross-lookup", self.reader.message())
        self.reader.dismiss()
        toggle = self.reader.button("Toggle View")
        self.press_button("Toggle View")
        wait_until("the button to be up", lambda: not toggle.has_state("checked"))
        self.press_button("Preferences")
        self.reader.dialog("Preferences")
        self.reader.dismiss("Escape")
        self.check_entry_has_the_keyboard()

    def test_the_menu_of_dictionaries(self):
        self.press_button("Select a dictionary")
        entries = wait_until("the menu of dictionaries", self.reader.file_menu_entries)
        while not entries[1].has_state("focused"):
            before = [entry.has_state("focused") for entry in entries]
            self.desktop.press("Down")
            wait_until("Down to move on",
                       lambda: [entry.has_state("focused") for entry in entries] != before)
        self.desktop.press("Return")
        self.reader.wait_for_title("Teskel-Ger2Eng")
        self.reader.look_up("Mond")
        self.reader.wait_for_article("Mond")

    def test_preferences_are_set_and_accepted(self):
        self.choose("Edit", "Preferences ...")
        dialog = self.reader.dialog("Preferences")
        self.walk_to("Horizontal", dialog, "Tab")
        self.desktop.press("space")
        wait_until("Horizontal to be selected",
                   lambda: dialog.first("radio button", "Horizontal").has_state("checked"))
        self.desktop.press("Return")
        wait_until("the dialog to close", lambda: not self.reader.dialogs)
        article, words = self.reader.article, self.reader.word_list
        wait_until("the article above the list",
                   lambda: article.rectangle[1] + article.rectangle[3] <= words.rectangle[1] + 2)
        self.check_entry_has_the_keyboard()
