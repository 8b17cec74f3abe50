# SPDX-License-Identifier: GPL-3.0-or-later
"""Players: each has a program folder of his own, and uses the console in it."""

import ctypes
import json
import shutil
import signal
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
CONSOLE = ROOT / "build/release/src/cli/tarvolenix-cli"
PASSWORD = "secret"

FIXED_FIELDS = 13
FIELDS_OF_MOVE = 4

# A game's status.
MOVE_WAITING, WAITING, WON, LOST, DRAW_OFFERED, DRAWN = range(1, 7)


def end_with_parent():
    """In the child. What ends the trial, be it a signal, ends what it has started too."""
    PR_SET_PDEATHSIG = 1
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


def end_tidily():
    """From now on who is told to end cleans up before."""
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))


class DamagedStore(Exception):
    pass


@dataclass(frozen=True)
class Game:
    """A line of the game file, whose first fields have names here."""

    fields: tuple
    moves: tuple  # of number, coordinates, text, comment

    id = property(lambda self: int(self.fields[0]))
    stamp = property(lambda self: self.fields[1])
    opponents_id = property(lambda self: int(self.fields[2]))
    name = property(lambda self: self.fields[3])
    email = property(lambda self: self.fields[5])
    is_host = property(lambda self: self.fields[8] == "-1")
    status = property(lambda self: int(self.fields[10]))
    start_board = property(lambda self: self.fields[12])

    def is_over(self):
        """By its last entry; a mate, a draw by rule and an answer say it in their text."""
        return self.moves[-1][2].endswith(("++", "0-1", "1-0", "1/2-1/2"))

    def is_mine_to_move(self):
        return (len(self.moves) % 2 == 0) == self.is_host


def read_games(data_folder):
    """The stored games by number. Reads the file itself: what the program thinks of a damaged one
    is not the judge's business."""
    file = data_folder / "Tvgdb.dat"
    games = {}
    text = file.read_bytes().decode("utf-8", "surrogateescape") if file.exists() else ""
    if text and not text.endswith("\r\n"):
        raise DamagedStore("the last line has no end")
    for line in text.split("\r\n")[:-1]:
        game = parse_line(line)
        if game.id in games:
            raise DamagedStore(f"game {game.id} stands there twice")
        games[game.id] = game
    return games


def parse_line(line):
    fields = line.split("|")
    rest = fields[FIXED_FIELDS:]
    moves = tuple(tuple(rest[i : i + FIELDS_OF_MOVE]) for i in range(0, len(rest), FIELDS_OF_MOVE))
    whole = len(fields) >= FIXED_FIELDS and len(rest) % FIELDS_OF_MOVE == 0
    if not whole or not fields[0].isdigit():
        raise DamagedStore("a line makes no sense: " + line[:60])
    return Game(tuple(fields[:FIXED_FIELDS]), moves)


@dataclass(frozen=True)
class Answer:
    """What the console said, and how it ended: a negative code is the signal that killed it, None
    means that it didn't end in time."""

    code: int | None
    lines: list
    error: str

    ok = property(lambda self: self.code == 0)


class Player:
    def __init__(self, parent, name):
        self.name = name
        self.address = f"{name}@localhost"
        self.folder = Path(parent) / name
        self.data = self.folder / "Data"
        self.data.mkdir(parents=True)
        (self.folder / "Tarvolenix.conf").write_text("RunBefore=True\nDisplaySplash=False\n")

    def set_account(self, imap_port, smtp_port):
        settings = {
            "MailKind": "Imap",
            "MyName": self.name.capitalize(),
            "MyAddress": self.address,
            "UserName": self.address,
            "ImapHost": "127.0.0.1",
            "ImapPort": imap_port,
            "ImapSecurity": "None",
            "SmtpHost": "127.0.0.1",
            "SmtpPort": smtp_port,
            "SmtpSecurity": "None",
        }
        words = [f"{key}={value}" for key, value in settings.items()]
        answer = self.console("account", "set", *words, "--password", stdin=PASSWORD + "\n")
        if not answer.ok:
            raise RuntimeError("The account can't be set: " + answer.error)

    def start(self, *words, **more):
        return subprocess.Popen(
            [CONSOLE, "--folder", self.folder, *map(str, words)],
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            **more,
        )

    def console(self, *words, stdin="", patience=120, kill_after=None):
        """`kill_after` seconds it is killed on purpose; after `patience` because it hangs."""
        process = self.start(*words)
        try:
            out, error = process.communicate(stdin.encode(), kill_after or patience)
            code = process.returncode
        except subprocess.TimeoutExpired:
            process.kill()
            out, error = process.communicate()
            code = -9 if kill_after else None
        return Answer(code, parse_lines(out), error.decode("utf-8", "replace"))

    def done(self, *words):
        """For what has to work; answers the lines."""
        answer = self.console(*words)
        if not answer.ok:
            raise RuntimeError(f"{self.name}: {' '.join(map(str, words))}: {answer.error}")
        return answer.lines

    def games(self):
        return read_games(self.data)

    def keep_data(self, place):
        shutil.rmtree(place, ignore_errors=True)
        shutil.copytree(self.data, place)

    def restore_data(self, place):
        shutil.rmtree(self.data)
        shutil.copytree(place, self.data)


def parse_lines(out):
    """The lines that are whole; one that was killed may have stopped within its last."""
    lines = []
    for line in out.decode("utf-8", "replace").split("\n")[:-1]:
        try:
            lines.append(json.loads(line))
        except ValueError:
            lines.append({"unreadable": line})
    return lines
