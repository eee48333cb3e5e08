#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""readme_test.py ROOT FOLDER: does what the README says, from the first command to the last, in a clone in the clean Debian
in FOLDER, as the user ann, who may use sudo; and then goes over to the packages, as docs/deployment.md says: takes away what
the README has installed, makes the packages and installs them. What the commands of a block print must be the block ```text
behind it, with the placeholders of tests/docs/expected_output.py.

One thing is not literal: scripts/test is left out, since it is what runs this."""

import os
import pathlib
import re
import subprocess
import sys

ROOT, FOLDER = (pathlib.Path(argument) for argument in sys.argv[1:3])
sys.path.insert(0, str(ROOT / "tests" / "docs"))
from expected_output import is_as_shown  # noqa: E402  (it lies elsewhere)
from page_blocks import commands_below, count_of_commands  # noqa: E402

BLOCK = re.compile(r"^```sh\n(.*?)^```\n(?:```text\n(.*?)^```)?", re.MULTILINE | re.DOTALL)
CLONE = "home/ann/qmrk_log"
AS_ANN = ["setpriv", "--reuid=1234", "--regid=1234", "--clear-groups", "env", "-i", "PATH=/usr/local/bin:/usr/bin:/bin",
          "HOME=/home/ann", "LC_ALL=C.UTF-8"]

# What must be true where the README ends, after the block that takes its installation away, and at the end.
INSTALLED = "test -s /usr/local/share/man/man1/qmrkctl.1.gz && test -s /usr/local/share/zsh/site-functions/_qmrkctl"
TAKEN_AWAY = "! { find /usr/local -name '*qmrk*'; /usr/sbin/ldconfig -p | grep qmrk; } | grep ."
PACKAGED = ("test $(command -v qmrkctl) = /usr/bin/qmrkctl && ldd default_set_up | grep -q '=> /lib/.*libqmrk_log' && "
            "./default_set_up && qmrkctl doctor && ! dpkg --audit | grep .")


def as_root(*words, **settings):
    return subprocess.run([*([] if os.geteuid() == 0 else ["sudo"]), *words], check=True, **settings)


def in_root(script, *words, **settings):
    """Runs a script there, with processes and shared memory of its own, as root or as what the words become."""
    inside = 'mount -t proc proc "$0/proc" && mount -t tmpfs -o mode=1777 shm "$0/dev/shm" && exec chroot "$0" "$@"'
    return as_root("unshare", "--mount", "--pid", "--fork", "--kill-child", "sh", "-c", inside, str(FOLDER), *words,
                   "bash", "-c", script, stdin=subprocess.DEVNULL, text=True, **settings)


def prepare():
    clone = FOLDER / CLONE
    as_root("mkdir", "-p", str(clone), str(FOLDER / "dev/shm"))
    files = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, capture_output=True, check=True).stdout
    archive = subprocess.run(["tar", "--null", "--files-from=-", "-cf", "-"], cwd=ROOT, input=files, capture_output=True,
                             check=True).stdout
    as_root("tar", "-C", str(clone), "-xf", "-", input=archive)
    in_root(f"""set -e
sed -i /Assume-Yes/d /etc/apt/apt.conf.d/90answers
echo 'ann ALL=(ALL) NOPASSWD: ALL' >/etc/sudoers.d/ann
echo "127.0.0.1 localhost $(uname -n)" >>/etc/hosts
useradd --no-create-home --uid 1234 --user-group ann
chown -R ann: /home/ann""")


def commands_of(block):
    """Without those that stand for the run of this very test."""
    lines = block.splitlines()
    kept = [line for line in lines if not line.startswith("scripts/test")]
    for line in lines:
        print(f"$ {line}" if line in kept else f"(left out, since it is what runs this: {line})")
    return "\n".join(kept)


def as_ann(script, **settings):
    return in_root(f"cd /{CLONE} && set -e\n{script}", "/usr/bin/" + AS_ANN[0], *AS_ANN[1:], **settings)


def main():
    text = (ROOT / "README.md").read_text(encoding="utf-8")
    blocks = BLOCK.findall(text)
    if not blocks or len(blocks) != count_of_commands(text):
        sys.exit(f"README.md: {len(blocks)} blocks of {count_of_commands(text)} would be run")
    checks = {len(blocks) - 1: INSTALLED, len(blocks): TAKEN_AWAY}
    blocks += [(block, "") for block in commands_below(ROOT / "docs/deployment.md", "Debian packages")]
    checks[len(blocks) - 1] = PACKAGED
    prepare()
    wrong = 0
    for number, (block, expected) in enumerate(blocks):
        commands = commands_of(block)
        sys.stdout.flush()
        printed = as_ann(commands, stdout=subprocess.PIPE).stdout
        wrong += bool(expected) and not is_as_shown(expected, printed, commands, "README.md")
        as_ann(checks.get(number, ""))
    print(f"README.md and docs/deployment.md: {len(blocks)} blocks of commands, {wrong} with another output")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
