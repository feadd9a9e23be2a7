# SPDX-License-Identifier: MIT
"""The reader's windows as a screen reader sees them: AT-SPI, asked over its own message bus.

The questions are put on the bus directly, not through libatspi, which answers from a cache that is
refreshed only by an event loop.
"""
from gi.repository import Gio, GLib

from .waiting import wait_until

_ACCESSIBLE = "org.a11y.atspi.Accessible"
_COMPONENT = "org.a11y.atspi.Component"
_TEXT = "org.a11y.atspi.Text"
_ACTION = "org.a11y.atspi.Action"
_PROPERTIES = "org.freedesktop.DBus.Properties"
_ROOT = "/org/a11y/atspi/accessible/root"
_ON_SCREEN = 0
_ANSWER_MS = 10000

# Bit numbers of the AT-SPI states.
STATES = {"checked": 4, "editable": 7, "expanded": 10, "focused": 12, "selected": 23,
          "showing": 25}


def connect(address):
    """A connection of its own to the message bus at `address`."""
    return Gio.DBusConnection.new_for_address_sync(
        address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)


class AccessibilityBus:
    """The desktop's accessibility bus."""

    def __init__(self, session_address):
        session = connect(session_address)
        address = session.call_sync(
            "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None,
            GLib.VariantType("(s)"), Gio.DBusCallFlags.NONE, _ANSWER_MS, None).unpack()[0]
        self.address = address
        self._bus = connect(address)

    def call(self, service, path, interface, method, arguments=None):
        """One question to one object; the answer as Python values."""
        return self._bus.call_sync(service, path, interface, method, arguments, None,
                                   Gio.DBusCallFlags.NONE, _ANSWER_MS, None).unpack()

    def _process_of(self, service):
        return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                         "GetConnectionUnixProcessID", GLib.Variant("(s)", (service,)))[0]

    def application(self, pid):
        """The tree of the program with that process number, as soon as it is there."""
        def look():
            (programs,) = self.call("org.a11y.atspi.Registry", _ROOT, _ACCESSIBLE, "GetChildren")
            for service, path in programs:
                try:
                    if self._process_of(service) == pid:
                        return Accessible(self, service, path)
                except GLib.Error:
                    continue
            return None
        return wait_until("the program to appear in the accessibility tree", look)


class Gone(LookupError):
    """The object is no longer there."""


class Accessible:
    """One object of the tree."""

    def __init__(self, bus, service, path):
        self._bus = bus
        self._service = service
        self._path = path

    def __eq__(self, other):
        return isinstance(other, Accessible) and self._path == other._path

    def __hash__(self):
        return hash(self._path)

    def __repr__(self):
        try:
            return f"<{self.role} {self.name!r}>"
        except Gone:
            return "<gone>"

    def _call(self, interface, method, arguments=None):
        try:
            return self._bus.call(self._service, self._path, interface, method, arguments)
        except GLib.Error as error:
            raise Gone(str(error)) from error

    def _property(self, interface, name):
        return self._call(_PROPERTIES, "Get", GLib.Variant("(ss)", (interface, name)))[0]

    @property
    def name(self):
        """The name that a screen reader speaks."""
        return self._property(_ACCESSIBLE, "Name")

    @property
    def description(self):
        """The longer explanation, for instance the tool tip."""
        return self._property(_ACCESSIBLE, "Description")

    @property
    def role(self):
        """What kind of thing it is, e.g. "push button"."""
        return self._call(_ACCESSIBLE, "GetRoleName")[0]

    def has_state(self, state):
        """Whether a state of STATES is set."""
        (words,) = self._call(_ACCESSIBLE, "GetState")
        word, bit = divmod(STATES[state], 32)
        return bool(words[word] >> bit & 1)

    @property
    def children(self):
        """The objects directly below."""
        (children,) = self._call(_ACCESSIBLE, "GetChildren")
        return [Accessible(self._bus, service, path) for service, path in children]

    @property
    def text(self):
        """The whole text of a text object."""
        arguments = GLib.Variant("(ii)", (0, -1))
        return self._call(_TEXT, "GetText", arguments)[0]

    @property
    def selected_text(self):
        """The selected part of a text object."""
        start, end = self._call(_TEXT, "GetSelection", GLib.Variant("(i)", (0,)))
        return self.text[start:end]

    @property
    def rectangle(self):
        """x, y, width and height on the screen, in pixels."""
        return self._call(_COMPONENT, "GetExtents", GLib.Variant("(u)", (_ON_SCREEN,)))[0]

    @property
    def centre(self):
        """The point of the screen to click at."""
        x, y, width, height = self.rectangle
        return x + width // 2, y + height // 2

    def character_rectangle(self, offset):
        """x, y, width and height on the screen of one character of the text."""
        return self._call(_TEXT, "GetCharacterExtents",
                          GLib.Variant("(iu)", (offset, _ON_SCREEN)))

    def character_centre(self, offset):
        """The point of the screen at which one character of the text stands."""
        x, y, width, height = self.character_rectangle(offset)
        return x + width // 2, y + height // 2

    def descendants(self, into_lists=True):
        """Every object below with its role, in the order of the tree."""
        for child in self._children_if_there():
            try:
                role = child.role
            except Gone:
                continue
            yield child, role
            if into_lists or role != "list":
                yield from child.descendants(into_lists)

    def _matching(self, role, name):
        # The rows of a list are many, and hold nothing but themselves.
        for found, its_role in self.descendants(into_lists=role in (None, "list item")):
            try:
                if role in (None, its_role) and name in (None, found.name):
                    yield found
            except Gone:
                continue

    def all(self, role=None, name=None):
        """Every object below that has the role and the name, in the order of the tree."""
        return list(self._matching(role, name))

    def first(self, role=None, name=None):
        """The first object below that has the role and the name, or None."""
        return next(self._matching(role, name), None)

    def _children_if_there(self):
        try:
            return self.children
        except Gone:
            return []

    def tree(self, depth=0):
        """The tree as lines of text, for failure messages."""
        lines = ["  " * depth + repr(self)]
        for child in self._children_if_there():
            lines.extend(child.tree(depth + 1))
        return lines
