#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes a manual page: its text with the verbs that the console companion's own help tells of.

    man_page.py PAGE.in PROGRAM > PAGE
"""

import subprocess
import sys


def escaped(text):
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return "\\&" + text if text.startswith((".", "'")) else text


def verbs(help_text):
    """A line of two blanks is a verb's usage, the one of six behind it what it does."""
    lines = help_text.splitlines()
    for usage, does in zip(lines, lines[1:]):
        if usage.startswith("  ") and not usage.startswith("   ") and does.startswith("      "):
            yield f".TP\n.B {escaped(usage.strip())}\n{escaped(does.strip())}"


def main():
    page, program = sys.argv[1:]
    told = subprocess.run([program, "--help"], check=True, capture_output=True, text=True).stdout
    with open(page, encoding="utf-8") as template:
        print(template.read().replace("@VERBS@", "\n".join(verbs(told))), end="")


main()
