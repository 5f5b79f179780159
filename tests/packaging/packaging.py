"""Checks the packages of package.sh: their contents, and their behaviour on a system without Quillon.

usage: packaging.py linux|windows --packages FOLDER --results FILE [--wine SCRIPT] [--only TEXT]

For Linux, run it as root: the clean system is a folder that a process has to make its root. Mounts and processes are in
namespaces of their own, and end with it in any case.
"""

import argparse
import os
import pathlib
import signal
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
_HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(1, str(_HERE.parent / "outside"))

import clean_root  # noqa: E402
import commands  # noqa: E402
import display  # noqa: E402
import results  # noqa: E402

_MOST_SECONDS = 900  # includes the first download of the clean system


def _arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("system", choices=["linux", "windows"])
    parser.add_argument("--packages", required=True, help="the folder of the packages")
    parser.add_argument("--results", required=True, help="the result file to write")
    parser.add_argument("--wine", help="the script that runs a Windows program")
    parser.add_argument("--only", help="only the tests with this in their names")
    return parser.parse_args()


def _in_namespaces():
    """Runs this program again in private namespaces, which end with this process. Returns its exit status; None where
    the system does not allow that."""
    kill = ["setpriv", "--pdeathsig", "KILL"]
    namespaces = ["unshare", "--mount", "--propagation=private", "--pid", "--fork", "--kill-child", "--mount-proc"]
    if os.geteuid() != 0 or commands.run(*kill, *namespaces, "true")[0] != 0:
        return None
    with tempfile.TemporaryDirectory(prefix="quillon-packaging-") as folder:  # deleted however they end
        environment = dict(os.environ, TMPDIR=folder, **{clean_root.NAMESPACES: "1"})
        return subprocess.call([*kill, *namespaces, sys.executable, "-B", *sys.argv], env=environment)


def _case(arguments):
    if arguments.system == "linux":
        from test_debian import Debian as case
    else:
        from test_windows_packages import WindowsPackages as case

        case.script = arguments.wine
    case.packages = pathlib.Path(arguments.packages).resolve()
    return case


def _told_to_end(*_):
    raise KeyboardInterrupt  # which, unlike other exceptions, also ends tests


def _too_long(*_):
    raise AssertionError(f"not done within {_MOST_SECONDS} s")


def _run(arguments):
    signal.signal(signal.SIGALRM, _too_long)
    signal.alarm(_MOST_SECONDS)
    return 0 if results.run(_case(arguments), arguments.results, arguments.only) else 1


def _main():
    arguments = _arguments()
    if clean_root.NAMESPACES in os.environ:
        return _run(arguments)
    missing = display.missing()
    if missing:
        print("error: missing:", ", ".join(missing), file=sys.stderr)
        return 1
    # Started outside the namespaces, where a server would treat the displays of servers outside as left over.
    signal.signal(signal.SIGTERM, _told_to_end)  # so that everything started is cleaned up
    screen = display.Display()
    try:
        status = _in_namespaces() if arguments.system == "linux" else None
        return _run(arguments) if status is None else status
    finally:
        screen.close()


if __name__ == "__main__":
    sys.exit(_main())
