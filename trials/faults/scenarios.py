# SPDX-License-Identifier: GPL-3.0-or-later
"""What the players do while files fail. A row is a scenario: what went before, and one command."""

from dataclasses import dataclass

Step = tuple[str, ...]  # the player and what he tells the console program

FOUND_SPRING = ("new", "--name", "Spring", "--opponent", "Bob", "--email", "bob@example.org",
                "--move", "5254")


def found(name: str) -> Step:
    return ("anna", "new", "--name", name, "--opponent", "Bob", "--email", "bob@example.org",
            "--move", "4244", "--send")


# Anna and Bob both know Spring by the number 2.
SPRING: tuple[Step, ...] = (("anna", *FOUND_SPRING, "--send"), ("bob", "retrieve"))
BOB_REPLIES: Step = ("bob", "move", "2", "5755", "--send")
ANNAS_TURN = (*SPRING, BOB_REPLIES, ("anna", "retrieve"))
ANNA_MOVES: Step = ("anna", "move", "2", "7163")


@dataclass(frozen=True)
class Scenario:
    name: str
    prepare: tuple[Step, ...]
    player: str
    command: Step
    verb: str = ""  # what has to exist for this, where that isn't always so
    plays: bool = False  # its answer has a "text" where the move was stored
    resend: Step = ()  # sends what was stored; none where nothing is to be sent
    collects: bool = False
    backs_up: bool = False
    damage: str = ""  # stands at the end of the player's game file
    window: bool = False  # the window program runs, until it has taken what comes
    sparse: int = 1  # of the points of a long run only every so manieth is tried

    @property
    def opponent(self) -> str:
        return "bob" if self.player == "anna" else "anna"


SEVERAL = (*ANNAS_TURN, (*ANNA_MOVES, "--send"), found("Summer"), found("Autumn"))
FROM_ELSEWHERE = (*ANNAS_TURN, ("anna", "account", "set", "MyAddress=anna2@example.org"),
                  (*ANNA_MOVES, "--send"), ("bob", "retrieve"))

SCENARIOS = (
    Scenario("move", ANNAS_TURN, "anna", ("move", "2", "7163"), plays=True),
    Scenario("move-send", ANNAS_TURN, "anna", ("move", "2", "7163", "--send"), plays=True,
             resend=("send", "2")),
    Scenario("new", (), "anna", FOUND_SPRING, plays=True),
    Scenario("new-send", (), "anna", (*FOUND_SPRING, "--send"), plays=True, resend=("send", "2")),
    Scenario("send", (*ANNAS_TURN, ANNA_MOVES), "anna", ("send", "2"), resend=("send", "2")),
    Scenario("remove", ANNAS_TURN, "anna", ("remove", "2")),
    Scenario("backup", (*ANNAS_TURN, ANNA_MOVES), "anna", ("backup",), backs_up=True),
    Scenario("retrieve-new", SPRING[:1], "bob", ("retrieve",), collects=True),
    Scenario("retrieve-reply", (*SPRING, BOB_REPLIES), "anna", ("retrieve",), collects=True),
    Scenario("retrieve-several", SEVERAL, "bob", ("retrieve",), collects=True),
    Scenario("import", (("anna", *FOUND_SPRING), ("anna", "export", "2")), "bob",
             ("import", "anna/Data/Cmove1.txt")),
    Scenario("export", ANNAS_TURN, "anna", ("export", "2")),
    Scenario("account", SPRING, "anna",
             ("account", "set", "MyName=Anna B.", "MyAddress=anna.b@example.org")),
    Scenario("account-password", SPRING, "anna",
             ("account", "set", "--password", "MailKind=Imap", "ImapHost=imap.example.org",
              "SmtpHost=smtp.example.org", "UserName=anna", "<secret")),
    Scenario("retrieve-held", FROM_ELSEWHERE[:-1], "bob", ("retrieve",), collects=True,
             verb="mail held"),
    Scenario("repair", ANNAS_TURN, "anna", ("repair",), verb="repair", damage="no game at all\r\n"),
    Scenario("mail-accept", FROM_ELSEWHERE, "bob", ("mail", "accept", "{held}"),
             verb="mail accept"),
    Scenario("mail-refuse", FROM_ELSEWHERE, "bob", ("mail", "refuse", "{held}"),
             verb="mail refuse"),
    # A tick takes the mail; the end makes the few settings complete.
    Scenario("window", SPRING[:1], "bob", (), window=True, collects=True, sparse=20),
)
