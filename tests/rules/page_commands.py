# SPDX-License-Identifier: MIT
"""A test runs every block of commands of a page, as the page has it; so a page shows them as ```sh and in no other way.

Whole pages are run by the tests that tests/docs/CMakeLists.txt lists, the README by tests/packages/readme_test.py. A test
that runs the blocks below one heading takes them from the page by the names of both, through tests/docs/page_blocks.py. The
rest is listed below; of that, too, tests/docs/known_commands_test.py compares every name with what there is."""

import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "docs"))
from page_blocks import blocks_of, is_of_commands  # noqa: E402  (it lies elsewhere)

# (page, heading): why no test runs the blocks below it.
_NOT_RUN = {
    ("CONTRIBUTING.md", "Tests"):
        "one more build of everything would take longer than any other step; its tests are those of linux-tests",
    ("docs/integrations.md", "To try it"):
        "the test integrations.rsyslog is its short form; this one sends for minutes",
    ("docs/windows.md", "Building on Debian 12, with mingw-w64"):
        "they are the steps of scripts/test-windows, scripts/test-windows32 and the test windows.package",
    ("docs/windows.md", "Building with MSVC"):
        "there is no such compiler here, as the page says",
}
_KINDS = ("sh", "text", "cpp", "cmake")
_WHOLE_PAGES = re.compile(r"foreach\(page IN ITEMS ([^)]*)\)")
_BY_HEADING = re.compile(r"""(?:commands_below\(ROOT / |page_blocks\.py"? )"?(?:\$\w+/)?([\w./-]+\.md)"?,? ["']([^"']+)["']""")
# What somebody would type.
_TYPED = re.compile(r"\s*(?:[$#] |(?:sudo|cd|cp|mkdir|cmake|ctest|cpack|apt(?:-get)?|git|g\+\+|qmrkctl|LogTest|lnav|systemctl|"
                    r"docker|msiexec|(?:\./)?(?:scripts|tests|bench)/[\w/.-]+) +\S)")


def _whole_pages(files):
    for file in files:
        if file.path == "tests/docs/CMakeLists.txt":
            for names in _WHOLE_PAGES.findall(file.content):
                yield from (f"docs/{name}.md" for name in names.split())
        elif file.path == "tests/packages/readme_test.py":
            yield "README.md"


def _is_output(block, before):
    """Whether a block of commands stands right before it; the tests compare what they print."""
    return before and is_of_commands(before) and block.line - before.line - before.text.count("\n") <= 3


def _fault_of(block, before, is_run):
    kind = (block.kind or "").split(" ")[0]
    if block.kind is None:
        return "a block without ```: commands stand in a block ```sh, text in one ```text"
    if kind not in _KINDS:
        return f"nothing reads a block ```{kind}: commands stand in a block ```sh, text in one ```text"
    if kind == "text" and not _is_output(block, before) and _TYPED.match(block.text):
        return "commands stand in a block ```sh"
    if kind == "sh" and not is_run:
        return f"no test runs the commands below \"{block.heading}\""
    return None


def violations(files):
    by_heading = {place for file in files if file.path.startswith(("tests/", "scripts/"))
                  for place in _BY_HEADING.findall(file.content)}
    whole, parts = set(_whole_pages(files)), by_heading | set(_NOT_RUN)
    for file in (f for f in files if f.path.endswith(".md")):
        before, headings = None, set()
        for block in blocks_of(file.content):
            fault = _fault_of(block, before, file.path in whole or (file.path, block.heading) in parts)
            if fault:
                yield f"{file.path}:{block.line}: {fault}"
            if is_of_commands(block):
                headings.add(block.heading)
            before = block
        for heading in sorted(name for page, name in parts if page == file.path and name not in headings):
            yield f"{file.path}: a test, or the rule page_commands, names commands below \"{heading}\", where there are none"
