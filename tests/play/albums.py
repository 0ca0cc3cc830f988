"""The folders that are played with, and what is known of the list of albums."""

import os
import shutil
import struct
import zlib
from collections import Counter

PICTURES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "data", "pictures")
LASTING = "Mixed", "Slow", "Broken", "Tree", "Odd\nn\xe4me: \udcff"
CHANGING = "Changing 1", "Changing 2", "Gone"
NEW = "New 1", "New 2", "Empty"  # no albums yet


class Fault(Exception):
    """Something that must never be."""


def colon_path(folder):
    """The line that stands for a folder."""
    name = os.fsencode(folder).translate(bytes.maketrans(b":/", b"/:")).decode(errors="surrogateescape")
    odd = {ord("\n"): 0xEF0A, 0xDCFF: 0xEFFF}
    return ("Computer" + name.translate(odd) + ":").encode()


def make_slow_picture(path, height):
    """A PNG that takes long to read and a moment to write: all its lines are alike, and filtered in the costliest way."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    line = b"\4" + bytes(range(240)) * 60
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", len(line) // 3, height, 8, 2, 0, 0, 0)))
        file.write(chunk(b"IDAT", zlib.compress(line * height, 1)) + chunk(b"IEND", b""))


def make_tree(folder, folders, files):
    """Empty files in folders within folders; they are links, since many of them are wanted quickly."""
    for number in range(folders):
        inner = os.path.join(folder, *f"{number:03}")
        os.makedirs(inner, exist_ok=True)
        first = os.path.join(inner, f"{number}.mp4")
        open(first, "w").close()
        for name in range(1, files):
            os.link(first, os.path.join(inner, f"{number} {name}.{('mp3', 'mov', 'txt')[name % 3]}"))


def make_shared(folder):
    """What no play changes: slow pictures, and an album with so many files that its scan can be interrupted."""
    for number, height in enumerate((4000, 8000, 14000)):
        make_slow_picture(os.path.join(folder, f"slow{number}.png"), height)
    make_tree(os.path.join(folder, "Large"), 60, 600)


class Albums:
    """A home folder with albums: some of them change while they are played with, the others last."""

    def __init__(self, home, shared, rng):
        self.home, self.list = home, os.path.join(home, "config", "Folimark.Preferences")
        os.mkdir(os.path.dirname(self.list))
        for name in LASTING + CHANGING + NEW:
            os.mkdir(self.folder(name))
            for number in range(6 if name in ("Slow", "Changing 1") else 0):
                os.link(os.path.join(shared, f"slow{number % 3}.png"), self.folder(f"{name}/{number}.png"))
            for picture in sorted(os.listdir(PICTURES)) if name != "Empty" else ():
                shutil.copy(os.path.join(PICTURES, picture), self.folder(name))
                if name == "Broken":
                    os.truncate(self.folder(f"{name}/{picture}"), rng.randrange(500))
        make_tree(self.folder("Tree/in"), 40, 40)
        shutil.rmtree(self.folder("Gone"))
        self.lasting = {colon_path(self.folder(name)) for name in LASTING} | {colon_path(os.path.join(shared, "Large"))}
        self.paths = self.lasting | {colon_path(self.folder(name)) for name in CHANGING + NEW}
        self.files = self._lasting_files()
        self._write([*self.lasting, *(colon_path(self.folder(name)) for name in CHANGING)], rng)
        self.rows = Counter(self._read())

    def folder(self, name):
        return os.path.join(self.home, name)

    def change(self, rng):
        """Changes one of the folders that change, and says how."""
        folder, how, number = self.folder(rng.choice(CHANGING)), rng.choice(["moves", "adds to", "empties"]), rng.randrange(99)
        away = folder + " away"
        if not os.path.isdir(folder):
            how = "puts back"
            os.rename(away, folder) if os.path.isdir(away) else os.mkdir(folder)
        elif how == "moves":
            shutil.rmtree(away, ignore_errors=True)
            os.rename(folder, away)
        elif how == "adds to":
            make_tree(os.path.join(folder, f"in {number} {len(os.listdir(folder))}"), 3, 9)
        else:
            for file in [name for name in os.listdir(folder) if "." in name]:
                os.remove(os.path.join(folder, file))
        return f"{how} {folder}"

    def _read(self):
        with open(self.list, "rb") as file:
            return file.read().split(b"\n")[:-1]

    def _write(self, rows, rng):
        rows = sorted(rows)
        rng.shuffle(rows)
        self.written = b"".join(row + b"\n" for row in rows)
        with open(self.list, "wb") as file:
            file.write(self.written)

    def edit(self, rng, between_runs):
        """Changes the list file as a user might. What is changed between runs is what the next one starts with."""
        odd = [b"", b"no path", b"Computer:no:such:folder:", colon_path(self.folder("Mixed"))[:-1]]
        rows = Counter(self._read()) - Counter(odd) | Counter(self.lasting)
        self._write([*rows.elements(), *rng.sample(odd, 2)], rng)
        if between_runs:
            self.rows = Counter(self._read())

    def check(self, trashed):
        """The list is whole, names what there is, and has lost no more albums than may have been trashed."""
        with open(self.list, "rb") as file:
            content = file.read()
        if content == self.written:
            return  # It hasn't been saved since.
        rows = Counter(content.split(b"\n")[:-1])
        made = rows - self.rows
        known = [row in self.paths or os.path.isdir(row.removeprefix(b"Computer").replace(b":", b"/")) for row in made]
        if content[-1:] not in (b"", b"\n") or not all(known) or any(rows[row] > 1 for row in made):
            raise Fault(f"The list has half a line, or an album that nobody has made, or only once: {content!r}")
        lost = [row for row in (self.rows - rows).elements() if row in self.lasting]
        if len(lost) > trashed:
            raise Fault(f"Trash can have been chosen {trashed} times, but the list has lost {lost}.")

    def _lasting_files(self):
        places = [place for name in LASTING for place in os.walk(self.folder(name))]
        states = {path: os.lstat(path) for place, _, files in places for path in (os.path.join(place, file) for file in files)}
        return {(path, state.st_size, state.st_mtime_ns, state.st_mode) for path, state in states.items()}

    def check_files(self):
        if changed := self.files ^ self._lasting_files():
            raise Fault(f"Media files have been changed: {sorted(changed)[:5]}")
