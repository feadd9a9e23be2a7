# SPDX-License-Identifier: MIT
"""Child processes of which none outlives the run, however the run ends."""
import ctypes
import os
import signal
import subprocess

from .waiting import PATIENCE

_PR_SET_PDEATHSIG = 1
_PR_SET_CHILD_SUBREAPER = 36
_libc = ctypes.CDLL(None, use_errno=True)


def _die_with_parent():
    # Asked, not killed, so that a service ends the programs that it started itself.
    _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGTERM, 0, 0, 0)


class Processes:
    """Starts children and ends them, together with all that they started themselves."""

    def __init__(self):
        # Orphans of our children become our own, so that they can be found and ended too.
        _libc.prctl(_PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)
        self._children = []

    def start(self, command, environment, **options):
        """Starts `command`; the kernel ends it when this process dies."""
        child = subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL,
                                 preexec_fn=_die_with_parent, **options)
        self._children.append(child)
        return child

    def end(self, child, how=signal.SIGTERM):
        """Sends one child the signal `how` (0: none) and returns its exit status."""
        if child.poll() is None:
            child.send_signal(how)
        try:
            return child.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            child.kill()
            child.wait()
            raise
        finally:
            self._children.remove(child)

    def end_all(self):
        """Ends every child, the last started first, and then their orphans."""
        for child in reversed(self._children):
            child.kill()
            child.wait()
        self._children.clear()
        while orphans := list(_children_of(os.getpid())):
            for pid in orphans:
                os.kill(pid, signal.SIGKILL)
                os.waitpid(pid, 0)


def _children_of(parent):
    for entry in os.listdir("/proc"):
        if not entry.isdigit():
            continue
        try:
            with open(f"/proc/{entry}/stat", encoding="utf-8", errors="replace") as stat:
                if int(stat.read().rpartition(")")[2].split()[1]) == parent:
                    yield int(entry)
        except OSError:
            continue
