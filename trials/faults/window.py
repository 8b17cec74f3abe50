# SPDX-License-Identifier: GPL-3.0-or-later
"""The window program without a display: it starts, a mail comes, it ends."""

import shutil
import subprocess
import time
from pathlib import Path

from world import LONGEST_RUN, Told, World

LONGEST_WAIT = 4  # seconds for a mail to be taken; some ticks long


def lay_out(world: World, player: str, program: Path) -> None:
    """The program looks for its parts beside itself. Its mail is kept back until it runs."""
    folder = world.root / player
    for part in program.iterdir():
        if part.name == "tarvolenix":
            shutil.copy(part, folder)
        elif not (folder / part.name).exists():
            (folder / part.name).symlink_to(part)
    # In a box's shape, so that it counts as mail that was there before.
    _on_its_way(world).mkdir(parents=True)
    for mail in _inbox(world, player).iterdir():
        mail.rename(_on_its_way(world) / mail.name)


def run(world: World, player: str, orders: dict[str, str]) -> Told:
    """It can't be asked anything: what it told is only how it ended."""
    program = subprocess.Popen(
        [str(world.root / player / "tarvolenix"), "-nosound"], cwd=world.root,
        env=world.environment(orders), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        _wait(program, lambda: f"{player}@example.org/new" in _trace(world))
        for mail in _on_its_way(world).iterdir():
            mail.rename(_inbox(world, player) / mail.name)
        _wait(program, lambda: b"Spring" in _games(world, player))
        program.terminate()
        return Told(program.wait(LONGEST_RUN), [], "")
    except subprocess.TimeoutExpired:
        return Told(0, [], "", hung=True)
    finally:
        program.kill()
        program.wait()


def _wait(program: subprocess.Popen, happened) -> None:
    end = time.monotonic() + LONGEST_WAIT
    while program.poll() is None and time.monotonic() < end and not happened():
        time.sleep(0.05)


def _inbox(world: World, player: str) -> Path:
    return world.root / f"post/{player}@example.org/new"


def _on_its_way(world: World) -> Path:
    return world.root / "on-its-way/new"


def _trace(world: World) -> str:
    return world.trace().read_text(errors="replace") if world.trace().exists() else ""


def _games(world: World, player: str) -> bytes:
    games = world.root / player / "Data/Tvgdb.dat"
    return games.read_bytes() if games.exists() else b""
