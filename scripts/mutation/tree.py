# SPDX-License-Identifier: MIT
"""A copy of the working tree, which faults are put into; the tree itself is only read."""
import hashlib
import shutil
import subprocess
from pathlib import Path

IN_SOURCES = (".cpp", ".h")


class Tree:
    def __init__(self, root, copy):
        self.root = Path(root)
        self.copy = Path(copy)
        self._changed = None

    def files(self):
        """All files that belong to the tree, from its root; those that are not committed, too."""
        listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                                cwd=self.root, check=False, capture_output=True, text=True)
        names = listed.stdout.split("\0")
        if listed.returncode != 0 or not (self.root / ".git").exists():  # unpacked from an archive
            names = [str(path.relative_to(self.root)) for path in self.root.rglob("*")]
            names = [name for name in names if not name.startswith(("build/", ".git/"))]
        return sorted({name for name in names if name and (self.root / name).is_file()})

    def sources(self, folders):
        """Sources below the folders, or files, of the tree."""
        wanted = tuple(folder.strip("/") for folder in folders)
        return [name for name in self.files() if name.endswith(IN_SOURCES) and
                any(name == folder or name.startswith(folder + "/") for folder in wanted)]

    def text(self, name):
        return (self.root / name).read_text(encoding="utf-8")

    def renew(self):
        """Makes the copy what the tree is, and leaves alone what has not changed."""
        names = self.files()
        for name in names:
            source, target = self.root / name, self.copy / name
            if target.is_file() and target.read_bytes() == source.read_bytes():
                continue
            target.parent.mkdir(parents=True, exist_ok=True)
            target.unlink(missing_ok=True)
            shutil.copyfile(source, target)
            shutil.copymode(source, target)
        for path in [path for path in self.copy.rglob("*") if path.is_file()]:
            if str(path.relative_to(self.copy)) not in set(names):
                path.unlink()
        self._changed = None

    def fingerprint(self):
        """Differs when anything differs that a build or a test may read."""
        known = hashlib.sha256()
        for name in self.files():
            if name.startswith(("src/", "tests/", "cmake/", "CMakeLists")) and \
                    not name.startswith("tests/mutation/"):
                known.update(name.encode() + b"\0" + (self.root / name).read_bytes() + b"\0")
        return known.hexdigest()

    def put_in(self, mutant):
        """Takes the last fault out and puts this one in."""
        if self._changed and self._changed != mutant.file:
            self.take_out()
        (self.copy / mutant.file).write_text(mutant.applied_to(self.text(mutant.file)), encoding="utf-8")
        self._changed = mutant.file

    def take_out(self):
        if self._changed:
            (self.copy / self._changed).write_text(self.text(self._changed), encoding="utf-8")
            self._changed = None
