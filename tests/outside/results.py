"""Runs the tests and writes a result file in the format of the C++ test programs."""

import pathlib
import time
import traceback
import unittest
from xml.sax.saxutils import quoteattr


class _Record(unittest.TestResult):
    """Every test with its result: nothing, a failure's text, or the reason of a skip."""

    def __init__(self):
        super().__init__()
        self.cases = []
        self._started = 0.0

    def startTest(self, test):  # noqa: N802: the base class's name
        super().startTest(test)
        self._started = time.monotonic()

    def _add(self, test, failure=None, skipped=None):
        seconds = time.monotonic() - self._started if self._started else 0.0
        name = getattr(test, "_testMethodName", str(test))
        self.cases.append((type(test).__name__, name, seconds, failure, skipped))
        word = "FAILED" if failure else "SKIPPED" if skipped else "OK"
        print(f"{word:8} {name} ({seconds:.1f} s)", *filter(None, [failure or skipped]), sep="\n  ", flush=True)

    def addSuccess(self, test):  # noqa: N802
        self._add(test)

    def addFailure(self, test, err):  # noqa: N802
        super().addFailure(test, err)
        self._add(test, failure="".join(traceback.format_exception(*err)))

    addError = addFailure  # noqa: N815

    def addSubTest(self, test, subtest, err):  # noqa: N802
        super().addSubTest(test, subtest, err)
        if err is not None:
            self._add(subtest, failure="".join(traceback.format_exception(*err)))

    def addSkip(self, test, reason):  # noqa: N802
        self._add(test, skipped=reason)


def run(case, path, only=None):
    """Runs the class's tests (with `only` in their names) and writes the result file; True if none failed."""
    record = _Record()
    names = [name for name in unittest.defaultTestLoader.getTestCaseNames(case) if not only or only in name]
    unittest.TestSuite(map(case, names)).run(record)
    write(path, case.__name__, record.cases)
    return bool(record.cases) and not any(failure for *_, failure, _ in record.cases)


def write(path, suite, cases):
    failures = sum(1 for *_, failure, _ in cases if failure)
    seconds = sum(case[2] for case in cases)
    head = f'tests="{len(cases)}" failures="{failures}" disabled="0" errors="0" time="{seconds:.3f}"'
    lines = ['<?xml version="1.0" encoding="UTF-8"?>', f'<testsuites {head} name="AllTests">']
    lines.append(f'  <testsuite name={quoteattr(suite)} {head}>')
    for owner, name, time_taken, failure, skipped in cases:
        result = "skipped" if skipped else "completed"
        start = f'    <testcase name={quoteattr(name)} status="run" result="{result}" time="{time_taken:.3f}"'
        start += f" classname={quoteattr(owner)}"
        if failure:
            lines += [start + ">", f"      <failure message={quoteattr(failure)} />", "    </testcase>"]
        elif skipped:
            lines += [start + ">", f"      <skipped message={quoteattr(skipped)} />", "    </testcase>"]
        else:
            lines.append(start + " />")
    lines += ["  </testsuite>", "</testsuites>", ""]
    path = pathlib.Path(path)
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text("\n".join(lines), encoding="utf-8")
