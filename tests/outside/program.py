"""A private copy of the program, so that the settings file beside it is private, too."""

import os
import pathlib
import shutil
import subprocess
import tempfile

import display
from wait import PATIENCE, until

TITLE = "Quillon"


class Program:
    """The program in a private folder. `close` ends all running instances."""

    FILES = ("quillon", "libbregexp.so")
    SETTINGS = "quillon.ini"

    def __init__(self, built):
        self._temporary = tempfile.TemporaryDirectory(prefix="quillon-outside-")
        self.folder = pathlib.Path(self._temporary.name)
        self.home = self.folder / "program"
        self.home.mkdir()
        for name in self.FILES:
            shutil.copy2(pathlib.Path(built) / name, self.home)
        self.help = pathlib.Path(built).resolve() / "help"
        self._running = []

    @property
    def settings(self):
        return self.home / self.SETTINGS

    @property
    def errors(self):
        """What the program has written to standard error."""
        return (self.folder / "errors").read_text(errors="replace")

    def command(self, arguments):
        return [str(self.home / "quillon"), *map(str, arguments)]

    def start(self, *arguments, **environment):
        """Starts one instance, which need not show a window."""
        return self._start(self.command(arguments), environment)

    def start_where_nothing_can_be_written(self, *arguments):
        script = 'exec "$@" >/dev/full 2>/dev/full'
        return self._start(["sh", "-c", script, "sh", *self.command(arguments)], {})

    def _start(self, command, environment):
        with open(self.folder / "errors", "ab") as errors:
            process = subprocess.Popen(
                command,
                cwd=self.home,
                env=dict(os.environ, **environment),
                stdin=subprocess.DEVNULL,
                stdout=subprocess.DEVNULL,
                stderr=errors,
            )
        self._running.append(process)
        return process

    def start_and_show(self, *arguments, **environment):
        """Starts the first instance, and waits for its main window to have the focus."""
        process = self.start(*arguments, **environment)
        until(lambda: display.active_title() == TITLE or process.poll() is not None, "the main window")
        if process.poll() is not None:
            raise AssertionError(f"the program ended at once with status {process.returncode}")
        return process

    def close(self):
        for process in self._running:
            if process.poll() is None:
                process.kill()
            process.wait()
        # Once the window is gone, the next instance is the first one again.
        until(lambda: not display.visible_windows(TITLE), "the window gone")
        self._temporary.cleanup()

    def close_window(self, process):
        """Closes the main window like its close button; returns the exit status."""
        try:
            return display.close_window(process)
        except subprocess.TimeoutExpired:
            raise AssertionError("the program did not end") from None

    @staticmethod
    def status(process, patience=PATIENCE):
        """Waits for the end of an instance."""
        try:
            return process.wait(patience)
        except subprocess.TimeoutExpired:
            raise AssertionError("the program did not end") from None
