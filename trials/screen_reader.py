#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads every window of the built program as a screen reader does, over AT-SPI, on a display, a bus
and a window manager of its own. Fails where a control that can have the keyboard has no name, or one
with a mnemonic's "&" in it, where a square of the board isn't there as "e4, white pawn" or
"e5, empty", or where a window that was asked for doesn't come.

    screen_reader.py [--aloud]      scripts/read-windows starts it with what it needs

--aloud prints all that is read."""

import os
import re
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import pyatspi
from gi.repository import GLib

ROOT = Path(__file__).resolve().parent.parent
PATIENCE = 20
ALOUD = "--aloud" in sys.argv
# What has a name of its own only where it has something to say.
CONTENT = ("table cell", "list item", "column header", "table column header", "table row header",
           "tree item", "separator")
SQUARE = re.compile(r"[a-h][1-8], (empty|(white|black) (rook|knight|bishop|queen|fallen king|king|pawn))")
SETTINGS = """RunBefore=True
Greeted=True
TrayMissed=True
DisplaySplash=False
SystrayStartup=False
CheckInterval=1000
NotificationTimeout=0
{look}
[Mail]
MailKind=Post
MyName=Anna
MyAddress=anna@example.org
PostFolder={folder}/post/
"""
GAMES = (
    "1|060120261930|4|Winter|06/01/2026|dora@example.org|Dora||0|Dora|3|0||1|6263|f3||2|5755|e5||"
    "3|7274|g4||4|4884|Qh4++|",
    "2|060120261931|5|Spring|06/02/2026|carl@example.org|Carl||-1|Carl|1|0||1|5254|e4|Hi|2|5755|e5|Ho",
    "3|060120261932|6|Summer|16/07/2026|bob@example.org|Bob||-1|Bob|2|0||1|5254|e4|",
)


def end(process):
    process.terminate()
    process.wait()


def all_of(node):
    yield node
    for child in node:
        if child is not None:
            yield from all_of(child)


def is_seen(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


class Program:
    def __init__(self, folder, look, games):
        self.faults = []
        self.windows_read = []
        subprocess.run(["cmake", "--install", ROOT / "build/release", "--prefix", folder], check=True,
                       stdout=subprocess.DEVNULL)
        (folder / "Tarvolenix.conf").write_text(SETTINGS.format(look=look, folder=folder))
        (folder / "Data").mkdir(exist_ok=True)
        (folder / "Data/Tvgdb.dat").write_bytes("".join(game + "\r\n" for game in games).encode())
        self.folder = folder
        self.look = look

    def __enter__(self):
        self.process = subprocess.Popen([self.folder / "tarvolenix", "-nosound"],
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return self

    def __exit__(self, *_):
        end(self.process)

    def windows(self):
        for application in pyatspi.Registry.getDesktop(0):
            if application is not None and application.get_process_id() == self.process.pid:
                yield from (window for window in application if window is not None and is_seen(window))

    def wait_for(self, what, found):
        until = time.monotonic() + PATIENCE
        while time.monotonic() < until:
            try:
                if (result := found()) is not None:
                    return result
            except (LookupError, RuntimeError, GLib.GError):
                pass  # it went while it was being read
            time.sleep(0.2)
        titles = [window.name for window in self.windows()]
        sys.exit(f"There is no {what}, but {titles}.")

    def window(self, title):
        """By its whole title, or by the beginning that ends with a blank."""
        return self.wait_for(f'window "{title}"', lambda: next(
            (window for window in self.windows()
             if window.name == title or (title.endswith(" ") and window.name.startswith(title))), None))

    def control(self, name):
        """The one that is in front, of several."""
        def found():
            for window in reversed(list(self.windows())):
                for node in all_of(window):
                    if node.name == name and is_seen(node):
                        return node
            return None
        return self.wait_for(f'control "{name}"', found)

    def click(self, name):
        place = self.control(name).queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        xdotool("mousemove", str(place.x + min(place.width // 2, 60)), str(place.y + place.height // 2),
                "click", "1")
        time.sleep(0.5)

    def choose(self, menu, *keys):
        """Menus that pop up are no part of the tree: their entries are chosen by the arrow keys."""
        self.click(menu)
        self.keys(*keys, "Return")

    def keys(self, *names):
        xdotool("key", "--delay", "80", *names)
        time.sleep(0.5)

    def type_into(self, *texts):
        """Field by field, and then on."""
        for text in texts:
            xdotool("type", "--delay", "20", text)
            self.keys("Tab")
        self.keys("Return")

    def read(self, title):
        window = self.window(title)
        time.sleep(0.5)
        self.windows_read.append(title)
        for node in all_of(window):
            self.read_control(title, node)

    def read_control(self, title, node):
        state, role, name = node.getState(), node.getRoleName(), node.name
        if ALOUD and name:
            print(f"  {title}: {role} \"{name}\" {node.description}")
        if not state.contains(pyatspi.STATE_FOCUSABLE) or not is_seen(node) or role in CONTENT:
            return
        if not name.strip():
            self.faults.append(f"{title}: a {role} has no name ({node.description})")
        elif re.search(r"&\w", name):
            self.faults.append(f'{title}: the {role} "{name}" is read with its mnemonic')

    def read_board(self):
        board = self.control("Chess board")
        names = [square.name for square in board]
        self.faults += [f'the board has a square "{name}"' for name in names if not SQUARE.fullmatch(name)]
        places = {name[:2] for name in names}
        if len(places) != 64 or len(names) != 64:
            self.faults.append(f"the board has {len(names)} squares, of {len(places)} names")
        for wanted in ("e4, white pawn", "e5, black pawn", "d4, empty"):
            if wanted not in names:
                self.faults.append(f'the board has no "{wanted}"')


def xdotool(*words):
    subprocess.run(["xdotool", *words], check=True, stdout=subprocess.DEVNULL)


def read_dialogs_of_list(program):
    program.read("Tarvolenix : ")
    program.choose("File", *["Down"] * 5)
    pages = ["General", "Notification", "Chess set", "Heuristics", "Saved AI", "Skins"]
    for page in pages[:5] if "SimpleUI" in program.look else pages:
        program.click(page)
        program.read("Tarvolenix options")
    program.keys("Escape")
    program.choose("File", *["Down"] * 7)
    for way in ("A post office on this computer", "My mailbox at a mail provider",
                "This computer's own mail system"):
        program.click(way)
        program.read("Tarvolenix - Your mail")
    program.keys("Escape")
    program.choose("File", *["Down"] * 2)
    program.read("Select a sound file...")
    program.keys("Escape")
    program.read("Tarvolenix")  # that nothing was imported
    program.keys("Return")
    program.choose("File", *["Up"] * 6)
    program.read("Print game...")
    program.keys("Escape")
    program.choose("Game", "Up")
    program.read("Change address")
    program.keys("Escape")
    program.choose("Game", *["Down"] * 4)
    program.read("Tarvolenix")
    program.keys("Escape")
    program.choose("Help", "Down")
    program.read("Tarvolenix help")
    program.keys("Escape")
    program.choose("Help", "Up")
    program.read("About Tarvolenix")
    program.click("Credits")
    program.read("Credits")
    program.keys("Escape", "Escape")


def read_new_games(program):
    program.choose("Game", "Down")
    program.read("New game...")
    program.click("Address book")
    program.read("Choose an opponent")
    program.click("Add...")
    program.read("Add a person")
    program.keys("Escape", "Escape", "Escape")
    program.click("vs. Computer")
    program.read("New game...")
    program.keys("Escape")


def read_boards(program):
    program.click("Play game")
    program.read("Tarvolenix - ")
    program.read_board()
    program.keys("ctrl+m")
    program.read("Earlier comments")
    program.keys("Escape", "ctrl+w")
    program.window("Tarvolenix : ")
    program.choose("Game", "Down", "Down")
    program.window("New game...")
    program.type_into("Setup", "Bob", "bob@example.org")
    program.read("Tarvolenix")  # what is to be done
    program.keys("Return")
    program.read("Tarvolenix - ")


# What is seen, and from which games on.
JOURNEYS = (
    (GAMES, (read_dialogs_of_list, read_new_games, read_boards)),
    ((), (lambda program: program.read("Welcome to Tarvolenix"),)),
)
LOOKS = ("SimpleUI=True", "Skin=Tarvolenix Classic")


def main():
    faults = []
    for look in LOOKS:
        for games, steps in JOURNEYS:
            with (tempfile.TemporaryDirectory() as folder,
                  Program(Path(folder), look, games) as program):
                for step in steps:
                    step(program)
            faults += [f"{look}: {fault}" for fault in program.faults]
            print(f"{look}: {len(program.windows_read)} windows read", flush=True)
    for fault in dict.fromkeys(faults):
        print(fault)
    sys.exit(bool(faults))


main()
