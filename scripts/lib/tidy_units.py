#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""tidy_units.py BUILD: joins sources for clang-tidy, so that it reads the headers of GoogleTest and of the standard library
a few times rather than once per program.

BUILD has a compile database in which the sources of each target are already joined. This also joins the test programs of
a folder, and the benchmarks, each source once. Writes BUILD/tidy/compile_commands.json and its units, and prints the files
to check, the slowest first.
"""

import json
import pathlib
import re
import shlex
import sys

MOST_SOURCES_TOGETHER = 30


def sources_of(entry):
    """The sources joined in a unit by CMake, or the single source of any other entry."""
    path = pathlib.Path(entry["file"])
    if "Unity" not in path.parts:
        return [str(path)]
    return re.findall(r'^#include "(.*)"$', path.read_text(), re.MULTILINE)


def flags_of(entry):
    """The compiler's arguments, as words that can be merged: -I, -isystem and -D with their values."""
    words = iter(shlex.split(entry["command"])[1:])
    for word in words:
        if word in ("-o", "-c"):
            if word == "-o":
                next(words)
        elif word == "-isystem":
            yield f"-isystem{next(words)}"
        elif word != entry["file"]:
            yield word


def group_of(path, build):
    """Joins the test programs of a folder; leaves anything else as it is compiled."""
    folders = path.relative_to(build).parts if build in path.parents else ()
    if folders[:1] == ("tests",):
        return "/".join(folders[:2]).replace("/CMakeFiles", "")
    return None


class Unit:
    """Sources that are checked together, with all flags that any of them needs."""

    def __init__(self):
        self.sources, self.flags = [], []

    def add(self, sources, flags):
        self.sources += sources
        self.flags += [flag for flag in flags if flag not in self.flags]


def collect(entries, build, root):
    units, open_units, seen = {}, {}, set()
    # Units first, so that a source that is also compiled alone is not checked twice.
    for entry in sorted(entries, key=lambda one: "/Unity/" not in one["file"]):
        path = pathlib.Path(entry["file"])
        if build in path.parents and "Unity" not in path.parts:
            continue  # Generated from a template, which is checked itself.
        sources = [source for source in sources_of(entry) if source not in seen]
        if not sources:
            continue
        seen.update(sources)
        group = group_of(path, build)
        name = entry["file"] if group is None else open_units.get(group)
        if name is None or (group and len(units[name].sources) + len(sources) > MOST_SOURCES_TOGETHER):
            name = open_units[group] = str(build / "tidy" / group / f"unit_{len(units)}.cpp")
        units.setdefault(name, Unit()).add(sources, flags_of(entry))
    return units


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    root = build.parent.parent
    units = collect(json.loads((build / "compile_commands.json").read_text()), build, root)
    database = []
    for name, unit in units.items():
        path = pathlib.Path(name)
        if build / "tidy" in path.parents:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text("".join(f'#include "{source}"\n' for source in unit.sources))
        database.append({"directory": str(build), "file": name, "arguments": ["clang++-14", *unit.flags, "-c", name]})
    (build / "tidy" / "tests").mkdir(parents=True, exist_ok=True)
    (build / "tidy" / "tests" / ".clang-tidy").write_text((root / "tests" / ".clang-tidy").read_text())
    (build / "tidy" / "compile_commands.json").write_text(json.dumps(database, indent=1))
    for name in sorted(units, key=lambda one: -len(units[one].sources)):
        print(name)


if __name__ == "__main__":
    main()
