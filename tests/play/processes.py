"""What the system tells of processes, and tells them."""

import os
import signal
from contextlib import suppress


def children(pid):
    """The names of the processes that pid has and hasn't waited for, by their numbers."""
    found = {}
    with suppress(OSError), open(f"/proc/{pid}/task/{pid}/children") as numbers:  # One of them may just be going.
        for number in numbers.read().split():
            with open(f"/proc/{number}/comm") as name:
                found[int(number)] = name.read().strip()
    return found


def send(pid, name):
    with suppress(ProcessLookupError):
        os.kill(pid, signal.Signals["SIG" + name])
