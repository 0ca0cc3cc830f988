"""Reads and uses the application's windows through AT-SPI. Needs a home folder and a session bus of its own."""

import os
import subprocess
import sys
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

warnings.simplefilter("ignore", DeprecationWarning)

LIMIT = 15  # seconds; far more than anything takes that doesn't hang
MOST_CHILDREN = 60  # of one object that are looked at; lists have more
ROWS = 100_000


class Failure(Exception):
    pass


def wait_for(fact, what):
    end = time.monotonic() + LIMIT
    while time.monotonic() < end:
        try:
            found = fact()
        except GLib.Error:  # what was there a moment ago has gone, or is busy
            found = None
        if found:
            return found
        GLib.MainContext.default().iteration(False)
    raise Failure(f"It never came true that {what}.")


def children(node):
    count = min(node.get_child_count(), MOST_CHILDREN)
    return [child for child in map(node.get_child_at_index, range(count)) if child]


def tree(node):
    yield node
    if node.get_role() != Atspi.Role.TABLE:
        for child in children(node):
            yield from tree(child)


def find(window, role, name=None):
    return wait_for(
        lambda: next((n for n in tree(window) if n.get_role() == role and name in (None, n.get_name())), None),
        f"“{window.get_name()}” has a {role.value_nick} “{name}”",
    )


def is_in_state(node, state):
    return node.get_state_set().contains(state)


def press(node):
    wait_for(lambda: is_in_state(node, Atspi.StateType.ENABLED), f"“{node.get_name()}” is enabled")
    try:
        node.get_action_iface().do_action(0)
    except GLib.Error:
        pass  # A command that asks something answers when it has ended.


def check_names(window):
    """Whatever can be used has a name, and tells whether the keyboard gets there."""
    used = (Atspi.Role.PUSH_BUTTON, Atspi.Role.TABLE, Atspi.Role.TEXT, Atspi.Role.COMBO_BOX, Atspi.Role.IMAGE)
    for node in tree(window):
        if node.get_role() in used and is_in_state(node, Atspi.StateType.SHOWING):
            if not node.get_name():
                raise Failure(f"A {node.get_role_name()} in “{window.get_name()}” has no name.")
            by_keyboard = is_in_state(node, Atspi.StateType.FOCUSABLE)
            if node.get_role() != Atspi.Role.IMAGE and not by_keyboard:
                raise Failure(f"The keyboard doesn't reach “{node.get_name()}”.")


def make_album(home):
    folder = os.path.join(home, "Album")
    os.mkdir(folder)
    first = os.path.join(folder, "000000.jpg")
    open(first, "w").close()
    for number in range(1, ROWS):
        # A file has only so many names.
        if number % 30_000 == 0:
            first = os.path.join(folder, f"{number:06}.jpg")
            open(first, "w").close()
        else:
            os.link(first, os.path.join(folder, f"{number:06}.jpg"))
    config = os.environ["XDG_CONFIG_HOME"]
    os.mkdir(config)
    with open(os.path.join(config, "Folimark.Preferences"), "w") as albums:
        albums.write("Computer" + folder.replace("/", ":") + ":\n")


def read(process):
    def application():
        return next((a for a in children(Atspi.get_desktop(0)) if a.get_process_id() == process.pid), None)

    def window(name):
        return wait_for(
            lambda: next((w for w in children(application()) if w.get_name() == name), None), f"“{name}” is open"
        )

    heard = []
    listener = Atspi.EventListener.new(lambda event: heard.append((event.type, event.source.get_name())))
    for kind in ("object:property-change:accessible-name", "object:state-changed:selected"):
        listener.register(kind)

    wait_for(application, "the application is to be seen")
    albums = window("Folimark")
    check_names(albums)
    albums_table = find(albums, Atspi.Role.TABLE, "Albums").get_table_iface()
    albums_table.add_row_selection(0)
    if albums_table.get_accessible_at(0, 0).get_name() != "Album" or not albums_table.is_row_selected(0):
        raise Failure("The album can't be selected.")
    press(find(albums, Atspi.Role.PUSH_BUTTON, "Open Album"))

    # The list is read while it fills itself.
    album = window("Album")
    list_ = find(album, Atspi.Role.TABLE, "Media files in this album")
    table = list_.get_table_iface()

    def read_rows():
        rows = table.get_n_rows()
        for row in range(0, rows, rows // 10 + 1):
            table.get_accessible_at(row, 0).get_name()
        return rows == ROWS

    wait_for(read_rows, "the list is full")
    check_names(album)
    if table.get_column_description(1) != "Created":
        raise Failure("The columns have no headings.")
    table.add_row_selection(ROWS - 1)
    last = table.get_accessible_at(ROWS - 1, 0)
    if last.get_name() != f"{ROWS - 1:06}.jpg" or not is_in_state(last, Atspi.StateType.SELECTED):
        raise Failure(f"The last row is “{last.get_name()}”, or isn't selected.")
    wait_for(lambda: any(kind.startswith("object:state-changed:selected") for kind, _ in heard), "the selection is announced")

    # And while it is searched.
    press(find(album, Atspi.Role.PUSH_BUTTON, "Highlight…  Ctrl+L"))
    dialog = window("Highlight")
    check_names(dialog)
    phrase = find(dialog, Atspi.Role.TEXT, "Highlight entries containing the phrase")
    phrase.get_editable_text_iface().set_text_contents("99")
    press(find(dialog, Atspi.Role.PUSH_BUTTON, "OK"))
    hits = sum("99" in f"{number:06}" for number in range(ROWS))

    def announced():
        list(tree(album))
        read_rows()
        return any(name == f"{hits} Media Files Highlighted" for _, name in heard)

    wait_for(announced, "the number of hits is announced")

    # More cells than the application keeps objects for.
    for row in range(0, ROWS, ROWS // 1500):
        if list_.get_child_at_index(row * table.get_n_columns()).get_name() != f"{row:06}.jpg":
            raise Failure(f"Row {row} is another one.")

    # What has gone gives no answer, and does no harm.
    cell = table.get_accessible_at(0, 0)
    press(find(albums, Atspi.Role.PUSH_BUTTON, "Close Album"))
    wait_for(lambda: "Album" not in [w.get_name() for w in children(application())], "the album is closed")
    for question in (cell.get_name, table.get_n_rows, lambda: table.add_row_selection(1)):
        try:
            question()
        except GLib.Error:
            pass
    if albums_table.get_accessible_at(0, 0).get_name() != "Album":
        raise Failure("The list of albums has changed.")


def main():
    make_album(os.environ["HOME"])
    process = subprocess.Popen([sys.argv[1]])
    try:
        read(process)
    except Failure as failure:
        print(failure, f"(Status of the application: {process.poll()})")
        return 1
    finally:
        process.kill()
        process.wait()
    return 0


sys.exit(main())
