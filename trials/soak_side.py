# SPDX-License-Identifier: GPL-3.0-or-later
"""One of the two who play: founds games, answers moves, and is killed now and then."""

import json
import random
import threading
import time

from players import MOVE_WAITING, DamagedStore

COMMENTS = [
    "Good luck!", "Grüße aus Köln", "§ ¶ ½ ♞ 将棋", "A=B; C \"quoted\" & <b>bold</b>", "100 %s %d",
    ".", "From here on it is hard", "w" * 200, "Ω" * 200, " leading and trailing ", "--", "=3D=0A",
]
FIRST_MOVES = ("5254", "4244", "7163", "3234", "2133", "6264", "2223", "7273")
ENTRIES_WITHOUT_MOVE = {"Draw offer", "Decline"}

LONGEST_GAME = 60  # entries
KILLED = 0.06  # of what the console is asked to do
COMMENTED = 0.4
OFFERED = 0.01
SURRENDERED = 0.004
ACCEPTED = 0.3


class LegalMoves:
    """A console that is asked for the legal moves again and again."""

    def __init__(self, player):
        self.process = player.start("legal")

    def after(self, moves):
        entries = [m for m in moves if m[2] not in ENTRIES_WITHOUT_MOVE]
        line = "moves=" + " ".join(coordinates(move) for move in entries) + "\n"
        self.process.stdin.write(line.encode())
        self.process.stdin.flush()
        return json.loads(self.process.stdout.readline())["moves"]

    def close(self):
        self.process.stdin.close()
        self.process.wait(10)


def coordinates(move):
    """As the console takes them: a promotion has its letter in the text alone."""
    _, squares, text, _ = move
    return squares + (text[text.index("=") :][:2] if "=" in text else "")


class Side(threading.Thread):
    def __init__(self, player, opponent, quota, seed):
        super().__init__(daemon=True)
        self.player = player
        self.opponent = opponent
        self.quota = quota
        self.chance = random.Random(seed)
        self.legal = LegalMoves(player)
        self.stopping = threading.Event()
        self.sent = {}  # game: how many moves the program has told to be sent
        self.played = []  # what it has told to be saved
        self.kills = self.failures = 0
        self.faults = []
        self.usual = 0.1  # seconds that a command takes
        self.resting = set()
        self.next_retrieval = 0

    def run(self):
        while not self.stopping.is_set():
            try:
                if not self.step():
                    time.sleep(0.05)
            except DamagedStore as damage:
                self.faults.append(("torn", str(damage)))
                return
            except Exception as error:  # the driver's own
                self.faults.append(("astray", f"{self.player.name}'s driver: {error!r}"))
                return

    def finish(self):
        self.stopping.set()
        self.join(150)
        if self.is_alive():
            self.faults.append(("hung", f"{self.player.name}'s console doesn't end"))
        self.legal.close()

    def step(self):
        """Does one thing. False where there was nothing to do."""
        games = self.player.games()
        unsent = [game for game in games.values() if self.needs_sending(game)]
        waiting = [g for g in games.values() if g.status == MOVE_WAITING and self.can_go_on(g)]
        founded = sum(game.is_host for game in games.values())
        if time.monotonic() > self.next_retrieval:
            self.next_retrieval = time.monotonic() + self.chance.uniform(2, 12)
            self.retrieve()
        elif unsent:
            self.send(self.chance.choice(unsent))
        elif founded < self.quota and (not waiting or self.chance.random() < 0.6):
            self.found(founded)
        elif waiting:
            self.answer(self.chance.choice(waiting))
        else:
            return False
        return True

    def needs_sending(self, game):
        return not game.is_mine_to_move() and self.sent.get(game.id, 0) < len(game.moves)

    def can_go_on(self, game):
        is_long = len(game.moves) >= LONGEST_GAME
        return not (is_long or game.is_over() or game.id in self.resting)

    def console(self, *words):
        """May be killed on purpose."""
        killed = self.chance.random() < KILLED
        kill_after = self.chance.uniform(0.001, 1.3 * self.usual) if killed else None
        begun = time.monotonic()
        answer = self.player.console(*words, kill_after=kill_after)
        if answer.code is None:
            self.faults.append(("hung", " ".join(map(str, words))))
        elif answer.code == -9 and killed:
            self.kills += 1
        elif answer.code < 0:
            self.faults.append(("crashed", f"{words}: signal {-answer.code}"))
        else:
            self.usual += 0.1 * (time.monotonic() - begun - self.usual)
            self.failures += answer.code != 0
        return answer

    def retrieve(self):
        self.take_note_of_held(self.console("retrieve"))

    def take_note_of_held(self, answer):
        for line in answer.lines:
            if "held" in line or line.get("ok") is False:
                self.faults.append(("astray", f"{self.player.name}: {line}"))

    def comment(self):
        if self.chance.random() > COMMENTED:
            return ()
        return ("--comment", self.chance.choice(COMMENTS))

    def was_sent(self, answer):
        return answer.ok and bool(answer.lines) and answer.lines[-1].get("state", "sent") == "sent"

    def send(self, game):
        if self.was_sent(self.console("send", game.id)):
            self.sent[game.id] = len(game.moves)

    def found(self, founded):
        comment = self.comment()
        words = ["--name", f"{self.player.name} {founded + 1}", "--opponent", self.opponent.name]
        words += ["--email", self.opponent.address, "--move", self.chance.choice(FIRST_MOVES)]
        self.note(1, comment, self.console("new", *words, *comment, "--send"))

    def answer(self, game):
        entry = self.entry(game)
        if not entry:
            self.resting.add(game.id)
            return
        comment = self.comment()
        answer = self.console("move", game.id, entry, *comment, "--send")
        self.note(len(game.moves) + 1, comment, answer)

    def entry(self, game):
        chance = self.chance.random()
        if game.moves[-1][2] == "Draw offer":
            return "accept" if chance < ACCEPTED else "decline"
        if chance < OFFERED:
            return "offer"
        if chance < OFFERED + SURRENDERED:
            return "surrender"
        legal = self.legal.after(game.moves)
        return self.chance.choice(legal) if legal else None

    def note(self, index, comment, answer):
        """What the console has told before it ended, or was ended."""
        line = answer.lines[0] if answer.lines else {}
        if line.get("ok") is False and "text" not in line:
            self.faults.append(("astray", f"{self.player.name}'s legal move is refused: {answer}"))
        if "text" not in line:
            return
        number = line["game"]
        self.played.append((number, index, line["text"], comment[1] if comment else ""))
        if self.was_sent(answer):
            self.sent[number] = index

    def settle(self):
        """A quiet round: collects, and sends what wasn't told to be sent. False where there was
        nothing of it."""
        answer = self.player.console("retrieve")
        self.take_note_of_held(answer)
        busy = any("game" in line for line in answer.lines) or not answer.ok
        for game in self.player.games().values():
            if self.needs_sending(game):
                busy = True
                if self.was_sent(self.player.console("send", game.id)):
                    self.sent[game.id] = len(game.moves)
        return busy
