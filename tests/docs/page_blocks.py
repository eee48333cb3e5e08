# SPDX-License-Identifier: MIT
"""What a page shows: its blocks, each with the heading above it, and the commands in its text.

As a program, page_blocks.py PAGE HEADING N/M prints the N-th block of commands below that heading, and fails unless there
are M of them: whoever runs one thereby notices another one."""

import collections
import pathlib
import re
import sys

# kind: what is behind the three "`"; "" if nothing is, None for a block without them. line: that of its first command.
Block = collections.namedtuple("Block", "kind heading line text")

_FENCE = re.compile(r"^\s*(?:```|~~~)(.*)$")
_HEADING = re.compile(r"^#+ (.*)$")
_INDENTED = re.compile(r"^(?: {4}|\t)\S")
_PREFORMATTED = re.compile(r"^\s*<pre\b")
_COMMENT = re.compile(r"^<!-- sh$.*?^-->$", re.MULTILINE | re.DOTALL)
_INLINE = re.compile(r"`([^`\n]+)`")


def blocks_of(text):
    """All blocks, in their order; not the comments of machine_page_test.py, which readers do not see."""
    blocks, heading, opened, before = [], "", None, ""
    text = _COMMENT.sub(lambda match: "\n" * match.group().count("\n"), text)
    for number, line in enumerate(text.splitlines(), start=1):
        fence = _FENCE.match(line)
        if opened and fence:
            blocks.append(Block(*opened[:3], "".join(opened[3])))
            opened = None
        elif opened:
            opened[3].append(line + "\n")
        elif fence:
            opened = [fence.group(1).strip(), heading, number + 1, []]
        elif _HEADING.match(line):
            heading = _HEADING.match(line).group(1)
        elif _PREFORMATTED.match(line) or (_INDENTED.match(line) and not before.strip()):
            blocks.append(Block(None, heading, number, line + "\n"))
        before = line
    return blocks + ([Block(*opened[:3], "".join(opened[3]))] if opened else [])


def is_of_commands(block):
    return block.kind is not None and block.kind.split()[:1] == ["sh"]


def count_of_commands(text):
    """How many blocks of commands a page has, for those who find them in another way, which must not overlook one."""
    return sum(is_of_commands(block) for block in blocks_of(text))


def commands_below(page, heading):
    """The text of each block of commands below a heading of a page, which must have one."""
    found = [block.text for block in blocks_of(pathlib.Path(page).read_text(encoding="utf-8"))
             if block.heading == heading and is_of_commands(block)]
    if not found:
        raise LookupError(f"{page} has no block of commands below \"{heading}\"")
    return found


def inline_code_of(text):
    """(line, text) of what stands between two "`", outside of blocks."""
    outside, opened = [], False
    for line in text.splitlines():
        fence = _FENCE.match(line)
        outside.append("" if opened or fence else line)
        opened ^= bool(fence)
    return [(number, code) for number, line in enumerate(outside, start=1) for code in _INLINE.findall(line)]


def examples_of_man_page(text):
    """The lines of its examples that are commands, as a reader sees them."""
    chapter = re.search(r"(?ms)^# EXAMPLES\n(.*?)^#", text)
    lines = re.findall(r"(?m)^\t((?:sudo |qmrkctl |LogTest ).*)$", chapter.group(1) if chapter else "")
    return [re.sub(r"\\(.)", r"\1", line) for line in lines]


def main(page, heading, which):
    number, count = (int(part) for part in which.split("/"))
    found = commands_below(page, heading)
    if len(found) != count:
        sys.exit(f"{page} has {len(found)} blocks of commands below \"{heading}\", not {count}")
    print(found[number - 1], end="")


if __name__ == "__main__":
    main(*sys.argv[1:])
