"""Waits for conditions, never for a fixed time."""

import time

PATIENCE_SECONDS = 20
_GLANCE_SECONDS = 0.03


class NeverHappened(AssertionError):
    """The condition did not hold within the limit."""


def wait_until(condition, what, limit=PATIENCE_SECONDS):
    """Polls `condition` and returns its first true result; fails with `what` after `limit` seconds."""
    deadline = time.monotonic() + limit
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise NeverHappened(f"Not within {limit} s: {what}")
        time.sleep(_GLANCE_SECONDS)


def wait_equal(read, expected, what, limit=PATIENCE_SECONDS):
    """Waits until `read()` returns `expected`; the failure shows the last value."""
    seen = [None]

    def matches():
        seen[0] = read()
        return seen[0] == expected

    try:
        wait_until(matches, what, limit)
    except NeverHappened as problem:
        raise NeverHappened(f"{problem}: expected {_short(expected)}, last seen {_short(seen[0])}") from None
    return expected


def stays(condition, what, seconds):
    """Fails as soon as `condition` is false within `seconds`: for events that must *not* happen."""
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        if not condition():
            raise AssertionError(f"Did not hold for {seconds} s: {what}")
        time.sleep(_GLANCE_SECONDS)


def _short(value):
    text = repr(value)
    return text if len(text) <= 2000 else text[:2000] + "…"
