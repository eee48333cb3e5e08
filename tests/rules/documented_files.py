# SPDX-License-Identifier: MIT
"""A page names only files that exist, and the table of public functions in the pages is whole: each function that a
library exports has a row, and the file in that row defines it."""

import re

_FILE = re.compile(r"`([\w./-]+\.(?:h|hpp|cpp|py|cmake))`")
_ROW = re.compile(r"^\| (`.+`) \| `([\w./-]+\.cpp)` \|")
_NAME = re.compile(r"`(\w+)`")
_EXPORTED = re.compile(r"^(?:Quillmark_logging|boost::logging)::(\w+)\(")


def _documented(files, sources):
    """The functions that have a row, and what is wrong with the rows."""
    documented, wrong = set(), []
    for file in (f for f in files if f.path.endswith(".md")):
        for number, line in file.numbered():
            row = _ROW.match(line)
            if not row:
                continue
            names = _NAME.findall(row.group(1))
            documented.update(names)
            source = sources.get(row.group(2))
            missing = [name for name in names if source is None or not re.search(rf"\b{name}\([^;{{}}]*\{{", source.code())]
            if missing:
                wrong.append(f"{file.path}:{number}: {row.group(2)} does not define {', '.join(missing)}")
    return documented, wrong


def violations(files):
    sources = {file.path: file for file in files}
    for file in (f for f in files if f.path.endswith(".md")):
        for number, line in file.numbered():
            for name in _FILE.findall(line):
                if not any(path == name or path.endswith("/" + name) for path in sources):
                    yield f"{file.path}:{number}: there is no {name}"
    documented, wrong = _documented(files, sources)
    yield from wrong
    for file in (f for f in files if f.path.startswith("tests/exports/") and f.path.endswith(".txt")):
        for number, line in file.numbered():
            exported = _EXPORTED.match(line)
            if exported and exported.group(1) not in documented:
                yield f"{file.path}:{number}: no page says in which file {exported.group(1)} is"
