#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The check of the architecture finds each kind of fault, else it would prove nothing."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

CHECK = pathlib.Path(__file__).resolve().parent / "architecture.py"

DOCUMENT = """
```mermaid
graph TD
    %% src
    app["app: the window"] --> engine["engine"]
    app & engine --> base
```
```mermaid
graph TD
    %% src/engine
    engine --> reading --> bits
```
```mermaid
graph TD
    %% src/engine/reading
    reading --> streams
```
"""

SOUND = {
    "docs/architecture.md": DOCUMENT,
    "src/base/assertion.h": "",
    "src/app/window.cpp": '#include "app/window.h"\n#include "engine/words.h"\n',
    "src/app/window.h": '#include "base/assertion.h"\n',
    "src/app/CMakeLists.txt": "teskel_add_library(teskel_app PUBLIC teskel_engine)\n",
    "src/engine/words.h": '#include "base/assertion.h"\n#include "engine/reading/file.h"\n',
    "src/engine/words.cpp": "int Words::count()\n{\n}\nWords::Words()\n{\n}\n",
    "src/engine/CMakeLists.txt": "",
    "src/engine/reading/file.h": '#include "engine/bits/bits.h"\n'
                                 '#include "engine/reading/streams/stream.h"\n',
    "src/engine/reading/streams/stream.h": "",
    "src/engine/bits/bits.h": "",
}


class ArchitectureTest(unittest.TestCase):
    def findings(self, changes):
        """What the check prints about the sound tree with some files changed."""
        with tempfile.TemporaryDirectory() as directory:
            for name, text in {**SOUND, **changes}.items():
                path = pathlib.Path(directory, name)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            shown = subprocess.run([sys.executable, CHECK, directory], check=False, text=True,
                                   stdout=subprocess.PIPE)
        self.assertEqual(shown.returncode, 1 if shown.stdout.strip() else 0)
        return shown.stdout

    def test_sound_tree_has_no_findings(self):
        self.assertEqual(self.findings({}).strip(), "")

    def test_each_fault_is_found(self):
        many = {f"src/engine/bits/b{number}.h": "" for number in range(30)}
        faults = {
            "include that runs up": (
                {"src/engine/words.h": '#include "app/window.h"\n'},
                "src/engine/words.h:1: engine may not include app/window.h"),
            "include that runs up between rooms": (
                {"src/engine/bits/bits.h": '#include "engine/words.h"\n'},
                "src/engine/bits/bits.h:1: bits may not include engine/words.h"),
            "rooms in a circle": (
                {"docs/architecture.md": DOCUMENT.replace("--> bits", "--> bits --> reading"),
                 "src/engine/bits/bits.h": '#include "engine/reading/other.h"\n',
                 "src/engine/reading/other.h": ""},
                "rooms that include each other: bits, reading"),
            "include that runs up between rooms of a room": (
                {"src/engine/reading/streams/stream.h": '#include "engine/reading/block.h"\n',
                 "src/engine/reading/block.h": ""},
                "stream.h:1: streams may not include engine/reading/block.h"),
            "rooms of a room in a circle": (
                {"docs/architecture.md": DOCUMENT.replace("--> streams", "--> streams --> reading"),
                 "src/engine/reading/streams/stream.h": '#include "engine/reading/block.h"\n',
                 "src/engine/reading/block.h": ""},
                "src/engine/reading: rooms that include each other: reading, streams"),
            "arrow that nothing uses": (
                {"src/app/window.cpp": ""},
                "has an arrow from app to engine; nothing includes so"),
            "folder that is not drawn": (
                {"src/odd/odd.h": ""}, "the picture of src does not show odd"),
            "room that is not drawn": (
                {"src/engine/odd/odd.h": ""}, "the picture of src/engine does not show odd"),
            "rooms without a picture": (
                {"src/app/odd/odd.h": ""},
                "docs/architecture.md has no picture of the rooms of src/app"),
            "rooms of a room without a picture": (
                {"docs/architecture.md": DOCUMENT.replace("%% src/engine/reading", "")},
                "docs/architecture.md has no picture of the rooms of src/engine/reading"),
            "file beside the folders": (
                {"src/odd.h": ""}, "the picture of src does not show odd"),
            "room that is only drawn": (
                {"docs/architecture.md": DOCUMENT.replace("--> bits", "--> bits --> air")},
                "shows air, which is not there"),
            "link that runs up": (
                {"src/engine/CMakeLists.txt": "target_link_libraries(x teskel_app)"},
                "src/engine/CMakeLists.txt: may not link teskel_app"),
            "files in a circle": (
                {"src/app/a.h": '#include "app/b.h"\n', "src/app/b.h": "",
                 "src/app/b.cpp": '#include "app/a.h"\n'},
                "files that include each other: app/a, app/b"),
            "class in two files": (
                {"src/engine/more.cpp": "void Words::sort()\n{\n}\n"},
                "Words is defined in several files"),
            "constructor in another file": (
                {"src/engine/more.cpp": "Words::Words(int)\n{\n}\n"},
                "Words is defined in several files"),
            "too many files": (many, "src/engine/bits holds 31 files, more than 30"),
            "widget in the engine": (
                {"src/base/assertion.h": "#include <QWidget>\n"},
                "src/base/assertion.h: this folder uses Qt Core alone"),
        }
        for name, (changes, finding) in faults.items():
            with self.subTest(name):
                self.assertIn(finding, self.findings(changes))


if __name__ == "__main__":
    unittest.main()
