#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Two players play many games at once over real mail servers, while programs are killed, connections
cut and servers started anew. Afterwards both must have the same games.

Prints a row of a table; exit 1 where anything was lost, doubled or went astray, or the program that
ran all the time has grown."""

import argparse
import random
import shutil
import sys
import tempfile
import time
from collections import Counter
from pathlib import Path

from agreement import compare, missing_from
from mail_servers import MailServers
from players import Player, end_tidily
from proxy import Proxy
from soak_side import Side
from window_program import SETTINGS, WindowProgram, lay_out

FAULTS = ("lost", "doubled", "astray", "torn", "hung", "crashed", "grown")

# What the process that ran longest may have gained: the games grow too.
MEMORY_MARGIN = 8 * 1024  # KB
HANDLES_MARGIN = 4

# A mail that lies so long while a window program runs says that it no longer looks.
LONGEST_SLEEP = 8  # seconds

# Of the time. Until the first one the process that is watched lives on.
RESTARTS_AT = (0.7, 0.8, 0.9)
MOST_QUIET_ROUNDS = 12
TOLD = 20


def options():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--games", type=int, default=500)
    parser.add_argument("--minutes", type=float, default=20)
    parser.add_argument("--seed", type=int, default=None)
    parser.add_argument("--short", action="store_true", help="20 games in half a minute")
    arguments = parser.parse_args()
    if arguments.short:
        arguments.games, arguments.minutes = 20, 0.25
    if arguments.seed is None:
        arguments.seed = random.randrange(10**6)
    return arguments


class Soak:
    """Anna is connected to the servers directly, and her window program is left alone as long as
    they run, so that it shows what a long life does. All the bad luck is Bob's."""

    def __init__(self, folder, arguments):
        self.seconds = 60 * arguments.minutes
        self.is_short = arguments.short
        self.restarts_at = RESTARTS_AT[:1] if arguments.short else RESTARTS_AT
        self.servers = MailServers(folder)
        self.wires = [Proxy(self.servers.imap_port), Proxy(self.servers.smtp_port)]
        self.chance = random.Random(arguments.seed)
        self.counts = Counter()
        self.faults = []
        program = folder / "program"
        lay_out(program)
        anna, bob = Player(folder, "anna"), Player(folder, "bob")
        for player in (anna, bob):
            (player.folder / "Tarvolenix.conf").write_text(SETTINGS)
        anna.set_account(self.servers.imap_port, self.servers.smtp_port)
        bob.set_account(*(wire.port for wire in self.wires))
        self.windows = [WindowProgram(player, program) for player in (anna, bob)]
        quotas = (arguments.games - arguments.games // 2, arguments.games // 2)
        self.sides = [
            Side(anna, bob, quotas[0], arguments.seed + 1),
            Side(bob, anna, quotas[1], arguments.seed + 2),
        ]

    def start_window(self, window):
        """What a killed program has left of its logon is settled by hand first."""
        window.player.console("retrieve")
        window.start()

    def run(self):
        for window in self.windows:
            self.start_window(window)
        for side in self.sides:
            side.start()
        begun = time.monotonic()
        restarts = [begun + part * self.seconds for part in self.restarts_at]
        next_kill = next_cut = begun + self.chance.uniform(2, 6)
        while time.monotonic() < begun + self.seconds:
            time.sleep(0.5)
            now = time.monotonic()
            for window in self.windows:
                window.sample()
            if now > next_cut:
                next_cut = now + self.chance.uniform(1, 6)
                self.counts["cuts"] += sum(wire.cut_all() for wire in self.wires)
            if now > next_kill:
                next_kill = now + self.chance.uniform(5, 25)
                self.kill_window(self.windows[1])
            if restarts and now > restarts[0]:
                restarts.pop(0)
                self.servers.restart()
                self.counts["restarts"] += 1
            self.wake_sleepers()

    def kill_window(self, window):
        if window.is_running():
            window.kill()
            self.counts["kills"] += 1
        self.start_window(window)

    def wake_sleepers(self):
        for window in self.windows:
            if not window.is_running():
                self.faults.append(("crashed", f"the window program of {window.player.name}"))
                self.start_window(window)
            age = time.time() - self.servers.oldest(window.player.address)
            if age > LONGEST_SLEEP and time.monotonic() - window.started > LONGEST_SLEEP:
                self.counts["woken"] += 1
                self.stop_window(window)
                self.start_window(window)

    def stop_window(self, window):
        if not window.stop():
            self.faults.append(("hung", f"{window.player.name}'s window program doesn't end"))

    def end(self):
        for side in self.sides:
            side.finish()
        for window in self.windows:
            self.stop_window(window)
        for _ in range(MOST_QUIET_ROUNDS):
            self.servers.settle()
            if not any([side.settle() for side in self.sides]):
                break
        else:
            self.faults.append(("astray", "it doesn't become quiet"))
        self.judge()

    def judge(self):
        for side in self.sides:
            self.faults += side.faults
            address = side.player.address
            if left := self.servers.files(address):
                self.faults.append(("astray", f"{len(left)} mails stay in the Inbox of {address}"))
            self.counts["litter"] += len(self.servers.files(address, deleted=True))
            self.look_at_all(side.player)
        one, other = (side.player.games() for side in self.sides)
        self.faults += [*compare(one, other), *compare(other, one)]
        for side, games in zip(self.sides, (one, other)):
            self.faults += missing_from(games, side.played)
        self.counts["games"] = len(one)
        self.counts["moves"] = sum(len(game.moves) for game in one.values())
        self.judge_growth()

    def look_at_all(self, player):
        """The program itself has to be able to list and to open what is stored."""
        games = player.games()
        if len(player.done("games")) != len(games):
            self.faults.append(("torn", f"not all games of {player.name} are listed"))
        for number, game in games.items():
            shown = player.console("show", number)
            if not shown.ok or shown.lines[0]["moves"] != len(game.moves):
                self.faults.append(("torn", f"game {number} of {player.name}: {shown}"))

    def judge_growth(self):
        life = self.windows[0].longest_life()
        self.growth = self.windows[0].growth(max(5, life[-1][0] / 4))
        if not self.growth:
            if not self.is_short:  # by whose end a slow machine has only begun
                self.faults.append(("grown", "no process lived long enough to tell"))
            return
        before, after, handles_before, handles_after = self.growth
        if after - before > MEMORY_MARGIN or handles_after - handles_before > HANDLES_MARGIN:
            self.faults.append(("grown", f"{self.growth} in {life[-1][0]:.0f} s"))

    def print_row(self):
        counts = self.counts
        counts["kills"] += sum(side.kills for side in self.sides)
        counts["failures"] = sum(side.failures for side in self.sides)
        found = Counter(word for word, _ in self.faults)
        memory = "{} / {} KB".format(*self.growth[:2]) if self.growth else "?"
        handles = "{} / {}".format(*self.growth[2:]) if self.growth else "?"
        row = {
            **{w: counts[w] for w in ("games", "moves", "kills", "cuts", "restarts", "woken")},
            "refused or failed": counts["failures"],
            "marked as deleted and left": counts["litter"],
            **{word: found[word] for word in FAULTS[:-1]},
            "memory at start/end": memory,
            "handles at start/end": handles,
        }
        print("|", " | ".join(row), "|")
        print("|---" * len(row) + "|")
        print("|", " | ".join(map(str, row.values())), "|")
        for word, text in self.faults[:TOLD]:
            print(f"{word}: {text}", file=sys.stderr)

    def close(self):
        for window in self.windows:
            if window.is_running():
                window.kill()
        for wire in self.wires:
            wire.close()
        self.servers.close()


def main():
    arguments = options()
    print(f"Seed {arguments.seed}.", flush=True)
    folder = Path(tempfile.mkdtemp(prefix="soak-"))
    folder.chmod(0o755)
    soak = None
    end_tidily()
    try:
        soak = Soak(folder, arguments)
        soak.run()
        soak.end()
        soak.print_row()
        faultless = not soak.faults
    finally:
        if soak:
            soak.close()
    if faultless:
        shutil.rmtree(folder, ignore_errors=True)
        return 0
    print(f"All of it lies in {folder}.", file=sys.stderr)
    return 1


if __name__ == "__main__":
    sys.exit(main())
