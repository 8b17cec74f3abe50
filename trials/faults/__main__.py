# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs each scenario once for each file operation and fault, and judges what is left."""

import argparse
import multiprocessing
import os
import sys
import tempfile
from dataclasses import dataclass
from pathlib import Path

import points
import report
import snapshot
import window
from judge import Judge, Reference
from points import Point
from report import Outcome
from scenarios import SCENARIOS, Scenario
from world import Tools, Told, World


# A short run tries every so manieth point: some hundred of them, half a minute on two processors.
SHORT = 25


class ScenarioFails(Exception):
    """It doesn't even come to its end without a fault."""


@dataclass(frozen=True)
class Staged:
    """A scenario that is ready to be played: the world before it, and what it comes to."""

    scenario: Scenario
    world: World
    reference: Reference
    points: list[Point]


def stage(scenario: Scenario, root: Path, tools: Tools) -> Staged:
    world = World(root / scenario.name, tools)
    world.create()
    for player, *arguments in scenario.prepare:
        told = world.tell(player, *arguments)
        if told.code != 0:
            raise ScenarioFails(f"{scenario.name}: {player} {' '.join(arguments)}: {told.error}")
    if scenario.damage:
        with (world.root / scenario.player / "Data/Tvgdb.dat").open("a", newline="") as games:
            games.write(scenario.damage)
    if scenario.window:
        window.lay_out(world, scenario.player, tools.program)
    scenario = with_held_mail(scenario, world)
    trial = world.copy_to(root / f"{scenario.name}-trial")
    before = snapshot.take(trial)
    told = run(scenario, trial, {"FAULT_AT": ""})
    after = snapshot.take(trial)
    if told.code != 0 or told.hung or before == after:
        raise ScenarioFails(f"{scenario.name}: exit {told.code}, {told.error or 'nothing changed'}")
    if scenario.resend:
        trial.tell(scenario.opponent, "retrieve")
    reference = Reference(before, after, snapshot.take(trial))
    operations = points.read_trace(trial.trace(), trial.root)
    trial.remove()
    return Staged(scenario, world, reference, points.points_of(scenario.name, operations))


def with_held_mail(scenario: Scenario, world: World) -> Scenario:
    """Puts the number of the mail that is set aside into the command."""
    if "{held}" not in scenario.command:
        return scenario
    held = world.tell(scenario.player, "mail", "held").answers[0]["held"]
    command = tuple(word.replace("{held}", str(held)) for word in scenario.command)
    return Scenario(**{**vars(scenario), "command": command})


def run(scenario: Scenario, world: World, orders: dict[str, str]) -> Told:
    if scenario.window:
        return window.run(world, scenario.player, orders)
    return world.tell(scenario.player, *scenario.command, orders=orders)


def try_point(job: tuple[Staged, Point]) -> Outcome:
    """Who is stuck gets a second try: on a busy machine a run may only have been slow."""
    outcome = try_once(*job)
    is_stuck = any(finding.harm == "stuck" for finding in outcome.findings)
    return try_once(*job) if is_stuck else outcome


def try_once(staged: Staged, point: Point) -> Outcome:
    scenario = staged.scenario
    world = staged.world.copy_to(staged.world.root.parent / f"run-{os.getpid()}")
    try:
        told = run(scenario, world, point.orders())
        if not world.fault_took_place():
            return Outcome(point, False, [])
        findings = Judge(scenario, staged.reference, world).judge(told, point.kills)
        return Outcome(point, True, findings)
    finally:
        world.remove()
        world.trace().unlink(missing_ok=True)


def wanted(point: Point, only: str) -> bool:
    name, at, fault = (*only.split(":"), "", "")[:3]
    return (point.scenario == name and at in ("", point.operation.at)
            and fault in ("", point.fault))


def absolute(path: str) -> Path:
    return Path(path).resolve(strict=True)  # the program is started elsewhere


def parse() -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="scripts/faults", description=__doc__)
    parser.add_argument("--short", action="store_true",
                        help="a sample that takes half a minute, without the window program")
    parser.add_argument("--every", type=int, default=1, metavar="K",
                        help="only every K-th point of each kind of operation with each fault")
    parser.add_argument("--only", action="append", default=[], metavar="SCENARIO[:N[:ERROR]]",
                        help="only this scenario, operation or point; may be repeated")
    parser.add_argument("--jobs", type=int, default=os.cpu_count() or 1)
    parser.add_argument("--console", type=absolute, required=True, help="the console program")
    parser.add_argument("--shim", type=absolute, required=True, help="what is preloaded into it")
    parser.add_argument("--program", type=absolute, required=True, help="the installed program")
    return parser.parse_args()


def choose(staged: list[Staged], arguments: argparse.Namespace) -> list[tuple[Staged, Point]]:
    by_name = {one.scenario.name: one for one in staged}
    candidates = []
    for one in staged:
        if arguments.only:
            candidates += [point for point in one.points
                           if any(wanted(point, only) for only in arguments.only)]
        else:
            candidates += points.sample(one.points, one.scenario.sparse)
    return [(by_name[point.scenario], point)
            for point in points.sample(candidates, SHORT if arguments.short else arguments.every)]


def play(arguments: argparse.Namespace, root: Path) -> list[Outcome]:
    tools = Tools(arguments.console, arguments.shim, arguments.program)
    known = World(root, tools).verbs()
    names = {only.split(":")[0] for only in arguments.only}
    scenarios = [scenario for scenario in SCENARIOS
                 if scenario.verb in known and (not names or scenario.name in names)
                 and not (scenario.window and arguments.short)]
    with multiprocessing.Pool(arguments.jobs) as pool:
        staged = pool.starmap(stage, [(scenario, root, tools) for scenario in scenarios])
        return pool.map(try_point, choose(staged, arguments), chunksize=4)


def main() -> int:
    arguments = parse()
    shared = Path("/dev/shm")
    where = shared if shared.is_dir() and os.access(shared, os.W_OK) else None
    with tempfile.TemporaryDirectory(prefix="faults-", dir=where) as folder:
        try:
            outcomes = play(arguments, Path(folder).resolve())
        except ScenarioFails as failure:
            print(f"The scenario fails without any fault: {failure}", file=sys.stderr)
            return 1
    return report.tell(outcomes)


if __name__ == "__main__":
    sys.exit(main())
