#!/usr/bin/env python3
"""Makes harmful changes to a copy of the sources, and checks that the tests notice each.

usage: mutants.py [--root FOLDER] [--tree FOLDER | --here] (--check | [--day [N]] [--date YYYY-MM-DD] [WORD...])

tests/mutants/README.md says what a change looks like. --check builds nothing: it fails where a change does not fit the
sources. The copy, with one build tree for all, lies in --tree (build/mutants); several runs at a time need one each.
--here changes these very sources and what is built of them, for a checkout that is a copy itself.
"""

import argparse
import collections
import contextlib
import dataclasses
import datetime
import fcntl
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import time
import xml.etree.ElementTree
import zlib

_FOLDER = "tests/mutants"
_PRESET = "linux"
_USUAL_DAY = 10

_KILLED, _KILLED_BY_TIME, _SURVIVED, _NOT_APPLIED = "killed", "killed (time)", "SURVIVED", "DOES NOT APPLY"

# A program that takes this many times as long as it does without the change hangs, but not in less than these seconds.
_LONGER = 6
_LEAST_SECONDS = 30
# Before its usual time is known.
_FIRST_SECONDS = 900

# The tests that are no program of their own, with what they need built.
_OTHER_TARGETS = {"faults": ["quillon-cli", "quillon_whole_file"]}

_IN_WINDOWS = {"gui", "desktop", "multimedia"}


class Wrong(Exception):
    """What prevents a mutant, or all, from being tried."""


@dataclasses.dataclass
class Mutant:
    name: str
    listed: str  # the file in tests/mutants
    line: int
    path: str = ""
    test: str = ""
    filter: str = "*"
    find: str = ""
    replacement: str = ""

    @property
    def place(self):
        return f"{_FOLDER}/{self.listed}:{self.line}"

    def changed(self, root):
        """The file's text with the change."""
        file = root / self.path
        if not file.is_file():
            raise Wrong(f"there is no file {self.path}")
        text = file.read_text(encoding="utf-8")
        count = text.count(self.find)
        if count != 1:
            raise Wrong(f"the text to find occurs {count} times in {self.path}")
        return text.replace(self.find, self.replacement)


def _parse(text, listed):
    """The mutants of one file; raises Wrong at the first line that is none of the format."""
    mutants, find, replacement = [], [], []

    def end():
        if mutants:
            mutants[-1].find, mutants[-1].replacement = "\n".join(find), "\n".join(replacement)
            find.clear()
            replacement.clear()

    for number, line in enumerate(text.splitlines(), 1):
        word, _, rest = line.partition(" ")
        if word == "==" and rest:
            end()
            mutants.append(Mutant(rest, listed, number))
        elif not line:
            continue
        elif not mutants:
            raise Wrong(f"{_FOLDER}/{listed}:{number}: this belongs to no mutant: {line}")
        elif word == "-":
            find.append(rest)
        elif word == "+":
            replacement.append(rest)
        elif word == "file" and rest:
            mutants[-1].path = rest
        elif word == "test" and rest:
            mutants[-1].test, _, filtered = rest.partition(" ")
            mutants[-1].filter = filtered or "*"
        else:
            raise Wrong(f"{_FOLDER}/{listed}:{number}: a line of no known kind: {line}")
    end()
    return mutants


def read_mutants(root):
    mutants = []
    for file in sorted((root / _FOLDER).glob("*.txt")):
        mutants += _parse(file.read_text(encoding="utf-8"), file.name)
    if not mutants:
        raise Wrong(f"there are no mutants in {_FOLDER}")
    return mutants


def _known_tests(root):
    """The test programs of tests/CMakeLists.txt, and what else can be run."""
    text = (root / "tests/CMakeLists.txt").read_text(encoding="utf-8")
    programs = set(re.findall(r"^\s*quillon_test\((\w+)", text, re.MULTILINE))
    if "add_executable(quillon_gui_tests" in text:
        programs.add("gui")
    return programs | {name for name in _OTHER_TARGETS if f"add_test(NAME {name} " in text}


def _complaint(mutant, root, tests, names):
    """What is wrong with a mutant; None if nothing is."""
    if names[mutant.listed, mutant.name] > 1:
        return "another one in the file has this name"
    if not (mutant.path and mutant.test and mutant.find):
        return 'it needs "file", "test" and a text to find'
    if not mutant.path.startswith("src/"):
        return f"{mutant.path} is none of the program's own sources"
    if mutant.find == mutant.replacement:
        return "it changes nothing"
    if mutant.test not in tests:
        return f"there is no test program {mutant.test}"
    try:
        mutant.changed(root)
    except Wrong as wrong:
        return str(wrong)
    return None


def check(mutants, root):
    names = collections.Counter((mutant.listed, mutant.name) for mutant in mutants)
    tests = _known_tests(root)
    bad = 0
    for mutant in mutants:
        complaint = _complaint(mutant, root, tests, names)
        if complaint:
            bad += 1
            print(f"{mutant.place}: {mutant.name}: {complaint}", file=sys.stderr)
    print(f"{len(mutants)} mutants, {bad} wrong")
    return 1 if bad else 0


def of_day(mutants, count, date):
    """So many of them: all have had their turn after as many days as it takes, and a day's are from everywhere.

    Mutants of windows are left out: their tests depend on what else the machine is doing.
    """
    steady = [mutant for mutant in mutants if mutant.test not in _IN_WINDOWS]
    shuffled = sorted(steady, key=lambda mutant: zlib.crc32(f"{mutant.listed} {mutant.name}".encode()))
    count = min(count, len(shuffled))
    start = date.toordinal() * count % max(len(shuffled), 1)
    return (shuffled + shuffled)[start:start + count]


def _run(command, folder, seconds=None, environment=None):
    """Runs a command; returns its exit status, None when the time was up, and what it wrote."""
    process = subprocess.Popen(command, cwd=folder, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                               stderr=subprocess.STDOUT, text=True, errors="replace", start_new_session=True)
    try:
        output, _ = process.communicate(timeout=seconds)
        return process.returncode, output
    except subprocess.TimeoutExpired:
        return None, ""
    finally:
        _end(process)


def _end(process):
    """Ends what is left of a command, with all that it has started."""
    for number in (signal.SIGTERM, signal.SIGKILL):
        if process.poll() is not None:
            return
        with contextlib.suppress(ProcessLookupError):
            os.killpg(process.pid, number)
        with contextlib.suppress(subprocess.TimeoutExpired):
            process.communicate(timeout=10)


class Tree:
    """The copy of the sources, and what is built of it."""

    def __init__(self, root, folder):
        self._root, self._folder = root, folder
        self._build = folder / "build" / _PRESET
        self._changed = None  # the path that has a mutant's text now, and its own text

    def prepare(self):
        if self._folder == self._root:
            return
        self._copy()
        command = ["cmake", "--preset", _PRESET]
        if shutil.which("ccache"):
            os.environ["CCACHE_BASEDIR"] = str(self._folder)
            os.environ.setdefault("CCACHE_SLOPPINESS", "pch_defines,time_macros")
            command += [f"-DCMAKE_{language}_COMPILER_LAUNCHER=ccache" for language in ("C", "CXX")]
        status, output = _run(command, self._folder)
        if status != 0:
            raise Wrong(f"configuring failed:\n{output}")

    def _copy(self):
        """Touches nothing that is the same already: it need not be built again."""
        listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=self._root,
                                check=True, capture_output=True, text=True).stdout
        wanted = {path for path in listed.split("\0") if path and (self._root / path).is_file()}
        for present in [path for path in self._folder.rglob("*") if path.is_file()]:
            path = present.relative_to(self._folder).as_posix()
            if path not in wanted and not path.startswith("build/"):
                present.unlink()
        for path in wanted:
            source, copy = self._root / path, self._folder / path
            if copy.is_file() and copy.read_bytes() == source.read_bytes():
                continue
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, copy)
            shutil.copymode(source, copy)

    def change(self, path, text):
        """Gives one file this text, all others their own."""
        self.restore()
        self._changed = path, (self._folder / path).read_text(encoding="utf-8")
        (self._folder / path).write_text(text, encoding="utf-8")

    def restore(self):
        if self._changed is not None:
            path, text = self._changed
            (self._folder / path).write_text(text, encoding="utf-8")
            self._changed = None

    def build(self, test):
        """None, or the first error."""
        targets = _OTHER_TARGETS.get(test, [f"quillon_{test}_tests"])
        status, output = _run(["cmake", "--build", str(self._build), "--target", *targets], self._folder)
        if status == 0:
            return None
        errors = [line for line in output.splitlines() if "error: " in line or "undefined reference" in line]
        return (errors or output.splitlines()[-1:] or ["no output"])[0].strip()

    def test(self, test, filtered, seconds):
        """Runs the test program as CTest does: its exit status, None when the time was up; the first failed test."""
        shutil.rmtree(self._build / "results", ignore_errors=True)
        (self._build / "results").mkdir()
        environment = {**os.environ, "GTEST_FAIL_FAST": "1", "GTEST_FILTER": filtered}
        names = "gui-[0-9]+" if test == "gui" else test
        command = ["ctest", "--test-dir", str(self._build), "-R", f"^{names}$", "-j2", "--output-on-failure",
                   "--no-tests=error", "--timeout", str(seconds)]
        status, output = _run(command, self._folder, seconds, environment)
        failed = re.search(r"^(?:\d+: )?\[  FAILED  \] ([\w./]+)", output, re.MULTILINE)
        return status, failed.group(1) if failed else ""

    def tests_run(self):
        """How many tests the last run had."""
        count = 0
        for file in (self._build / "results").glob("*.xml"):
            with contextlib.suppress(xml.etree.ElementTree.ParseError):
                count += int(xml.etree.ElementTree.parse(file).getroot().get("tests", 0))
        return count


class Trial:
    """Tries mutants in a tree, and remembers how long each test program takes without them."""

    def __init__(self, tree):
        self._tree = tree
        self._limits = {}

    def of(self, mutant, root):
        """What becomes of the mutant, and a word about it."""
        try:
            limit = self._limit(mutant)
            self._tree.restore()
            text = mutant.changed(root)
        except Wrong as wrong:
            return _NOT_APPLIED, str(wrong)
        self._tree.change(mutant.path, text)
        error = self._tree.build(mutant.test)
        if error:
            return _NOT_APPLIED, f"it does not compile: {error}"
        status, failed = self._tree.test(mutant.test, mutant.filter, limit)
        if status is None:
            return _KILLED_BY_TIME, f"{limit} s, usually at most {limit // _LONGER} s"
        return (_SURVIVED, "") if status == 0 else (_KILLED, failed)

    def _limit(self, mutant):
        """The program's time limit in seconds. Without a change it has to pass, or nothing could be said of one."""
        key = mutant.test, mutant.filter
        if key not in self._limits:
            self._limits[key] = self._measured(mutant)
        if isinstance(self._limits[key], str):
            raise Wrong(self._limits[key])
        return self._limits[key]

    def _measured(self, mutant):
        self._tree.restore()
        error = self._tree.build(mutant.test)
        if error:
            return f"without a change {mutant.test} does not compile: {error}"
        for _ in range(2):  # windows depend on what else the machine is doing
            started = time.monotonic()
            status, failed = self._tree.test(mutant.test, mutant.filter, _FIRST_SECONDS)
            seconds = time.monotonic() - started
            if status == 0 and self._tree.tests_run() > 0:
                return max(round(_LONGER * seconds), _LEAST_SECONDS)
        return f"without a change {mutant.test} fails, or runs no test of {mutant.filter}: {failed}"


def _print_table(counts, seconds):
    outcomes = (_KILLED, _KILLED_BY_TIME, _SURVIVED, _NOT_APPLIED)
    print(f"\n{'file':16}{'mutants':>9}", *(f"{outcome:>15}" for outcome in outcomes), f"{'seconds':>9}")
    for listed in [*sorted(seconds), "all"]:
        found = counts[listed] if listed != "all" else sum(counts.values(), collections.Counter())
        spent = seconds[listed] if listed != "all" else sum(seconds.values())
        print(f"{listed:16}{sum(found.values()):9}", *(f"{found[outcome]:15}" for outcome in outcomes), f"{spent:9.0f}")


def try_all(mutants, root, tree):
    trial = Trial(tree)
    counts, seconds = collections.defaultdict(collections.Counter), collections.Counter()
    try:
        for mutant in sorted(mutants, key=lambda mutant: (mutant.test, mutant.path, mutant.filter)):
            started = time.monotonic()
            outcome, why = trial.of(mutant, root)
            spent = time.monotonic() - started
            counts[mutant.listed][outcome] += 1
            seconds[mutant.listed] += spent
            print(f"{outcome:15}{mutant.listed.removesuffix('.txt')}: {mutant.name} ({spent:.0f} s"
                  f"{'; ' + why if why else ''})", flush=True)
    finally:
        tree.restore()
    _print_table(counts, seconds)
    return 1 if any(found[_SURVIVED] + found[_NOT_APPLIED] for found in counts.values()) else 0


@contextlib.contextmanager
def _alone_in(folder):
    """Keeps another run out of this folder."""
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "build").mkdir(exist_ok=True)
    with open(folder / "build/lock", "w", encoding="ascii") as lock:
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except OSError as error:
            raise Wrong(f"another run uses {folder}: give this one another --tree") from error
        yield


def _arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("--root", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent.parent)
    parser.add_argument("--tree", type=pathlib.Path, help="the folder of the copy (build/mutants)")
    parser.add_argument("--here", action="store_true", help="change these sources, and build them where they are built")
    parser.add_argument("--check", action="store_true", help="build nothing: look whether each fits the sources")
    parser.add_argument("--day", type=int, nargs="?", const=_USUAL_DAY, help=f"so many of them ({_USUAL_DAY})")
    parser.add_argument("--date", type=datetime.date.fromisoformat, default=datetime.date.today(), help="another day's")
    parser.add_argument("--list", action="store_true", help="only print which it would be")
    parser.add_argument("words", metavar="WORD", nargs="*", help="only those whose name or file contains one")
    return parser.parse_args()


def _main():
    arguments = _arguments()
    root = arguments.root.resolve()
    mutants = read_mutants(root)
    if arguments.words:
        words = [word.lower() for word in arguments.words]
        mutants = [mutant for mutant in mutants
                   if any(word in f"{mutant.listed} {mutant.name}".lower() for word in words)]
        if not mutants:
            raise Wrong("no mutant has one of these words")
    if arguments.check:
        return check(mutants, root)
    if arguments.day is not None:
        mutants = of_day(mutants, arguments.day, arguments.date)
    if arguments.list:
        print(*(f"{mutant.listed.removesuffix('.txt')}: {mutant.name}" for mutant in mutants), sep="\n")
        return 0
    folder = root if arguments.here else (arguments.tree or root / "build/mutants").resolve()
    with _alone_in(folder):
        tree = Tree(root, folder)
        tree.prepare()
        return try_all(mutants, root, tree)


if __name__ == "__main__":
    try:
        sys.exit(_main())
    except Wrong as wrong:
        print("error:", wrong, file=sys.stderr)
        sys.exit(1)
