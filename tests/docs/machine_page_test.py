#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""machine_page_test.py STAGE PAGE: runs the commands of a page about an installed machine, one after the other in one
shell, as the user anna of a private machine. Each block ```sh must end with the status that it names (```sh status=1), else
with 0, no earlier command in it may fail, and it must print the block ```text behind it, if there is one, with the
placeholders of expected_output.py. What breaks the machine before a command stands in a comment <!-- sh ... -->, which
readers do not see."""

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
PRIVATE_MACHINE = pathlib.Path(__file__).with_name("private_machine")
BLOCK = re.compile(r"^<!-- sh\n(?P<hidden>.*?)^-->|"
                   r"^```sh(?: status=(?P<status>\d+))?\n(?P<shown>.*?)^```\n\n?(?:^```text\n(?P<text>.*?)^```)?",
                   re.MULTILINE | re.DOTALL)


def script_of(blocks, folder):
    """What a block prints goes into a file of its number."""
    lines = ["set -eu", "exec 3>&2 >/dev/null", PATIENT]
    for number, block in enumerate(blocks):
        lines.append(f"echo 'block {number + 1}' >&3")
        if block["hidden"] is not None:
            lines.append(block["hidden"])
            continue
        lines.append(f"failures=0; trap 'failures=$((failures + 1))' ERR; set +e\n"
                     f"{{\n{block['shown']}\n}} >'{folder}/{number}' 2>&1\nstatus=$?; trap - ERR; set -e")
        wanted = block["status"] or 0
        lines.append(f"[ $status -eq {wanted} ] && [ $failures -le $((status != 0)) ] || {{ "
                     f"echo \"status $status instead of {wanted}, $failures failed:\"; cat '{folder}/{number}'; exit 1; }} >&3")
    return "\n".join(lines)


def main():
    text = PAGE.read_text(encoding="utf-8")
    blocks = [match.groupdict() for match in BLOCK.finditer(text)]
    shown = [number for number, block in enumerate(blocks) if block["hidden"] is None]
    if not shown or len(shown) != count_of_commands(text):
        sys.exit(f"{PAGE}: {len(shown)} blocks of {count_of_commands(text)} would be run")
    wrong = 0
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o777)
        result = subprocess.run([PRIVATE_MACHINE, STAGE, "bash", "-c", script_of(blocks, folder)], text=True,
                                stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
        if result.returncode != 0:
            sys.exit(f"{PAGE.name}: status {result.returncode}\n{result.stderr}")
        for number in shown:
            printed = pathlib.Path(folder, str(number)).read_text(encoding="utf-8")
            text = blocks[number]["text"]
            wrong += text is not None and not is_as_shown(text, printed, blocks[number]["shown"], PAGE.name)
    print(f"{PAGE.name}: {len(shown)} blocks of commands, {wrong} with another output")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
