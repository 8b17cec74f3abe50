# SPDX-License-Identifier: GPL-3.0-or-later
"""What stands in the files of a world, read without any help of the program's."""

import hashlib
import re
from dataclasses import dataclass
from pathlib import Path

from world import PLAYERS, World

FIXED_FIELDS = 13
NUMBER, STAMP, NAME, DATE = 0, 1, 3, 4

# What another run, or another order of the mails, gives to a new game.
OF_THE_RUN = (NUMBER, STAMP, DATE)


@dataclass(frozen=True)
class GameFile:
    content: bytes | None  # none where there is no file
    games: dict[str, str]  # a game's line by its name
    doubled: tuple[str, ...]
    torn: tuple[str, ...]


@dataclass(frozen=True)
class Player:
    games: GameFile
    backup: GameFile
    settings: dict[str, str]  # "Section/Key"
    passwords: bytes | None
    exports: dict[str, bytes]
    held: dict[str, str]  # how far a mail that was set aside has got, and what it says
    memory: tuple[str, ...]  # what is remembered of mails, line by line
    contents: frozenset[bytes]  # of all files beside the games

    def account(self) -> dict[str, str]:
        return {key: value for key, value in self.settings.items() if key.startswith("Mail/")}


@dataclass(frozen=True)
class Mail:
    box: str
    digest: str
    sender: str
    game: str  # its name; blank where it carries none
    moves: int
    is_read: bool


@dataclass(frozen=True)
class Snapshot:
    players: dict[str, Player]
    mails: list[Mail]

    def box(self, player: str) -> list[Mail]:
        return [mail for mail in self.mails if mail.box == f"post/{player}@example.org"]


def take(world: World) -> Snapshot:
    return Snapshot({name: _player(world.root / name) for name in PLAYERS}, _mails(world.root))


def without_run(line: str) -> list[str]:
    fields = line.split("|")
    return [field for number, field in enumerate(fields) if number not in OF_THE_RUN]


def move_count(line: str) -> int:
    return (len(line.split("|")) - FIXED_FIELDS) // 4


def _content(path: Path) -> bytes | None:
    return path.read_bytes() if path.exists() else None


def _player(folder: Path) -> Player:
    data = folder / "Data"
    return Player(_game_file(data / "Tvgdb.dat"), _game_file(data / "tvgdb.bak"),
                  _settings(folder / "Tarvolenix.conf"), _content(folder / "Tarvolenix.passwords"),
                  {file.name: file.read_bytes() for file in sorted(data.glob("Cmove*.txt"))},
                  dict(_held(file) for file in (data / "Held").glob("*.*")),
                  _memory(data / "Tvmail.dat"),
                  frozenset(file.read_bytes() for file in data.iterdir() if file.is_file()))


def _held(file: Path) -> tuple[str, str]:
    """Its header has the time at which it was set aside."""
    text = file.read_bytes().partition(b"\n\n")[2] or file.read_bytes().partition(b"\r\n\r\n")[2]
    return file.stem, f"{file.suffix} {_digest(text)}"


def _memory(file: Path) -> tuple[str, ...]:
    """Without the count of strangers' games, which may miss one whose game is safe, and without
    the notes of when a mail came or went, which may be missing and are of the run."""
    lines = (_content(file) or b"").decode(errors="replace").splitlines()
    return tuple(sorted(line for line in lines
                        if not line.startswith(("founded|", "arrived|", "departed|"))))


def _digest(content: bytes) -> str:
    return hashlib.sha256(content).hexdigest()


def _game_file(path: Path) -> GameFile:
    content = _content(path)
    games: dict[str, str] = {}
    doubled, torn, numbers = [], [], set()
    lines = (content or b"").decode(errors="replace").split("\r\n")
    if lines.pop():
        torn.append("the last line has no end")
    for line in lines:
        fields = line.split("|")
        if len(fields) < FIXED_FIELDS or (len(fields) - FIXED_FIELDS) % 4:
            torn.append(f"a line with {len(fields)} fields")
            continue
        if fields[NAME] in games or fields[NUMBER] in numbers:
            doubled.append(f"{fields[NAME]} or its number {fields[NUMBER]}")
        games[fields[NAME]] = line
        numbers.add(fields[NUMBER])
    return GameFile(content, games, tuple(doubled), tuple(torn))


def _settings(path: Path) -> dict[str, str]:
    values: dict[str, str] = {}
    section = ""
    for line in (_content(path) or b"").decode(errors="replace").splitlines():
        if line.startswith("["):
            section = line.strip("[]")
        elif "=" in line:
            key, value = line.split("=", 1)
            values[f"{section}/{key}"] = value
    return values


def _mails(root: Path) -> list[Mail]:
    """Of every box, also one that nobody reads."""
    mails = []
    for part in ("new", "cur"):
        for file in sorted(root.rglob(f"{part}/*")):
            box = str(file.parent.parent.relative_to(root))
            mails.append(_mail(box, file.read_bytes(), file.name.partition(":2,")[2]))
    return mails


def _mail(box: str, content: bytes, flags: str) -> Mail:
    text = content.decode(errors="replace")
    sender = re.search(r"^From:.*?<?([^<>\s]+@[^<>\s]+)>?\s*$", text, re.MULTILINE)
    carried = re.search(r"<<TARVOLENIX:(.*?):TARVOLENIX>>", text, re.DOTALL)
    fields = re.sub(r"=?\r?\n", "", carried[1]).split("|") if carried else []
    return Mail(box, _digest(content), sender[1] if sender else "",
                fields[3] if len(fields) > 3 else "", (len(fields) - 9) // 4, "S" in flags)
