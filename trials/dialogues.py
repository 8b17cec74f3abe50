# SPDX-License-Identifier: GPL-3.0-or-later
"""The dialogues that are cut, and who is right about them afterwards: the mailboxes, the game files
and what the program has told have to fit together."""

import re

from proxy import DOWN, GARBLING, UP, Proxy
from players import DamagedStore, Player

FAULTS = ("lost", "doubled", "torn", "untrue", "silent", "stuck", "hung", "crashed")

# No faults, but told apart: a mail that may or may not have gone off, and one whose very text was
# changed on its way, which nobody can see.
NOTES = ("perhaps", "altered")

FIRST, SECOND, THIRD = "5254", "5755", "7163"
COMMENT = "Grüße, and good luck!"

OTHERS = [
    b"From: shop@example.com\r\nSubject: Offer\r\n\r\nBuy!\r\n",
    b"From: shop@example.com\r\nSubject: Tarvolenix is fun\r\n\r\nBuy!\r\n",
]

PATIENCE = 120


class Scene:
    """Two players between two moves. Anna's game "One" has come to her third move, and she founds
    another game, "Two"; all that she does can be done again and again."""

    def __init__(self, folder, servers):
        self.servers = servers
        self.imap = Proxy(servers.imap_port)
        self.smtp = Proxy(servers.smtp_port)
        self.anna = Player(folder, "anna")
        self.bob = Player(folder, "bob")
        self.kept = folder
        for player in (self.anna, self.bob):
            player.set_account(self.imap.port, self.smtp.port)
        self.play()
        self.dialogues = {d.name: d(self) for d in (Retrieve, Send, Move)}

    def play(self):
        anna, bob = self.anna, self.bob
        self.servers.empty()
        self.found("One", FIRST)
        self.servers.settle()
        bob.done("retrieve")
        bob.done("move", 1, SECOND, "--send")
        self.servers.settle()
        anna.done("retrieve")
        self.keep("her-turn", anna)
        self.keep("his-wait", bob)
        anna.done("move", 1, THIRD, "--comment", COMMENT)
        self.keep("unsent", anna)
        anna.done("send", 1)
        self.found("Two", FIRST)
        self.servers.settle()
        waiting = self.servers.inbox(bob.address)  # in no order that is known
        self.mails = {
            name: next(mail for mail in waiting if f"\n{name}|".encode() in mail)
            for name in ("One", "Two")
        }

    def found(self, name, move):
        words = ("--name", name, "--opponent", "Bob", "--email", self.bob.address)
        self.anna.done("new", *words, "--move", move, "--comment", COMMENT, "--send")

    def keep(self, name, player):
        player.keep_data(f"{self.kept}/{name}")

    def restore(self, name, player):
        player.restore_data(f"{self.kept}/{name}")

    def streams(self):
        return [(self.imap, UP), (self.imap, DOWN), (self.smtp, UP), (self.smtp, DOWN)]

    def begin(self, proxy=None, trouble=None):
        for each in (self.imap, self.smtp):
            each.begin(trouble if each is proxy else None)


class Dialogue:
    def __init__(self, scene):
        self.scene = scene
        self.prepare()
        scene.begin()
        answer = self.run()
        if not answer.ok:
            raise RuntimeError(f"{self.name} fails without trouble: {answer.error}")
        self.recorded = [proxy.passed[way] for proxy, way in scene.streams()]
        self.lengths = [len(recorded) for recorded in self.recorded]
        self.after = contents(self.player().games())
        self.prepare()
        self.before = contents(self.player().games())

    def stream_of(self, place):
        """A place is a byte of the four streams, one behind the other."""
        for stream, length in zip(range(4), self.lengths):
            if place < length:
                return stream, place
            place -= length
        raise ValueError("There is no such place.")

    def faults(self, answer, trouble):
        """(word, sentence) for each, but what follows has to tell."""
        if answer.code is None:
            yield "hung", f"no end after {PATIENCE} s"
        elif answer.code < 0:
            yield "crashed", f"signal {-answer.code}"
        elif answer.code > 0 and len(answer.error.strip().splitlines()) != 1:
            yield "silent", f"exit {answer.code} with {answer.error!r}"
        if trouble.kind == "delay" and not answer.ok:
            yield "stuck", f"a delay alone made it fail: {answer.error}"
        try:
            yield from self.judge(answer, trouble)
            self.scene.begin()
            yield from self.follow(answer, trouble)
        except DamagedStore as damage:
            yield "torn", str(damage)


def contents(games):
    """What has to be the same whoever wrote it when: not the numbers, which follow the order in
    which games were found."""
    return sorted((g.name, g.stamp, g.start_board, g.moves) for g in games.values())


def message_id(mail):
    return re.search(rb"^Message-ID: *(\S+)", mail, re.MULTILINE | re.IGNORECASE)[1]


class Retrieve(Dialogue):
    name = "retrieve"

    def player(self):
        return self.scene.bob

    def prepare(self):
        self.scene.restore("his-wait", self.scene.bob)
        self.scene.servers.empty()
        for mail in [*OTHERS, *self.scene.mails.values()]:
            self.scene.servers.put(self.scene.bob.address, mail)

    def run(self):
        return self.scene.bob.console("retrieve", patience=PATIENCE)

    def find_altered(self, trouble):
        """The game whose mail has come with a wrong byte within its text; blank where none has."""
        if trouble.kind not in GARBLING or trouble.direction != DOWN:
            return ""
        came = self.scene.imap.passed[DOWN]
        for name, mail in self.scene.mails.items():
            mail = mail.replace(b"\r\n", b"\n").replace(b"\n", b"\r\n")  # as it travels
            half = len(mail) // 2
            if mail not in came and (mail[:half] in came or mail[half:] in came):
                return name
        return ""

    def stored(self, games):
        """The games that have all of the mails' moves."""
        return [game[0] for game in games if game in self.after and game not in self.before]

    def judge(self, answer, trouble):
        self.altered = self.find_altered(trouble)
        games = contents(self.scene.bob.games())
        stored = self.stored(games)
        told = sum(bool(line.get("ok") and line.get("changed")) for line in answer.lines)
        if self.altered:
            yield "altered", self.altered
        if told > len(stored) + bool(self.altered):
            yield "untrue", f"told {answer.lines}, but has {stored}"
        if answer.ok and len(stored) < 2 and trouble.kind not in GARBLING:
            yield "untrue", f"told of no failure, but has {stored}"
        yield from self.losses(games)

    def losses(self, games):
        inbox = self.scene.servers.inbox(self.scene.bob.address)
        stored = self.stored(games)
        for name, mail in self.scene.mails.items():
            if mail not in inbox and name not in stored and name != self.altered:
                yield "lost", f"the mail of {name} is gone"
        for other in OTHERS:
            if other not in inbox:
                yield "lost", "another's mail is gone"
        # Where its stamp was changed a mail tells of a game that nobody has yet.
        known = {(name, stamp) for name, stamp, *_ in games}
        if len(known) < len(games) or (len(games) > 2 and not self.altered):
            yield "doubled", str(known)
        for game in games:
            if not self.altered and game not in self.before + self.after:
                yield "torn", str(game)

    def follow(self, answer, trouble):
        # A mail that was changed so that it can't be read counts as read from then on.
        words = ["--all"] if self.altered else []
        again = self.scene.bob.console("retrieve", *words, patience=PATIENCE)
        if not again.ok and not self.altered:
            yield "stuck", f"the next one fails: {again.error}"
        games = contents(self.scene.bob.games())
        yield from self.losses(games)
        missing = {*self.scene.mails} - set(self.stored(games)) - {self.altered}
        if missing:
            yield "lost", f"the next one doesn't bring {missing}"
        inbox = self.scene.servers.inbox(self.scene.bob.address)
        if not self.altered and any(mail in inbox for mail in self.scene.mails.values()):
            yield "stuck", "a mail stays in the Inbox"


class Sending(Dialogue):
    """Anna's move goes off, or it doesn't."""

    def player(self):
        return self.scene.anna

    def prepare(self):
        self.scene.restore(self.state, self.scene.anna)
        self.scene.servers.empty()

    def fate_told(self, answer):
        return answer.lines[-1].get("state") if answer.ok and answer.lines else None

    def told_sent(self, answer):
        return self.fate_told(answer) == "sent"

    def was_answered(self):
        """Whether the program got the server's word, whole, that it has taken the mail over."""
        said = self.scene.smtp.passed[DOWN].partition(b"\n354")[2].split(b"\n")
        return len(said) > 2 and said[1].startswith(b"250 ") and said[1].endswith(b"\r")

    def judge(self, answer, trouble):
        accepted = self.scene.servers.accepted()
        told = self.told_sent(answer)
        games = contents(self.scene.anna.games())
        if told and not accepted:
            yield "untrue", "told sent, but no server has it"
        if not told and accepted and self.was_answered():
            yield "untrue", f"told not sent, but the server has said that it is: {answer}"
        if not told and accepted and not self.was_answered():
            yield "perhaps", ""
            if trouble.kind not in GARBLING and self.fate_told(answer) != "perhaps":
                yield "untrue", f"told of no doubt: {answer}"
        if accepted > 1:
            yield "doubled", f"{accepted} mails"
        if games not in (self.before, self.after):
            yield "torn", str(games)
        if (told or accepted) and games != self.after:
            yield "lost", "the move has gone off, but isn't stored"

    def follow(self, answer, trouble):
        accepted = self.scene.servers.accepted()
        altered = accepted and trouble.kind in GARBLING
        if self.fate_told(answer) in ("waiting", "perhaps"):
            left = self.scene.anna.console("mail", "deliver", patience=PATIENCE)
            if not left.ok or any(mail["state"] != "sent" for mail in left.lines):
                yield "stuck", f"it doesn't leave afterwards: {left}"
        elif not self.told_sent(answer):
            stored = contents(self.scene.anna.games()) == self.after
            again = self.again() if stored else self.run()
            if not self.told_sent(again):
                yield "stuck", f"it can't be sent afterwards: {again}"
        self.scene.servers.settle()
        received = self.scene.servers.inbox(self.scene.bob.address)
        if len(received) > max(1, accepted + (not self.told_sent(answer))):
            yield "doubled", f"{len(received)} mails"
        if self.fate_told(answer) == "perhaps" and len({*map(message_id, received)}) > 1:
            yield "doubled", "one mail has two identifiers"
        self.scene.restore("his-wait", self.scene.bob)
        arrived = self.scene.bob.console("retrieve", patience=PATIENCE)
        games = contents(self.scene.bob.games())
        one = [game for game in self.after if game[0] == "One"]
        if games != one or not arrived.ok:
            if altered:
                yield "altered", ""
            else:
                yield "lost", f"the opponent has {games}, {arrived.error}"

    def again(self):
        return self.scene.anna.console("send", 1, patience=PATIENCE)


class Send(Sending):
    name = "send"
    state = "unsent"

    def run(self):
        return self.again()


class Move(Sending):
    name = "move"
    state = "her-turn"

    def run(self):
        words = ("move", 1, THIRD, "--comment", COMMENT, "--send")
        return self.scene.anna.console(*words, patience=PATIENCE)
