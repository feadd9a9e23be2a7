# SPDX-License-Identifier: MIT
"""On the screen of a handheld nothing lies beyond the edge."""
from harness.preferences import Preferences
from harness.scenario import Scenario
from harness.waiting import wait_until


TITLES = ("Lexicon", "Edit")
BUTTONS = ("Add/Edit Word", "Select a dictionary", "Cross lookup", "Toggle View", "Preferences")


class SmallScreenScenario(Scenario):

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


class SmallScreen(SmallScreenScenario):

    def setUp(self):
        super().setUp()
        self.reader = self.start_on("Eng2Ger")

    def test_every_menu_and_tool_button(self):
        titles = [self.reader.tool_bar.first("menu item", name) for name in TITLES]
        buttons = [self.reader.button(name) for name in BUTTONS]
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


class LargeFonts(SmallScreenScenario):
    """The tool bar with the fonts that a person sets for the whole desktop, in points."""

    def start_with_font(self, points):
        self.install_samples()
        font = f"Sans Serif,{points},-1,5,50,0,0,0,0,0"
        self.home.place("config/kdeglobals",
                        f"[General]\nfont={font}\nmenuFont={font}\ntoolBarFont={font}\n".encode())
        reader = self.start("-f", self.home.dictionaries / "Eng2Ger.PDB", environment={
            "XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"})
        reader.wait_for_title("Teskel-Eng2Ger")
        return reader

    def check(self, points):
        reader = self.start_with_font(points)
        bar = reader.tool_bar
        titles = [bar.first("menu item", name) for name in TITLES]
        self.check_within_screen(*titles)
        self.check_apart(titles)
        for name in TITLES:
            self.check_within_screen(reader.open_menu(name))
            self.desktop.press("Escape", "Escape")
        # What does not fit comes out behind the tool bar's own button, at its end.
        hidden = [name for name in BUTTONS
                  if not reader.button(name).has_state("showing")]
        if hidden:
            x, y, width, height = bar.rectangle
            self.desktop.click((x + width - 8, y + height // 2))
            for name in BUTTONS:
                wait_until(f"{name} to be shown",
                           lambda: reader.button(name).has_state("showing"))
        self.check_within_screen(*(reader.button(name) for name in BUTTONS))
        self.end(reader)

    def test_9_points(self):
        self.check(9)

    def test_11_points(self):
        self.check(11)

    def test_13_points(self):
        self.check(13)

    def test_16_points(self):
        self.check(16)
