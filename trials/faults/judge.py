# SPDX-License-Identifier: GPL-3.0-or-later
"""What a fault has done: whether the files are whole, and whether the program told the truth."""

from collections import Counter
from dataclasses import dataclass, field

import snapshot
from scenarios import Scenario
from snapshot import GameFile, Player, Snapshot, move_count, without_run
from world import Told, World

# The columns of the table, each a kind of harm.
HARMS = {
    "lost": "a game, a move, a mail or an account is gone, torn or not seen any more",
    "doubled": "something is there twice",
    "astray": "a mail lies where nobody reads it, or names a sender whom nobody reaches",
    "untrue": "told done, and it isn't; or told failed, and it is done",
    "silent": "not done, and no sentence says so",
    "stuck": "hung, crashed, or the next run without faults doesn't get on",
}

# The guard of the logon, which stands while one is under way.
VOLATILE = {"General/LogonStatus"}


@dataclass(frozen=True)
class Finding:
    harm: str
    text: str


@dataclass(frozen=True)
class Reference:
    """The same without a fault: before it, behind it, and when the opponent has his mail."""

    before: Snapshot
    after: Snapshot
    end: Snapshot


@dataclass
class Judge:
    scenario: Scenario
    reference: Reference
    world: World
    findings: list[Finding] = field(default_factory=list)

    def judge(self, told: Told, killed: bool) -> list[Finding]:
        now = snapshot.take(self.world)
        self._look_at_files(now)
        self._look_at_mails(now)
        if not killed:
            self._weigh_end(told)
        if not killed and not self.scenario.window:
            self._weigh_words(told, now)
        # Behind a loss the rest only tells of the same once more.
        if not any(finding.harm in ("lost", "doubled") for finding in self.findings):
            self._go_on(told, killed, now)
        return self.findings

    def _find(self, harm: str, text: str) -> None:
        self.findings.append(Finding(harm, text))

    # The files

    def _look_at_files(self, now: Snapshot) -> None:
        name = self.scenario.player
        before, after = self.reference.before.players[name], self.reference.after.players[name]
        player = now.players[name]
        self._look_at_games(player.games, before, after)
        self._look_at_backup(player.backup, before, after)
        self._look_at_settings(player, before, after)
        self._look_at_held_mails(player, before, after)
        if self.scenario.damage and before.games.content not in player.contents:
            self._find("lost", "the damaged game file isn't kept")
        for file, content in player.exports.items():
            if content not in (*before.exports.values(), *after.exports.values()):
                self._find("lost", f"{file} is torn")
        opponent = self.scenario.opponent
        if now.players[opponent] != self.reference.before.players[opponent]:
            self._find("lost", f"{opponent}'s files have changed")

    def _look_at_games(self, now: GameFile, before: Player, after: Player) -> None:
        if now.torn and not before.games.torn:
            self._find("lost", f"the game file is torn: {now.torn[0]}")
        if now.doubled:
            self._find("doubled", f"in the game file: {now.doubled[0]}")
        for name in sorted(now.games.keys() | before.games.games.keys() | after.games.games.keys()):
            if not _is_one_of(name, now, before.games, after.games):
                what = "stands otherwise than before and behind" if name in now.games else "is gone"
                self._find("lost", f"the game {name} {what}")

    def _look_at_backup(self, now: GameFile, before: Player, after: Player) -> None:
        if now.torn and not before.backup.torn and not before.games.torn:
            self._find("lost", f"the backup is torn: {now.torn[0]}")
        if before.backup.content and not now.content:
            self._find("lost", "the backup is emptied")
        for name in now.games:
            if not _is_one_of(name, now, before.backup, before.games, after.games, after.backup):
                self._find("lost", f"the game {name} of the backup was never so")

    def _look_at_settings(self, now: Player, before: Player, after: Player) -> None:
        gone = [key for key in before.settings if key not in now.settings]
        changed = [key for key in before.settings.keys() - VOLATILE - set(gone)
                   if now.settings[key] not in (before.settings[key], after.settings[key])]
        if gone or changed:
            what = f"{', '.join(sorted(gone + changed))} {'are gone' if gone else 'have changed'}"
            self._find("lost", f"of the settings {what}")
        elif now.account() not in (before.account(), after.account()):
            self._find("lost", "the account is neither the old nor the new one")
        if now.passwords not in (before.passwords, after.passwords):
            self._find("lost", "the passwords are neither the old nor the new ones")

    def _look_at_held_mails(self, now: Player, before: Player, after: Player) -> None:
        for mail in now.held.keys() | before.held.keys() | after.held.keys():
            if now.held.get(mail) not in (before.held.get(mail), after.held.get(mail)):
                self._find("lost", f"the mail {mail} that was set aside is gone or torn")
        for line in set(now.memory) ^ (set(before.memory) & set(after.memory)):
            if line not in now.memory or line not in before.memory + after.memory:
                self._find("lost", f"what was remembered of mails is torn: {line!r}")

    # The mails

    def _look_at_mails(self, now: Snapshot) -> None:
        games = now.players[self.scenario.player].games.games
        there = {mail.digest for mail in now.mails}
        for mail in self.reference.before.mails:
            taken = mail.game in games and move_count(games[mail.game]) >= mail.moves
            if mail.digest not in there and not (mail.game and taken):
                self._find("lost", f"a mail of {mail.game or 'somebody else'} is gone untaken")
        wanted = self._new_mails(self.reference.after)
        for place, count in self._new_mails(now).items():
            if place not in wanted:
                self._find("astray", f"a mail from {place[1]} lies in {place[0]}")
            elif count > wanted[place]:
                self._find("doubled", f"{count} mails lie in {place[0]}")

    def _new_mails(self, now: Snapshot) -> Counter[tuple[str, str]]:
        """How many there are from whom in which box."""
        before = {mail.digest for mail in self.reference.before.mails}
        return Counter((mail.box, mail.sender) for mail in now.mails if mail.digest not in before)

    # The words

    def _is_stored(self, now: Snapshot) -> bool:
        player = now.players[self.scenario.player]
        after = self.reference.after.players[self.scenario.player]
        names = player.games.games.keys() | after.games.games.keys()
        return (all(_is_one_of(name, player.games, after.games) for name in names)
                and player.games.torn == after.games.torn
                and player.account() == after.account()
                and player.passwords == after.passwords
                and player.held == after.held and set(after.memory) <= set(player.memory)
                and set(after.exports.values()) <= set(player.exports.values())
                and (not self.scenario.backs_up or player.backup == after.backup))

    def _is_sent(self, now: Snapshot) -> bool:
        return self._new_mails(now) >= self._new_mails(self.reference.after)

    def _has_tended_inbox(self, now: Snapshot) -> bool:
        boxes = [snap.box(self.scenario.player) for snap in (now, self.reference.after)]
        left, wanted = ({(mail.digest, mail.is_read) for mail in box} for box in boxes)
        return left == wanted

    def _weigh_end(self, told: Told) -> None:
        if told.hung or told.code not in (0, 1):
            self._find("stuck", "it hung" if told.hung else f"it ended with {told.code}")

    def _weigh_words(self, told: Told, now: Snapshot) -> None:
        if told.garbled:
            self._find("untrue", "the answer is no JSON")
        if told.code == 0 and not told.hung:
            self._weigh_success(told, now)
        elif told.code == 1:
            self._weigh_failure(told, now)

    def _weigh_success(self, told: Told, now: Snapshot) -> None:
        waits = any(answer.get("state") == "waiting" for answer in told.answers)
        if not self._is_stored(now):
            self._find("silent" if self.scenario.collects else "untrue",
                       f"exit 0 {told.answers}, but it isn't stored")
        elif not self._is_sent(now) and not waits:
            self._find("untrue", "exit 0, but it isn't sent")

    def _weigh_failure(self, told: Told, now: Snapshot) -> None:
        if not told.error or "\n" in told.error:
            self._find("silent", f"exit 1, and standard error says {told.error!r}")
        perhaps = any(answer.get("state") == "perhaps" for answer in told.answers)
        stored, sent = self._is_stored(now), self._is_sent(now)
        if self.scenario.collects:
            # A mail that couldn't be looked at might have been a move: to say so is no lie.
            sent = self._has_tended_inbox(now) and "can't be read" not in told.error
        elif self.scenario.plays and stored != any("text" in answer for answer in told.answers):
            is_it = "is" if stored else "isn't"
            self._find("untrue", f"{told.answers}, but the move {is_it} stored")
            return
        if self.scenario.resend:
            stored = True  # told by itself, above
        if stored and sent and not perhaps:
            self._find("untrue", f"exit 1 \"{told.error}\", but all is done")

    # The next run

    def _go_on(self, told: Told, killed: bool, now: Snapshot) -> None:
        again = self._once_more(told, killed, now)
        if again.hung or again.code != 0:
            ends = "hangs" if again.hung else f"ends with {again.code}: {again.error}"
            self._find("stuck", f"the next run {ends}")
            return
        if self.scenario.resend:
            self.world.tell(self.scenario.opponent, "retrieve")
        self._look_at_end(snapshot.take(self.world))

    def _once_more(self, told: Told, killed: bool, now: Snapshot) -> Told:
        player = self.scenario.player
        if self.scenario.collects:
            again = self.world.tell(player, "retrieve")
            if again.hung or again.code != 0 or self._is_stored(snapshot.take(self.world)):
                return again
            # Who was told of a failure asks for all of them.
            if killed or (told.code == 0 and not self.scenario.window):
                self._find("lost", "a mail that wasn't taken isn't seen by the next retrieve")
            return self.world.tell(player, "retrieve", "--all")
        if self.scenario.command and not self._is_stored(now):
            return self.world.tell(player, *self.scenario.command)
        if self.scenario.resend and not self._is_sent(now):
            return self._send_at_last(told, killed)
        return self.world.tell(player, "games")

    def _send_at_last(self, told: Told, killed: bool) -> Told:
        """A move that was played to be sent, and was saved, leaves by itself with the next run."""
        waits = any(answer.get("state") in ("waiting", "perhaps") for answer in told.answers)
        if waits or (killed and self.scenario.plays):
            again = self.world.tell(self.scenario.player, "mail", "deliver")
            left = [answer for answer in again.answers if answer["state"] != "sent"]
            if left or not self._is_sent(snapshot.take(self.world)):
                self._find("stuck", f"the next run leaves the move unsent: {left}")
            return again
        return self.world.tell(self.scenario.player, *self.scenario.resend)

    def _look_at_end(self, now: Snapshot) -> None:
        for name, player in now.players.items():
            end = self.reference.end.players[name].games
            if player.games.doubled:
                self._find("doubled", f"at the end in {name}'s games: {player.games.doubled[0]}")
            for game in sorted(player.games.games.keys() | end.games.keys()):
                if not _is_one_of(game, player.games, end):
                    self._find("lost", f"at the end {name}'s game {game} isn't what it should be")


def _is_one_of(name: str, now: GameFile, *files: GameFile) -> bool:
    """Whether the game stands as in one of the files; a new one may differ in number and time."""
    line = now.games.get(name)
    for file in files:
        other = file.games.get(name)
        if line == other or (line and other and without_run(line) == without_run(other)):
            return True
    return False
