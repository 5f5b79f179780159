"""What the benchmarks share: running the programs, medians, and the rows of the one table."""

import contextlib
import json
import os
import statistics
import subprocess
import sys
import time

REPETITIONS = int(os.environ.get("REPETITIONS", "3"))


def heading():
    print(f"{'what':50} {'now':>10}  {'floor or peer':38} {'ratio':>7}  {'goal':14}")


def row(what, now, floor="", ratio=None, goal="", met=None):
    """`now` and `floor` are texts; `ratio` is a number, which the goal is about when there is one."""
    shown = "" if ratio is None else f"{ratio:.2f}"
    verdict = "" if met is None else "met" if met else "MISSED"
    print(f"{what:50} {now:>10}  {floor:38} {shown:>7}  {goal:14} {verdict}".rstrip(), flush=True)


def compared(what, value, floor, name, most=None, unit="ms"):
    """A row for a time beside its floor; with `most`, the goal of their ratio."""
    ratio = value / floor
    goal = "" if most is None else f"at most {most}"
    row(what, f"{value:.0f} {unit}", f"{floor:.0f} {unit} {name}", ratio, goal, None if most is None else ratio <= most)


def fail(text):
    sys.exit(f"error: {text}")


def output(command, **options):
    run = subprocess.run(command, capture_output=True, text=True, errors="surrogateescape", **options)
    if run.returncode != 0:
        fail(f"{' '.join(command)}: {run.stderr.strip()}")
    return run.stdout


def timed(command, **options):
    """One run with its output thrown away: milliseconds passed and of processor time, and the peak of memory in KiB."""
    started = time.monotonic()
    with subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, **options) as process:
        complaint = process.stderr.read()
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        fail(f"{' '.join(command)}: {complaint.decode(errors='replace').strip()}")
    return {"elapsed": (time.monotonic() - started) * 1000, "work": (usage.ru_utime + usage.ru_stime) * 1000,
            "peak": usage.ru_maxrss}


def medians(*measurements, repetitions=REPETITIONS):
    """Runs the measurements alternately and returns the medians of each. An extra first round warms the caches."""
    rounds = [[measure() for measure in measurements] for _ in range(repetitions + 1)][1:]
    return [{key: statistics.median(run[key] for run in runs) for key in runs[0]} for runs in zip(*rounds)]


@contextlib.contextmanager
def media_folder(programs, count, kind):
    """A folder of media files, without a trailing separator."""
    with subprocess.Popen([os.path.join(programs, "quillon-media-folder"), str(count), kind], stdin=subprocess.PIPE,
                          stdout=subprocess.PIPE, text=True) as maker:
        folder = maker.stdout.readline().strip()
        if not folder:
            fail("the folder of files could not be made")
        yield folder.rstrip("/")
        maker.stdin.close()


def loaded(programs, folder, way, **options):
    return json.loads(output([os.path.join(programs, "quillon-load-folder"), folder + "/", way], **options))
