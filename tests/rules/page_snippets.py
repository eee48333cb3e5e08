# SPDX-License-Identifier: MIT
"""What a page or a public header shows as code is the text of a file in examples/, which tests compile and run: all of
its runs of lines without a blank one stand in one such file, as they are but for indentation."""

import re

_PAGE = re.compile(r"^```(?:cpp|cmake)\n(.*?)^```", re.MULTILINE | re.DOTALL)
_HEADER = re.compile(r"^ *///? @code\n(.*?)^ *///? @endcode", re.MULTILINE | re.DOTALL)
_COMMENT = re.compile(r"^ *///? ?", re.MULTILINE)


def _runs(text):
    """The runs of lines without a blank one."""
    return [[line.strip() for line in run.splitlines()] for run in re.split(r"\n\s*\n", text.strip())]


def _stands_in(run, example):
    return any(example[start:start + len(run)] == run for start in range(len(example) - len(run) + 1))


def _snippets(file):
    if file.path.endswith(".md"):
        return ((match.start(1), match.group(1)) for match in _PAGE.finditer(file.content))
    if file.is_header() and "include" in file.path.split("/")[:2]:
        return ((match.start(1), _COMMENT.sub("", match.group(1))) for match in _HEADER.finditer(file.content))
    return ()


def violations(files):
    examples = [[line.strip() for line in file.lines] for file in files
                if file.folder == "examples" and file.path.endswith((".cpp", "CMakeLists.txt"))]
    for file in files:
        for start, text in _snippets(file):
            line = file.content.count("\n", 0, start) + 1
            if not any(all(_stands_in(run, example) for run in _runs(text)) for example in examples):
                yield f"{file.path}:{line}: not the text of an example: {text.strip().splitlines()[0]}"
