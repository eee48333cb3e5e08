#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""man_page_examples_test.py STAGE ROOT: runs the examples of the man pages on a private machine with a configuration, on
which LogTest runs and stands for the application "shop". sudo becomes nobody else there; who follows a log is ended after a
second; and applications have a minute to answer."""

import pathlib
import subprocess
import sys

from page_blocks import examples_of_man_page

STAGE, ROOT = (pathlib.Path(argument) for argument in sys.argv[1:3])
PRIVATE_MACHINE = pathlib.Path(__file__).with_name("private_machine")
PREPARATION = """set -eu
sudo() { "$@"; }
follow() { timeout 1 "$@" || [ $? -eq 124 ]; }
cp /usr/local/share/doc/qmrk_log/examples/*.cfg "/etc/xdg/Orvane Shared/qmrk/logging/cfg"
cp /usr/local/share/doc/qmrk_log/examples/*.init /var/lib/Orvane/qmrk/logging
LogTest --listen 600 >/dev/null &
log=~/.local/share/Orvane/Quillmark/Logging/common.log
until grep -s -q Demo.App.info "$log" && qmrkctl apps --json | grep -q '"listens": "yes"'; do kill -0 $!; sleep 0.1; done
set -x
"""


def as_run(command):
    if " -f " in command:
        return "follow " + command
    if " classes " in command:
        return command + " --wait 60s"
    return command.replace("--app shop", "--app LogTest")


def main():
    examples = [line for page in sorted((ROOT / "docs" / "man").glob("*.scd"))
                for line in examples_of_man_page(page.read_text(encoding="utf-8"))]
    if len(examples) < 5:
        sys.exit(f"The man pages have only these examples: {examples}")
    script = "\n".join([PREPARATION, *(as_run(line) for line in examples)])
    result = subprocess.run([PRIVATE_MACHINE, STAGE, "bash", "-c", script], text=True, stdin=subprocess.DEVNULL, check=False,
                            stderr=subprocess.STDOUT, stdout=subprocess.PIPE)
    print(result.stdout)
    return result.returncode


if __name__ == "__main__":
    sys.exit(main())
