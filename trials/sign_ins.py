#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Signs in from the console at a provider of our own and plays by real mail servers that ask it about
each token, as root: fetched and sent by token, renewed, revoked, refused; with servers that know one
mechanism only, and with the other one."""

import os
import sys
import tempfile

from authorization_server import CLIENT, AuthorizationServer
from mail_servers import MailServers
from players import Player, end_tidily

MECHANISMS = ["xoauth2", "oauthbearer"]

OAUTH_SETTINGS = """
introspection_mode = post
introspection_url = {url}/introspect
username_attribute = username
active_attribute = active
active_value = true
"""

PASSDB = """
auth_mechanisms = plain {mechanism}
passdb {{
  driver = oauth2
  mechanisms = {mechanism}
  args = {file}
}}
"""


class TokenServers(MailServers):
    def __init__(self, folder, provider, mechanism):
        self.provider = provider
        self.mechanism = mechanism
        super().__init__(folder)

    def write_settings(self):
        super().write_settings()
        file = self.folder / "oauth.conf"
        file.write_text(OAUTH_SETTINGS.format(url=self.provider.url))
        with open(self.folder / "dovecot.conf", "a") as settings:
            settings.write(PASSDB.format(mechanism=self.mechanism, file=file))


def expect(condition, sentence):
    if not condition:
        raise RuntimeError(sentence)


def refused(player, words, sentence):
    answer = player.console(*words)
    expect(not answer.ok and sentence in answer.error, f"{words}: {answer}")


def sign_in(player, provider, servers):
    player.set_account(servers.imap_port, servers.smtp_port)
    refused(player, ["account", "sign-in"], "Nothing is known")
    clients = player.folder / "OAuth clients.ini"
    clients.write_text(f"[localhost]\nClientId={CLIENT}\nScope=mail\nIssuer={provider.url}\n")
    provider.user = player.address
    provider.devices = ["access_denied"]
    refused(player, ["account", "sign-in"], "refused")
    player.done("account", "test")  # by the password, as before

    def meanwhile(setting):
        player.done("account", "set", setting)
        return "authorization_pending"

    name = player.done("account", "show")[0]["UserName"]
    provider.devices = [lambda: meanwhile("UserName=other")]
    refused(player, ["account", "sign-in"], "changed meanwhile")
    player.done("account", "set", f"UserName={name}")
    provider.devices = [lambda: meanwhile("SendPage=false")]
    code, end = player.done("account", "sign-in")
    expect(code == {"address": provider.url + "/enter", "code": "WXYZ-1234"}, code)
    expect(end == {"ok": True}, end)
    expect(not player.done("account", "show")[0]["SendPage"], "the sign-in undid a change")
    player.done("account", "test")


def play(player, other, provider, servers):
    sign_in(player, provider, servers)
    sign_in(other, provider, servers)
    player.done(
        "new", "--name", "trial", "--opponent", "Other", "--email", other.address,
        "--move", "5254", "--send",
    )
    servers.settle()
    fetched = other.done("retrieve")
    expect(len(fetched) == len(other.games()) == 1, f"fetched: {fetched}")

    provider.dead, given = 1, provider.given
    player.done("account", "test")
    expect(provider.given == given + 2, "a token that a server refused wasn't renewed once")

    provider.dead = 2
    refused(player, ["account", "test"], "sign in again")
    player.done("account", "test")
    provider.revoke()
    refused(player, ["account", "test"], "please sign in again")
    provider.user = player.address
    player.done("account", "sign-in")
    player.done("account", "test")
    secrets = (player.folder / "Tarvolenix.passwords").stat().st_mode & 0o077
    expect(secrets == 0, "others can read what the sign-in left")


def main():
    end_tidily()
    for mechanism in MECHANISMS:
        with tempfile.TemporaryDirectory(prefix="sign-ins-") as folder:
            os.chmod(folder, 0o755)
            player, other = Player(folder, "anna"), Player(folder, "other")
            provider = AuthorizationServer()
            servers = TokenServers(folder, provider, mechanism)
            try:
                play(player, other, provider, servers)
            finally:
                servers.close()
                provider.close()
        print(f"{mechanism}: signed in, sent, fetched, renewed, revoked, refused")


if __name__ == "__main__":
    sys.exit(main())
