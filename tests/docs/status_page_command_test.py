#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""status_page_command_test.py ROOT BUILD: the command of docs/status-page.md measures what the page says, here with the
programs of another build, and with fewer of them."""

import pathlib
import re
import subprocess
import sys

from page_blocks import commands_below

ROOT, BUILD = (pathlib.Path(argument) for argument in sys.argv[1:3])
FOLDER = "build/linux-release/tools"
FIGURES = ("event set until answer seen", "whole command until its end", "doctor")


def main():
    command, = commands_below(ROOT / "docs/status-page.md", "What it tells about an update")
    if FOLDER not in command:
        sys.exit(f"not with the programs in {FOLDER}: {command}")
    command = command.replace(FOLDER, str(BUILD / "tools")).rstrip() + " 3 6"
    printed = subprocess.run(["bash", "-ec", command], cwd=ROOT, stdout=subprocess.PIPE, text=True, check=True).stdout
    print(printed, end="")
    for name in FIGURES:
        if not re.search(rf"(?m)^{name}: median [\d.]+ ms, p99 [\d.]+ ms", printed):
            sys.exit(f"there is no figure of \"{name}\"")


if __name__ == "__main__":
    main()
