# SPDX-License-Identifier: MIT
"""Parameters begin with an underscore, and some such names are macros of the Windows C run-time."""

import re

FORBIDDEN = ("_environ _fmode _pgmptr _iob _stat _fstat _timeb _ftime _threadid _doserrno _osver _winver _wctype "
             "_inline _huge _countof _alloca _toupper _tolower").split()
_PATTERN = re.compile(r"(?<![\w.>:])(" + "|".join(FORBIDDEN) + r")\b(?!\s*\()")


def violations(files):
    for file in files:
        if not file.is_cxx() or file.path.startswith("platform/win32/"):
            continue
        for number, line in file.numbered(file.code()):
            for found in _PATTERN.finditer(line):
                yield f"{file.path}:{number}: {found.group(1)} is a macro of the Windows C run-time"
