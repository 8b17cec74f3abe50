# SPDX-License-Identifier: GPL-3.0-or-later
"""A wire between the program and a mail server that can be cut, held up and disturbed."""

import select
import socket
import struct
import threading
import time
from dataclasses import dataclass

from scripted_server import Listener

UP, DOWN = "to the server", "from the server"

# After a trouble two who wait for each other are parted after so long, instead of by the patience
# of the program, which one kind of trouble tries on purpose.
LONGEST_QUIET = 1  # seconds

DELAY = 0.05
STALL = 0.4


class Cut(Exception):
    pass


class Gone(Exception):
    """Cut, and there is nobody any more."""


class Reset(Exception):
    """Cut at once; what was under way may be lost too."""


def cut(_):
    raise Cut


def gone(_):
    raise Gone


def reset(_):
    raise Reset


def stall(_):
    time.sleep(STALL)
    raise Cut


def delay(rest):
    time.sleep(DELAY)
    return rest


def flip(rest):
    return bytes([rest[0] ^ 1]) + rest[1:]


def insert(rest):
    return b"0" + rest


def line(rest):
    return b"\r\n" + rest


def silence(_):
    return None


# What happens to the bytes from the place on; None: they are kept back for good.
KINDS = {
    f.__name__: f for f in (cut, reset, gone, stall, delay, flip, insert, line, silence)
}
GARBLING = {"flip", "insert", "line"}


@dataclass(frozen=True)
class Trouble:
    kind: str
    direction: str
    byte: int  # so many pass first, over all connections of a run


class Proxy:
    def __init__(self, server_port):
        self.server_port = server_port
        self.lock = threading.Lock()
        self.live = set()
        self.calls = 0  # over all runs
        self.begin(None)
        self.listener = Listener(self.carry)
        self.port = self.listener.port

    def begin(self, trouble):
        """A run begins: `trouble` will happen once. `passed` is what came out at either end."""
        self.trouble = trouble
        self.happened = False
        self.is_silent = False
        self.refuses = False
        self.passed = {UP: b"", DOWN: b""}

    def cut_all(self):
        with self.lock:
            live = list(self.live)
        for end in live:
            try:
                end.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass
        return len(live) // 2

    def go_away(self):
        """Nobody is there any more, until it comes back."""
        self.listener.close()
        self.cut_all()

    def come_back(self):
        self.listener = Listener(self.carry, self.port)

    def fall_silent(self):
        """What either end says gets lost, as behind a router that is off."""
        self.is_silent = True

    def speak_again(self):
        self.is_silent = False
        self.cut_all()

    def carry(self, client):
        self.calls += 1
        ends = [client]
        try:
            if not self.refuses:
                server = socket.create_connection(("127.0.0.1", self.server_port), 10)
                server.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
                ends.append(server)
                with self.lock:
                    self.live.update(ends)
                self.pump(client, server)
        except Reset:
            client.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        except Gone:
            self.refuses = True
        except (Cut, OSError):
            pass
        finally:
            with self.lock:
                self.live.difference_update(ends)
            for end in ends:
                end.close()

    def pump(self, client, server):
        ways = {client: (server, UP), server: (client, DOWN)}
        reading = [client, server]
        while reading:
            may_wait = None if not self.happened or self.is_silent else LONGEST_QUIET
            ready = select.select(reading, [], [], may_wait)[0]
            if not ready and may_wait:
                raise Cut
            for end in ready:
                other, direction = ways[end]
                data = end.recv(65536)
                if not data:
                    reading.remove(end)
                    other.shutdown(socket.SHUT_WR)
                elif not self.is_silent:
                    self.hand_on(other, direction, data)

    def hand_on(self, end, direction, data):
        trouble = self.trouble
        clean = len(data)
        if trouble and not self.happened and trouble.direction == direction:
            clean = min(clean, trouble.byte - len(self.passed[direction]))
        self.send(end, direction, data[:clean])
        if clean == len(data):
            return
        self.happened = True
        rest = KINDS[trouble.kind](data[clean:])
        if rest is None:
            self.is_silent = True
        else:
            self.send(end, direction, rest)

    def send(self, end, direction, data):
        self.passed[direction] += data
        end.sendall(data)

    def close(self):
        self.listener.close()
        self.cut_all()
