"""Waiting for states. Nothing here or in the tests waits for a fixed time."""

import time

PATIENCE = 60.0  # seconds; far more than needed even on a loaded machine
_PAUSE = 0.03


def until(ask, what, patience=PATIENCE):
    """Returns the first true result of `ask`. Fails with `what` and the last result when the time is up."""
    deadline = time.monotonic() + patience
    while True:
        answer = ask()
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise AssertionError(f"never came: {what} (last: {answer!r})")
        time.sleep(_PAUSE)


def until_equal(ask, expected, what, patience=PATIENCE):
    """Waits until `ask` returns `expected`; fails with both values otherwise."""
    seen = []

    def is_expected():
        seen[:] = [ask()]
        return seen[0] == expected

    try:
        until(is_expected, what, patience)
    except AssertionError:
        raise AssertionError(f"{what}: expected {expected!r}, is {seen[0]!r}") from None
