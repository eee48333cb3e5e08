# SPDX-License-Identifier: MIT
"""Headers are guarded: the public ones, which are read by every compiler, by include guards, the others by a pragma."""

import re

_PUBLIC = re.compile(r"(?:include|logmanager/include)/")
_GUARD = re.compile(r"^#ifndef (\w+)\n#define \1\n", re.MULTILINE)


def violations(files):
    for file in files:
        if not file.is_header():
            continue
        if _PUBLIC.match(file.path):
            if not _GUARD.search(file.content):
                yield f"{file.path}:1: a public header needs an include guard"
        elif "#pragma once" not in file.lines:
            yield f"{file.path}:1: #pragma once is missing"
