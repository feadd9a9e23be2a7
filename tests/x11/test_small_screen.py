# SPDX-License-Identifier: MIT
"""On the screen of a handheld nothing lies beyond the edge."""
from harness.preferences import Preferences
from harness.scenario import Scenario
from harness.waiting import wait_until


class SmallScreen(Scenario):

    def setUp(self):
        super().setUp()
        self.reader = self.start_on("Eng2Ger")

    def is_within_screen(self, part):
        x, y, width, height = part.rectangle
        return (x >= 0 and y >= 0 and width > 0 and height > 0
                and x + width <= self.desktop.width and y + height <= self.desktop.height)

    def check_within_screen(self, *parts):
        for part in parts:
            wait_until(f"{part!r} to lie within the screen", lambda: self.is_within_screen(part),
                       detail=lambda: part.rectangle)

    def check_apart(self, parts):
        parts = sorted(parts, key=lambda part: part.rectangle[0])
        for left, right in zip(parts, parts[1:]):
            self.assertLessEqual(left.rectangle[0] + left.rectangle[2], right.rectangle[0],
                                 (left, right))

    def test_every_menu_and_tool_button(self):
        bar = self.reader.tool_bar
        titles = [bar.first("menu item", name) for name in ("Lexicon", "Edit")]
        buttons = [self.reader.button(name) for name in (
            "Add/Edit Word", "Select a dictionary", "Cross lookup", "Toggle View", "Preferences")]
        self.check_within_screen(*titles, *buttons)
        self.check_apart(titles + buttons)

    def test_every_menu_opened(self):
        for name in ("Lexicon", "Edit"):
            self.check_within_screen(self.reader.open_menu(name))
            self.desktop.press("Escape", "Escape")
        self.check_within_screen(*self.reader.open_file_menu())
        self.desktop.press("Escape")

    def test_the_panels(self):
        self.check_within_screen(self.reader.entry, self.reader.word_list, self.reader.article)

    def test_every_message(self):
        def check(box):
            self.check_within_screen(box, box.first("push button", "OK"),
                                     *(label for label in box.all("label") if label.name))
            self.reader.dismiss("Escape")
        for command in ("Add/Edit Word", "Delete current"):
            self.reader.choose("Lexicon", command)
            check(self.reader.dialog("Teskel"))
        self.reader.click_button("Cross lookup")
        check(self.reader.dialog("Teskel"))
        broken = self.home.dictionaries / ("A long name of a file that is " * 3 + "Broken.PDB")
        broken.write_bytes(b"no dictionary")
        other = self.start("-f", broken)
        box = other.dialog("Teskel")
        self.check_within_screen(box, box.first("push button", "OK"))
        self.desktop.press("Escape")

    def test_the_preferences(self):
        dialog = Preferences(self.reader)
        controls = dialog.window.all("radio button") + dialog.window.all("push button", "OK") \
            + dialog.window.all("push button", "Cancel")
        self.check_within_screen(dialog.window, *controls)
        dialog.show_page("Font")
        self.check_within_screen(dialog.window.first("list", "Font Name"),
                                 *dialog.size_buttons())
        dialog.cancel()

    def test_about(self):
        self.reader.choose("Lexicon", "About ...")
        dialog = self.reader.dialog("About")
        self.check_within_screen(dialog, *dialog.all("push button"),
                                 *(label for label in dialog.all("label") if label.name))
        self.reader.dismiss("Escape")
