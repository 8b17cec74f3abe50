# SPDX-License-Identifier: GPL-3.0-or-later
"""Whether two players' stores hold the same games, once nothing is on its way any more."""

from collections import Counter

from players import DRAWN, DRAW_OFFERED, LOST, MOVE_WAITING, WAITING, WON

PAIRED_STATUSES = {
    (MOVE_WAITING, WAITING), (DRAW_OFFERED, MOVE_WAITING), (WON, LOST), (DRAWN, DRAWN),
    # Ended by the opponent; the player hasn't opened it yet.
    (MOVE_WAITING, WON), (MOVE_WAITING, LOST), (MOVE_WAITING, DRAWN),
}
PAIRED_STATUSES |= {(other, one) for one, other in PAIRED_STATUSES}


def compare(hosts, guests):
    """What is wrong with the games that the first store's owner has founded, as (word, sentence);
    from his side, the whole of it wants a second look with the two exchanged."""
    founded = [game for game in hosts.values() if game.is_host]
    found = Counter(game.opponents_id for game in guests.values() if not game.is_host)
    for game in founded:
        copies = [g for g in guests.values() if not g.is_host and g.opponents_id == game.id]
        if not copies:
            yield "lost", f"game {game.id} has come to nobody"
        for copy in copies:
            yield from differences(game, copy)
    numbers = {game.id for game in founded}
    for number, copies in found.items():
        if copies > 1:
            yield "doubled", f"{copies} copies of game {number}"
        if number not in numbers:
            yield "astray", f"a copy of game {number}, which nobody has founded"


def differences(game, copy):
    pair = f"games {game.id} and {copy.id}"
    if game.moves != copy.moves:
        shorter, longer = sorted((game.moves, copy.moves), key=len)
        is_behind = longer[: len(shorter)] == shorter
        word = "lost" if is_behind else "astray"
        yield word, f"{pair}: {shorter[-1:]} against {longer[-1:]}"
    if (game.stamp, game.start_board) != (copy.stamp, copy.start_board):
        yield "astray", f"{pair} are not the same game"
    if len(game.moves) > 1 and game.opponents_id != copy.id:
        yield "astray", f"{pair}: the first knows the other as {game.opponents_id}"
    if (game.status, copy.status) not in PAIRED_STATUSES:
        yield "astray", f"{pair} have statuses {game.status} and {copy.status}"


def missing_from(games, played):
    """`played` is what the program has told its player that it has saved, as (game, number, text,
    comment); each has to be there."""
    for number, index, text, comment in played:
        moves = games[number].moves if number in games else ()
        if (str(index), text, comment) not in [(m[0], m[2], m[3]) for m in moves]:
            yield "lost", f"move {index} of game {number}, {text}, which was told to be saved"
