"""Drives the shipped program from outside, like a user.

usage: outside.py linux|windows --program FOLDER --results FILE [--wine SCRIPT] [--only TEXT]
"""

import argparse
import sys

sys.dont_write_bytecode = True

import display  # noqa: E402
import results  # noqa: E402


def _arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("system", choices=["linux", "windows"])
    parser.add_argument("--program", required=True, help="the folder of the built program")
    parser.add_argument("--results", required=True, help="the result file to write")
    parser.add_argument("--wine", help="the script that runs a Windows program")
    parser.add_argument("--only", help="only the tests with this in their names")
    return parser.parse_args()


def _case(arguments):
    if arguments.system == "linux":
        from test_linux import Linux as case
    else:
        from windows.test_windows import Windows as case

        case.script = arguments.wine
    case.built = arguments.program
    return case


def _main():
    arguments = _arguments()
    missing = display.missing()
    if missing:
        print("error: missing:", ", ".join(missing), file=sys.stderr)
        return 1
    screen = display.Display()
    try:
        return 0 if results.run(_case(arguments), arguments.results, arguments.only) else 1
    finally:
        screen.close()


if __name__ == "__main__":
    sys.exit(_main())
