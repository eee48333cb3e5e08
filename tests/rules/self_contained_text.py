# SPDX-License-Identifier: MIT
"""What is written here refers to nothing outside the repository: no document, chapter or folder that a reader of a
clone does not have."""

import re

_OUTSIDE = re.compile(r"\bParts? \d+\.\d|\bspecificatio[n]\b|\bspec[.]md\b|[.][.]/shared\b|"
                      r"(?<![\w.$}])/(?:work|root)/\w|\bissues? #?\d+\b", re.IGNORECASE)


def violations(files):
    for file in files:
        if file.path.startswith(("tests/golden/", "tests/rules/")):
            continue
        for number, line in file.numbered():
            found = _OUTSIDE.search(line)
            if found:
                yield f"{file.path}:{number}: \"{found.group(0)}\" refers to something outside the repository"
