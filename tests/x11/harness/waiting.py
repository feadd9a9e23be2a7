# SPDX-License-Identifier: MIT
"""Waiting for something to become true. Nothing in this suite waits for a mere time."""
import os
import time

# Generous: a sanitizer build on a busy machine is slow, and only a failure waits this long.
PATIENCE = float(os.environ.get("TESKEL_X11_PATIENCE", "30"))
_POLL = 0.02


class NeverCame(AssertionError):
    """A condition did not become true within the patience of the suite."""


def wait_until(what, condition, patience=PATIENCE, detail=None):
    """Calls `condition` until it gives something true, and returns that.

    `what` says in words what is awaited; `detail`, when given, is called for the failure message.
    """
    deadline = time.monotonic() + patience
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            seen = f"; instead: {detail()!r}" if detail else ""
            raise NeverCame(f"waited {patience:.0f} s for {what}{seen}")
        time.sleep(_POLL)


def wait_for_value(what, read, expected, patience=PATIENCE):
    """Waits until `read()` equals `expected`."""
    wait_until(f"{what} to be {expected!r}", lambda: read() == expected, patience, read)
