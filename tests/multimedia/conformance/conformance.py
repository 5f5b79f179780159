"""Sends the same command strings to the Linux device and, under Wine, to the Windows one, and compares the replies.

usage: conformance.py --linux PROGRAM --windows PROGRAM --wine SCRIPT --samples FOLDER --results FILE [--only TEXT]

The command strings are in the .txt files beside this one; {folder} in them is the folder of the media files. A comment
can state how the replies to the next command are compared. Without one they must be equal, and no errors:

    # fails                  both reply with the same error
    # within N               both reply with a number; they differ by at most N
    # unlike WINDOWS | LINUX each gives the reply stated here

The text behind a colon is the reason.
"""

import argparse
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import wave

sys.dont_write_bytecode = True
HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent.parent / "outside"))

import results  # noqa: E402

_OWN = re.compile(r"wait |#|$")
_PATIENCE = 120
_SAMPLES = ("tone.mp3", "mpeg1.mpg", "mpeg4.avi")


class Step:
    """A command and how its two replies are compared."""

    def __init__(self, command, rule):
        self.command = command
        self.rule = rule

    def complaint(self, windows, linux):
        """Compares the replies; returns None when they agree."""
        kind, _, rest = self.rule.partition(" ")
        if kind == "unlike":
            agreed = [windows, linux] == [answer.strip() for answer in rest.split("|")]
        elif kind == "within":
            numbers = windows.isdecimal() and linux.isdecimal()
            agreed = numbers and abs(int(windows) - int(linux)) <= int(rest)
        else:
            agreed = windows == linux and windows.startswith("error ") == (kind == "fails")
        if agreed:
            return None
        return f"{self.command}: Windows {windows!r}, Linux {linux!r}" + (f" ({self.rule})" if self.rule else "")


def _steps(text):
    """The commands with replies, each with the rule in front of it."""
    steps = []
    rule = ""
    for line in text.splitlines():
        if line.startswith("# "):
            rule = line[2:].partition(":")[0].strip()
        elif not _OWN.match(line):
            steps.append(Step(line, rule))
            rule = ""
    return steps


def _answers(command, text):
    """A program's replies to the commands. Not through pipes, which Wine's services would keep open."""
    with tempfile.TemporaryFile() as given, tempfile.TemporaryFile() as written:
        given.write(text.encode("utf-8"))
        given.seek(0)
        quiet = {"stderr": subprocess.DEVNULL, "check": True, "timeout": _PATIENCE}
        subprocess.run(command, stdin=given, stdout=written, **quiet)
        written.seek(0)
        return written.read().decode("utf-8").splitlines()


def _song():
    """A Standard MIDI File of four notes, half a second each."""
    notes = b"\x00\x90\x40\x40\x83\x60\x80\x40\x00" * 4
    track = b"\x00\xff\x51\x03\x07\xa1\x20" + notes + b"\x00\xff\x2f\x00"
    return b"MThd" + struct.pack(">IHHH", 6, 0, 1, 480) + b"MTrk" + struct.pack(">I", len(track)) + track


def _make_media(folder, samples):
    for name, milliseconds in (("short.wav", 1500), ("long.wav", 6000), ("荒城の月 (第二番).wav", 1000)):
        with wave.open(str(folder / name), "wb") as sound:
            sound.setnchannels(1)
            sound.setsampwidth(2)
            sound.setframerate(22050)
            sound.writeframes(bytes(22050 * milliseconds // 1000 * 2))
    for name in ("text.wav", "text.avi", "text.mid"):
        (folder / name).write_bytes(b"Nothing of this can be played.\n" * 20)
    (folder / "empty.wav").write_bytes(b"")
    (folder / "song.mid").write_bytes(_song())
    for name in _SAMPLES:
        if (samples / name).exists():
            shutil.copy(samples / name, folder)


class Conformance(unittest.TestCase):
    """One test for every file of command strings."""

    maxDiff = None
    arguments = None

    def _check(self, file):
        arguments = self.arguments
        if not pathlib.Path(arguments.linux).exists():
            self.skipTest(f"the Linux program is not built: {arguments.linux}")
        if "PULSE_SERVER" not in os.environ:
            self.skipTest("there is no sound server: see scripts/with-sound.sh")
        text = file.read_text(encoding="utf-8")
        with tempfile.TemporaryDirectory(prefix="quillon-conformance-") as name:
            folder = pathlib.Path(name)
            _make_media(folder, pathlib.Path(arguments.samples))
            missing = [sample for sample in _SAMPLES if sample in text and not (folder / sample).exists()]
            if missing:
                self.skipTest(f"missing: {', '.join(missing)}: see scripts/media-samples.sh")
            linux = _answers([arguments.linux, "mci"], text.replace("{folder}", f"{folder}/"))
            of_wine = "Z:" + f"{folder}/".replace("/", "\\")
            windows = _answers([arguments.wine, arguments.windows, "mci"], text.replace("{folder}", of_wine))
        steps = _steps(text)
        self.assertEqual(len(windows), len(steps), windows)
        self.assertEqual(len(linux), len(steps), linux)
        complaints = [step.complaint(*answers) for step, *answers in zip(steps, windows, linux)]
        self.assertEqual([], [complaint for complaint in complaints if complaint])


def _main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--linux", required=True, help="quillon-cli for Linux")
    parser.add_argument("--windows", required=True, help="quillon-cli.exe")
    parser.add_argument("--wine", required=True, help="the script that runs a Windows program")
    parser.add_argument("--samples", required=True, help="the folder of scripts/media-samples.sh")
    parser.add_argument("--results", required=True, help="the result file to write")
    parser.add_argument("--only", help="only the tests with this in their names")
    Conformance.arguments = parser.parse_args()
    for file in sorted(HERE.glob("*.txt")):
        setattr(Conformance, f"test_{file.stem}", lambda self, file=file: self._check(file))
    return 0 if results.run(Conformance, Conformance.arguments.results, Conformance.arguments.only) else 1


if __name__ == "__main__":
    sys.exit(_main())
