"""A private screen for the tests: X server, session bus and window manager, and a user's actions there."""

import locale
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile

from wait import until

_LOCALE = "ja_JP.UTF-8"
_SCREEN = "1280x1024x24"
_TOOLS = {"Xvfb": "xvfb", "openbox": "openbox", "xdotool": "xdotool", "xprop": "x11-utils", "dbus-daemon": "dbus"}


def missing():
    """The missing requirements of these tests: packages, and the Japanese locale."""
    found = [package for tool, package in _TOOLS.items() if shutil.which(tool) is None]
    try:
        locale.setlocale(locale.LC_ALL, _LOCALE)
    except locale.Error:
        found.append(f"locale {_LOCALE} (see scripts/japanese-locale.sh)")
    return found


class Display:
    """Starts everything and sets this process's environment, which every child inherits."""

    def __init__(self):
        self._folder = tempfile.TemporaryDirectory(prefix="quillon-display-")
        self._processes = []
        self._use_private_folders()
        try:
            self._start_all()
        except BaseException:
            self.close()
            raise

    def _start_all(self):
        """A server sometimes fails to start with a number that was just released, so the next one is tried."""
        for attempts_left in (2, 1, 0):
            try:
                self._start_screen()
                return
            except AssertionError as failure:
                if attempts_left == 0:
                    raise
                print(f"the screen {os.environ.get('DISPLAY')} is given up: {failure}", file=sys.stderr)
                self._end_processes()

    def _start_screen(self):
        os.environ["DISPLAY"] = ":" + self._start_and_read(["Xvfb", "-displayfd", "{fd}", "-screen", "0", _SCREEN])
        bus = ["dbus-daemon", "--session", "--nofork", "--print-address={fd}"]
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._start_and_read(bus)
        self._start(["openbox", "--sm-disable"])
        until(lambda: "window id" in _output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "the window manager")

    def close(self):
        """Ends what was started."""
        self._end_processes()
        self._folder.cleanup()

    def _end_processes(self):
        """Ends the programs in reverse order."""
        for process in reversed(self._processes):
            process.send_signal(signal.SIGTERM)
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        self._processes = []

    def _use_private_folders(self):
        folder = pathlib.Path(self._folder.name)
        for variable in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"):
            place = folder / variable.lower()
            place.mkdir(mode=0o700)
            os.environ[variable] = str(place)
        os.environ.update(
            {"LC_ALL": _LOCALE, "GDK_BACKEND": "x11", "GSETTINGS_BACKEND": "memory", "GIO_USE_VFS": "local"}
        )
        for variable in ("NO_AT_BRIDGE", "GTK_MODULES", "GTK_IM_MODULE", "WAYLAND_DISPLAY", "DESKTOP_STARTUP_ID"):
            os.environ.pop(variable, None)

    def _start(self, command, **options):
        quiet = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        self._processes.append(subprocess.Popen(command, **quiet, **options))

    def _start_and_read(self, command):
        """Starts a server that writes its address to the descriptor `{fd}`."""
        reading, writing = os.pipe()
        self._start([word.format(fd=writing) for word in command], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as stream:
            answer = stream.readline().strip()
        if not answer:
            raise AssertionError(f"{command[0]} did not start")
        return answer


def _output(*command):
    return subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False).stdout


def xdotool(*arguments):
    """Runs xdotool; returns its output."""
    return _output("xdotool", *map(str, arguments))


def press(*keys):
    """Presses keys one after the other, as xdotool names them, in the window that has the focus."""
    xdotool("key", "--delay", 40, *keys)


def close_window(process, attempts=3, patience=5.0):
    """Closes the active window like its close button; returns the exit status of its program.

    GTK can lose a request that comes while a window is being shown: a frame of wxWidgets without any contents lost one
    in two on a busy machine. As a user would, this asks again.
    """
    for _ in range(attempts - 1):
        press("alt+F4")
        try:
            return process.wait(patience)
        except subprocess.TimeoutExpired:
            pass
    press("alt+F4")
    return process.wait(patience)


def write(text):
    """Types text, slowly enough that no characters are lost."""
    xdotool("type", "--delay", 50, text)


def click(x, y, button=1):
    xdotool("mousemove", x, y, "click", button)


def drag(start, end):
    """Presses at `start`, moves to `end` in the steps needed to start a drag, and releases."""
    xdotool("mousemove", *start, "mousedown", 1)
    steps = 8
    for step in range(1, steps + 1):
        x, y = (round(a + (b - a) * step / steps) for a, b in zip(start, end))
        xdotool("mousemove", x, y, "sleep", 0.08)
    xdotool("mousemove", end[0] + 1, end[1] + 1, "sleep", 0.08, "mouseup", 1)


def visible_windows(title):
    """The ids of the mapped windows with exactly this title; a minimised one is not among them."""
    return xdotool("search", "--onlyvisible", "--name", f"^{re.escape(title)}$").split()


def active_title():
    """The title of the window that has the focus."""
    return xdotool("getactivewindow", "getwindowname").strip()


def minimise(window):
    xdotool("windowminimize", window)


def geometry(window):
    """The window's inner left, top, width, height."""
    lines = _output("xwininfo", "-id", window)
    names = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
    return tuple(int(re.search(rf"{name}:\s+(-?\d+)", lines).group(1)) for name in names)
