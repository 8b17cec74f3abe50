#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Installs the Debian packages in an empty system of their own, as root: two people play there by the
console, a third one starts the program from his desktop's menu with an empty home folder, and begins
a game. Then the packages are purged, and nothing of them may be left but what is the players'.

    package.py FOLDER_OF_THE_PACKAGES [--keep]

The pictures of the windows are in FOLDER/screenshots. --keep leaves the system in FOLDER/system."""

import hashlib
import json
import os
import re
import shutil
import stat
import subprocess
import sys
from pathlib import Path

from installed_desktop import Desktop

PLAYERS = {"anna": "Anna", "bob": "Bob", "carl": "Carl"}
GAMES = {
    "Autumn": ["5254", "5755", "7163", "2836", "6134", "6835"],  # and White is to move
    "Summer": ["6263", "5755", "7274", "4884"],  # and White is mate
}
OURS = ("tarvolenix-data", "tarvolenix")
# What a system keeps of every package that it ever had, and what only runs.
RECORDS = ("/proc", "/sys", "/dev", "/run", "/tmp", "/var/cache", "/var/lib/apt", "/var/lib/dpkg",
           "/var/log", "/var/lib/systemd")


def run(*command, **more):
    return subprocess.run([str(word) for word in command], check=True, text=True, **more)


def packages_in(folder):
    """Ours without their debugging symbols, the one that the other needs first."""
    return [next(folder.glob(f"{name}_*.deb")) for name in OURS]


def needed_by(packages):
    """The names of the foreign packages."""
    names = []
    for package in packages:
        for field in ("Depends", "Recommends"):
            told = subprocess.check_output(["dpkg-deb", "-f", package, field], text=True)
            names += re.findall(r"(?:^|, )([a-z0-9.+-]+)", told.strip())
    return sorted(set(names) - set(OURS))


class System:
    def __init__(self, folder):
        self.folder = folder

    def make(self, packages):
        """The caller has a view of his own of the mounts."""
        run("mmdebstrap", "--quiet", "--variant=apt", "--include=" + ",".join(needed_by(packages)),
            "bookworm", self.folder)
        run("mount", "-t", "proc", "proc", self.folder / "proc")
        for name in PLAYERS:
            self.root("useradd", "--create-home", "--skel", "/nonexistent", name)

    def root(self, *command, **more):
        environment = dict(PATH="/usr/sbin:/usr/bin:/sbin:/bin", LC_ALL="C.UTF-8",
                           DEBIAN_FRONTEND="noninteractive")
        return run("chroot", self.folder, *command, env=environment, **more)

    def install(self, packages):
        for package in packages:
            shutil.copy(package, self.folder / "tmp")
        self.root("dpkg", "--install", *(f"/tmp/{package.name}" for package in packages),
                  stdout=subprocess.DEVNULL)
        for package in packages:
            (self.folder / "tmp" / package.name).unlink()

    def purge(self):
        self.root("dpkg", "--purge", *reversed(OURS), stdout=subprocess.DEVNULL)

    def user_command(self, user, command, environment=()):
        """What starts a command as the user, at home there, on the path that a session has."""
        return ["chroot", str(self.folder), "runuser", "-u", user, "--", "env", "-i",
                f"HOME=/home/{user}", f"USER={user}", "LC_ALL=C.UTF-8",
                "PATH=/usr/local/bin:/usr/bin:/bin:/usr/local/games:/usr/games", *environment, *command]

    def remove(self):
        if os.path.ismount(self.folder / "proc"):
            run("umount", "--lazy", self.folder / "proc")
        shutil.rmtree(self.folder)

    def console(self, user, *words):
        told = subprocess.run(self.user_command(user, ["tarvolenix-cli", *words]),
                              capture_output=True, text=True)
        if told.returncode != 0:
            sys.exit(f"{user}: tarvolenix-cli {' '.join(words)}: {told.stderr}")
        return [json.loads(line) for line in told.stdout.splitlines()]

    def files(self):
        """Each file, folder and link but a system's records, with what tells a change: what is
        written anew as it was, as the desktop's lists of types are, is none."""
        found = {}
        for folder, names, files in os.walk(self.folder):
            inside = "/" + os.path.relpath(folder, self.folder).lstrip(".")
            names[:] = [name for name in names if not is_record(os.path.join(inside, name))]
            for name in names + files:
                path = os.path.join(inside, name)
                place = Path(folder, name)
                mode = place.lstat().st_mode
                found[path] = (mode, digest(place) if stat.S_ISREG(mode) else "")
        return found


def digest(place):
    with place.open("rb") as file:
        return hashlib.file_digest(file, "sha256").hexdigest()


def is_record(path):
    return any(path == record or path.startswith(record + "/") for record in RECORDS)


def play(system):
    """Two games by the post office of the machine, one of them to its end, and a page on paper."""
    post = system.folder / "srv/post"
    post.mkdir()
    post.chmod(0o1777)
    for user, name in (("anna", "Anna"), ("bob", "Bob")):
        system.console(user, "account", "set", "MailKind=Post", f"MyName={name}",
                       f"MyAddress={user}@example.org", "PostFolder=/srv/post/")
    for title, moves in GAMES.items():
        system.console("anna", "new", "--name", title, "--opponent", "Bob", "--email",
                       "bob@example.org", "--move", moves[0], "--send")
        for number, move in enumerate(moves[1:], start=1):
            mover = ("anna", "bob")[number % 2]
            system.console(mover, "retrieve")
            system.console(mover, "move", number_of(system, mover, title), move, "--send")
    system.console("anna", "retrieve")
    for title, moves in GAMES.items():
        told = [moves_of(system, user, title) for user in ("anna", "bob")]
        print(f"{title}: {' '.join(told[0])}")
        if told[0] != told[1] or len(told[0]) != len(moves):
            sys.exit(f"The two don't have the same moves of {title}: {told}.")
    if not moves_of(system, "anna", "Summer")[-1].endswith("++"):
        sys.exit("That was no mate.")
    system.console("anna", "print", "position", number_of(system, "anna", "Summer"), "--pdf",
                   "/home/anna/board.pdf")


def number_of(system, user, title):
    games = system.console(user, "games")
    return next(str(game["GAME_ID"]) for game in games if game["GAME_NAME"] == title)


def moves_of(system, user, title):
    return [move["MoveText"] for move in system.console(user, "moves", number_of(system, user, title))]


def judge(before, after):
    """What purging left must be the players'."""
    left = sorted(path for path in after if after[path] != before.get(path))
    gone = sorted(path for path in before if path not in after)
    foreign = [path for path in left if not path.startswith(("/home/", "/srv/post"))]
    print("What is left:")
    for path in left:
        print("  " + path)
    if foreign or gone:
        sys.exit(f"Purging left {foreign[:9]} and took {gone[:9]}.")


def main():
    packages_folder = Path(sys.argv[1]).resolve()
    system = System(packages_folder / "system")
    packages = packages_in(packages_folder)
    if system.folder.exists():
        system.remove()
    try:
        system.make(packages)
        before = system.files()
        system.install(packages)
        play(system)
        with Desktop(system, packages_folder / "screenshots") as desktop:
            desktop.begin_a_game("carl")
            desktop.show_windows("anna")
            system.install(packages)  # over a program that runs
            desktop.expect_it_runs()
        system.purge()
        judge(before, system.files())
    finally:
        if "--keep" not in sys.argv:
            system.remove()


if __name__ == "__main__":
    main()
