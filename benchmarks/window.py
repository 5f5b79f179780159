"""Measures the window: its start, its loading and its selection, each beside its floor.
Usage: window.py FOLDER-OF-PROGRAMS"""

import json
import os
import subprocess
import sys
import time

from report import REPETITIONS, compared, fail, media_folder, medians, output, row, timed

MOST = int(os.environ.get("MOST", "1000000"))
programs = sys.argv[1]


def program(name):
    return os.path.join(programs, name)


def run_window(title, *command):
    """One start: milliseconds until the window was mapped and until it was idle, and the peak of memory in KiB."""
    return json.loads(output([program("quillon-window-clock"), title, *command]))


def run_cli(folder):
    return timed([program("quillon-cli"), "list", "--subfolders", folder])


def measure_start():
    quillon, bare = medians(lambda: run_window("Quillon", program("quillon")),
                            lambda: run_window("Bare frame", program("quillon-bare-frame")), repetitions=REPETITIONS + 2)
    compared("start until the window is mapped", quillon["mapped"], bare["mapped"], "bare frame", 1.2)
    compared("start until it is idle", quillon["idle"], bare["idle"], "bare frame", 1.25)
    # Processor time is the same on a busy machine.
    compared("  processor time", quillon["work"], bare["work"], "bare frame")
    compared("  memory at most", quillon["peak"] / 1024, bare["peak"] / 1024, "bare frame", unit="MB")


def measure_load(count, kind, goal, repetitions=REPETITIONS):
    """`goal` is in seconds; 0 for none."""
    with media_folder(programs, count, kind) as folder:
        window, cli = medians(lambda: run_window("Quillon", program("quillon"), folder), lambda: run_cli(folder),
                              repetitions=repetitions)
        whole, floor, peak = window["idle"] / 1000, cli["elapsed"] / 1000, window["peak"] / 1024
        row(f"{count:,} files: listed and idle in the window", f"{whole:.2f} s", f"{floor:.2f} s quillon-cli list", whole / floor,
            f"at most {goal:g} s" if goal else "", whole <= goal if goal else None)
        limit = count == 1000000
        row("  memory at most", f"{peak:.0f} MB", f"{cli['peak'] / 1024:.0f} MB quillon-cli list", window["peak"] / cli["peak"],
            "at most 300 MB" if limit else "", peak <= 300 if limit else None)
        if count == MOST:
            measure_selection(folder, count)


def ticks(process):
    fields = open(f"/proc/{process.pid}/stat", encoding="utf-8").read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def wait_for_rest(process):
    """Until a second has passed with next to no processor time."""
    for _ in range(60):
        before = ticks(process)
        time.sleep(1)
        if ticks(process) - before <= 0.02:
            return
    fail("the window did not come to rest")


def measure_selection(folder, count):
    with subprocess.Popen([program("quillon"), folder]) as window:
        try:
            subprocess.run(["xdotool", "search", "--sync", "--onlyvisible", "--name", "^Quillon$", "windowfocus"], check=True,
                           stdout=subprocess.DEVNULL)
            wait_for_rest(window)
            subprocess.run(["xdotool", "key", "Home"], check=True)  # puts the focus on a row
            wait_for_rest(window)
            for what, key in (("all", "ctrl+a"), ("one row of them", "End")):
                before = ticks(window)
                subprocess.run(["xdotool", "key", key], check=True)
                wait_for_rest(window)
                work = ticks(window) - before
                row(f"{count:,} rows: selecting {what}", f"{work:.2f} s", "(processor time)", None, "at most 0.1 s", work <= 0.1)
        finally:
            window.kill()


def main():
    measure_start()
    measure_load(20000, "mixed", 0)
    measure_load(100000, "mixed", 0.5)
    if MOST > 100000:
        measure_load(MOST, "midi", 3.5, repetitions=3)


main()
