# SPDX-License-Identifier: MIT
"""`arj a` on the word records of a dictionary, each of them a file."""
import shutil
import subprocess
from dataclasses import dataclass

import arjarchive
import processes

# arj searches a whole directory for each file that it is to add, so a directory holds few of them.
FILES_OF_A_DIRECTORY = 100


@dataclass
class Packing:
    seconds: float        # of CPU, without what arj takes to store the same files
    whole_seconds: float  # with that: files read, archives written
    size: int             # packed bytes, without headers


class Records:
    """Word records as files below a directory, as an independent program unpacks them."""

    def __init__(self, lexicon, directory, seven_zip):
        archive = arjarchive.write(lexicon, directory / "records.arj", are_named=True)
        unpacked = directory / "records"
        processes.run([seven_zip, "x", f"-o{unpacked}", archive])
        archive.unlink()
        self._root = directory / "directories"
        for index, path in enumerate(sorted(unpacked.iterdir())):
            target = self._root / str(index // FILES_OF_A_DIRECTORY)
            target.mkdir(parents=True, exist_ok=True)
            path.rename(target / path.name)
        self.size = sum(path.stat().st_size for path in self._root.glob("*/*"))
        unpacked.rmdir()

    def remove(self):
        shutil.rmtree(self._root)

    def _add(self, option):
        seconds = size = 0
        for directory in self._root.iterdir():
            archive = self._root.parent / "packed.arj"
            archive.unlink(missing_ok=True)
            # The names in the archive are the files' own only when arj stands beside them.
            seconds += processes.cpu_once(["env", "-C", directory, "arj", "a", "-y", option,
                                           archive])[0]
            size += archive.stat().st_size
        return seconds, size

    def pack(self, methods, repeats):
        """method -> Packing, the least of several runs by turns."""
        costs = {}
        for _ in range(repeats):
            for method in (0, *methods):
                seconds, size = self._add(f"-m{method}")
                costs[method] = min(costs.get(method, (seconds, size)), (seconds, size))
        stored_seconds, stored_size = costs[0]
        headers = stored_size - self.size
        return {method: Packing(costs[method][0] - stored_seconds, costs[method][0],
                                costs[method][1] - headers)
                for method in methods}
