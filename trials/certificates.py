# SPDX-License-Identifier: GPL-3.0-or-later
"""The certificates of the mail servers."""

import subprocess

OFFICE = r"""
new_key='-newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes'

authority() {  # NAME
  openssl req -x509 -days 7 -subj "/CN=Test $1" -keyout "$1.key" -out "$1.pem" $new_key
}

certificate() {  # NAME HOSTS DAYS
  openssl req -subj "/CN=$1" -addext "subjectAltName=$2" -keyout "$1.key" -out "$1.csr" $new_key
  openssl x509 -req -CA authority.pem -CAkey authority.key -CAcreateserial \
    -copy_extensions copy -in "$1.csr" -out "$1.pem" -days "$3"
}

authority authority
authority other
certificate good DNS:localhost,IP:127.0.0.1 7
certificate expired IP:127.0.0.2 -1
certificate foreign DNS:other.example 7
"""


def make_certificates(folder):
    """The authorities "authority" and "other", and from the first one "good", "expired" and
    "foreign"; each as a ".pem" and a ".key"."""
    made = subprocess.run(["sh", "-ec", OFFICE], cwd=folder, capture_output=True, text=True)
    if made.returncode != 0:
        raise RuntimeError("No certificates can be made: " + made.stderr)
