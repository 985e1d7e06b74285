"""Waiting for conditions, the only way these tests let time pass."""

import time

from gi.repository import GLib

# Nothing that these tests wait for takes a tenth of this, even on a busy machine; it only ends a hopeless wait.
PATIENCE_S = 90
PAUSE_S = 0.02

_watched = set()


def watch(process):
    """Waits end at once when this process ends."""
    _watched.add(process)


def unwatch(process):
    _watched.discard(process)


def unwatch_all():
    _watched.clear()


def wait_until(condition, what, patience_s=PATIENCE_S):
    """Asks `condition` until its answer is true, and returns the answer.

    A GLib.Error counts as "not yet": what was asked about went away during the question."""
    last_error = None
    end = time.monotonic() + patience_s
    while time.monotonic() < end:
        take_events()
        for process in _watched:
            assert process.poll() is None, f"{process.args[0]} ended with {process.returncode} before {what}"
        try:
            answer = condition()
        except GLib.Error as error:
            last_error, answer = error, None
        if answer:
            return answer
        time.sleep(PAUSE_S)
    reason = f" Last: {last_error}" if last_error else ""
    raise AssertionError(f"Waited {patience_s} s in vain until {what}.{reason}")


def take_events():
    """Delivers pending accessibility events to their listeners."""
    context = GLib.MainContext.default()
    while context.iteration(False):
        pass
