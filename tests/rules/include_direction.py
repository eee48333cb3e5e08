# SPDX-License-Identifier: MIT
"""Includes point one way: platform <- trace <- config <- diagnostics <- logsetup <- control. The log manager sees
the platform only, and only logsetup sees the log manager, through its public header. Within the log manager the folders
never reach up to the statement's way at its top, and each sees only those below it: names, threads <- modifiers <-
appenders."""

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

_FOLDERS_OF_LOG_MANAGER = {"names": {"names"}, "threads": {"threads"}, "modifiers": {"modifiers", "threads"},
                           "appenders": {"appenders", "modifiers", "threads"}}


def _reaches_up(including, included):
    """Whether a file in a folder of the log manager includes one that does not stand below it."""
    source, target = including.split("/"), included.split("/")
    if source[0] != "logmanager" or target[0] != "logmanager" or source[1] not in _FOLDERS_OF_LOG_MANAGER:
        return False
    return len(target) < 3 or target[1] not in _FOLDERS_OF_LOG_MANAGER[source[1]]


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
            if include and _reaches_up(file.path, include.group(1)):
                yield f"{file.path}:{number}: must not reach {include.group(1)}"
            if target and target not in allowed:
                yield f"{file.path}:{number}: {file.path.split('/')[0]} must not include {include.group(1)}"
            elif include and not target and f'"{include.group(1)}"' in line:
                yield f"{file.path}:{number}: write {include.group(1)} as \"folder/file.h\" from the root"
