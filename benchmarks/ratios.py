"""Prints the ratios of a benchmark run to their floors, with the goals. Usage: ratios.py RESULTS.json"""

import json
import sys


def medians(path):
    """Each benchmark's median real time over its repetitions, in microseconds per file, and its counters."""
    with open(path, encoding="utf-8") as file:
        rows = json.load(file)["benchmarks"]
    times, counters = {}, {}
    scale = {"ns": 1e-3, "us": 1.0, "ms": 1e3, "s": 1e6}
    for row in rows:
        if row.get("error_occurred"):
            sys.exit(f"error: {row['name']}: {row['error_message']}")
        name = row["run_name"].replace("/real_time", "")
        counters.setdefault(name, row)
        if row["run_type"] == "aggregate" and row["aggregate_name"] == "median":
            count = int(name.split("/")[-1]) if name.split("/")[-1].isdigit() else 1
            times[name] = row["real_time"] * scale[row["time_unit"]] / count
    return times, counters


def main():
    times, counters = medians(sys.argv[1])
    few, many = "5000", "100000"
    lines = []

    def ratio(what, value, floor, goal, unit="x"):
        lines.append((what, f"{value / floor:.2f}{unit}", goal, value / floor <= float(goal.split()[-1].rstrip("x"))))

    for size in (few, many):
        ratio(f"loading {size} files / system calls", times[f"Load/mixed/{size}"], times[f"LoadFloor/mixed/{size}"], "at most 1.3x")
    lines.append(("TagLib / loading 5000 MP3 files", f"{times['LoadTagLib/mp3/5000'] / times['Load/mp3/5000']:.2f}x",
                  "at least 3x", times["LoadTagLib/mp3/5000"] / times["Load/mp3/5000"] >= 3))
    for kind, name in (("newer", "ID3v2.4"), ("flac", "FLAC"), ("m4a", "M4A"), ("ogg", "Ogg Vorbis")):
        ratio(f"reading 5000 {name} titles / TagLib", times[f"Songs/{kind}/5000"], times[f"LoadTagLib/{kind}/5000"], "at most 1.15x")
    for size in (few, many):
        ratio(f"applying {size} names / bare renames", times[f"Apply/{size}"], times[f"ApplyFloor/{size}"], "at most 1.15x")
    for size in (few, many):
        floors = times[f"LoadFloor/mixed/{size}"] + times[f"ApplyFloor/{size}"]
        ratio(f"titles to {size} names / both floors", times[f"TitlesToNames/{size}"], floors, "at most 1.2x")
    seconds = times[f"ModifyNames/{many}"] * int(many) / 1e6
    lines.append(("modifying 100000 names, five rules", f"{seconds:.3f} s", "under 1 s", seconds < 1))
    seconds = times[f"Sort/{many}"] * int(many) / 1e6
    lines.append(("sorting 100000 rows", f"{seconds:.3f} s", "under 0.5 s", seconds < 0.5))
    for name in ("Load/mixed", "Apply", "TitlesToNames", "ModifyNames", "Sort"):
        ratio(f"{name}: cost per row, 100000 / 5000", times[f"{name}/{many}"], times[f"{name}/{few}"], "about 1.3x")
    memory = next(row["bytes_per_row"] for name, row in counters.items() if name.startswith("MemoryPerRow"))
    lines.append(("memory per row", f"{memory:.0f} bytes", "at most 500", memory <= 500))

    for name, value in sorted(times.items()):
        print(f"{name:32} {value:10.3f} us per file")
    print()
    for what, value, goal, met in lines:
        print(f"{what:44} {value:>10}   goal {goal:14} {'met' if met else 'MISSED'}")


main()
