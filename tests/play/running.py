"""The application in its windows: how it starts and ends, and what has to hold then."""

import os
import random
import signal
import subprocess
import time
from contextlib import suppress

from Xlib import error

from albums import Albums, Fault
from processes import children, send
from stage import Stage, is_main, wait_for

LIMIT = 120  # seconds; far more than anything takes that doesn't hang, even on a busy machine
# What the application may hold beyond what it held after its start, once all albums are closed: descriptors, KiB.
MORE = 16, 300_000


class Running:
    """`actions` have been taken, `later` are those to come, and `trashed` is how often Trash can have been chosen."""

    def __init__(self, executable, seed, folder, shared):
        self.executable, self.folder, self.actions = executable, folder, 0
        self.told, self.started, self.ending = [], time.monotonic(), None  # what has been done, each with its second
        self.albums = Albums(folder, shared, random.Random(seed))
        self.errors = os.path.join(folder, "errors")
        os.symlink("/bin/true", os.path.join(folder, "xdg-open"))
        self.environment = {
            "HOME": folder, "XDG_CONFIG_HOME": os.path.dirname(self.albums.list), "XDG_CACHE_HOME": folder,
            "XDG_RUNTIME_DIR": folder, "QT_QPA_PLATFORM": "xcb", "PATH": folder + ":/usr/bin:/bin", "LC_ALL": "C.UTF-8",
            "ASAN_OPTIONS": "detect_leaks=0:quarantine_size_mb=32", "UBSAN_OPTIONS": "print_stacktrace=1"}

    def _tell(self, what):
        self.told.append(f"{time.monotonic() - self.started:7.2f}  {what}")

    def _launch(self):
        self._tell("starts the application")
        with open(self.errors, "a") as out:
            return subprocess.Popen(self.executable, stdin=subprocess.DEVNULL, stdout=out, stderr=out,
                                    env=dict(self.environment, DISPLAY=self.stage.name))

    def _start(self):
        self.stage, self.ending = Stage(self.folder, self._tell), None
        self.application, self.others, self.later, self.trashed, self.may_end = self._launch(), [], [], 0, False
        self._hold(lambda: self._main() or self.application.poll() is not None, lambda: "The application doesn't start.")
        self.head = self._main().height - 257 if self._main() else 0  # the menus and the toolbar above the list
        self.first = self._held()

    def last_steps(self, count):
        """What is tried again and again at the end is told but a few times."""
        return self.told[:self.ending][-count:]

    def _views(self):
        return self.stage.views([process.pid for process in (self.application, *self.others)])

    def _main(self):
        return next((view for view in self._views() if is_main(view)), None)

    def _open_albums(self):
        return [view for view in self._views() if not is_main(view) and not view.dialog]

    @staticmethod
    def _hold(fact, otherwise):
        if not wait_for(fact, LIMIT):
            raise Fault(otherwise())

    def _end(self, rng):
        albums_first, how = rng.random() < 0.6, rng.choices(["close", "Control+q", "kill", "server"], [5, 3, 1, 1])[0]
        for _, task in self.later:
            task()
        if albums_first:
            self._hold(lambda: self.application.poll() is not None or self._close_albums() and self._is_bounded(),
                       lambda: f"An album stays open, or of descriptors and KiB {self.first} have become {self._held()}.")
        self._tell(f"ends all by “{how}”")
        self.ending = len(self.told) + 6
        # A second start that has had no answer says so, and ends with 1. So does whatever loses the X server.
        expected = {"kill": [0, -signal.SIGKILL], "server": [0, 1]}.get(how, [0])
        if how == "kill":
            send(self.application.pid, "KILL")
        elif how == "server":
            self.stage.end()
        for process in (self.application, *self.others):
            self._hold(lambda: self._close(process, how), lambda: "The application doesn't end when its window is closed.")
            if process.returncode not in (expected if process == self.application else [0, 1]):
                raise Fault(f"The application has ended with {process.returncode}.")
        self.stage.end()
        self.albums.check(self.trashed)
        self.albums.check_files()
        beside = [name for name in os.listdir(os.path.dirname(self.albums.list)) if name.startswith(".folimark")]
        if beside and how != "kill":
            raise Fault(f"There is left beside the list: {beside}")
        self._hold(lambda: not self._left_behind(), lambda: f"Processes are left behind: {children(os.getpid())}")
        with open(self.errors, errors="replace") as errors:
            if any("AddressSanitizer" in line or "runtime error:" in line for line in errors):
                raise Fault("The sanitizers have something to say.")

    def _close_all(self, views):
        for view in reversed(views):
            with suppress(error.XError):  # It may just be going.
                if view.dialog:
                    self.stage.manage(view)
                    self.stage.press("Escape")
                else:
                    self.stage.close(view)

    def _close_albums(self):
        """Closes whatever there is but the Albums window, and is true when nothing is there."""
        views = [view for view in self._views() if not is_main(view)]
        self._close_all(views)
        time.sleep(0.2 if views else 0)
        return not views

    def _close(self, process, how):
        if process.poll() is None and how != "server" and self._close_albums() and (view := self._main()):
            self.stage.manage(view)
            if how == "Control+q":
                self.stage.press(how)
            else:
                self.stage.close(view)
            wait_for(lambda: process.poll() is not None, 1)
        return process.poll() is not None

    def _held(self):
        """How many descriptors and KiB the application holds."""
        try:
            with open(f"/proc/{self.application.pid}/status") as status:
                memory = next((int(line.split()[1]) for line in status if line.startswith("VmRSS")), 0)
            return len(os.listdir(f"/proc/{self.application.pid}/fd")), memory
        except OSError:  # It has ended.
            return 0, 0

    def _is_bounded(self):
        return all(now <= first + more for now, first, more in zip(self._held(), self.first, MORE))

    def _left_behind(self):
        """Children of those that have ended are ours now; what has ended of them is waited for."""
        mine = [process.pid for process in (self.stage.server, self.stage.manager, self.application, *self.others)]
        left = [pid for pid in children(os.getpid()) if pid not in mine]
        return [pid for pid in left if os.waitpid(pid, os.WNOHANG) == (0, 0)]

    def clear(self):
        """Ends what a play that has failed leaves."""
        for process in (self.application, *self.others):
            for pid in (*children(process.pid), process.pid):
                send(pid, "KILL")
            process.wait()
        self.stage.end()
        for pid in self._left_behind():
            send(pid, "KILL")
        wait_for(lambda: not self._left_behind(), LIMIT)
