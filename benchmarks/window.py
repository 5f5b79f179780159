"""Measures the window's start and its loading, each compared with its floor. Usage: window.py FOLDER-OF-PROGRAMS"""

import contextlib
import json
import os
import statistics
import subprocess
import sys
import time

REPETITIONS = int(os.environ.get("REPETITIONS", "7"))
SIZES = [int(size) for size in os.environ.get("SIZES", "20000 100000").split()]
programs = sys.argv[1]


def program(name):
    return os.path.join(programs, name)


def run_window(title, *command):
    """One start: milliseconds until the window was mapped and until it was idle, and the peak memory in KiB."""
    run = subprocess.run([program("quillon-window-clock"), title, *command], capture_output=True, text=True)
    if run.returncode != 0:
        sys.exit(run.stderr.strip() or f"error: {command[0]} could not be measured")
    return json.loads(run.stdout)


def list_with_cli(folder, output):
    command = [program("quillon-cli"), "list", "--subfolders", folder]
    run = subprocess.run(command, stdout=output, stderr=subprocess.DEVNULL)
    if run.returncode != 0:
        sys.exit("error: quillon-cli could not list the folder")
    return run.stdout


def run_cli(folder):
    """The time of one `quillon-cli list` of the folder, in milliseconds."""
    started = time.monotonic()
    list_with_cli(folder, subprocess.DEVNULL)
    return {"idle": (time.monotonic() - started) * 1000}


def medians(*measurements):
    """Runs the measurements alternately and returns the median of each value. An extra first round warms the caches."""
    rounds = [[measure() for measure in measurements] for _ in range(REPETITIONS + 1)][1:]
    return [{key: statistics.median(run[key] for run in runs) for key in runs[0]} for runs in zip(*rounds)]


@contextlib.contextmanager
def media_folder(count):
    with subprocess.Popen([program("quillon-media-folder"), str(count)], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                          text=True) as maker:
        folder = maker.stdout.readline().strip()
        if not folder:
            sys.exit("error: the folder of files could not be made")
        yield folder
        maker.stdin.close()


def row(what, value, goal="", met=None):
    verdict = "" if met is None else "met" if met else "MISSED"
    print(f"{what:48} {value:>10}   {goal:18} {verdict}", flush=True)


def measure_start():
    quillon, bare = medians(lambda: run_window("Quillon", program("quillon")),
                            lambda: run_window("Bare frame", program("quillon-bare-frame")))
    for key in ("mapped", "idle"):
        row(f"start until {key}, bare frame", f"{bare[key]:.0f} ms")
        row(f"start until {key}", f"{quillon[key]:.0f} ms")
        ratio = quillon[key] / bare[key]
        row(f"start until {key} / bare frame", f"{ratio:.2f}x", "goal at most 1.5x", ratio <= 1.5)
    # Processor time is the same on a busy machine.
    row("processor time of the start, bare frame", f"{bare['work']:.0f} ms")
    row("processor time of the start", f"{quillon['work']:.0f} ms")
    row("memory after the start, bare frame", f"{bare['peak'] / 1024:.1f} MiB")
    row("memory after the start", f"{quillon['peak'] / 1024:.1f} MiB")
    return quillon


def measure_load(count, empty):
    with media_folder(count) as folder:
        if list_with_cli(folder, subprocess.PIPE).count(b".mp3") != count // 2:
            sys.exit("error: quillon-cli did not list every file")
        window, cli = medians(lambda: run_window("Quillon", program("quillon"), folder), lambda: run_cli(folder))
    whole, floor = window["idle"], cli["idle"]
    few = count <= 20000
    row(f"{count} files: quillon-cli list", f"{floor:.0f} ms")
    row(f"{count} files: window mapped", f"{window['mapped']:.0f} ms")
    row(f"{count} files: listed and idle", f"{whole:.0f} ms", *(("goal at most 500 ms", whole <= 500) if few else ()))
    row(f"{count} files: listed and idle / quillon-cli", f"{whole / floor:.2f}x", "goal at most 2x", whole / floor <= 2)
    row(f"{count} files: more than an empty start / cli", f"{(whole - empty['idle']) / floor:.2f}x")
    row(f"{count} files: memory at most", f"{window['peak'] / 1024:.1f} MiB")


def main():
    empty = measure_start()
    for count in SIZES:
        measure_load(count, empty)


main()
