# SPDX-License-Identifier: MIT
"""Dictionaries that the desktop asks the running reader to open."""
import os
import signal

from gi.repository import Gio, GLib

from harness.accessible import connect
from harness.scenario import Context, Scenario
from harness.waiting import wait_for_value, wait_until

NAME = "org.teskel.Teskel"
PATH = "/org/teskel/Teskel"


class Documents(Scenario):

    def setUp(self):
        super().setUp()
        self.bus = connect(self.desktop.bus_address)
        self.addCleanup(self.bus.close_sync, None)

    def call(self, service, path, interface, method, arguments):
        return self.bus.call_sync(service, path, interface, method, arguments, None,
                                  Gio.DBusCallFlags.NONE, 10000, None)

    def owner(self):
        """The process that has the name; one question, for it may give the name up between two."""
        try:
            answer = self.call("org.freedesktop.DBus", "/org/freedesktop/DBus",
                               "org.freedesktop.DBus", "GetConnectionUnixProcessID",
                               GLib.Variant("(s)", (NAME,)))
        except GLib.Error as error:
            if Gio.DBusError.get_remote_error(error) == "org.freedesktop.DBus.Error.NameHasNoOwner":
                return None
            raise
        return answer.unpack()[0]

    def open(self, path):
        uri = GLib.filename_to_uri(str(path), None)
        self.call(NAME, PATH, "org.freedesktop.Application", "Open",
                  GLib.Variant("(asa{sv})", ([uri], {})))

    def install_service(self):
        """Lets the desktop's bus start the reader, with the home of this scenario."""
        environment = {**self.home.environment, "QT_QPA_PLATFORM": "xcb"}
        settings = " ".join(f"{name}={value}" for name, value in environment.items())
        service = self.desktop.services / f"{NAME}.service"
        service.write_text(f"[D-BUS Service]\nName={NAME}\n"
                           f"Exec=/usr/bin/env {settings} {Context.program}\n", encoding="utf-8")
        self.addCleanup(self.reload_services)
        self.addCleanup(service.unlink)
        self.reload_services()

    def reload_services(self):
        self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                  "ReloadConfig", None)

    def test_the_document_that_starts_the_reader_comes_before_its_window(self):
        self.install_samples()
        last = self.home.dictionaries / "Eng2Ger.PDB"
        target = self.home.dictionaries / "Ger2Eng.PDB"
        self.home.write_settings(f"[ViewPreferences]\nLastOpenFile = {last}\n")
        self.install_service()
        self.open(target)
        pid = self.owner()
        self.addCleanup(self.end_started, pid)
        wait_for_value("the titles of the reader's windows",
                       lambda: [name for name in self.desktop.window_names(pid)
                                if name.startswith("Teskel-")], ["Teskel-Ger2Eng"])
        self.end_started(pid)
        wait_for_value("the last file", lambda: self.home.view_setting("LastOpenFile"),
                       str(target))
        settings = self.home.settings()
        self.assertIn(str(target), settings)
        # It never was open: opening a dictionary gives it a group for its font.
        self.assertNotIn(str(last), settings)

    def end_started(self, pid):
        """Ends a reader that the bus has started, and waits until it is gone."""
        if self.owner() == pid:
            os.kill(pid, signal.SIGTERM)
        wait_until("the name to be free", lambda: self.owner() is None)

    def test_a_document_opens_in_the_running_reader(self):
        reader = self.start_on("Eng2Ger")
        wait_for_value("the owner of the name", self.owner, reader.pid)
        target = self.home.place("a place with blanks/Ger2Eng.PDB",
                                 self.samples["Ger2Eng"].read_bytes())
        self.open(target)
        reader.wait_for_title("Teskel-Ger2Eng")
        self.end(reader)
        self.assertEqual(self.home.view_setting("LastOpenFile"), str(target))

    def test_a_document_that_is_no_dictionary_is_reported(self):
        reader = self.start_on("Eng2Ger")
        wait_for_value("the owner of the name", self.owner, reader.pid)
        broken = self.home.place("Broken.PDB", b"no dictionary")
        self.open(broken)
        self.assertEqual(reader.message(), f"File\n{broken}\nis not a valid dictionary")
        reader.dismiss()
        self.assertEqual(reader.title, "Teskel-Eng2Ger")

    def test_a_second_reader_has_its_own_window(self):
        first = self.start_on("Eng2Ger")
        wait_for_value("the owner of the name", self.owner, first.pid)
        second = self.start("-f", self.home.dictionaries / "Ger2Eng.PDB")
        wait_for_value("the second title", lambda: second.title, "Teskel-Ger2Eng")
        self.assertEqual(first.title, "Teskel-Eng2Ger")
        self.assertEqual(self.owner(), first.pid)
        self.end(first)
        wait_until("the name to be free", lambda: self.owner() != first.pid)
