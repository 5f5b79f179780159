"""Prints the rows for a run of quillon-benchmarks. Usage: engine.py RESULTS.json"""

import json
import re
import statistics
import sys

from report import row


def medians(path):
    """Each benchmark's median real time over its repetitions, in microseconds per file, and its counters."""
    with open(path, encoding="utf-8") as file:
        rows = json.load(file)["benchmarks"]
    runs, counters = {}, {}
    scale = {"ns": 1e-3, "us": 1.0, "ms": 1e3, "s": 1e6}
    for each in rows:
        if each.get("error_occurred"):
            sys.exit(f"error: {each['name']}: {each['error_message']}")
        name = re.sub("/iterations:[0-9]+|/real_time", "", each["run_name"])
        counters.setdefault(name, each)
        if each["run_type"] == "iteration":
            count = int(name.split("/")[-1]) if name.split("/")[-1].isdigit() else 1
            runs.setdefault(name, []).append(each["real_time"] * scale[each["time_unit"]] / count)
    times = {name: statistics.median(values) for name, values in runs.items()}
    return times, counters


FEW, MANY = "5000", "100000"
KINDS = {"newer": "ID3v2.4", "flac": "FLAC", "m4a": "M4A", "ogg": "Ogg Vorbis"}


def per_file(what, value, floor, name, most):
    ratio = value / floor
    row(what, f"{value:.2f} us", f"{floor:.2f} us {name}", ratio, f"at most {most}", ratio <= most)


def under(what, value, most, unit):
    row(what, f"{value:.3g} {unit}", goal=f"at most {most:g} {unit}", met=value <= most)


def main():
    times, counters = medians(sys.argv[1])
    for size in (FEW, MANY):
        per_file(f"loading {int(size):,} files, each", times[f"Load/mixed/{size}"], times[f"LoadFloor/mixed/{size}"],
                 "system calls", 0.9)
    value, peer = times[f"Load/mp3/{FEW}"], times[f"LoadTagLib/mp3/{FEW}"]
    row("loading 5,000 MP3 files, each", f"{value:.2f} us", f"{peer:.2f} us TagLib", peer / value, "at least 4",
        peer / value >= 4)
    for kind, name in KINDS.items():
        per_file(f"titles of 5,000 files of {name}, each", times[f"Songs/{kind}/{FEW}"], times[f"LoadTagLib/{kind}/{FEW}"],
                 "TagLib", 1.15)
    for size in (FEW, MANY):
        per_file(f"applying {int(size):,} names, each", times[f"Apply/{size}"], times[f"ApplyFloor/{size}"], "bare renames", 1.05)
    for size in (FEW, MANY):
        per_file(f"titles to {int(size):,} names, each", times[f"TitlesToNames/{size}"],
                 times[f"LoadFloor/mixed/{size}"] + times[f"ApplyFloor/{size}"], "both floors", 1.05)
    under("modifying 100,000 names by five rules", times[f"ModifyNames/{MANY}"] * int(MANY) / 1e6, 1, "s")
    under("sorting 100,000 rows", times[f"Sort/{MANY}"] * int(MANY) / 1e6, 0.5, "s")
    for name in ("Load/mixed", "Apply", "TitlesToNames", "ModifyNames", "Sort"):
        per_file(f"{name}: a row of 100,000", times[f"{name}/{MANY}"], times[f"{name}/{FEW}"], "of 5,000", 1.3)
    memory = next(each["bytes_per_row"] for name, each in counters.items() if name.startswith("MemoryPerRow"))
    under("memory per row", memory, 250, "bytes")
    # Rows without files: what a command over all of them takes.
    for name, each in sorted(times.items()):
        if name.startswith("Rows/"):
            _, command, count = name.split("/")
            under(f"{int(count):,} rows: {command.replace('_', ' ')}", each * int(count) / 1e6,
                  0.1 if command.startswith("select") else 1, "s")


main()
