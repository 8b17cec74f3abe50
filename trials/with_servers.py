#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs a command beside real mail servers, as root, and ends with its exit code:

    trials/with_servers.py COMMAND...

The command learns from its environment where they are. What it wants of them it writes into the
pipe ORDERS; when that is done, the answer comes through the pipe ANSWERS."""

import os
import subprocess
import sys
import tempfile
import threading
from pathlib import Path

from mail_servers import REFUSED, MailServers
from players import PASSWORD, end_tidily, end_with_parent

USER = "user@localhost"


def told(servers, orders, answers):
    return {
        "MAIL_USER": USER,
        "MAIL_PASSWORD": PASSWORD,
        "REFUSED_RECIPIENT": REFUSED,
        "MAIL_FOLDER": servers.mail,
        "ORDERS": orders,
        "ANSWERS": answers,
        # The servers answer alike under each of these, on the same ports.
        "GOOD_HOST": "localhost",
        "GOOD_HOST_BY_NUMBER": "127.0.0.1",
        "EXPIRED_HOST": "127.0.0.2",  # its certificate has expired
        "FOREIGN_HOST": "127.0.0.3",  # has the certificate of another
        "PLAIN_HOST": "127.0.0.4",  # offers no STARTTLS
        "IMAP_PORT": servers.imap_port,
        "IMAPS_PORT": servers.imaps_port,
        "SMTP_PORT": servers.smtp_port,
        "SMTPS_PORT": servers.smtps_port,
        # All good certificates come from the first authority; the other one knows nobody.
        "SSL_CERT_FILE": servers.folder / "authority.pem",
        "OTHER_AUTHORITY": servers.folder / "other.pem",
    }


def obey(servers, orders, answers):
    def empty():
        servers.empty()
        servers.make_box(USER)

    known = {"empty": empty, "settle": servers.settle, "count passwords": servers.passwords_seen}
    while True:
        order = orders.read_text()
        try:
            answer = known[order]() or 0
        except Exception as error:
            answer = f"{order}: {error!r}"
        answers.write_text(str(answer))


def main():
    end_tidily()
    with tempfile.TemporaryDirectory(prefix="servers-") as folder:
        os.chmod(folder, 0o755)
        pipes = [Path(folder) / name for name in ("orders", "answers")]
        for pipe in pipes:
            os.mkfifo(pipe)
        servers = MailServers(folder)
        try:
            threading.Thread(target=obey, args=(servers, *pipes), daemon=True).start()
            more = {name: str(value) for name, value in told(servers, *pipes).items()}
            environment = {**os.environ, **more}
            command = subprocess.run(sys.argv[1:], env=environment, preexec_fn=end_with_parent)
            return command.returncode
        finally:
            servers.close()


if __name__ == "__main__":
    sys.exit(main())
