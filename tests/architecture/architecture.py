#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Holds the sources to the pictures in docs/architecture.md: architecture.py ROOT

A picture is a Mermaid block whose first comment, "%% src" or "%% src/FOLDER", says which folder's
rooms it draws; every folder that has folders of sources in it, however deep it is, has a picture.
Its arrows are the includes between those rooms, all of them and no others; in a picture of rooms,
the folder's own name stands for the files directly in it. Besides: nothing includes in a circle,
neither rooms nor files; no class is defined in two .cpp files; no folder holds more than 30 files;
and the engine uses Qt Core alone.
"""
import collections
import pathlib
import re
import sys

MOST_FILES = 30
# A folder whose library knows no widget and no picture.
CORE_ONLY = ("base", "dictionary", "lexicon", "script")
WINDOWED = re.compile(r"<Q(Widget|Application|GuiApplication|Font|Color|Pixmap|Image|Palette)")


class Sources:
    """Every source file, what it includes and what it defines."""

    def __init__(self, root):
        self.folder = root / "src"
        self.texts = {path: path.read_text(encoding="utf-8")
                      for path in sorted(self.folder.rglob("*")) if path.suffix in (".h", ".cpp")}

    def unit(self, path):
        """A header and the .cpp file of the same name are one unit."""
        return path.relative_to(self.folder).with_suffix("")

    def includes(self):
        """(file, line number, unit, included unit) of every include of a file of the project."""
        units = {self.unit(path) for path in self.texts}
        for path, text in self.texts.items():
            for number, line in enumerate(text.splitlines(), 1):
                match = re.match(r'\s*#\s*include\s*"([^"]+)"', line)
                if match:
                    target = pathlib.PurePath(match[1]).with_suffix("")
                    if target in units and target != self.unit(path):
                        yield path, number, self.unit(path), target

    def definitions(self):
        """class name -> .cpp files that define a member of it, at the beginning of a line."""
        member = re.compile(r"^[A-Za-z][\w:<>*&, ]*?\s[*&]?((?:\w+::)*?)(\w+)::~?[\w ]+\("
                            r"|^()(\w+)::~?(\w+)\(", re.MULTILINE)
        # What else begins a line and has "::" and "(" in it is a statement.
        found = collections.defaultdict(set)
        for path, text in self.texts.items():
            if path.suffix != ".cpp":
                continue
            for match in member.finditer(text):
                name = match[2] or match[4]
                if not name.startswith("Q") or name.startswith(("Qt", "QTeskel", "QPE", "QDictionary",
                                                                "QCop")):
                    found[(match[1] or "") + name].add(path)
        return found


def parse_pictures(document):
    """folder (relative to src, which itself is ".") -> (rooms, arrows)"""
    pictures = {}
    for block in re.findall(r"```mermaid\n(.*?)```", document, re.DOTALL):
        named = re.search(r"^\s*%%\s*src(?:/(\S+))?\s*$", block, re.MULTILINE)
        if not named:
            continue
        rooms, arrows = set(), set()
        for line in block.splitlines():
            line = re.sub(r'\["[^"]*"\]', "", line).strip()
            if not line or line.startswith(("%%", "graph ")):
                continue
            stations = [[name.strip() for name in part.split("&")] for part in line.split("-->")]
            for names in stations:
                rooms.update(names)
            for begins, ends in zip(stations, stations[1:]):
                arrows.update((begin, end) for begin in begins for end in ends)
        pictures[pathlib.PurePath(named[1] or "")] = (rooms, arrows)
    return pictures


def circles(arrows):
    """Groups of nodes that reach each other (Tarjan's strongly connected components)."""
    following = collections.defaultdict(set)
    for begin, end in arrows:
        following[begin].add(end)
    number, lowest, stack, groups = {}, {}, [], []

    def visit(node):
        number[node] = lowest[node] = len(number)
        stack.append(node)
        for target in sorted(following[node]):
            if target not in number:
                visit(target)
            if target in stack:
                lowest[node] = min(lowest[node], lowest[target])
        if lowest[node] == number[node]:
            group = stack[stack.index(node):]
            del stack[stack.index(node):]
            if len(group) > 1:
                groups.append(sorted(map(str, group)))

    sys.setrecursionlimit(10000)
    for node in sorted(following):
        if node not in number:
            visit(node)
    return groups


def room_of(unit, folder):
    """The room of `folder` in which a unit stands; the folder itself for its own files."""
    if not unit.is_relative_to(folder):
        return None
    parts = unit.relative_to(folder).parts
    return parts[0] if len(parts) > 1 else folder.name or parts[0]


def check_arrows(root, sources, pictures):
    folders = {folder for path in sources.texts for folder in sources.unit(path).parent.parents}
    for folder in sorted(folders):
        place = str("src" / folder)
        if folder not in pictures:
            yield f"docs/architecture.md has no picture of the rooms of {place}"
            continue
        rooms, drawn = pictures[folder]
        used = set()
        for path, number, unit, target in sources.includes():
            begin, end = room_of(unit, folder), room_of(target, folder)
            if begin is None or end is None or begin == end:
                continue
            used.add((begin, end))
            if (begin, end) not in drawn:
                yield (f"{path.relative_to(root)}:{number}: {begin} may not include "
                       f"{target}.h: the picture of {place} has no arrow to {end}")
        standing = {room_of(sources.unit(path), folder) for path in sources.texts} - {None}
        for room in sorted(standing - rooms - {folder.name}):
            yield f"the picture of {place} does not show {room}"
        for room in sorted(rooms - standing):
            yield f"the picture of {place} shows {room}, which is not there"
        for begin, end in sorted(drawn - used):
            yield f"the picture of {place} has an arrow from {begin} to {end}; nothing includes so"
        for group in circles(drawn | used):
            yield f"{place}: rooms that include each other: " + ", ".join(group)


def check_links(root, pictures):
    _, arrows = pictures.get(pathlib.PurePath(), (set(), set()))
    for lists in sorted((root / "src").glob("*/CMakeLists.txt")):
        folder = lists.parent.name
        for library in sorted(set(re.findall(r"\bteskel_([a-z]+)\b", lists.read_text()))):
            if (root / "src" / library).is_dir() and library != folder and \
                    (folder, library) not in arrows:
                yield f"{lists.relative_to(root)}: may not link teskel_{library}"


def check_files(root, sources):
    for group in circles({(unit, target) for _, _, unit, target in sources.includes()}):
        yield "files that include each other: " + ", ".join(group)
    for name, paths in sorted(sources.definitions().items()):
        if len(paths) > 1:
            yield f"{name} is defined in several files: " + ", ".join(
                str(path.relative_to(root)) for path in sorted(paths))
    for folder in [sources.folder, *sorted(sources.folder.rglob("*"))]:
        if folder.is_dir():
            count = sum(1 for path in folder.iterdir() if path.is_file())
            if count > MOST_FILES:
                yield f"{folder.relative_to(root)} holds {count} files, more than {MOST_FILES}"
    for path, text in sources.texts.items():
        if sources.unit(path).parts[0] in CORE_ONLY and WINDOWED.search(text):
            yield f"{path.relative_to(root)}: this folder uses Qt Core alone"


def main():
    root = pathlib.Path(sys.argv[1])
    sources = Sources(root)
    pictures = parse_pictures((root / "docs/architecture.md").read_text(encoding="utf-8"))
    findings = [*check_arrows(root, sources, pictures), *check_links(root, pictures),
                *check_files(root, sources)]
    print("\n".join(findings))
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
