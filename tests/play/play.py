"""One play: starts the application, acts on its windows at random, ends it, and looks at what is left."""

import random
import resource
import time
from contextlib import suppress
from functools import partial

from Xlib import error

from albums import CHANGING, NEW, Fault
from processes import children, send
from running import Running
from stage import is_main, one_of, wait_for

RUNS, STEPS = 2, 60
KEYS = ["Down"] * 6 + ["Up"] * 3 + (
    "End Home Next Prior Tab Tab Shift+Tab Return Escape space Left Right BackSpace b n F1 F5 F10 Menu Control+l Control+r "
    "Control+h Control+w Control+o Control+f Control+Shift+f Control+a Control+c").split()


class Play(Running):
    """What a step chooses depends on the seed and its number alone, and on the windows that there are."""

    def __init__(self, executable, seed, folder, shared):
        super().__init__(executable, seed, folder, shared)
        self.seed = seed
        self.steps = {
            self.hurry: 6, self.press_keys: 8, self.use_toolbar: 5, self.click_somewhere: 6, self.pick: 6, self.use_menu: 3,
            self.use_row_menu: 4, self.outrun_menu: 2, self.highlight: 3, self.create: 3, self.trash: 2, self.answer: 4,
            self.close_album: 4, self.arrange: 3, self.hinder_pictures: 4, self.stop_application: 2,
            self.limit_writing: 1, self.start_again: 1, self.change_folder: 3, self.edit_list: 1}

    def run(self):
        for run in range(RUNS):
            self._start()
            for step in range(STEPS):
                if self.application.poll() is None:
                    self._step(random.Random(f"{self.seed} {run} {step}"))
            self._end(random.Random(f"{self.seed} {run} end"))
            self.albums.edit(random.Random(f"{self.seed} {run} edit"), between_runs=True)

    def _step(self, rng):
        self.actions += 1
        for task in [task for task in self.later if task[0] <= self.actions]:
            self.later.remove(task)
            task[1]()
        step, = rng.choices(list(self.steps), self.steps.values())
        if any(view.title == "Create an Album" for view in self._views()):
            step = self.answer  # From there one could wander off, and make an album of the whole machine.
        pause = rng.choice([0, 0, 0, 0.02, 0.05, 0.1, 0.4])
        with suppress(error.XError):  # The window may go from under the hand.
            step(rng)
        time.sleep(pause)
        self.albums.check(self.trashed)
        status = self.application.poll()
        if status is not None and (status != 0 or not self.may_end):
            raise Fault(f"The application has ended by itself, with {status}.")

    def _press(self, *keys, times=1):
        """Some of them may press the toolbar's button that Tab has come to."""
        self.trashed += times * any(key in ("Return", "space", "Menu") for key in keys)
        self.stage.press(*keys, times=times)

    def press_keys(self, rng):
        self._press(rng.choice(KEYS), times=rng.choice([1, 1, 1, 2, 5, 20]))

    def _click(self, view, x, y, button=1, times=1):
        if is_main(view) and (y < self.head or button == 3):
            self.trashed += times
        self.stage.click(view, x, y, button, times)

    def click_somewhere(self, rng):
        x, y, button, times = rng.random(), rng.random(), rng.choice([1, 1, 1, 1, 2, 3, 4, 5]), rng.choice([0, 1, 1, 2, 3])
        if view := one_of(rng, self._views()):
            self._click(view, int(x * view.width), int(y * view.height), button, times)
            time.sleep(0 if times else 0.8)  # A pointer that rests is offered help.

    def use_toolbar(self, rng, x=None):
        x, pause = x or rng.randrange(20, 500), rng.choice([0, 0.1, 0.4])
        if view := self._main():
            self._click(view, x, self.head * 3 // 4)
            time.sleep(pause)

    def create(self, rng):
        self.use_toolbar(rng, 40)
        self.stage.press(*self.albums.folder(rng.choice([*NEW, *CHANGING, "Mixed"])), "Return")
        time.sleep(rng.choice([0, 0.3]))
        self.stage.press(rng.choice(["Return", "Escape"]))

    def trash(self, rng):
        self.use_toolbar(rng, 140)
        self.stage.press(rng.choice(["Return", "Escape", "Escape"]))

    def pick(self, rng, times=2):
        """Clicks on a row of the list of albums; two clicks open it."""
        row = rng.randrange(11)
        if view := self._main():
            self.stage.manage(view)
            self._click(view, 40, self.head + 8 + 16 * row, times=times)

    def hurry(self, rng):
        """Opens an album, selects a picture, closes the window and goes elsewhere, each before the last has ended."""
        pauses, before = rng.choices([0, 0, 0.05, 0.2, 0.5], k=3), len(self._open_albums())
        self._close_all([view for view in self._views() if view.dialog])
        self.pick(rng)
        wait_for(lambda: len(self._open_albums()) > before, 0.5)
        time.sleep(pauses[0])
        if rng.random() < 0.5:
            self._send_to_pictures("STOP", rng.randrange(1, 12))
        self.stage.press(rng.choice(["Down", "Up", "End", "Next"]), times=rng.choice([1, 1, 3]))
        time.sleep(pauses[1])
        self._close_all(self._open_albums()[-1:])
        time.sleep(pauses[2])
        self.pick(rng, rng.choice([1, 1, 2]))

    def use_menu(self, rng):
        menu, downs, end = rng.choice("feh"), rng.randrange(9), rng.choice(["Return", "Return", "Escape"])
        if menu == "f":  # Quit is in there. The others have keys of their own.
            end = rng.choice(["q"] + ["Escape"] * 9)
            self.may_end |= end == "q"
        self._press("Alt+" + menu, *["Down"] * downs, end)

    def use_row_menu(self, rng):
        x, y, downs, end = rng.randrange(30, 500), rng.random(), rng.randrange(7), rng.choice(["Return", "Return", "Escape"])
        if view := one_of(rng, self._views()):
            self._click(view, x, int(self.head + y * (view.height - self.head)), button=3)
            self.stage.press(*["Down"] * downs, end, choosing=True)

    def outrun_menu(self, rng):
        """What is typed before a row's menu has come is for the menu, but for a key that a menu which is just going has got."""
        for row in rng.choices(range(11), k=3):
            if view := self._main():
                self.stage.manage(view)
                time.sleep(0.1)
                send(self.application.pid, "STOP")
                self._click(view, 40, self.head + 8 + 16 * row, button=3)
                self.stage.press("Escape", choosing=True)
                send(self.application.pid, "CONT")
                time.sleep(0.3)
            if not self.stage.is_menu_open():
                return
        self._hold(lambda: not self.stage.is_menu_open(), lambda: "A menu stays open.")

    def highlight(self, rng):
        phrase, pause = rng.choice("0pgeN. "), rng.choice([0, 0.1, 0.3])
        self.stage.press("Control+l")
        time.sleep(pause)
        self._press("Control+a", phrase, "Tab", *["Down"] * rng.randrange(4), "Tab", phrase, rng.choice(["Return", "Escape"]))
        self.stage.press("Tab", times=rng.randrange(1, 5))

    def answer(self, rng):
        key = rng.choice(["Return", "Escape", "Escape", "space"])
        if view := one_of(rng, [view for view in self._views() if view.dialog]):
            self.stage.manage(view)
            self.stage.press(key)

    def close_album(self, rng):
        if view := one_of(rng, self._open_albums()):
            self.stage.close(view)

    def arrange(self, rng):
        how = rng.choice([(), (), ("WM_CHANGE_STATE", 3)])
        if view := one_of(rng, self._views()):
            self.stage.manage(view, *how)

    def start_again(self, _rng):
        if len(self.others) < 3:
            self.others.append(self._launch())

    def change_folder(self, rng):
        self._tell(self.albums.change(rng))

    def edit_list(self, rng):
        self._tell("edits the list")
        self.albums.edit(rng, between_runs=False)

    def _send_to_pictures(self, name, steps):
        for pid in [pid for pid, command in children(self.application.pid).items() if command.startswith("folimark-pict")]:
            self._tell(f"sends {name} to the picture process")
            send(pid, name)
            self.later.append((self.actions + steps, partial(send, pid, "CONT")))

    def hinder_pictures(self, rng):
        self._send_to_pictures(rng.choice(["STOP", "STOP", "KILL"]), rng.randrange(1, 12))

    def stop_application(self, rng):
        self._tell("stops the application for a moment")
        send(self.application.pid, "STOP")
        self.later.append((self.actions + rng.randrange(1, 5), partial(send, self.application.pid, "CONT")))

    def limit_writing(self, rng):
        """For a while the application can write no more than some bytes to a file."""
        self._tell("limits the application's writing")
        self._limit_writing(50)
        self.later.append((self.actions + rng.randrange(1, 5), partial(self._limit_writing, resource.RLIM_INFINITY)))
        rng.choice([self.trash, self.pick, self.create])(rng)

    def _limit_writing(self, most):
        with suppress(ProcessLookupError):
            resource.prlimit(self.application.pid, resource.RLIMIT_FSIZE, (most, resource.RLIM_INFINITY))
