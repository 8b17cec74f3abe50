# SPDX-License-Identifier: GPL-3.0-or-later
"""A small mail server in this process: IMAP and SMTP over one set of mailboxes in memory, quick and
without whims, so that each trial knows what it has in front of it."""

import base64
import itertools
import re
import socket
import threading
import time
from dataclasses import dataclass, field

from players import PASSWORD

LONGEST_LINE = 1 << 16

# So far apart that one wrong byte in a number never names another mail.
UID_STEP = 1013


@dataclass
class Mail:
    uid: int
    content: bytes
    flags: set = field(default_factory=set)

    def header(self):
        return self.content.split(b"\r\n\r\n", 1)[0] + b"\r\n\r\n"


class Boxes:
    """What both protocols share."""

    def __init__(self):
        self.lock = threading.RLock()
        self.empty()

    def empty(self):
        with self.lock:
            self.mails = {}
            self.accepted = 0
            self.numbers = itertools.count(2 * UID_STEP, UID_STEP)

    def put(self, address, content):
        with self.lock:
            self.mails.setdefault(address, []).append(Mail(next(self.numbers), content))

    def inbox(self, address):
        with self.lock:
            return [m.content for m in self.mails.get(address, []) if "\\Deleted" not in m.flags]

    def accept(self, recipients, content):
        with self.lock:
            self.accepted += 1
            for address in recipients:
                self.put(address, content)


class Talk:
    """A connection; a subclass knows the protocol. A client that makes no sense is hung up on."""

    def __init__(self, boxes, connection):
        self.boxes = boxes
        self.connection = connection
        self.stream = connection.makefile("rb")

    def run(self):
        try:
            self.converse()
        except (OSError, ValueError, EOFError):
            pass
        finally:
            self.stream.close()
            self.connection.close()

    def send(self, text):
        self.connection.sendall(text if isinstance(text, bytes) else text.encode())

    def line(self):
        line = self.stream.readline(LONGEST_LINE)
        if not line.endswith(b"\n"):
            raise EOFError
        return line.rstrip(b"\r\n").decode("latin-1")

    def take(self, count):
        content = self.stream.read(count)
        if len(content) < count:
            raise EOFError
        return content


class ImapTalk(Talk):
    CAPABILITIES = "IMAP4rev1 SASL-IR AUTH=PLAIN UIDPLUS"

    user = ""

    def converse(self):
        self.send("* OK ready\r\n")
        while True:
            tag, _, rest = self.line().partition(" ")
            command = rest.upper()
            if command == "LOGOUT":
                self.send(f"* BYE\r\n{tag} OK\r\n")
                return
            for pattern, answer in self.COMMANDS:
                found = re.fullmatch(pattern, rest, re.IGNORECASE)
                if found and (self.user or not command.startswith(("UID", "SELECT", "APPEND"))):
                    with self.boxes.lock:
                        answer(self, *found.groups())
                    self.send(f"{tag} OK done\r\n")
                    break
            else:
                self.send(f"{tag} BAD what?\r\n")

    def mails(self):
        return self.boxes.mails.setdefault(self.user, [])

    def chosen(self, uids):
        wanted = set()
        for part in uids.split(","):
            first, _, last = part.partition(":")
            wanted.update(m.uid for m in self.mails() if int(first) <= m.uid <= int(last or first))
        return [m for m in self.mails() if m.uid in wanted]

    def capability(self):
        self.send(f"* CAPABILITY {self.CAPABILITIES}\r\n")

    def authenticate(self, credentials):
        self.user = user_of(credentials)

    def select(self):
        self.send(f"* {len(self.mails())} EXISTS\r\n* OK [UIDVALIDITY 7001] valid\r\n")

    def noop(self):
        self.send(f"* {len(self.mails())} EXISTS\r\n")

    def examine(self):
        self.send(f"* {len(self.boxes.mails.get(self.user + '/Sent', []))} EXISTS\r\n")

    def search_sent(self, message_id):
        sent = self.boxes.mails.get(self.user + "/Sent", [])
        found = [str(m.uid) for m in sent if message_id.encode() in m.header()]
        self.send("* SEARCH " + " ".join(found) + "\r\n")

    def search(self, unseen, word):
        hidden = {"\\Deleted"} | ({"\\Seen"} if unseen else set())
        found = [
            str(m.uid)
            for m in self.mails()
            if not m.flags & hidden and f"subject: {word}".lower().encode() in m.header().lower()
        ]
        self.send("* SEARCH " + " ".join(found) + "\r\n")

    def fetch(self, uids, what):
        for mail in self.chosen(uids):
            flags = " ".join(sorted(mail.flags))
            header = re.search(rb"Subject:[^\r]*(\r\n[ \t][^\r]*)*\r\n", mail.content).group(0)
            parts = [f"UID {mail.uid}".encode()]
            if "FLAGS" in what:
                parts.append(f"FLAGS ({flags}) RFC822.SIZE {len(mail.content)}".encode())
            if "HEADER" in what:
                parts.append(literal("BODY[HEADER.FIELDS (SUBJECT)]<0>", header + b"\r\n"))
            if "[]" in what:
                parts.append(literal("BODY[]<0>", mail.content))
            number = self.mails().index(mail) + 1
            self.send(f"* {number} FETCH (".encode() + b" ".join(parts) + b")\r\n")

    def store(self, uids, flag):
        for mail in self.chosen(uids):
            mail.flags.add(flag)

    def expunge(self, uids):
        for mail in self.chosen(uids):
            if "\\Deleted" in mail.flags:
                self.send(f"* {self.mails().index(mail) + 1} EXPUNGE\r\n")
                self.mails().remove(mail)

    def list(self):
        self.send('* LIST () "/" INBOX\r\n* LIST (\\Sent) "/" Sent\r\n')

    def append(self, size):
        self.send("+ go on\r\n")
        content = self.take(int(size))
        self.line()
        self.boxes.put(self.user + "/Sent", content)

    COMMANDS = [
        (r"CAPABILITY", capability),
        (r"AUTHENTICATE PLAIN (\S+)", authenticate),
        (r"SELECT INBOX", select),
        (r"NOOP", noop),
        (r'EXAMINE "Sent"', examine),
        (r'UID SEARCH UNDELETED (UNSEEN )?OR SUBJECT "(\w+)" \(SINCE .*\)', search),
        (r'UID SEARCH HEADER Message-ID "(.+)"', search_sent),
        (r"UID FETCH ([\d,:]+) \((.*)\)", fetch),
        (r"UID STORE ([\d,:]+) \+FLAGS\.SILENT \((\\\w+)\)", store),
        (r"UID EXPUNGE ([\d,:]+)", expunge),
        (r'LIST "" "\*"', list),
        (r'APPEND "Sent" \(\\Seen\) \{(\d{1,6})\}', append),
    ]


def user_of(credentials):
    parts = base64.b64decode(credentials, validate=True).decode().split("\0")
    if len(parts) != 3 or parts[2] != PASSWORD:
        raise ValueError("a wrong password")
    return parts[1]


def literal(name, content):
    return f"{name} {{{len(content)}}}\r\n".encode() + content


class Greylist:
    """Lets a sender's mail to a recipient in only where its first try is long enough ago; the next
    mail between the two has to wait again."""

    def __init__(self, seconds):
        self.seconds = seconds
        self.first_tries = {}

    def lets_in(self, *pair):
        now = time.monotonic()
        if now < self.first_tries.setdefault(pair, now) + self.seconds:
            return False
        del self.first_tries[pair]
        return True

    def let_time_pass(self):
        """The wait is over for all that was tried so far."""
        self.first_tries = dict.fromkeys(self.first_tries, -self.seconds)


class SmtpTalk(Talk):
    def __init__(self, boxes, connection, greylist):
        super().__init__(boxes, connection)
        self.greylist = greylist

    def converse(self):
        sender = ""
        recipients = []
        self.send("220 ready\r\n")
        while True:
            line = self.line()
            word = line.upper()
            if word.startswith("EHLO"):
                self.send("250-here\r\n250-SIZE 1000000\r\n250 AUTH PLAIN\r\n")
            elif word == "AUTH PLAIN":
                self.send("334 \r\n")
                user_of(self.line())
                self.send("235 welcome\r\n")
            elif word.startswith("MAIL FROM:<"):
                sender = line[11:].partition(">")[0]
                recipients = []
                self.send("250 ok\r\n")
            elif word.startswith("RCPT TO:<"):
                recipient = line[9:].partition(">")[0]
                if self.greylist.lets_in(sender, recipient):
                    recipients.append(recipient)
                    self.send("250 ok\r\n")
                else:
                    self.send("450 4.2.0 Greylisted, try again later\r\n")
            elif word == "DATA" and recipients:
                self.send("354 go on\r\n")
                self.boxes.accept(recipients, self.data())
                self.send("250 taken\r\n")
            elif word == "QUIT":
                self.send("221 bye\r\n")
                return
            else:
                self.send("500 what?\r\n")

    def data(self):
        content = b""
        while (line := self.stream.readline(LONGEST_LINE)) != b".\r\n":
            if not line:
                raise EOFError
            content += line.removeprefix(b".")
        return content


class Listener:
    """Takes connections on a port of its own until it is closed."""

    def __init__(self, answer, port=0):
        self.socket = socket.create_server(("127.0.0.1", port))
        self.port = self.socket.getsockname()[1]
        self.answer = answer
        threading.Thread(target=self.listen, daemon=True).start()

    def listen(self):
        while True:
            try:
                connection, _ = self.socket.accept()
            except OSError:
                return
            connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            threading.Thread(target=self.answer, args=(connection,), daemon=True).start()

    def close(self):
        # Closing alone doesn't wake a thread that waits in accept().
        self.socket.shutdown(socket.SHUT_RDWR)
        self.socket.close()


class ScriptedServers:
    def __init__(self, greylisted_for=0):
        self.boxes = Boxes()
        self.greylist = Greylist(greylisted_for)
        self.imap = Listener(lambda connection: ImapTalk(self.boxes, connection).run())
        self.smtp = Listener(lambda connection: self.smtp_talk(connection).run())
        self.imap_port = self.imap.port
        self.smtp_port = self.smtp.port

    def smtp_talk(self, connection):
        return SmtpTalk(self.boxes, connection, self.greylist)

    def empty(self):
        self.boxes.empty()

    def put(self, address, content):
        self.boxes.put(address, content)

    def inbox(self, address):
        return self.boxes.inbox(address)

    def accepted(self):
        """Mails that the server has taken over since it was emptied."""
        return self.boxes.accepted

    def settle(self):
        """What was accepted lies in its mailbox at once."""

    def close(self):
        self.imap.close()
        self.smtp.close()
