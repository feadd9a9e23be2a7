# SPDX-License-Identifier: MIT
"""The reader as a person at the desktop has it: keys, mouse, and what the window shows."""
import functools
import signal

from .accessible import Gone
from .waiting import wait_for_value, wait_until

ROWS = 20
_DIALOGS = ("alert message", "dialog")
_BUTTONS = ("push button", "button menu", "check box")


class Reader:
    """One running reader."""

    def __init__(self, desktop, program, home, arguments=(), environment=None):
        self.desktop = desktop
        self._output_path = home.path / "reader.log"
        environment = {
            **home.environment,
            "QT_QPA_PLATFORM": "xcb",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            **(environment or {}),
        }
        environment = {name: value for name, value in environment.items() if value is not None}
        with open(self._output_path, "ab") as output:
            self._process = desktop.start([program, *map(str, arguments)], environment,
                                          stdout=output, stderr=output)

    @functools.cached_property
    def application(self):
        """The program in the accessibility tree."""
        return self.desktop.accessibility.application(self.pid)

    # Life

    @property
    def pid(self):
        """Process number."""
        return self._process.pid

    @property
    def is_running(self):
        """Whether the program has not ended."""
        return self._process.poll() is None

    def end(self, how=signal.SIGTERM):
        """Ends the program by a signal; returns its exit status."""
        return self.desktop.end_program(self._process, how)

    def wait_for_end(self):
        """Waits until the program ends by itself; returns its exit status."""
        return self.desktop.end_program(self._process, 0)

    def output(self):
        """What the program and earlier readers of the same home printed."""
        return self._output_path.read_text(errors="replace")

    # The window

    @property
    def window(self):
        """The main window, once it is there."""
        return wait_until("the main window", lambda: next(
            (child for child in self.application.children if child.role == "frame"), None))

    @property
    def title(self):
        """Title of the main window as the window manager shows it."""
        names = [name for name in self.desktop.window_names(self.pid)
                 if name.startswith("Teskel-")]
        return names[0] if names else ""

    def wait_for_title(self, title):
        """Waits for the main window to have that title and the keyboard."""
        wait_for_value("the title", lambda: self.title, title)
        self.wait_for_keyboard()

    def wait_for_keyboard(self):
        """Waits until keys reach the main window."""
        wait_until("the main window to be active",
                   lambda: self.desktop.active_window_name().startswith("Teskel-"),
                   detail=self.desktop.active_window_name)

    def _part(self, role, name):
        return wait_until(f"a {role} named {name!r}",
                          lambda: self.window.first(role, name),
                          detail=lambda: self.application.tree())

    @property
    def article(self):
        """The article view."""
        return self._part("text", "Article")

    @property
    def article_text(self):
        """The text of the article view without its markup."""
        return self.article.text

    @property
    def tool_bar(self):
        """The tool bar with menus and buttons."""
        return wait_until("the tool bar", lambda: self.window.first("tool bar"))

    @property
    def entry(self):
        """The line edit of the word entry."""
        combo = self.window.first("combo box")
        return combo.first("text")

    @property
    def entry_text(self):
        """The text of the word entry."""
        return self.entry.text

    @property
    def history(self):
        """The words of the entry's drop-down list."""
        return [item.name for item in self.window.first("combo box").all("list item")]

    @property
    def word_list(self):
        """The list of words."""
        return self._part("list", "Words")

    @property
    def rows(self):
        """The words that the list holds, from its first row to its last."""
        return [row.name for row in self.word_list.children]

    @property
    def current_word(self):
        """The word of the current row, or None."""
        for row in self.word_list.children:
            if row.has_state("selected"):
                return row.name
        return None

    def scroll_bar_arrow(self, down):
        """The point of the last or first arrow of the word list's scroll bar.

        The bar stands between the rows and the right edge of the list.
        """
        x, y, width, height = self.word_list.rectangle
        row_x, _, row_width, _ = self.word_list.children[0].rectangle
        middle = (row_x + row_width + x + width) // 2
        edge = x + width - middle
        return middle, y + height - edge if down else y + edge

    # What a person does

    def look_up(self, word):
        """Types a word over what the entry holds."""
        self.desktop.press("ctrl+a")
        self.desktop.write(word)
        wait_for_value("the entry's text", lambda: self.entry_text, word)

    def wait_for_article(self, beginning):
        """Waits until the article begins with a text."""
        wait_until(f"the article to begin with {beginning!r}",
                   lambda: self.article_text.startswith(beginning),
                   detail=lambda: self.article_text)

    def wait_for_word(self, word):
        """Waits until entry, current row and article all show `word`."""
        wait_for_value("the entry's text", lambda: self.entry_text, word)
        wait_for_value("the current row", lambda: self.current_word, word)
        self.wait_for_article(word)

    def select_in_article(self, word):
        """Selects a word of the article by a double click."""
        article = self.article
        place = article.text.index(word) + len(word) // 2
        self.desktop.click(article.character_centre(place), times=2)
        wait_for_value("the selected text", lambda: article.selected_text, word)

    def button(self, name):
        """A button of the tool bar."""
        return wait_until(f"a button {name!r}", lambda: next(
            (found for found, role in self.tool_bar.descendants()
             if role in _BUTTONS and found.name == name), None),
            detail=lambda: self.application.tree())

    def click_button(self, name):
        """Clicks a button of the tool bar."""
        self.desktop.click(self.button(name).centre)

    def open_menu(self, name):
        """Opens "Lexicon" or "Edit" by a click and returns its popup."""
        title = self._part("menu item", name)
        self.desktop.click(title.centre)
        return wait_until(f"the menu {name!r} to open", lambda: next(
            (popup for popup in title.all("popup menu") if popup.has_state("showing")), None),
            detail=lambda: self.application.tree())

    def choose(self, menu, command):
        """Chooses a command of a menu with the mouse."""
        popup = self.open_menu(menu)
        item = popup.first("menu item", command)
        wait_until(f"{command!r} to be shown", lambda: item.has_state("showing"))
        self.desktop.click(item.centre)

    def open_file_menu(self):
        """Opens the menu of the installed dictionaries and returns its entries."""
        self.click_button("Select a dictionary")
        return wait_until("the menu of dictionaries to open", self.file_menu_entries,
                          detail=lambda: self.application.tree())

    def file_menu_entries(self):
        """The entries of the menu of installed dictionaries while it is open."""
        titles = ("Lexicon", "Edit")
        entries = []
        for popup in self.application.all("popup menu"):
            try:
                if popup.has_state("showing"):
                    entries += [item for item in popup.children if item.name not in titles]
            except Gone:
                continue
        return entries

    def choose_dictionary(self, name):
        """Opens a dictionary from the menu with the mouse."""
        entries = self.open_file_menu()
        entry = next(entry for entry in entries if entry.name == name)
        self.desktop.click(entry.centre)

    def dialog(self, title):
        """Waits for a dialog or message box of that title to be shown and active."""
        def look():
            try:
                return next((window for window in self.dialogs if window.name == title), None)
            except Gone:
                return None
        found = wait_until(f"a dialog {title!r}", look, detail=lambda: self.application.tree())
        wait_until(f"the dialog {title!r} to be active",
                   lambda: self.desktop.active_window_name() == title,
                   detail=self.desktop.active_window_name)
        return found

    @property
    def dialogs(self):
        """Dialogs and message boxes that are shown."""
        shown = []
        for window in self.application.children:
            try:
                if window.role in _DIALOGS and window.has_state("showing"):
                    shown.append(window)
            except Gone:
                continue
        return shown

    def message(self, title="Teskel"):
        """The text of a message box."""
        box = self.dialog(title)
        return next(label.name for label in box.all("label") if label.name)

    def dismiss(self, key="Return"):
        """Closes the dialog in front by a key and waits for the main window to be back."""
        self.desktop.press(key)
        wait_until("the dialog to close", lambda: not self.dialogs,
                   detail=lambda: self.application.tree())
        self.wait_for_keyboard()
