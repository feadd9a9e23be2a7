# SPDX-License-Identifier: MIT
"""A display for windows to be painted on."""
import os
import shutil
import subprocess
from contextlib import contextmanager


def own_settings(directory):
    """An environment in which programs read and write nothing of the person's."""
    environment = {name: value for name, value in os.environ.items()
                   if name not in ("DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS",
                                   "QPEDIR", "QT_QPA_PLATFORM", "QT_STYLE_OVERRIDE")}
    for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"):
        environment[name] = str(directory / "home")
    (directory / "home").mkdir(exist_ok=True)
    return {**environment, "LC_ALL": "C.UTF-8"}


@contextmanager
def platforms(data):
    """(name, environment) of every way to show a window that this machine has."""
    environment = own_settings(data.directory)
    found = [("offscreen", {**environment, "QT_QPA_PLATFORM": "offscreen"})]
    if data.smoke or not shutil.which("Xvfb"):
        yield found
        return
    reading, writing = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "640x480x24",
                               "-nolisten", "tcp"], pass_fds=[writing],
                              stderr=subprocess.DEVNULL)
    try:
        os.close(writing)
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()
        found.append(("Xvfb", {**environment, "DISPLAY": f":{number}", "QT_QPA_PLATFORM": "xcb"}))
        yield found
    finally:
        server.terminate()
        server.wait()
