# SPDX-License-Identifier: GPL-3.0-or-later
"""A desktop for the installed program: a display of its own, a window manager, a menu to start the
program from, and a hand at the keyboard."""

import configparser
import os
import shlex
import subprocess
import sys
import time

PATIENCE = 60
ENTRY = "usr/share/applications/tarvolenix.desktop"
# What a player has told the options, who knows the program.
SETTINGS = """[General]
RunBefore=True
DisplaySplash=False
SystrayStartup=False
CheckInterval=0
NotificationMethod=0
"""


class Desktop:
    def __init__(self, system, pictures):
        self.system = system
        self.pictures = pictures
        self.processes = []

    def __enter__(self):
        self.pictures.mkdir(exist_ok=True)
        # Users who aren't the display's come by the socket that has no file.
        server = self.start("Xvfb", "-displayfd", "1", "-screen", "0", "1280x900x24", "-ac",
                            "-nolisten", "tcp", stdout=subprocess.PIPE)
        self.environment = dict(os.environ, DISPLAY=":" + server.stdout.readline().decode().strip())
        self.start("openbox", env=self.environment)
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()

    def start(self, *command, **more):
        more.setdefault("stdout", subprocess.DEVNULL)
        self.processes.append(subprocess.Popen(command, stderr=subprocess.DEVNULL, **more))
        return self.processes[-1]

    def choose_from_menu(self, user):
        """As a menu does it: the entry's command, without the codes for files."""
        entry = configparser.ConfigParser(interpolation=None)
        entry.optionxform = str
        entry.read(self.system.folder / ENTRY, encoding="utf-8")
        words = shlex.split(entry["Desktop Entry"]["Exec"])
        words = [word for word in words if not word.startswith("%")]
        self.program = self.start(*self.system.user_command(
            user, words, [f"DISPLAY={self.environment['DISPLAY']}", "DBUS_SESSION_BUS_ADDRESS=disabled:"]))

    def xdotool(self, *words):
        told = subprocess.run(["xdotool", *words], env=self.environment, capture_output=True, text=True)
        return told.stdout.split("\n")[:-1]

    def windows(self):
        names = {}
        for window in self.xdotool("search", "--onlyvisible", "--name", "."):
            names.update(dict.fromkeys(self.xdotool("getwindowname", window), window))
        return names

    def wait_for(self, start):
        """For a window whose title begins so; answers its number."""
        until = time.monotonic() + PATIENCE
        while time.monotonic() < until:
            for name, window in self.windows().items():
                if name.startswith(start):
                    time.sleep(1)  # for its first painting
                    return window
            time.sleep(0.2)
        self.picture("failed")
        sys.exit(f"There is no window \"{start}\", but {list(self.windows())}.")

    def keys(self, *names):
        self.xdotool("key", "--delay", "60", *names)

    def type(self, text):
        self.xdotool("type", "--delay", "30", text)

    def picture(self, name, window="root"):
        subprocess.run(["import", "-window", window, self.pictures / f"{name}.png"],
                       env=self.environment, check=True)

    def end_program(self):
        self.program.terminate()
        self.program.wait(PATIENCE)

    def expect_it_runs(self):
        self.wait_for("Tarvolenix - ")
        if self.program.poll() is not None:
            sys.exit("Being installed anew has ended the program.")
        self.end_program()

    def begin_a_game(self, user):
        """From an empty home folder to the first move."""
        self.choose_from_menu(user)
        self.wait_for("Tarvolenix")
        self.keys("Return")  # what a first start has to say
        self.wait_for("Tarvolenix - Your mail")
        self.keys("alt+p", "alt+n")
        self.type("Carl")
        self.keys("alt+a")
        self.type("carl@home")
        self.picture("account")
        self.keys("Return")
        self.picture("new-game", self.wait_for("New game"))
        self.type("Harbour")
        self.keys("Tab")
        self.type("Dora")
        self.keys("Tab", "Tab")
        self.type("dora@home")
        self.keys("Return")
        self.wait_for("Tarvolenix - ")
        self.keys("Return", "Up", "Up", "Return", "ctrl+Return")  # e4
        self.wait_for("Tarvolenix : ")  # since there is no tray
        self.end_program()
        game = self.system.console(user, "games")[0]
        if game["GAME_NAME"] != "Harbour" or not self.post_of(user).is_dir():
            sys.exit("The game that was begun isn't there, or its move lies in no post office.")

    def post_of(self, user):
        return self.system.folder / "home" / user / ".local/share/tarvolenix/post/dora@home"

    def show_windows(self, user):
        """Pictures of the windows in games that are being played; a board stays open."""
        conf = self.system.folder / "home" / user / ".config/Norlewick/Tarvolenix.conf"
        conf.write_text(SETTINGS + conf.read_text())
        self.choose_from_menu(user)
        self.picture("games", self.wait_for("Tarvolenix : "))
        self.keys("Return")  # on Play
        self.picture("board", self.wait_for("Tarvolenix - "))
