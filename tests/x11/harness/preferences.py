# SPDX-License-Identifier: MIT
"""The Preferences dialog in a person's hands."""
from .waiting import wait_until

_GROUP_ON_PAGE = {"Common": "Panel View", "Font": "Font Size"}


class Preferences:
    """The open dialog."""

    def __init__(self, reader):
        self._reader = reader
        reader.choose("Edit", "Preferences ...")
        self.window = reader.dialog("Preferences")

    def _control(self, role, name, within=None):
        return wait_until(f"a {role} {name!r} in the dialog",
                          lambda: (within or self.window).first(role, name),
                          detail=lambda: self.window.tree())

    def _group(self, title):
        return self._control("panel", title)

    def radio_button(self, group, caption):
        """A radio button by the title of its group and its caption."""
        return self._control("radio button", caption, self._group(group))

    def select(self, group, caption):
        """Selects a radio button with the mouse."""
        button = self.radio_button(group, caption)
        self._reader.desktop.click(button.centre)
        wait_until(f"{caption!r} to be selected", lambda: button.has_state("checked"))

    def show_page(self, title):
        """Brings a page of the dialog to the front."""
        self._reader.desktop.click(self._control("page tab", title).centre)
        group = self._group(_GROUP_ON_PAGE[title])
        wait_until(f"the page {title!r}", lambda: group.has_state("showing"))

    def select_size(self, index):
        """Presses one of the three size buttons, counted in their order on the dialog."""
        buttons = self.size_buttons()
        self._reader.desktop.click(buttons[index].centre)
        wait_until("the size button to be down", lambda: buttons[index].has_state("checked"))

    def size_buttons(self):
        """The buttons of "Font Size" from left to right."""
        group = self._group("Font Size")
        return sorted(group.all("check box"), key=lambda button: button.rectangle[0])

    def accept(self):
        """Presses OK."""
        self._leave("OK")

    def cancel(self):
        """Presses Cancel."""
        self._leave("Cancel")

    def _leave(self, button):
        self._reader.desktop.click(self._control("push button", button).centre)
        wait_until("the dialog to close", lambda: not self._reader.dialogs)
        self._reader.wait_for_keyboard()
