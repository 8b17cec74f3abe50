#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""How mails wait: for an outgoing server that greylists, over cuts at the moments that matter, for
servers that are away or silent, from the console and while a window program runs.

A row of the table for each; exit 1 where a move didn't arrive once, or where what the program told
of a mail wasn't true."""

import argparse
import shutil
import sys
import tempfile
import time
from collections import Counter
from pathlib import Path

from agreement import compare
from mail_servers import MailServers, wait_until
from players import Player, end_tidily
from proxy import DOWN, UP, Proxy, Trouble
from scripted_server import ScriptedServers
from window_program import SETTINGS, WindowProgram, lay_out

WHOLE_GAME = ("6263", "5755", "7274", "4884")  # ends in a mate

# The program tries again after 30 s and then a minute, both a tenth longer at most; and a look that
# is under way when the servers are back has to end first.
LONGEST_WAIT = 40
LONGEST_SECOND_WAIT = 115


class Stage:
    """Anna is behind wires that can be cut, Bob is connected to the servers directly."""

    def __init__(self, folder, servers, program):
        self.servers = servers
        servers.empty()
        self.program = program
        self.imap, self.smtp = Proxy(servers.imap_port), Proxy(servers.smtp_port)
        self.wires = (self.imap, self.smtp)
        self.anna, self.bob = Player(folder, "anna"), Player(folder, "bob")
        for player in (self.anna, self.bob):
            (player.folder / "Tarvolenix.conf").write_text(SETTINGS)
        self.anna.set_account(self.imap.port, self.smtp.port)
        self.bob.set_account(servers.imap_port, servers.smtp_port)
        self.windows = []
        self.moves = self.sent_twice = 0
        self.faults = []

    def expect(self, what, found, wanted):
        if found != wanted:
            self.faults.append(f"{what}: {found!r} instead of {wanted!r}")

    def open_window(self, player):
        window = WindowProgram(player, self.program)
        self.windows.append(window)
        window.start()
        wait_until(lambda: self.looks(), LONGEST_WAIT, "the window program doesn't look")

    def looks(self):
        """It has been connected for some looks."""
        time.sleep(2)
        return all(window.is_running() for window in self.windows)

    def send(self, player, state, *words):
        """A move of the player's, and how its mail has to fare."""
        answer = player.console(*words, "--send")
        told = answer.lines[-1] if answer.lines else {}
        self.expect(f"{words[0]}, exit", answer.code, 0)
        self.expect(f"{words[0]}, state", told.get("state"), state)
        self.expect(f"{words[0]}, whether there is a reason", "reason" in told, state != "sent")
        self.expect_outbox(player, *([] if state == "sent" else [state]))
        self.moves += 1
        return told

    def found(self, player, state, name="One"):
        other = self.bob if player is self.anna else self.anna
        words = ("--name", name, "--opponent", other.name, "--email", other.address)
        return self.send(player, state, "new", *words, "--move", WHOLE_GAME[0])

    def outbox(self, player):
        """The states of what is on its way; a look at them tries nothing."""
        connection, *mails = player.done("mail", "status")
        states = [mail["state"] for mail in mails]
        self.expect("what waits", connection["waiting"] + connection["failed"], len(states))
        return states

    def expect_outbox(self, player, *states):
        self.expect("on its way", self.outbox(player), list(states))

    def deliver(self, player):
        states = {mail["state"] for mail in player.done("mail", "deliver")}
        self.expect("left by mail deliver", states - {"sent"}, set())
        self.expect_outbox(player)

    def arrives(self, within):
        """All that was sent so far comes to the servers by itself."""
        end = time.monotonic() + within
        while self.servers.accepted() < self.moves and time.monotonic() < end:
            time.sleep(0.2)
        self.expect("mails that have arrived", self.servers.accepted(), self.moves)

    def collects(self, player, within):
        """The player's window program takes all that has come for him."""
        end = time.monotonic() + within
        while self.servers.inbox(player.address) and time.monotonic() < end:
            time.sleep(0.2)
        self.expect("left in the Inbox", len(self.servers.inbox(player.address)), 0)

    def end(self):
        for window in self.windows:
            self.expect("the window program lives", window.is_running(), True)
            self.expect("the window program ends", window.stop(), True)
        self.servers.settle()
        self.expect("mails", self.servers.accepted(), self.moves + self.sent_twice)
        for player in (self.anna, self.bob):
            self.expect_outbox(player)
            player.done("retrieve")
            self.expect("left in the Inbox", len(self.servers.inbox(player.address)), 0)
        one, other = self.anna.games(), self.bob.games()
        self.faults += [f"{w}: {text}" for w, text in (*compare(one, other), *compare(other, one))]
        stored = sum(len(game.moves) for game in one.values())
        self.expect("moves that both have", stored, self.moves)

    def close(self):
        for window in self.windows:
            if window.is_running():
                window.kill()
        for wire in self.wires:
            wire.close()


def greylisted(stage):
    """A whole game, whose every mail is refused for now."""
    players = (stage.anna, stage.bob)
    for number, move in enumerate(WHOLE_GAME):
        player, other = players[number % 2], players[1 - number % 2]
        if number == 0:
            told = stage.found(player, "waiting")
        else:
            told = stage.send(player, "waiting", "move", "1", move)
        reason = told.get("reason", "")
        stage.expect("the server's sentence", "4.2.0 Greylisted, try again later" in reason, True)
        if stage.windows:
            stage.arrives(LONGEST_SECOND_WAIT + stage.servers.greylist.seconds)
            stage.collects(other, LONGEST_WAIT)
        else:
            player.done("mail", "deliver")
            stage.expect_outbox(player, "waiting")
            stage.servers.greylist.let_time_pass()
            stage.deliver(player)
            other.done("retrieve")


def greylisted_by_itself(stage):
    """The same for two minutes at a time, and nobody does anything but play."""
    for player in (stage.anna, stage.bob):
        stage.open_window(player)
    greylisted(stage)


def recorded(stage):
    """What a mail that meets no trouble says on its way."""
    stage.found(stage.anna, "sent", "Zero")
    return dict(stage.smtp.passed), dict(stage.imap.passed)


def meets(wire, kind, direction, byte):
    wire.begin(Trouble(kind, direction, byte))


def cut_behind_the_mail(stage):
    """The server has it, and its word gets lost: the mail goes again, as the same one."""
    said = recorded(stage)[0][DOWN]
    meets(stage.smtp, "cut", DOWN, said.index(b"\n", said.index(b"\n354 ") + 1) + 1)
    stage.found(stage.anna, "perhaps")
    stage.smtp.begin(None)
    stage.deliver(stage.anna)
    stage.sent_twice = 1
    mails = stage.servers.inbox(stage.bob.address)
    headers = [mail.partition(b"\n\n")[0].splitlines() for mail in mails]
    ids = Counter(line for lines in headers for line in lines if line.startswith(b"Message-ID:"))
    stage.expect("mails by their identifier", sorted(ids.values()), [1, 2])


def cut_at_the_logon(stage):
    smtp, imap = recorded(stage)
    meets(stage.smtp, "cut", UP, smtp[UP].index(b"AUTH") + 4)
    stage.found(stage.anna, "waiting", "One")
    stage.smtp.begin(None)
    stage.deliver(stage.anna)
    meets(stage.imap, "cut", UP, imap[UP].index(b"AUTH") + 4)
    stage.found(stage.anna, "sent", "Two")
    stage.expect("whether the logon was cut", stage.imap.happened, True)


def away_at_the_start(stage):
    """Also for those who only want to collect."""
    for wire in stage.wires:
        wire.go_away()
    stage.found(stage.anna, "waiting")
    stage.anna.console("retrieve")
    stage.expect_outbox(stage.anna, "waiting")
    stage.found(stage.bob, "sent", "Two")
    for wire in stage.wires:
        wire.come_back()
    stage.anna.done("retrieve")
    stage.expect("games", len(stage.anna.games()), 2)


def outgoing_away(stage):
    """Who can still collect doesn't knock at the other door with each look."""
    stage.smtp.refuses = True
    stage.found(stage.anna, "waiting")
    stage.open_window(stage.anna)  # tries it once more
    time.sleep(6)
    stage.expect("calls at the outgoing server", stage.smtp.calls, 2)
    stage.smtp.refuses = False
    stage.deliver(stage.anna)


def gap(stage, seconds, end, begin_again, within):
    stage.open_window(stage.anna)
    for wire in stage.wires:
        end(wire)
    stage.found(stage.bob, "sent", "Two")
    begun = time.monotonic()
    state = "waiting"
    stage.found(stage.anna, state)
    time.sleep(max(0, seconds - (time.monotonic() - begun)))
    for wire in stage.wires:
        begin_again(wire)
    stage.arrives(within)
    stage.collects(stage.anna, within)


def gap_of_7_s(stage):
    gap(stage, 7, Proxy.go_away, Proxy.come_back, LONGEST_WAIT)


def gap_of_a_minute(stage):
    gap(stage, 60, Proxy.go_away, Proxy.come_back, LONGEST_SECOND_WAIT)


def silence_of_a_minute(stage):
    gap(stage, 60, Proxy.fall_silent, Proxy.speak_again, LONGEST_SECOND_WAIT)


# Each with the time for which mails are greylisted; None: over real servers.
SHORT = {greylisted: 3600.0, cut_behind_the_mail: None, cut_at_the_logon: None}
SHORT |= {away_at_the_start: None, outgoing_away: None, gap_of_7_s: None}
LONG = {gap_of_a_minute: None, silence_of_a_minute: None, greylisted_by_itself: 120.0}


def options():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--short", action="store_true", help="without the rows that take minutes")
    parser.add_argument("--only", metavar="ROW", default="")
    return parser.parse_args()


def attempt(row, folder, servers, program):
    """One row; answers its faults."""
    stage = Stage(folder, servers, program)
    try:
        row(stage)
        stage.end()
    except Exception as error:
        stage.faults.append(repr(error))
    finally:
        stage.close()
    return stage


def main():
    arguments = options()
    rows = SHORT if arguments.short else SHORT | LONG
    rows = {r: s for r, s in rows.items() if arguments.only in ("", r.__name__)}
    folder = Path(tempfile.mkdtemp(prefix="gaps-"))
    folder.chmod(0o755)
    end_tidily()
    lay_out(folder / "program")
    real = MailServers(folder)
    print("| row | moves | seconds | faults |\n|---|---|---|---|", flush=True)
    faults = 0
    try:
        for row, greylisted_for in rows.items():
            begun = time.monotonic()
            servers = ScriptedServers(greylisted_for) if greylisted_for else real
            place = folder / row.__name__
            place.mkdir()
            stage = attempt(row, place, servers, folder / "program")
            seconds = time.monotonic() - begun
            print(f"| {row.__name__.replace('_', ' ')} | {stage.moves} | {seconds:.0f} |"
                  f" {len(stage.faults)} |", flush=True)
            print(*(f"  {fault}\n" for fault in stage.faults), sep="", end="", file=sys.stderr)
            faults += len(stage.faults)
    finally:
        real.close()
    if faults:
        print(f"All of it lies in {folder}.", file=sys.stderr)
    else:
        shutil.rmtree(folder, ignore_errors=True)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
