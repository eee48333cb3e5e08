# SPDX-License-Identifier: MIT
"""The files of this repository as the rules see them: paths relative to the root, text, and C++ split into what the
compiler reads and what only people read."""

import os
import re

SKIPPED_FOLDERS = {".git", ".cache", "build", "out", "__pycache__"}
CXX_ENDINGS = (".cpp", ".h", ".hpp")
TEXT_ENDINGS = CXX_ENDINGS + (".py", ".sh", ".cmake", ".txt", ".md", ".json", ".cfg", ".svg", ".in", ".map", ".rc",
                             ".conf", ".service", ".scd")

_TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)"""
    r"""|(?P<raw>\bR"(?P<mark>[^()\\\s]{0,16})\(.*?\)(?P=mark)")"""
    r"""|(?P<text>"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])+')""",
    re.DOTALL | re.VERBOSE)


def _blank(text):
    return re.sub(r"[^\n]", " ", text)


class SourceFile:
    def __init__(self, path, content):
        self.path = path
        self.content = content
        self.lines = content.splitlines()

    @property
    def folder(self):
        return self.path.split("/")[0] if "/" in self.path else ""

    @property
    def name(self):
        return self.path.rsplit("/", 1)[-1]

    def is_cxx(self):
        return self.path.endswith(CXX_ENDINGS)

    def is_header(self):
        return self.path.endswith((".h", ".hpp"))

    def code(self):
        """C++ without comments and without the text of literals; every line keeps its number."""
        return _TOKEN.sub(lambda _m: _blank(_m.group(0)) if not _m.group("text") else '""' + _blank(_m.group(0))[2:],
                          self.content)

    def numbered(self, text=None):
        return enumerate(self.lines if text is None else text.splitlines(), start=1)


def _is_script(path):
    with open(path, "rb") as stream:
        return stream.read(2) == b"#!"


def read_tree(root):
    """All text files below root that belong to the project, in the order of their paths."""
    files = []
    for folder, folders, names in os.walk(root):
        folders[:] = sorted(f for f in folders if f not in SKIPPED_FOLDERS)
        for name in sorted(names):
            full = os.path.join(folder, name)
            if os.path.islink(full) or not (name.endswith(TEXT_ENDINGS) or name.startswith(".clang-")
                                            or _is_script(full)):
                continue
            with open(full, encoding="utf-8", errors="surrogateescape", newline="") as stream:
                files.append(SourceFile(os.path.relpath(full, root).replace(os.sep, "/"), stream.read()))
    return files
