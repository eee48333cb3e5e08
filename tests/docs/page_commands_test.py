#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""page_commands_test.py STAGE PAGE: runs the commands of a page, its blocks ```sh, one after the other in one shell and in
a new folder, with the installed tree STAGE in place of /usr/local. What they print must be the block ```text that follows,
where there is one, with the placeholders of expected_output.py."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

from expected_output import is_as_shown
from page_blocks import count_of_commands
from patient_commands import PATIENT

STAGE, PAGE = (pathlib.Path(argument) for argument in sys.argv[1:3])
BLOCK = re.compile(r"^```sh\n(.*?)^```\n(?:```text\n(.*?)^```)?", re.MULTILINE | re.DOTALL)


def environment(folder):
    """That of a user of a machine where the tree lies in /usr/local and ldconfig has run."""
    libraries = next(STAGE.rglob("libqmrk_log.so")).parent
    kept = {name: value for name, value in os.environ.items() if not name.startswith(("QMRK_", "DEFAULT_CA", "XDG_"))}
    return {**kept, "HOME": folder, "PATH": f"{STAGE}/bin:{kept['PATH']}", "LD_LIBRARY_PATH": str(libraries),
            "PKG_CONFIG_PATH": str(libraries / "pkgconfig")}


def run(blocks, folder):
    """What each block prints; ends the test when a command fails."""
    script = ["set -eu", PATIENT]
    for number, (commands, _) in enumerate(blocks):
        script.append(f"echo 'block {number + 1}' >&2\nexec >'{folder}/.output.{number}'")
        script.append(commands.replace("/usr/local/", f"{STAGE}/"))
    result = subprocess.run(["bash", "-c", "\n".join(script)], cwd=folder, env=environment(folder), text=True,
                            stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
    if result.returncode != 0:
        sys.exit(f"{PAGE.name}: status {result.returncode}\n{result.stderr}")
    return [pathlib.Path(folder, f".output.{number}").read_text(encoding="utf-8") for number in range(len(blocks))]


def main():
    text = PAGE.read_text(encoding="utf-8")
    blocks = BLOCK.findall(text)
    if not blocks or len(blocks) != count_of_commands(text):
        sys.exit(f"{PAGE}: {len(blocks)} blocks of {count_of_commands(text)} would be run")
    wrong = 0
    with tempfile.TemporaryDirectory() as folder:
        for (commands, expected), printed in zip(blocks, run(blocks, folder)):
            wrong += not is_as_shown(expected, printed, commands, PAGE.name)
    print(f"{PAGE.name}: {len(blocks)} blocks of commands, {wrong} with another output")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
