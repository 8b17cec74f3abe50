# SPDX-License-Identifier: GPL-3.0-or-later
"""A provider on this machine that signs people in (OAuth 2): by the browser, which is sent back at
once, or by a code for another device. Mail servers ask it whether a token still counts."""

import base64
import hashlib
import itertools
import json
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from urllib.parse import parse_qs, urlencode, urlsplit

CLIENT = "trial"


class Refused(Exception):
    pass


class AuthorizationServer:
    def __init__(self):
        self.user = ""  # who signs in next
        self.lock = threading.Lock()
        self.numbers = itertools.count(1)
        self.refresh = {}  # whose each is
        self.access = {}
        self.dead = 0  # the next tokens that no server will take
        self.codes = {}  # of browsers, with their proofs
        self.devices = []  # what is answered to them, one after the other, or told by a function
        self.given = 0
        owner = self

        class Handler(BaseHTTPRequestHandler):
            def do_GET(self):
                self.answer(urlsplit(self.path).query)

            def do_POST(self):
                self.answer(self.rfile.read(int(self.headers["Content-Length"])).decode())

            def answer(self, text):
                fields = {name: values[0] for name, values in parse_qs(text).items()}
                try:
                    with owner.lock:
                        code, content = 200, owner.PLACES[urlsplit(self.path).path](owner, fields)
                except Refused as refusal:
                    code, content = 400, {"error": str(refusal)}
                place = content.pop("redirect", None)
                self.send_response(302 if place else code)
                if place:
                    self.send_header("Location", place)
                self.send_header("Content-Type", "application/json")
                self.end_headers()
                self.wfile.write(json.dumps(content).encode())

            def log_message(self, *_):
                pass

        self.server = ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.url = f"http://127.0.0.1:{self.server.server_port}"
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def revoke(self):
        with self.lock:
            self.refresh.clear()
            self.access.clear()

    def metadata(self, _):
        return {
            "issuer": self.url,
            "authorization_endpoint": self.url + "/authorize",
            "token_endpoint": self.url + "/token",
            "device_authorization_endpoint": self.url + "/device",
        }

    def authorize(self, fields):
        if fields["client_id"] != CLIENT or fields["code_challenge_method"] != "S256":
            raise Refused("invalid_request")
        code = f"code{next(self.numbers)}"
        self.codes[code] = fields
        back = urlencode({"code": code, "state": fields["state"]})
        return {"redirect": f"{fields['redirect_uri']}/?{back}"}

    def device(self, _):
        return {
            "device_code": "device", "user_code": "WXYZ-1234", "interval": 1, "expires_in": 60,
            "verification_uri": self.url + "/enter",
        }

    def token(self, fields):
        if fields.get("client_id") != CLIENT:
            raise Refused("invalid_client")
        kind = fields["grant_type"].rpartition(":")[2]
        if kind == "device_code" and self.devices and (word := self.devices.pop(0)):
            raise Refused(word if isinstance(word, str) else word())
        if kind == "authorization_code" and not self.is_proved(fields):
            raise Refused("invalid_grant")
        if kind == "refresh_token" and fields["refresh_token"] not in self.refresh:
            raise Refused("invalid_grant")
        return self.give(self.refresh.pop(fields.get("refresh_token"), self.user))  # counts once

    def is_proved(self, fields):
        asked = self.codes.pop(fields["code"], None)
        digest = hashlib.sha256(fields["code_verifier"].encode()).digest()
        challenge = base64.urlsafe_b64encode(digest).rstrip(b"=").decode()
        return (
            asked is not None
            and asked["code_challenge"] == challenge
            and asked["redirect_uri"] == fields["redirect_uri"]
        )

    def give(self, user):
        number = next(self.numbers)
        access, refresh = f"access{number}", f"refresh{number}"
        self.refresh[refresh] = user
        self.given += 1
        if self.dead:
            self.dead -= 1
        else:
            self.access[access] = user
        return {"access_token": access, "refresh_token": refresh, "expires_in": 3600}

    def introspect(self, fields):
        user = self.access.get(fields.get("token"))
        return {"active": True, "username": user} if user else {"active": False}

    PLACES = {
        "/.well-known/oauth-authorization-server": metadata,
        "/authorize": authorize,
        "/device": device,
        "/token": token,
        "/introspect": introspect,
    }

    def close(self):
        self.server.shutdown()
