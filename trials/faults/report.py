# SPDX-License-Identifier: GPL-3.0-or-later
"""The table of what was tried and what was found."""

from dataclasses import dataclass

from judge import HARMS, Finding
from points import Point


@dataclass(frozen=True)
class Outcome:
    point: Point
    took_place: bool
    findings: list[Finding]


def tell(outcomes: list[Outcome]) -> int:
    """Prints each finding, then the table. 1 where something was found, or nothing was tried."""
    tried = [outcome for outcome in outcomes if outcome.took_place]
    for outcome in tried:
        for finding in outcome.findings:
            where = f"{outcome.point} ({outcome.point.operation})"
            print(f"- {where}: **{finding.harm}**, {finding.text}")
    print()
    _print_row("scenario", "failed calls", "kills", *HARMS)
    _print_row("---", *["---:"] * (2 + len(HARMS)))
    for name in dict.fromkeys(outcome.point.scenario for outcome in outcomes):
        _print_counts(name, [outcome for outcome in tried if outcome.point.scenario == name])
    _print_counts("together", tried)
    missed = len(outcomes) - len(tried)
    if missed:
        print(f"\nAt {missed} points the run took another way, so nothing failed there.")
    return 1 if not tried or any(outcome.findings for outcome in tried) else 0


def _print_counts(name: str, outcomes: list[Outcome]) -> None:
    kills = sum(outcome.point.kills for outcome in outcomes)
    _print_row(name, len(outcomes) - kills, kills,
               *[sum(any(finding.harm == harm for finding in outcome.findings)
                     for outcome in outcomes) for harm in HARMS])


def _print_row(*cells: object) -> None:
    print("| " + " | ".join(str(cell) for cell in cells) + " |")
