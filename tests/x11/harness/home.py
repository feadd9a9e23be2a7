# SPDX-License-Identifier: MIT
"""The files of one person: settings and installed dictionaries."""
import configparser
import pathlib
import shutil
import tempfile


class Home:
    """A fresh home directory, used by every reader of one scenario."""

    def __init__(self):
        self.path = pathlib.Path(tempfile.mkdtemp(prefix="teskel-home-"))
        self.settings_file = self.path / "config" / "teskel" / "Teskel.conf"
        self.dictionaries = self.path / "qpe" / "teskel"
        self.environment = {
            "HOME": str(self.path),
            "TMPDIR": str(self.path / "tmp"),
            "XDG_CONFIG_HOME": str(self.path / "config"),
            "XDG_DATA_HOME": str(self.path / "data"),
            "XDG_CACHE_HOME": str(self.path / "cache"),
            "QPEDIR": str(self.path / "qpe"),
        }
        for name in ("tmp", "config", "data", "cache"):
            (self.path / name).mkdir(mode=0o700)
        self.dictionaries.mkdir(parents=True)

    def remove(self):
        """Removes everything."""
        shutil.rmtree(self.path, ignore_errors=True)

    def install(self, lexicon, name=None):
        """Copies a dictionary file to where the reader finds it."""
        target = self.dictionaries / (name or lexicon.name)
        shutil.copyfile(lexicon, target)
        return target

    def place(self, name, content):
        """Writes a file that is not installed and returns its path."""
        target = self.path / name
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(content)
        return target

    def write_settings(self, text):
        """Puts a settings file in place before a start."""
        self.settings_file.parent.mkdir(parents=True, exist_ok=True)
        self.settings_file.write_text(text, encoding="utf-8")

    def settings(self):
        """The settings file as group -> key -> text; empty when there is none."""
        parser = configparser.ConfigParser(delimiters=("=",), interpolation=None,
                                           default_section="\0none")
        parser.optionxform = str
        parser.read(self.settings_file, encoding="utf-8")
        return {group: dict(parser[group]) for group in parser.sections()}

    def view_setting(self, key):
        """One value of the group of the window's own settings, or None."""
        return self.settings().get("ViewPreferences", {}).get(key)

    def history(self):
        """The stored words in order."""
        stored = self.settings().get("MRU List", {})
        return [stored[key] for key in sorted(stored) if stored[key]]
