"""An X server of its own with a window manager, and what a person's eyes and hands do there."""

import os
import subprocess
import time
from collections import namedtuple
from contextlib import suppress

from Xlib import X, XK, display, error
from Xlib.ext import xtest
from Xlib.protocol import event

# Clicks bring windows forward. No key, no menu and no other button is the window manager's own.
RULES = """<openbox_config xmlns="http://openbox.org/3.4/rc"><desktops><number>1</number></desktops><keyboard/><mouse>
<context name="Client"><mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
</context></mouse></openbox_config>"""

# A window as it stands on the screen, in pixels and without the window manager's frame.
View = namedtuple("View", "window pid title dialog left top width height")


def is_main(view):
    """Is it the Albums window? An album that is being read has the same title, but is wider."""
    return view.title == "Folimark" and not view.dialog and view.width < 1000


def one_of(rng, views):
    return rng.choice(views) if views else None


def wait_for(fact, limit):
    """Returns what `fact` gives as soon as that is true, or its last answer after `limit` seconds."""
    end = time.monotonic() + limit
    while not (found := fact()) and time.monotonic() < end:
        time.sleep(0.02)
    return found


class Stage:
    """Whatever the hands do is told, by `tell`. They leave a menu before they do anything but choose from it."""

    def __init__(self, folder, tell):
        self.tell, self.in_menu = tell, False
        ready, write = os.pipe()
        screen = ["Xvfb", "-displayfd", str(write), "-screen", "0", "1920x1080x24", "-nolisten", "tcp"]
        self.server = subprocess.Popen(screen, pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with open(ready) as number:
            self.name = ":" + number.readline().strip()
        self.display = display.Display(self.name)
        self.root = self.display.screen().root
        with open(os.path.join(folder, "rules.xml"), "w") as file:
            file.write(RULES)
        started = os.path.join(folder, "started")
        self.manager = subprocess.Popen(
            ["openbox", "--sm-disable", "--config-file", file.name, "--startup", f"touch {started}"], stderr=subprocess.DEVNULL,
            env=dict(os.environ, DISPLAY=self.name, HOME=folder, XDG_CONFIG_HOME=folder, XDG_CACHE_HOME=folder))
        # It says earlier that it is there, but then forgets windows that come before it has started.
        wait_for(lambda: os.path.exists(started), 60)
        os.remove(started)

    def end(self):
        for process in (self.manager, self.server):
            process.kill()
            process.wait()

    def _property(self, window, name):
        found = window.get_full_property(self.display.intern_atom(name), X.AnyPropertyType)
        return found.value if found else []

    def views(self, pids):
        """The windows of these processes that the window manager knows, the frontmost last."""
        views = []
        for number in self._property(self.root, "_NET_CLIENT_LIST_STACKING"):
            window = self.display.create_resource_object("window", number)
            try:
                pid, kinds = self._property(window, "_NET_WM_PID"), self._property(window, "_NET_WM_WINDOW_TYPE")
                title = bytes(self._property(window, "_NET_WM_NAME")).decode(errors="replace")
                place, size = window.translate_coords(self.root, 0, 0), window.get_geometry()
            except error.XError:
                continue  # It has just gone.
            if pid and pid[0] in pids:
                dialog = self.display.intern_atom("_NET_WM_WINDOW_TYPE_DIALOG") in kinds
                views.append(View(window, pid[0], title, dialog, -place.x, -place.y, size.width, size.height))
        return views

    def is_menu_open(self):
        """Is there one of the application's windows that the window manager knows nothing of, or a help tag?"""
        for window in self.root.query_tree().children:
            with suppress(error.XError):
                attributes = window.get_attributes()
                if attributes.override_redirect and attributes.map_state == X.IsViewable and window.get_wm_class():
                    return True
        return False

    def _send(self, to, view, kind, number, mask):
        kind = self.display.intern_atom(kind)
        to.send_event(event.ClientMessage(window=view.window, client_type=kind, data=(32, [number, 0, 0, 0, 0])), mask)
        self.display.sync()

    def _leave_menu(self):
        """A busy application may open the menu only later, but then gets this key before what follows."""
        if self.in_menu:
            self.press("Escape", choosing=True)
            self.in_menu = False

    def manage(self, view, kind="_NET_ACTIVE_WINDOW", number=2):
        """Asks the window manager by such a message; unless told otherwise to bring the window forward."""
        self._leave_menu()
        self.tell(f"asks for {kind} of “{view.title}”")
        self._send(self.root, view, kind, number, X.SubstructureRedirectMask | X.SubstructureNotifyMask)

    def close(self, view):
        """As the close button does, but past the window manager, which offers to kill what is slow."""
        self.tell(f"closes “{view.title}”")
        self._send(view.window, view, "WM_PROTOCOLS", self.display.intern_atom("WM_DELETE_WINDOW"), 0)

    def click(self, view, x, y, button=1, times=1):
        """Presses and releases a button; 0 times only moves the pointer there."""
        self._leave_menu()
        self.tell(f"clicks {times} × {button} at {x}, {y} of “{view.title}”")
        xtest.fake_input(self.display, X.MotionNotify, x=view.left + x, y=view.top + y)
        for kind in (X.ButtonPress, X.ButtonRelease) * times:
            xtest.fake_input(self.display, kind, button)
        self.display.sync()
        self.in_menu = button == 3 or y < 30  # the menu bar

    def press(self, *keys, times=1, choosing=False):
        """Keys by their names, as in "Control+Shift+l", or single characters. They are for a menu if it's for choosing."""
        if not choosing:
            self._leave_menu()
        self.tell(f"presses {' '.join(keys)}" + (f" {times} times" if times > 1 else ""))
        for key in keys * times:
            names = [name + "_L" if name in ("Control", "Shift", "Alt") else name for name in key.split("+")]
            symbols = [XK.string_to_keysym(name) or ord(name) for name in names]
            codes = [self.display.keysym_to_keycode(symbol) for symbol in symbols]
            if self.display.keycode_to_keysym(codes[-1], 0) != symbols[-1]:
                codes.insert(0, self.display.keysym_to_keycode(XK.XK_Shift_L))
            for code in codes:
                xtest.fake_input(self.display, X.KeyPress, code)
            for code in reversed(codes):
                xtest.fake_input(self.display, X.KeyRelease, code)
        self.display.sync()
        self.in_menu |= any(key in ("F10", "Menu") or key.startswith("Alt") for key in keys)
