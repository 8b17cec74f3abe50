# SPDX-License-Identifier: GPL-3.0-or-later
"""Real mail servers on this machine and for nobody else: Dovecot keeps the mailboxes and takes the
users' mail, OpenSMTPD behind it delivers. Every address is a user's name. Where encryption starts on
demand it may stay off, so that the wire can be cut at a place that is known. They go with this
process, whatever ends it."""

import os
import pwd
import re
import shutil
import socket
import subprocess
import time
from pathlib import Path

from certificates import make_certificates
from players import PASSWORD, end_with_parent
from scripted_server import UID_STEP

DOVECOT = "/usr/sbin/dovecot"
SMTPD = "/usr/sbin/smtpd"
OWNER = "mail"

# Nothing can be sent there.
REFUSED = "full@localhost"

# Where OpenSMTPD of any folder has its one control socket.
RUN_FOLDER = "/run"
CONTROL_SOCKET = "/run/smtpd.sock"

LONGEST_START = 20
LONGEST_DELIVERY = 20
LONGEST_WAIT_FOR_OTHERS = 300

DOVECOT_SETTINGS = """
base_dir = {folder}/run
state_dir = {folder}/run
log_path = {folder}/dovecot.log
protocols = imap submission
listen = 127.0.0.1, 127.0.0.2, 127.0.0.3, 127.0.0.4
ssl = yes
ssl_cert = <{folder}/good.pem
ssl_key = <{folder}/good.key
local 127.0.0.2 {{
  ssl_cert = <{folder}/expired.pem
  ssl_key = <{folder}/expired.key
}}
local 127.0.0.3 {{
  ssl_cert = <{folder}/foreign.pem
  ssl_key = <{folder}/foreign.key
}}
local 127.0.0.4 {{
  ssl = no
}}
disable_plaintext_auth = no
auth_failure_delay = 0
service imap-login {{
  inet_listener imap {{
    port = {imap}
  }}
  inet_listener imaps {{
    port = {imaps}
  }}
}}
service submission-login {{
  inet_listener submission {{
    port = {smtp}
  }}
  inet_listener submissions {{
    port = {smtps}
    ssl = yes
  }}
}}
submission_relay_host = 127.0.0.1
submission_relay_port = {relay}
service anvil {{
  unix_listener anvil-auth-penalty {{
    mode = 0
  }}
}}
first_valid_uid = 1
mail_max_userip_connections = 1000
passdb {{
  driver = static
  args = password={password}
}}
userdb {{
  driver = static
  args = uid={owner} gid={owner} home={folder}/mail/%Lu
}}
mail_location = maildir:{folder}/mail/%Lu
namespace inbox {{
  inbox = yes
  mailbox Sent {{
    auto = create
    special_use = \\Sent
  }}
}}
"""

SMTPD_SETTINGS = """
listen on 127.0.0.1 port {relay}
action deliver maildir "{folder}/mail/%{{rcpt.user:lowercase}}@%{{rcpt.domain:lowercase}}" \\
  user {owner} virtual {{ "@" = {owner} }}
match from any for rcpt-to "{refused}" reject
match from any for any action deliver
"""


def free_ports(count):
    sockets = [socket.create_server(("127.0.0.1", 0)) for _ in range(count)]
    ports = [each.getsockname()[1] for each in sockets]
    for each in sockets:
        each.close()
    return ports


def answers(port):
    try:
        socket.create_connection(("127.0.0.1", port), 1).close()
        return True
    except OSError:
        return False


def wait_until(condition, seconds, what):
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            raise RuntimeError(what)
        time.sleep(0.01)


class Server:
    def __init__(self, command, log, port):
        with open(log, "ab") as out:
            self.process = subprocess.Popen(
                command, stdin=subprocess.DEVNULL, stdout=out, stderr=out,
                preexec_fn=end_with_parent,
            )
        wait_until(
            lambda: answers(port) or self.process.poll() is not None,
            LONGEST_START, f"A mail server doesn't start; see {log}",
        )
        if self.process.poll() is not None:
            raise RuntimeError(f"A mail server doesn't start: {Path(log).read_text()}")

    def stop(self):
        self.process.terminate()
        try:
            self.process.wait(10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()


class MailServers:
    def __init__(self, folder):
        if os.geteuid() != 0 or not (os.path.exists(DOVECOT) and os.path.exists(SMTPD)):
            raise RuntimeError("Real mail servers want root and scripts/prepare mail.")
        self.folder = Path(folder) / "servers"
        (self.folder / "run").mkdir(parents=True)
        self.mail = self.folder / "mail"
        self.mail.mkdir()
        self.owner = pwd.getpwnam(OWNER)
        os.chown(self.mail, self.owner.pw_uid, self.owner.pw_gid)
        make_certificates(self.folder)
        ports = free_ports(5)
        self.imap_port, self.imaps_port, self.smtp_port, self.smtps_port, self.relay_port = ports
        self.write_settings()
        self.accepted_before = 0
        self.delivery = self.start_delivery()
        self.boxes = self.start_boxes()

    def write_settings(self):
        values = {
            "folder": self.folder, "owner": OWNER, "password": PASSWORD,
            "imap": self.imap_port, "imaps": self.imaps_port, "smtp": self.smtp_port,
            "smtps": self.smtps_port, "relay": self.relay_port, "refused": REFUSED,
        }
        for name, text in (("dovecot", DOVECOT_SETTINGS), ("smtpd", SMTPD_SETTINGS)):
            (self.folder / f"{name}.conf").write_text(text.format(**values))

    def start_boxes(self):
        command = [DOVECOT, "-F", "-c", self.folder / "dovecot.conf"]
        server = Server(command, self.folder / "dovecot.log", self.imap_port)
        wait_until(lambda: answers(self.smtp_port), LONGEST_START, "Dovecot takes no mail")
        return server

    def start_delivery(self):
        words = [SMTPD, "-d", "-B", "queue=ram", "-f", str(self.folder / "smtpd.conf")]
        apart = ["unshare", "--mount", "--propagation", "private"]
        may_part = subprocess.run([*apart, "true"], stderr=subprocess.DEVNULL).returncode == 0
        if may_part:
            # With a run folder that nobody else sees it stands in nobody's way.
            hidden = f"mount -t tmpfs tmpfs {RUN_FOLDER} && exec \"$@\""
            words = [*apart, "sh", "-c", hidden, "sh", *words]
        else:
            wait_until(
                lambda: not os.path.exists(CONTROL_SOCKET), LONGEST_WAIT_FOR_OTHERS,
                "Another OpenSMTPD runs on this machine, or has left its socket behind.",
            )
        return Server(words, self.log(), self.relay_port)

    def log(self):
        return self.folder / "smtpd.log"

    def count(self, word):
        return self.log().read_text("utf-8", "replace").count(word)

    def taken(self):
        return self.count(" smtp envelope evpid=")

    def accepted(self):
        return self.taken() - self.accepted_before

    def settle(self):
        """Returns when all that was accepted lies in its mailbox."""
        wait_until(
            lambda: self.taken() == self.count(" stat=Delivered"), LONGEST_DELIVERY,
            f"A mail wasn't delivered; see {self.log()}",
        )

    def restart(self):
        """The mailboxes are closed first: the queue of the delivery is lost with it."""
        self.boxes.stop()
        self.settle()
        self.delivery.stop()
        self.delivery = self.start_delivery()
        self.boxes = self.start_boxes()

    def await_nobody(self):
        """A session that still ends would write into the mailboxes."""
        listed = ["doveadm", "-c", self.folder / "dovecot.conf", "who", "-1"]

        def is_alone():
            out = subprocess.run(listed, capture_output=True).stdout
            return not re.search(rb" imap | submission ", out)

        wait_until(is_alone, LONGEST_START, "Somebody stays logged on.")

    def empty(self):
        self.settle()
        self.await_nobody()
        for box in self.mail.iterdir():
            shutil.rmtree(box)
        self.accepted_before = self.taken()

    def passwords_seen(self):
        """How often somebody has shown a password so far, a right one or a wrong one."""
        log = (self.folder / "dovecot.log").read_text("utf-8", "replace")
        return len(re.findall(r": Login: user=|\(auth failed", log))

    def make_box(self, address):
        box = self.mail / address
        for part in ("", "cur", "new", "tmp"):
            (box / part).mkdir(exist_ok=True)
            os.chown(box / part, self.owner.pw_uid, self.owner.pw_gid)
        return box

    def put(self, address, content):
        """Beside the server, while nobody looks, with a number of our choice."""
        box = self.make_box(address)
        numbered = box / "dovecot-uidlist"
        lines = numbered.read_text().splitlines()[1:] if numbered.exists() else []
        uid = (len(lines) + 2) * UID_STEP
        name = f"{1000000000 + uid}.M{uid}P1.trial"
        (box / "cur" / f"{name}:2,").write_bytes(content)
        lines.append(f"{uid} :{name}")
        header = f"3 V7001 N{uid + UID_STEP}"
        numbered.write_text("\n".join([header, *lines]) + "\n")
        for path in (box / "cur" / f"{name}:2,", numbered):
            os.chown(path, self.owner.pw_uid, self.owner.pw_gid)

    def files(self, address, deleted=False):
        """The mails there, or those that are marked as deleted and still there."""
        box = self.mail / address
        mails = [*(box / "new").glob("*"), *(box / "cur").glob("*")]
        return [mail for mail in mails if ("T" in mail.name.partition(":2,")[2]) == deleted]

    def inbox(self, address):
        self.settle()
        return [file.read_bytes() for file in self.files(address)]

    def oldest(self, address):
        """When the one that waits longest came; now, where none does."""
        times = [time.time()]
        for file in self.files(address):
            try:
                times.append(file.stat().st_mtime)
            except FileNotFoundError:
                pass  # collected meanwhile
        return min(times)

    def close(self):
        self.boxes.stop()
        self.delivery.stop()
