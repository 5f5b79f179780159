"""Runs the fuzzers of a build: fuzz.py BUILD MINUTES [WORD...], or fuzz.py BUILD --keep [WORD...]; see fuzz.sh.

Every fuzzer begins with its seeds, the inputs of tests/fuzz/corpora and the findings of tests/fuzz/findings, and goes on
with what it has learned before in this build.
"""

import base64
import concurrent.futures
import hashlib
import os
import pathlib
import re
import subprocess
import sys
import tempfile

_TESTS = pathlib.Path(__file__).parent.parent / "tests/fuzz"
_LONGEST = 4096  # bytes of an input
_KEPT = 24 * 1024  # bytes of all inputs that are kept for a fuzzer


def inputs_of(path):
    """The inputs of a text file: base64, one a line; what follows a blank is a remark."""
    if not path.exists():
        return []
    lines = path.read_text(encoding="utf-8").splitlines()
    return [base64.b64decode(line.split(" ")[0], validate=True) for line in lines if line and not line.startswith("#")]


def write_inputs(folder, inputs):
    folder.mkdir(parents=True, exist_ok=True)
    for content in inputs:
        (folder / hashlib.sha1(content).hexdigest()).write_bytes(content)


def prepare(build, name):
    folder = build / "corpus" / name
    for kind in ("corpora", "findings"):
        write_inputs(folder, inputs_of(_TESTS / kind / f"{name}.txt"))
    return folder


def fuzz(build, name, minutes):
    """Returns the number of executions, and the paths of what was found."""
    folder = prepare(build, name)
    found = build / "found" / name
    found.mkdir(parents=True, exist_ok=True)
    before = set(found.iterdir())
    log = build / "found" / f"{name}.log"
    with open(log, "wb") as output:
        subprocess.run(
            [build / "bin" / name, f"-max_total_time={round(60 * minutes)}", f"-max_len={_LONGEST}", "-timeout=20",
             "-rss_limit_mb=2048", "-report_slow_units=30", "-print_final_stats=1", f"-artifact_prefix={found}/", folder],
            stdout=output, stderr=subprocess.STDOUT, check=False, env=dict(os.environ, ASAN_OPTIONS="detect_leaks=0"))
    runs = re.findall(rb"number_of_executed_units: +(\d+)", log.read_bytes())
    return int(runs[-1]) if runs else 0, sorted(set(found.iterdir()) - before), log


def keep(build, name):
    """Writes the fewest inputs that reach what all of them reach, the short ones first, as far as there is room."""
    with tempfile.TemporaryDirectory(prefix="quillon-fuzz-") as merged:
        subprocess.run([build / "bin" / name, "-merge=1", f"-max_len={_LONGEST}", "-timeout=20", merged, prepare(build, name)],
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        inputs = sorted((path.read_bytes() for path in pathlib.Path(merged).iterdir()), key=lambda i: (len(i), i))
    kept, room = [], _KEPT
    for content in inputs:
        if 0 < len(content) <= room:
            kept.append(base64.b64encode(content).decode())
            room -= len(content)
    (_TESTS / "corpora").mkdir(exist_ok=True)
    (_TESTS / "corpora" / f"{name}.txt").write_text("".join(line + "\n" for line in kept), encoding="utf-8")
    print(f"{name:16} {len(kept):5} of {len(inputs)} inputs kept")


def main():
    build, what, *words = sys.argv[1:]
    build = pathlib.Path(build).resolve()
    names = sorted(path.name for path in (build / "bin").glob("*Fuzzer") if not words or any(w in path.name for w in words))
    subprocess.run([build / "bin/SeedCorpus", build / "corpus"], check=True)
    if what == "--keep":
        for name in names:
            keep(build, name)
        return 0
    minutes, findings = float(what), 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for name, (runs, found, log) in zip(names, pool.map(lambda name: fuzz(build, name, minutes), names)):
            print(f"{name:16} {runs:12,} executions, {len(found)} findings", flush=True)
            for path in found:
                print(f"    {path}")
            if found or runs == 0:
                print(f"    {log}")
            findings += len(found) + (runs == 0)
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
