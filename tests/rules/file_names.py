# SPDX-License-Identifier: MIT
"""One idea per file, and the name says it: no collecting names, and no two files of one name but for the two platforms'
forms of one interface."""

import re

COLLECTING = re.compile(r"(?:^|_)(?:utils?|common|misc|stuff)$|^helpers?$")
_PLATFORM = re.compile(r"(^|/)(?:linux|win32)/")


def violations(files):
    seen = {}
    for file in files:
        if not file.is_cxx():
            continue
        if COLLECTING.search(file.name.rsplit(".", 1)[0]):
            yield f"{file.path}:1: the name says nothing about the one idea of the file"
        place = _PLATFORM.sub(r"\1PLATFORM/", file.path)
        other = seen.setdefault(file.name, (place, file.path))
        if other[1] != file.path and other[0] != place:
            yield f"{file.path}:1: has the name of {other[1]}"
