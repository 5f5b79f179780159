"""The Windows program under Wine, in a separate prefix: two displays on one prefix lose keys."""

import json
import os
import pathlib
import subprocess
import tempfile

from program import Program
from wait import until, until_equal

MAIN_CLASS = "wxWindowNR"
_SERVER_SECONDS = 120  # how long Wine's server keeps running without a program, which saves a second for each program


class Wine:
    """Runs programs by the script, with these tests' prefix, which is created if it is missing."""

    def __init__(self, script, reader):
        self._script = str(script)
        self._reader = str(reader)
        cache = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache")
        os.environ["QUILLON_WINEPREFIX"] = str(cache / "quillon" / "wine-outside")
        self.run("--server", f"-p{_SERVER_SECONDS}")

    def close(self):
        """Ends the prefix's remaining programs and its server."""
        self.run("--server", "-k")

    def command(self, *arguments):
        return [self._script, *map(str, arguments)]

    def run(self, *arguments):
        """Runs a program to its end; returns its output. Not through a pipe, which Wine's services would keep open."""
        quiet = {"stdin": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        with tempfile.TemporaryFile() as output:
            subprocess.run(self.command(*arguments), stdout=output, check=False, **quiet)
            output.seek(0)
            return output.read().decode("utf-8", "replace")

    def windows(self):
        """Every window of the program; see WindowReader.cpp."""
        return json.loads(self.run(self._reader, "Quillon.exe") or "[]")

    def main_window(self):
        """The main window; None while there is none."""
        return next((window for window in self.windows() if window["class"] == MAIN_CLASS), None)

    def control(self, kind):
        """The main window's first control of a class; None while there is none."""
        controls = (self.main_window() or {"controls": []})["controls"]
        return next((control for control in controls if control["class"] == kind), None)

    def list(self):
        return self.control("SysListView32") or {"rows": None, "selected": None, "editing": None}

    def panels(self):
        """The texts of the status bar's panels."""
        return (self.control("msctls_statusbar32") or {"panels": []})["panels"]

    def box(self, label):
        """The text of the box behind the label with this beginning."""
        labelled = False
        for control in (self.main_window() or {"controls": []})["controls"]:
            if labelled and control["class"] == "Edit":
                return control["text"]
            labelled = labelled or (control["class"] == "Static" and control["text"].startswith(label))
        return None

    def dialog(self):
        """The caption and all texts of the open dialog in front; None when there is none."""
        for window in self.windows():
            if window["class"] == "#32770" and window["active"]:
                return window["text"], [control["text"] for control in window["controls"] if control["text"]]
        return None

    def wait_for_names(self, names):
        pending = "（未適応）"  # is read after a rename name that is not applied
        until_equal(lambda: [row[0].removesuffix(pending) for row in self.list()["rows"] or []], names, "the rows' names")

    def wait_for_box(self, label, text):
        until_equal(lambda: self.box(label), text, f"box {label}")

    def wait_for_dialog(self, caption, text):
        """Waits for a dialog with this text; returns its texts."""

        def find():
            found = self.dialog()
            return found if found and found[0] == caption and text in "\n".join(found[1]) else None

        return until(find, f"dialog “{text}”")[1]


class WineProgram(Program):
    """The Windows program in a private folder."""

    FILES = ("Quillon.exe", "BREGEXP.DLL")
    SETTINGS = "Quillon.ini"

    def __init__(self, built, wine):
        super().__init__(built)
        self._wine = wine

    def command(self, arguments):
        return self._wine.command(self.home / "Quillon.exe", *map(windows_path, arguments))

    def start_other(self, name):
        """Starts one of Wine's own programs."""
        return self._start(self._wine.command(name), {})


def windows_path(path):
    """The path of a file in Wine's programs."""
    return "Z:" + str(path).replace("/", "\\")
