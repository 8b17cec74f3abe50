#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Cuts, delays and garbles the wire between the console and its mail server at every byte of a
retrieval and of a move that is sent, and judges what became of mails and games.

A row of the table for each dialogue and kind of trouble; exit 1 where there was any fault."""

import argparse
import multiprocessing
import os
import random
import shutil
import sys
import tempfile
import time
from collections import Counter

from dialogues import FAULTS, NOTES, Scene
from mail_servers import MailServers
from players import end_tidily
from proxy import KINDS, Trouble
from scripted_server import ScriptedServers

# Every so many bytes; the cuts are what happens every day. A silence costs the patience of the
# program, half a minute and more.
STEPS = {"cut": 1, "flip": 1, "reset": 3, "gone": 5, "insert": 3, "line": 5, "stall": 23}
STEPS |= {"delay": 11, "silence": 1009}

SHORT_POINTS = 420
SHORT_MINUTES = 0.45
SHORT_KINDS = ("cut", "reset", "gone", "delay", "flip", "insert", "line")

TOLD_PER_ROW = 5

# Of a worker process.
scene = None
end = 0


def options():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--only", metavar="DIALOGUE[:KIND[:BYTE]]", default="")
    parser.add_argument("--short", action="store_true", help="some points of each, for a check")
    parser.add_argument("--real", action="store_true", help="over real mail servers, as root")
    parser.add_argument("--every", type=int, default=1, help="only each so many-th of the points")
    parser.add_argument("--minutes", type=float, default=60, help="the longest time")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    return parser.parse_args()


def enter(folder, real, last_moment):
    """A worker process begins: it has players and servers of its own."""
    global scene, end
    end = last_moment
    place = tempfile.mkdtemp(dir=folder)
    os.chmod(place, 0o755)
    try:
        scene = Scene(place, MailServers(place) if real else ScriptedServers())
    except Exception as error:
        # A worker that doesn't come up would be replaced for ever.
        scene = error


def require_scene():
    if isinstance(scene, Exception):
        raise scene


def lengths():
    require_scene()
    return {name: sum(dialogue.lengths) for name, dialogue in scene.dialogues.items()}


def attempt(point):
    """One run with its trouble; answers its faults and notes, or nothing when time is over."""
    require_scene()
    if time.monotonic() > end:
        return None
    name, kind, place = point
    dialogue = scene.dialogues[name]
    stream, byte = dialogue.stream_of(place)
    proxy, direction = scene.streams()[stream]
    trouble = Trouble(kind, direction, byte)
    dialogue.prepare()
    scene.begin(proxy, trouble)
    answer = dialogue.run()
    happened = proxy.happened
    found = list(dialogue.faults(answer, trouble))
    where = f"{'IMAP' if stream < 2 else 'SMTP'}, {direction}, byte {byte}"
    return point, happened, found, where, answer


def chosen(sizes, arguments):
    """The rows, each with its points."""
    only = arguments.only.split(":") if arguments.only else []
    kinds = SHORT_KINDS if arguments.short else KINDS
    rows = {}
    for name, size in sizes.items():
        for number, kind in enumerate(kinds):
            if [name, kind][: len(only)] != only[:2]:
                continue
            step = STEPS[kind] * arguments.every
            if arguments.short:
                step = max(1, sum(sizes.values()) * len(kinds) // SHORT_POINTS)
            # Each kind begins elsewhere, so that together they come to more places.
            places = range(step * number // len(kinds), size, step)
            rows[name, kind] = [int(only[2])] if len(only) > 2 else list(places)
    return rows


def told(result):
    (name, kind, place), _, found, where, answer = result
    faults = [f"{word}: {text}" for word, text in found if word in FAULTS]
    return f"{name}:{kind}:{place} ({where})\n    " + "\n    ".join(faults + [str(answer)])


class Table:
    """Prints each row as soon as all its points are through."""

    COLUMNS = ("points", *FAULTS, *NOTES, "unmet")

    def __init__(self, rows):
        self.left = {row: len(places) for row, places in rows.items()}
        self.counts = {row: Counter() for row in rows}
        self.complaints = Counter()
        print("| dialogue | kind |", " | ".join(self.COLUMNS), "|")
        print("|---" * (len(self.COLUMNS) + 2) + "|", flush=True)

    def take(self, result):
        (name, kind, _), happened, found, _, _ = result
        row = name, kind
        counts = self.counts[row]
        counts["points"] += 1
        counts["unmet"] += not happened
        counts.update({word for word, _ in found})
        if any(word in FAULTS for word, _ in found):
            self.complaints[row] += 1
            if self.complaints[row] <= TOLD_PER_ROW:
                print(told(result), file=sys.stderr, flush=True)
        self.left[row] -= 1
        if self.left[row] == 0:
            self.print_row(row)

    def print_row(self, row):
        counts = (str(self.counts[row][column]) for column in self.COLUMNS)
        print("|", " | ".join((*row, *counts)), "|", flush=True)

    def print_unfinished(self):
        for row, left in self.left.items():
            if left:
                self.print_row(row)
                print(f"There was no time for {left} points of it.", file=sys.stderr)

    def is_faultless(self):
        totals = sum(self.counts.values(), Counter())
        return totals["points"] > 0 and not any(totals[fault] for fault in FAULTS)


def main():
    arguments = options()
    minutes = SHORT_MINUTES if arguments.short else arguments.minutes
    last_moment = time.monotonic() + 60 * minutes
    # Where memory serves as a disk the many runs don't wear the real one.
    folder = tempfile.mkdtemp(prefix="cuts-", dir="/dev/shm" if os.path.isdir("/dev/shm") else None)
    os.chmod(folder, 0o755)
    jobs = 1 if arguments.real else arguments.jobs
    try:
        with multiprocessing.Pool(jobs, enter, (folder, arguments.real, last_moment)) as pool:
            end_tidily()
            rows = chosen(pool.apply(lengths), arguments)
            table = Table(rows)
            points = [(*row, place) for row, places in rows.items() for place in places]
            if arguments.short:
                # Where time ends before the points do, each row gets its share of them.
                random.Random(0).shuffle(points)
            for result in pool.imap_unordered(attempt, points):
                if result:
                    table.take(result)
            table.print_unfinished()
    finally:
        shutil.rmtree(folder, ignore_errors=True)
    return 0 if table.is_faultless() else 1


if __name__ == "__main__":
    sys.exit(main())
