# SPDX-License-Identifier: MIT
"""A page that shows commands as ```sh is one whose commands a test runs: tests/docs/CMakeLists.txt names it, and
tests/packages/readme_test.py runs those of the README."""

import re

_COMMANDS = re.compile(r"^```(?:sh|bash|console)\b", re.MULTILINE)
_TESTED = re.compile(r"foreach\(page IN ITEMS ([^)]*)\)")


def violations(files):
    lists = [file.content for file in files if file.path == "tests/docs/CMakeLists.txt"]
    tested = {name for text in lists for names in _TESTED.findall(text) for name in names.split()}
    pages = {f"docs/{name}.md" for name in tested}
    if any(file.path == "tests/packages/readme_test.py" for file in files):
        pages.add("README.md")
    for file in files:
        found = _COMMANDS.search(file.content) if file.path.endswith(".md") else None
        if found and file.path not in pages:
            line = file.content.count("\n", 0, found.start()) + 1
            yield f"{file.path}:{line}: no test runs the commands of this page"
