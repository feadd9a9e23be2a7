# SPDX-License-Identifier: MIT
"""A desktop of its own: X server, window manager, message bus and accessibility."""
import os
import pathlib
import shutil
import subprocess
import tempfile

from . import tools
from .accessible import AccessibilityBus
from .picture import Picture
from .processes import Processes
from .waiting import wait_until

# Narrower screens are those of handhelds, which draw no frames round windows.
_FRAMED_FROM = 480

_WINDOW_MANAGER_SETTINGS = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew></focus>
  <theme><name>Clearlooks</name><keepBorder>no</keepBorder></theme>
  <desktops><number>1</number><popupTime>0</popupTime></desktops>
  <keyboard><keybind key="A-F4"><action name="Close"/></keybind></keyboard>
  <mouse>
    <context name="Client">
      <mousebind button="Left" action="Press">
        <action name="Focus"/><action name="Raise"/>
      </mousebind>
    </context>
  </mouse>
  <applications><application class="*"><decor>{decor}</decor></application></applications>
</openbox_config>
"""


class Desktop:
    """One X server with all that a program expects of a session; nothing of it is shared."""

    def __init__(self, width, height):
        """Starts it all, with a screen of the given size in pixels."""
        self.width = width
        self.height = height
        self._processes = Processes()
        self._home = pathlib.Path(tempfile.mkdtemp(prefix="teskel-x11-"))
        self.environment = {
            "PATH": os.environ["PATH"],
            "LC_ALL": "C.UTF-8",
            "HOME": str(self._home),
            "TMPDIR": str(self._home / "tmp"),
            "XDG_CONFIG_HOME": str(self._home / "config"),
            "XDG_DATA_HOME": str(self._home / "data"),
            "XDG_CACHE_HOME": str(self._home / "cache"),
            "XDG_RUNTIME_DIR": str(self._home / "run"),
            **{name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")},
        }
        for name in ("tmp", "config", "data", "cache", "run"):
            (self._home / name).mkdir(mode=0o700)
        # What the message bus may start programs from.
        self.services = self._home / "data" / "dbus-1" / "services"
        self.services.mkdir(parents=True)
        try:
            self._start_display()
            self._start_bus()
            self._start_window_manager()
        except BaseException:
            self.end()
            raise

    def end(self):
        """Ends every process of the desktop and removes its files."""
        self._processes.end_all()
        shutil.rmtree(self._home, ignore_errors=True)

    # Starting

    def _start_display(self):
        read_end, write_end = os.pipe()
        self._processes.start(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0",
             f"{self.width}x{self.height}x24", "-nolisten", "tcp", "-noreset"],
            self.environment, pass_fds=[write_end], stderr=self._log("xvfb"))
        os.close(write_end)
        with os.fdopen(read_end) as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError("the X server did not start: " + self._read_log("xvfb"))
        self.environment["DISPLAY"] = f":{number}"

    def _start_bus(self):
        bus = self._processes.start(
            ["dbus-daemon", "--session", "--nofork", "--print-address"],
            self.environment, stdout=subprocess.PIPE, stderr=self._log("bus"), text=True)
        self.bus_address = bus.stdout.readline().strip()
        if not self.bus_address:
            raise RuntimeError("the message bus did not start: " + self._read_log("bus"))
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.bus_address
        self._processes.start([tools.ACCESSIBILITY_LAUNCHER], self.environment,
                              stdout=subprocess.DEVNULL, stderr=self._log("accessibility"))
        self.accessibility = AccessibilityBus(self.bus_address)

    def _start_window_manager(self):
        settings = self._home / "openbox.xml"
        decor = "yes" if self.width >= _FRAMED_FROM else "no"
        settings.write_text(_WINDOW_MANAGER_SETTINGS.format(decor=decor), encoding="utf-8")
        self._processes.start(["openbox", "--config-file", str(settings), "--sm-disable"],
                              self.environment, stdout=subprocess.DEVNULL,
                              stderr=self._log("openbox"))
        # It answers this question once it manages windows.
        wait_until("the window manager to manage",
                   lambda: self.run(["xdotool", "get_desktop"], check=False).returncode == 0)

    def _log(self, name):
        return open(self._home / f"{name}.log", "wb")

    def _read_log(self, name):
        return (self._home / f"{name}.log").read_text(errors="replace")

    # Programs on the desktop

    def start(self, command, environment, **options):
        """Starts a program that lives on this desktop."""
        return self._processes.start(command, {**self.environment, **environment}, **options)

    def end_program(self, child, how):
        """Sends a program the signal `how` and returns its exit status."""
        return self._processes.end(child, how)

    def run(self, command, check=True, **options):
        """Runs a small program to its end and returns what it printed."""
        options.setdefault("stdout", subprocess.PIPE)
        options.setdefault("stderr", subprocess.PIPE)
        return subprocess.run(command, env=self.environment, check=check, text=True, **options)

    # Hands

    def _xdotool(self, *arguments):
        self.run(["xdotool", *map(str, arguments)])

    def press(self, *keys):
        """Presses and releases keys in order, e.g. "Down", "ctrl+a"."""
        self._xdotool("key", "--delay", 1, *keys)

    def write(self, text):
        """Types a text letter by letter."""
        self._xdotool("type", "--delay", 1, "--", text)

    def click(self, point, times=1, button=1):
        """Clicks at a point of the screen."""
        x, y = point
        self._xdotool("mousemove", x, y, "click", "--repeat", times, "--delay", 40, button)

    def hold(self, point):
        """Presses the left button at a point and keeps it down."""
        x, y = point
        self._xdotool("mousemove", x, y, "mousedown", 1)

    def let_go(self):
        """Releases the left button."""
        self._xdotool("mouseup", 1)

    def park_pointer(self):
        """Takes the mouse pointer out of the way."""
        self._xdotool("mousemove", self.width - 1, self.height - 1)

    def turn_wheel(self, point, down):
        """Turns the mouse wheel by one notch over a point."""
        self.click(point, button=5 if down else 4)

    # Eyes

    def active_window_name(self):
        """Name of the window that has the keyboard, empty when none has."""
        answer = self.run(["xdotool", "getactivewindow", "getwindowname"], check=False)
        return answer.stdout.rstrip("\n") if answer.returncode == 0 else ""

    def window_names(self, pid):
        """Names of the visible windows of one process."""
        found = self.run(["xdotool", "search", "--onlyvisible", "--pid", str(pid)], check=False)
        names = []
        for window in found.stdout.split():
            name = self.run(["xdotool", "getwindowname", window], check=False)
            names.append(name.stdout.rstrip("\n"))
        return names

    def picture(self):
        """What the screen shows."""
        answer = subprocess.run(
            ["import", "-silent", "-window", "root", "-depth", "8", "ppm:-"],
            env=self.environment, check=True, stdout=subprocess.PIPE)
        return Picture(answer.stdout)

    def save_picture(self, path):
        """Writes what the screen shows to a small PNG file."""
        self.run(["import", "-silent", "-window", "root", "-strip",
                  "-define", "png:compression-level=9", f"png8:{path}"])

    # Clipboard

    def clipboard(self):
        """The text on the clipboard, empty when there is none."""
        answer = self.run(["xclip", "-selection", "clipboard", "-out"], check=False)
        return answer.stdout if answer.returncode == 0 else ""

    def set_clipboard(self, text):
        """Another program, which stays until its text is replaced, puts a text on the clipboard."""
        self.run(["xclip", "-selection", "clipboard", "-in"], input=text,
                 stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
