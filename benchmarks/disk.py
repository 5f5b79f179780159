"""Measures quillon-cli and loading on files: beside their floors, with reading ahead and without, on a slow disk, and on
very many files. Usage: disk.py FOLDER-OF-PROGRAMS list|slow|million..."""

import os
import sys

from report import compared, fail, loaded, media_folder, medians, output, row, timed

MOST = int(os.environ.get("MOST", "1000000"))
programs = sys.argv[1]


def program(name):
    return os.path.join(programs, name)


def cli(*arguments):
    return lambda: timed([program("quillon-cli"), *arguments])


def floor_of(folder):
    return lambda: timed([program("quillon-list-floor"), folder + "/"])


def measure_list():
    with media_folder(programs, 25000, "mixed") as folder:
        lines = [sorted(output(command).splitlines()) for command in (
            [program("quillon-list-floor"), folder + "/"],
            [program("quillon-cli"), "list", "--json", "--subfolders", folder])]
        if lines[0] != lines[1]:
            fail("the floor does not print what quillon-cli prints")
        listed, floor = medians(cli("list", "--json", "--subfolders", folder), floor_of(folder))
    compared("25,000 files: list --json", listed["elapsed"], floor["elapsed"], "one thread, same lines", 1.0)
    compared("  its processor time", listed["work"], floor["work"], "one thread, same lines")
    with media_folder(programs, 100000, "mixed") as folder:
        ahead, in_turn = medians(lambda: loaded(programs, folder, "ahead"), lambda: loaded(programs, folder, "in-turn"))
    compared("100,000 files: loading, reading ahead", ahead["elapsed"], in_turn["elapsed"], "each in its turn")
    compared("  its processor time", ahead["work"], in_turn["work"], "each in its turn", 1.1)
    compared("  memory at most", ahead["peak"] / 1024, in_turn["peak"] / 1024, "each in its turn", unit="MB")


def measure_slow():
    with media_folder(programs, 2000, "mixed") as folder:
        slow = {**os.environ, "LD_PRELOAD": program("quillon-slow-disk.so"), "SLOW_DISK": folder, "SLOW_DISK_MS": "1"}
        listed, floor = medians(
            lambda: timed([program("quillon-cli"), "list", "--json", "--subfolders", folder], env=slow),
            lambda: timed([program("quillon-list-floor"), folder + "/"], env=slow), repetitions=2)
    seconds = listed["elapsed"] / 1000
    row("2,000 files, each call waits 1 ms: list --json", f"{seconds:.2f} s", f"{floor['elapsed'] / 1000:.2f} s one thread",
        listed["elapsed"] / floor["elapsed"], "at most 0.8 s", seconds <= 0.8)


def measure_million():
    few = f"{MOST:,} small MIDI files"
    scale = MOST / 1000000
    with media_folder(programs, MOST, "midi") as folder:
        listed, planned, floor = medians(cli("list", "--json", "--subfolders", folder),
                                         cli("rename", "--to-title", "--json", "--subfolders", folder), floor_of(folder),
                                         repetitions=3)
        applied = timed([program("quillon-cli"), "rename", "--to-title", "--apply", "--subfolders", folder])
    seconds = {name: run["elapsed"] / 1000
               for name, run in (("list", listed), ("plan", planned), ("floor", floor), ("apply", applied))}
    row(f"{few}: list --json", f"{seconds['list']:.1f} s", f"{seconds['floor']:.1f} s one thread, same lines",
        seconds["list"] / seconds["floor"], "at most 1.0", seconds["list"] <= seconds["floor"])
    row("  memory at most", f"{listed['peak'] / 1024:.0f} MB")
    more = seconds["plan"] - seconds["list"]
    row(f"{few}: dry run of titles", f"{seconds['plan']:.1f} s", f"{seconds['list']:.1f} s list --json", seconds["plan"] / seconds["list"],
        f"{scale:g} s more", more <= scale)
    row("  its processor time", f"{planned['work'] / 1000:.1f} s", f"{listed['work'] / 1000:.1f} s list --json",
        planned["work"] / listed["work"])
    row(f"{few}: applying titles", f"{seconds['apply']:.1f} s", f"{seconds['list']:.1f} s list --json",
        seconds["apply"] / seconds["list"])


def main():
    parts = {"list": measure_list, "slow": measure_slow, "million": measure_million}
    for name in sys.argv[2:]:
        parts[name]()


main()
