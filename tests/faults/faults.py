"""Makes every system call of a move, a rename and a save fail, kills the program at each, lets other programs change
the files meanwhile, and checks that nothing was lost.

usage: faults.py --program FOLDER (--results FILE [--sample N] | --all) [--only SCENE]
"""

import argparse
import pathlib
import sys
import time

sys.dont_write_bytecode = True
_HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(1, str(_HERE.parent / "outside"))

import harness  # noqa: E402
import results  # noqa: E402
import tracing  # noqa: E402
from scenes import all_scenes  # noqa: E402


def _arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", required=True, help="the folder of the built programs")
    parser.add_argument("--results", help="the result file to write")
    parser.add_argument("--sample", type=int, default=300, help="how many runs the tests take")
    parser.add_argument("--all", action="store_true", help="run all there is, and print how many it was")
    parser.add_argument("--only", help="only this scene, or the tests with this in their names")
    return parser.parse_args()


def _run_all(programs, only):
    reason = tracing.why_not()
    if reason:
        print("error:", reason, file=sys.stderr)
        return 1
    columns = ("faults", "kills", "interrupts", "races", "violations")
    print(f"{'scene':26}", *(f"{column:>10}" for column in columns), f"{'seconds':>10}")
    bad = 0
    for scene in all_scenes():
        if only and scene.name != only:
            continue
        reason = scene.why_not()
        if reason:
            print(f"{scene.name:26} skipped: {reason}")
            continue
        started = time.monotonic()
        violations, counts = harness.check_all([scene], harness.learn(scene, programs), programs)
        numbers = (f"{counts[scene.name][column]:10}" for column in columns)
        print(f"{scene.name:26}", *numbers, f"{time.monotonic() - started:10.1f}", flush=True)
        for case, found in violations.items():
            print(f"  {case}", *found, sep="\n    ", flush=True)
        bad += len(violations)
    return 1 if bad else 0


def _main():
    arguments = _arguments()
    programs = pathlib.Path(arguments.program).resolve()
    if arguments.all:
        return _run_all(programs, arguments.only)
    from test_faults import Faults

    Faults.programs = programs
    Faults.sample_size = arguments.sample
    return 0 if results.run(Faults, arguments.results, arguments.only) else 1


if __name__ == "__main__":
    sys.exit(_main())
