"""Waiting for states: nothing here or in the tests waits for a mere stretch of time."""

import time

PATIENCE = 15.0  # seconds; far more than anything needs on a loaded machine
_PAUSE = 0.03


def until(ask, what, patience=PATIENCE):
    """The first true answer of `ask`. Fails with `what`, and the last answer, when none comes in time."""
    deadline = time.monotonic() + patience
    while True:
        answer = ask()
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise AssertionError(f"never came: {what} (last: {answer!r})")
        time.sleep(_PAUSE)


def until_equal(ask, expected, what, patience=PATIENCE):
    """Waits until `ask` answers `expected`; fails with both values otherwise."""
    seen = []

    def is_expected():
        seen[:] = [ask()]
        return seen[0] == expected

    try:
        until(is_expected, what, patience)
    except AssertionError:
        raise AssertionError(f"{what}: expected {expected!r}, is {seen[0]!r}") from None
