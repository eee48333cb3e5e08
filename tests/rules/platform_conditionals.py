# SPDX-License-Identifier: MIT
"""What differs between the platforms stands behind the seam: no other file asks which platform it is compiled for, or
includes a header that only one platform has. The benchmarks call the system themselves, to be compared with."""

import re

CONDITIONAL = re.compile(r"\s*#\s*(?:el)?if\w*\b.*\b(_?_?WIN(?:32|64)(?:__|_)?|_MSC_VER|_?_?MINGW\w*|__CYGWIN__|"
                         r"_?_?linux(?:__)?|__gnu_linux__|_?_?unix(?:__)?|__APPLE__|__GNUC__|__ELF__)\b")
SYSTEM_HEADER = re.compile(
    r'\s*#\s*include\s*[<"]((?:windows|winver|winsock2|winreg|shlobj|conio|io|direct|process|tlhelp32|psapi|unistd|'
    r"fcntl|pthread|dlfcn|link|elf|pwd|grp|spawn|poll|termios|pty|signal|syslog|sched|dirent)\.h|(?:sys|linux)/[^>\"]+)"
    r'[>"]')

_SEAM = re.compile(r"platform/|include/quillmark_logging_export\.h$|"
                   r"logmanager/include/boost/logging/detail/export\.hpp$|"
                   r"(?:tests|tools|bench)/(?:\w+/)*(?:linux|win32)/")


def violations(files):
    for file in files:
        if not file.is_cxx() or _SEAM.match(file.path):
            continue
        for number, line in file.numbered():
            found = CONDITIONAL.match(line) or (file.folder != "bench" and SYSTEM_HEADER.match(line))
            if found:
                yield f"{file.path}:{number}: {found.group(1)} belongs behind the platform seam"
