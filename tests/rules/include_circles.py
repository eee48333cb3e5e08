# SPDX-License-Identifier: MIT
"""No header includes itself, directly or through others: each can be read before those that use it."""

import re

_INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.MULTILINE)
_ROOTS = ("", "include/", "logmanager/include/")


def _includes(headers):
    """{path: the headers of this project that it includes}"""
    return {path: [root + name for name in _INCLUDE.findall(content) for root in _ROOTS if root + name in headers]
            for path, content in headers.items()}


def _reached(path, includes):
    """All headers that one includes, directly or through others."""
    reached, waiting = set(), list(includes[path])
    while waiting:
        included = waiting.pop()
        if included not in reached:
            reached.add(included)
            waiting += includes[included]
    return reached


def violations(files):
    includes = _includes({file.path: file.content for file in files if file.is_header()})
    for path in includes:
        if path in _reached(path, includes):
            yield f"{path}:1: includes itself, directly or through others"
