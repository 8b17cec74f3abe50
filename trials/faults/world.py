# SPDX-License-Identifier: GPL-3.0-or-later
"""Two players in a folder of their own, who write to each other by the local post office."""

import json
import os
import shutil
import subprocess
from dataclasses import dataclass
from pathlib import Path

PLAYERS = ("anna", "bob")
LONGEST_RUN = 10  # seconds; one that takes longer hangs

# Each has played before, so that a game that is overwritten is seen to be gone.
OLD_GAMES = {
    "anna": "1|060120261930|4|Winter|06/01/2026|dora@example.org|||-1|Dora|3|0||"
            "1|5254|e4||2|5755|e5||3|7163|Nf3|\r\n",
    "bob": "1|060220261930|7|Snow|06/02/2026|carl@example.org|Carl||0|Carl|3|0||"
           "1|6263|f3||2|5755|e5||3|7274|g4||4|4884|Qh4++|\r\n",
}

FOREIGN_MAIL = b"From: Dora <dora@example.org>\nTo: bob@example.org\nSubject: Tea?\n\nOn Sunday.\n"


@dataclass(frozen=True)
class Tools:
    console: Path
    shim: Path
    program: Path  # the installed program; the window program's parts lie beside it


@dataclass(frozen=True)
class Told:
    """What a run said, and how it ended: an exit code, or the negative signal that ended it."""

    code: int
    answers: list[dict]
    error: str
    hung: bool = False
    garbled: bool = False


class World:
    def __init__(self, root: Path, tools: Tools):
        self.root = root
        self.tools = tools

    def create(self) -> None:
        for player in PLAYERS:
            data = self.root / player / "Data"
            data.mkdir(parents=True)
            (self.root / player / "AI Files").mkdir()
            (data / "Tvgdb.dat").write_bytes(OLD_GAMES[player].encode())
            (self.root / player / "Tarvolenix.conf").write_text(
                "[General]\nDisplaySplash=False\nLogonStatus=False\nRunBefore=True\n"
                "CheckInterval=500\nSystrayStartup=False\n\n"
                f"[Mail]\nMailKind=Post\nMyAddress={player}@example.org\n"
                f"MyName={player.title()}\nPostFolder=../post/\n")
            self.tell(player, "retrieve")  # makes the boxes
        (self.root / "post/bob@example.org/new/1.M1P1.dora").write_bytes(FOREIGN_MAIL)

    def verbs(self) -> str:
        """The program's own list of what it can be told."""
        return subprocess.run([str(self.tools.console), "--help"], capture_output=True, text=True,
                              check=True).stdout

    def copy_to(self, root: Path) -> "World":
        shutil.copytree(self.root, root, symlinks=True)
        return World(root, self.tools)

    def remove(self) -> None:
        shutil.rmtree(self.root, ignore_errors=True)

    def environment(self, orders: dict[str, str]) -> dict[str, str]:
        """A user's who has nothing else; with `orders` the shim stands in front of the system."""
        home = self.root / "home"
        environment = {"PATH": os.environ["PATH"], "HOME": str(home), "LANG": "C.UTF-8",
                       "DBUS_SESSION_BUS_ADDRESS": "disabled:", "QT_QPA_PLATFORM": "offscreen"}
        if orders:
            environment |= {"LD_PRELOAD": str(self.tools.shim), "FAULT_BELOW": f"{self.root}/",
                            "FAULT_TRACE": f"{self.root}.trace"} | orders
        return environment

    def trace(self) -> Path:
        return Path(f"{self.root}.trace")

    def fault_took_place(self) -> bool:
        trace = self.trace()
        return trace.exists() and any(line.endswith(" !")
                                      for line in trace.read_text(errors="replace").splitlines())

    def tell(self, player: str, *arguments: str, orders: dict[str, str] | None = None) -> Told:
        """Runs the console program; "<TEXT" as the last argument is its input."""
        typed = arguments[-1][1:] + "\n" if arguments[-1].startswith("<") else ""
        words = [word for word in arguments if not word.startswith("<")]
        command = [str(self.tools.console), "--folder", player, *words]
        try:
            ended = subprocess.run(command, cwd=self.root, env=self.environment(orders or {}),
                                   input=typed, capture_output=True, text=True, errors="replace",
                                   timeout=LONGEST_RUN)
        except subprocess.TimeoutExpired:
            return Told(0, [], "", hung=True)
        answers, garbled = _read_answers(ended.stdout)
        return Told(ended.returncode, answers, ended.stderr.strip(), garbled=garbled)


def _read_answers(output: str) -> tuple[list[dict], bool]:
    try:
        return [json.loads(line) for line in output.splitlines()], False
    except ValueError:
        return [], True
