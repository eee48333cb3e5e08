# SPDX-License-Identifier: MIT
"""Includes point one way: platform <- trace <- config <- diagnostics <- logsetup <- control. The log manager sees
the platform only, and only logsetup sees the log manager, through its public header."""

import re

LAYERS = ["platform", "trace", "config", "diagnostics", "logsetup", "control"]
FREE = {"tools", "tests", "bench", "fuzz", "examples"}
LOG_MANAGER_HEADER = re.compile(r"boost/logging/(?:detail/)?\w+\.hpp")
PUBLIC_HEADER = re.compile(r"quillmark_logging\w*\.h")
INCLUDE = re.compile(r'\s*#\s*include\s*[<"]([^>"]+)[>"]')

_ALLOWED = {layer: set(LAYERS[:position + 1]) | {"public"} for position, layer in enumerate(LAYERS)}
_ALLOWED["platform"] = {"platform"}
_ALLOWED["logsetup"] = _ALLOWED["logsetup"] | {"log manager"}
_ALLOWED["logmanager"] = {"logmanager", "log manager", "platform"}
_ALLOWED["include"] = {"public"}


def _target(path):
    """The layer that an include reaches; None for the system's and other libraries' headers."""
    if LOG_MANAGER_HEADER.fullmatch(path):
        return "log manager"
    if PUBLIC_HEADER.fullmatch(path):
        return "public"
    first = path.split("/")[0]
    return first if "/" in path and (first in _ALLOWED or first in FREE) else None


def violations(files):
    for file in files:
        if not file.is_cxx() or file.folder not in _ALLOWED:
            continue
        allowed = _ALLOWED[file.folder]
        if file.path.startswith("logmanager/include/"):
            allowed = {"log manager"}
        for number, line in file.numbered():
            include = INCLUDE.match(line)
            target = _target(include.group(1)) if include else None
            if target and target not in allowed:
                yield f"{file.path}:{number}: {file.path.split('/')[0]} must not include {include.group(1)}"
            elif include and not target and f'"{include.group(1)}"' in line:
                yield f"{file.path}:{number}: write {include.group(1)} as \"folder/file.h\" from the root"
