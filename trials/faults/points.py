# SPDX-License-Identifier: GPL-3.0-or-later
"""What can go wrong where: the operations of a run, and the faults that each kind of them knows."""

import errno
import re
from dataclasses import dataclass
from pathlib import Path

# An errno by its name, or a word of the shim's.
FAULTS = {
    "create": ("EACCES", "EMFILE", "ENOSPC", "EIO"),
    "open-to-write": ("EACCES", "EMFILE", "EIO"),
    "open": ("EACCES", "EMFILE", "EIO"),
    "read": ("EIO", "short"),
    "write": ("EIO", "ENOSPC", "short", "full"),
    "fsync": ("EIO",),
    "fdatasync": ("EIO",),
    "close": ("EIO",),
    "flock": ("EIO",),
    "truncate": ("EIO",),
    "chmod": ("EACCES", "EIO"),
    "rename": ("EACCES", "ENOSPC", "EIO"),
    "link": ("EACCES", "ENOSPC", "EIO"),
    "unlink": ("EACCES", "EIO"),
    "mkdir": ("EACCES", "ENOSPC", "EIO"),
    "stat": ("EACCES", "EIO"),
    "opendir": ("EACCES", "EMFILE", "EIO"),
    "readdir": ("EIO",),
}
KILLS = ("kill-before", "kill-after")

# Behind an operation that only looks the disk is what it was before it.
LOOKS = ("open", "read", "stat", "opendir", "readdir")


@dataclass(frozen=True)
class Operation:
    at: str  # "THREAD.NUMBER"
    kind: str
    path: str  # below the world's folder

    def __str__(self) -> str:
        return f"{self.kind} {self.path}"


@dataclass(frozen=True)
class Point:
    scenario: str
    operation: Operation
    fault: str

    @property
    def kills(self) -> bool:
        return self.fault in KILLS

    def __str__(self) -> str:
        return f"{self.scenario}:{self.operation.at}:{self.fault}"

    def orders(self) -> dict[str, str]:
        """The part of the shim's environment that says what goes wrong."""
        number = getattr(errno, self.fault, None)
        return {"FAULT_AT": self.operation.at, "FAULT_IS": str(number or self.fault)}


def read_trace(trace: Path, below: Path) -> list[Operation]:
    operations = []
    for line in trace.read_text(errors="replace").splitlines():
        at, kind, path = line.removesuffix(" !").split(" ", 2)
        operations.append(Operation(at, kind, _place(path, below)))
    return operations


def _place(path: str, below: Path) -> str:
    """The same in every run: without the folder, the clock and the process."""
    path = path.removeprefix(f"{below}/").removesuffix(" (deleted)").replace("/../", "^")
    path = re.sub(r"[^/^]+\^", "", path)
    path = re.sub(r"\d+\.M\d+P\d+\.[^:/]+", "MAIL", path)
    path = re.sub(r"\.conf\.[A-Za-z]{6}$", ".conf.XXXXXX", path)
    path = re.sub(r"\d{8}-\d{6}", "TIME", path)
    return re.sub(r"#\d+$", "(unnamed)", path)


def points_of(scenario: str, operations: list[Operation]) -> list[Point]:
    points = []
    for operation in operations:
        kills = KILLS[:1] if operation.kind in LOOKS else KILLS
        points += [Point(scenario, operation, fault) for fault in FAULTS[operation.kind] + kills]
    return points


def sample(points: list[Point], every: int) -> list[Point]:
    """Every k-th point of each kind of operation with each fault, and at least one of them."""
    kinds: dict[tuple[str, str], list[Point]] = {}
    for point in points:
        kinds.setdefault((point.operation.kind, point.fault), []).append(point)
    first = [(min(every, len(same)) - 1) // 2 for same in kinds.values()]
    chosen = {point for same, at in zip(kinds.values(), first) for point in same[at::every]}
    return [point for point in points if point in chosen]
