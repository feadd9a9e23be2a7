# SPDX-License-Identifier: MIT
"""Builds the copy of the tree: quick to compile, nothing that tests do not need."""
import os
import subprocess
from pathlib import Path

OPTIONS = [
    "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0",
    # A fault that is only a warning to the compiler is to be noticed by a test.
    "-DCMAKE_CXX_FLAGS=-w",
    # A test need not be linked again when a library that it loads has changed.
    "-DBUILD_SHARED_LIBS=ON", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON",
    "-DCMAKE_SHARED_LINKER_FLAGS=-fuse-ld=gold",
    # Static libraries hand on what they use themselves; shared ones do so when they are asked to.
    "-DCMAKE_EXE_LINKER_FLAGS=-Wl,--copy-dt-needed-entries",
    "-DTESKEL_BUILD_BENCH=OFF",
    # What is compiled here is never compiled again.
    "-DCMAKE_CXX_COMPILER_LAUNCHER=",
]


class Build:
    def __init__(self, tree, directory, jobs):
        self.tree = Path(tree)
        self.directory = Path(directory)
        self.jobs = jobs

    def configure(self):
        environment = {name: value for name, value in os.environ.items()
                       if name != "CMAKE_CXX_COMPILER_LAUNCHER"}
        subprocess.run(["cmake", "-S", self.tree, "-B", self.directory, "-G", "Ninja", *OPTIONS],
                       check=True, stdout=subprocess.DEVNULL, env=environment)

    def make(self, targets):
        """The compiler's words when something does not build, else an empty text."""
        done = subprocess.run(["ninja", "-j", str(self.jobs), *targets], cwd=self.directory,
                              check=False, capture_output=True, text=True, timeout=3600)
        return "" if done.returncode == 0 else done.stdout or "it does not build"
