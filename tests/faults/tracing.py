"""Runs a program under strace: to list its system calls, make one of them fail, or kill or halt the program at one."""

import collections
import dataclasses
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time

MOST_SECONDS = 30
_CALL = re.compile(r"^(\w+)\((.*)\)\s+= (-?\w+)")
_PLACE = re.compile(r"/[^ \"<>]*quillon-faults-\w+/")
_STOPPED = re.compile(r"^(\d+) +--- stopped by SIGSTOP ---", re.MULTILINE)


@dataclasses.dataclass(frozen=True)
class Call:
    """One system call of a trace."""

    name: str
    arguments: str  # in strace's form, with the paths of open files
    result: str
    occurrence: int  # 1 for the program's first call of this name

    def __str__(self):
        arguments = _PLACE.sub("", re.sub(r"AT_FDCWD<[^>]*>, ", "", self.arguments))
        return f"{self.name}({arguments[:100]}) = {self.result}"


@dataclasses.dataclass
class Ending:
    """How a run ended."""

    status: int  # negative: the number of the signal that ended it
    output: str
    happened: bool  # whether the fault, or the halt, was reached
    timed_out: bool = False


def why_not():
    """The reason why programs cannot be traced here; None if they can."""
    if not shutil.which("strace"):
        return "strace is not installed"
    tried = subprocess.run(["strace", "-qq", "-o", os.devnull, "true"], capture_output=True, text=True)
    return None if tried.returncode == 0 else "no program may be watched here: " + tried.stderr.strip()


def calls(command, environment, always=()):
    """The program's calls about files, and its status. `always` are faults that belong to the scene."""
    with tempfile.NamedTemporaryFile("r", prefix="quillon-trace-", errors="replace") as log:
        words = ["strace", "-qq", "-y", "-o", log.name, "-e", "trace=%file,%desc", *_injections(always), *command]
        status = subprocess.run(words, env=environment, capture_output=True, timeout=MOST_SECONDS).returncode
        return status, list(_parsed(log.read()))


def run(command, environment, fault, always=(), on_halt=None):
    """Runs the program with one fault in strace's syntax ("fsync:error=EIO:when=1"). If the fault halts the program
    ("fsync:signal=STOP:when=1"), `on_halt` is called meanwhile."""
    with tempfile.NamedTemporaryFile("r", prefix="quillon-trace-", errors="replace") as log:
        # Follows child processes only to get the process number into the log.
        tree = ["-f"] if on_halt else []
        # Calls that are not traced cannot be made to fail.
        names = [one.split(":")[0] for one in (fault, *always)]
        traced = ["-e", "trace=" + ",".join(names)]
        words = ["strace", *tree, "-qq", "-o", log.name, *traced, *_injections([*always, fault]), *command]
        process = subprocess.Popen(words, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                   text=True, errors="surrogateescape", start_new_session=True)
        halted = _halt(process, log.name, on_halt) if on_halt else False
        try:
            output, timed_out = process.communicate(timeout=MOST_SECONDS)[0], False
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            output, timed_out = process.communicate()[0], True
        injected = re.search(rf"^{names[0]}\(.*\(INJECTED\)$|^--- SIGINT ", log.read(), re.MULTILINE)
        happened = halted or injected is not None or process.returncode == -signal.SIGKILL
        return Ending(process.returncode, output, happened, timed_out)


def _injections(faults):
    return [word for fault in faults for word in ("-e", "inject=" + fault)]


def _parsed(text):
    occurrences = collections.Counter()
    for line in text.splitlines():
        found = _CALL.match(line)
        if found:
            occurrences[found[1]] += 1
            yield Call(found[1], found[2], found[3], occurrences[found[1]])


def _halt(process, log, on_halt):
    """Waits until the program is halted, calls `on_halt` and continues it. Returns False if it ends without a halt."""
    end = time.monotonic() + MOST_SECONDS
    while process.poll() is None and time.monotonic() < end:
        with open(log, encoding="utf-8", errors="replace") as file:
            stopped = _STOPPED.search(file.read())
        if stopped:
            try:
                on_halt()
            finally:
                os.kill(int(stopped[1]), signal.SIGCONT)
            return True
        time.sleep(0.002)
    return False
