# SPDX-License-Identifier: MIT
"""No test that is switched off, skipped, empty or cannot fail, no unfinished code, and no silenced warning without its
reason."""

import re

_DISHONEST = re.compile(r"\bDISABLED_\w|\bGTEST_SKIP\b|\bEXPECT_TRUE\(true\)|\bASSERT_TRUE\(true\)|\bSUCCEED\(\)|"
                        r"\bEXPECT_FALSE\(false\)")
_UNFINISHED = re.compile(r"\b(?:TODO|FIXME)\b")
_SILENCED = re.compile(r"\bNOLINT\w*\b(?!END)(?:\([^)]*\))?(?P<reason>.*)")


def violations(files):
    for file in files:
        if not file.is_cxx():
            continue
        for number, line in file.numbered(file.code()):
            found = _DISHONEST.search(line)
            if found:
                yield f"{file.path}:{number}: {found.group(0)} hides what it should show"
        for number, line in file.numbered():
            if _UNFINISHED.search(line):
                yield f"{file.path}:{number}: unfinished"
            silenced = _SILENCED.search(line)
            if silenced and "NOLINTEND" not in line and not re.match(r":\s*\w.{9,}", silenced.group("reason")):
                yield f"{file.path}:{number}: NOLINT without \": reason\""
