# SPDX-License-Identifier: GPL-3.0-or-later
"""The program with its windows, which runs all day in the background and collects by itself."""

import os
import shutil
import statistics
import subprocess
import time

from players import ROOT, end_with_parent

BUILD = ROOT / "build/release"
PROGRAM = BUILD / "src/front/tarvolenix"

# No dialog that waits for a click, and a look at the Inbox each second.
SETTINGS = """RunBefore=True
DisplaySplash=False
SystrayStartup=False
TrayMissed=True
CheckInterval=1000
NotificationMethod=0
"""

LONGEST_END = 20


def lay_out(program_folder):
    """The program as it is installed, for players' folders to lead to."""
    subprocess.run(
        ["cmake", "--install", BUILD, "--prefix", program_folder],
        check=True, stdout=subprocess.DEVNULL,
    )


class WindowProgram:
    def __init__(self, player, program_folder):
        self.player = player
        self.process = None
        # A life is the samples of one process: (seconds since its start, memory, handles).
        self.lives = []
        for part in program_folder.iterdir():
            if part.name not in ("AI Files", "Data", "tarvolenix"):
                (player.folder / part.name).symlink_to(part)
        self.runtime = player.folder / "runtime"
        self.runtime.mkdir(mode=0o700)
        # The program looks for its folder where it really lies.
        shutil.copy(PROGRAM, player.folder / "tarvolenix")

    def start(self):
        environment = dict(
            os.environ, QT_QPA_PLATFORM="offscreen", DBUS_SESSION_BUS_ADDRESS="disabled:",
            XDG_RUNTIME_DIR=str(self.runtime), XDG_CONFIG_HOME=str(self.runtime),
        )
        with open(self.player.folder / "window.log", "ab") as log:
            self.process = subprocess.Popen(
                [self.player.folder / "tarvolenix", "-nosound"],
                env=environment, stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                preexec_fn=end_with_parent,
            )
        self.started = time.monotonic()
        self.lives.append([])

    def is_running(self):
        return self.process is not None and self.process.poll() is None

    def kill(self):
        self.process.kill()
        self.process.wait()

    def stop(self):
        """Answers whether it ended when it was asked to."""
        self.process.terminate()
        try:
            self.process.wait(LONGEST_END)
            return True
        except subprocess.TimeoutExpired:
            self.kill()
            return False

    def sample(self):
        try:
            with open(f"/proc/{self.process.pid}/status") as status:
                memory = next(int(line.split()[1]) for line in status if line.startswith("VmRSS"))
            handles = len(os.listdir(f"/proc/{self.process.pid}/fd"))
        except (OSError, StopIteration):
            return
        self.lives[-1].append((time.monotonic() - self.started, memory, handles))

    def longest_life(self):
        return max(self.lives, key=len)

    def growth(self, warm_up):
        """(memory at the start, at the end, handles at the start, at the end) of its longest life,
        the first `warm_up` seconds apart."""
        samples = [sample for sample in self.longest_life() if sample[0] >= warm_up]
        if len(samples) < 6:
            return None
        first, last = middle_of(samples[:3]), middle_of(samples[-3:])
        return first[1], last[1], first[2], last[2]


def middle_of(samples):
    return [int(statistics.median(column)) for column in zip(*samples)]
