"""Measures playing. Usage: playing.py FOLDER-OF-PROGRAMS FOLDER-OF-MEDIA-FILES (thirty seconds each)"""

import os
import statistics
import struct
import subprocess
import sys
import time

from report import REPETITIONS, row

TRUE_LENGTH = 30000
SEEKS = [25000, 1000, 14321, 28000, 7777]
SECONDS = 10  # of processor time measured
programs, media = sys.argv[1:3]


def program(name):
    return os.path.join(programs, name)


class Device:
    """A running quillon-cli mci: one reply for each command string."""

    def __init__(self):
        self._process = subprocess.Popen([program("quillon-cli"), "mci"], stdin=subprocess.PIPE,
                                         stdout=subprocess.PIPE, text=True, bufsize=1)

    def ask(self, command):
        self._process.stdin.write(command + "\n")
        self._process.stdin.flush()
        return self._process.stdout.readline().rstrip("\n")

    def timed(self, command):
        started = time.monotonic()
        reply = self.ask(command)
        if reply.startswith("error"):
            sys.exit(f"error: {command}: {reply}")
        return (time.monotonic() - started) * 1000

    def position(self):
        return int(self.ask("status X position"))

    def close(self):
        self._process.stdin.close()
        self._process.wait()


def write_midi(path):
    """A MIDI file of quarter notes, one each half second, for thirty seconds."""
    notes = b"".join(b"\x00\x90" + bytes([60 + i % 12, 100]) + b"\x60\x80" + bytes([60 + i % 12, 0])
                     for i in range(TRUE_LENGTH // 500))
    track = notes + b"\x00\xff\x2f\x00"
    with open(path, "wb") as file:
        file.write(b"MThd" + struct.pack(">IHHH", 6, 0, 1, 0x60) + b"MTrk" + struct.pack(">I", len(track)) + track)


def until_moving(device, start):
    """Milliseconds until the position has passed `start`."""
    started = time.monotonic()
    while device.position() <= start:
        if time.monotonic() - started > 10:
            sys.exit(f"error: it stands at {device.position()}, {device.ask('status X mode')}")
    return (time.monotonic() - started) * 1000


def astray(device, place):
    """The largest error of the position after a seek, after starting there, and a quarter of a second later."""
    device.ask(f"seek X to {place}")
    errors = [abs(device.position() - place)]
    started = time.monotonic()
    device.ask("play X")
    until_moving(device, place)
    first, first_time = device.position(), time.monotonic()
    errors.append(max(place - first, first - place - (first_time - started) * 1000, 0))
    time.sleep(0.25)
    errors.append(abs(device.position() - first - (time.monotonic() - first_time) * 1000))
    return max(errors)


def measure_file(name):
    opened, started, lengths, errors = [], [], [], []
    for _ in range(REPETITIONS):
        device = Device()
        device.ask("status X mode")  # waits until the library is loaded
        opened.append(device.timed(f'open "{os.path.join(media, name)}" alias X'))
        device.ask("set X time format milliseconds")
        lengths.append(int(device.ask("status X length")))
        play = device.timed("play X")
        started.append(play + until_moving(device, 0))
        errors += [astray(device, place) for place in SEEKS]
        device.close()
    off = max(abs(length - TRUE_LENGTH) for length in lengths)
    row(f"{name}: from play until it sounds", f"{statistics.median(started):.0f} ms",
        f"opened in {statistics.median(opened):.0f} ms (first {opened[0]:.0f})")
    row("  its length is off by", f"{off:.0f} ms", f"a position by {statistics.median(errors):.0f} ms, at most {max(errors):.0f}")


def ticks(path):
    fields = open(path).read().rsplit(")", 1)[1].split()
    return int(fields[11]) + int(fields[12])


def measure_window(name):
    window = subprocess.Popen([program("quillon"), os.path.join(media, name)])
    try:
        subprocess.run(["xdotool", "search", "--sync", "--onlyvisible", "--name", "^Quillon$"], stdout=subprocess.DEVNULL)
        time.sleep(1.5)
        base = f"/proc/{window.pid}"
        hertz = os.sysconf("SC_CLK_TCK")

        def share():
            """Processor time as a share of one core: of the window's thread and of the whole process."""
            paths = [f"{base}/task/{window.pid}/stat", f"{base}/stat"]
            before, began = [ticks(path) for path in paths], time.monotonic()
            time.sleep(SECONDS)
            passed = time.monotonic() - began
            return [(ticks(path) - start) / hertz / passed * 100 for path, start in zip(paths, before)]

        idle = share()
        subprocess.run(["xdotool", "key", "--delay", "200", "Down", "Return"])
        time.sleep(1.5)
        playing = share()
        if playing[1] < 0.5:
            sys.exit("error: nothing plays")
        row(f"{name}: the window's thread while it plays", f"{playing[0]:.1f} %",
            f"{idle[0]:.1f} % before, whole process {playing[1]:.1f} %", None, "under 5 %", playing[0] < 5)
    finally:
        window.kill()
        window.wait()


def main():
    write_midi(os.path.join(media, "notes.mid"))
    for name in sorted(os.listdir(media)):
        measure_file(name)
    measure_window("tone.mp3")


main()
