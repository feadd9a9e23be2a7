# SPDX-License-Identifier: MIT
"""What the suite needs from the machine."""
import importlib
import os
import shutil

# Program -> Debian package.
_PROGRAMS = {
    "Xvfb": "xvfb",
    "openbox": "openbox",
    "xdotool": "xdotool",
    "xclip": "xclip",
    "import": "imagemagick",
    "dbus-daemon": "dbus",
}
ACCESSIBILITY_LAUNCHER = "/usr/libexec/at-spi-bus-launcher"


def missing_packages():
    """Debian packages that must be installed before a desktop can start."""
    missing = {package for program, package in _PROGRAMS.items() if not shutil.which(program)}
    if not os.path.exists(ACCESSIBILITY_LAUNCHER):
        missing.add("at-spi2-core")
    try:
        importlib.import_module("gi.repository.Gio")
    except ImportError:
        missing.add("python3-pyatspi")
    return sorted(missing)
