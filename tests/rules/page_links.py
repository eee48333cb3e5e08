# SPDX-License-Identifier: MIT
"""No link of a page is dead: a relative one leads to a file or folder that exists, and its anchor to a heading there; one
to another site has the form of an address. Holds for the pages where they are installed, too."""

import posixpath
import re
import urllib.parse

_FENCED = re.compile(r"^( *)(`{3,})[^\n]*\n.*?^\1\2`*$", re.MULTILINE | re.DOTALL)
_CODE = re.compile(r"(`+)(?:(?!\n\n).)+?\1", re.DOTALL)
_LINK = re.compile(r"\]\(\s*<?([^)\s>]*)>?[^)]*\)|^\[[^\]]+\]:\s*(\S+)|<(?:a|img)\b[^>]*?(?:href|src)=\"([^\"]*)\"",
                   re.MULTILINE)
_HEADING = re.compile(r"^#{1,6} +(.+?) *#*$", re.MULTILINE)
_ADDRESS = re.compile(r"https?://[A-Za-z0-9-]+(\.[A-Za-z0-9-]+)+(:\d+)?(/[^\s<>\"]*)?$|mailto:[^@\s]+@[^@\s]+$")


def _blank(match):
    return re.sub(r"[^\n]", " ", match.group(0))


def _anchors(content):
    """Those of the headings, as the usual viewers form them."""
    anchors = set(re.findall(r"<a (?:id|name)=\"([^\"]+)\"", content))
    counts = {}
    for heading in _HEADING.findall(_FENCED.sub(_blank, content)):
        text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading)
        anchor = re.sub(r"[^\w\- ]", "", text.lower()).replace(" ", "-")
        number = counts.get(anchor, 0)
        counts[anchor] = number + 1
        anchors.add(f"{anchor}-{number}" if number else anchor)
    return anchors


def _wrong(page, link, pages, places):
    """What is wrong with a link, or None."""
    if re.match(r"[a-z][a-z0-9+.-]*:", link):
        return None if _ADDRESS.match(link) else f"no address: {link}"
    path, _, anchor = link.partition("#")
    target = posixpath.normpath(posixpath.join(posixpath.dirname(page), urllib.parse.unquote(path))) if path else page
    if target not in places:
        return f"leads nowhere: {link}"
    if anchor and anchor not in _anchors(pages.get(target, "")):
        return f"no such heading: {link}"
    return None


def violations(files):
    pages = {file.path: file.content for file in files if file.path.endswith(".md")}
    places = {"."}
    for file in files:
        parts = file.path.split("/")
        places.update("/".join(parts[:depth]) for depth in range(1, len(parts) + 1))
    for page, content in pages.items():
        text = _CODE.sub(_blank, _FENCED.sub(_blank, content))
        for match in _LINK.finditer(text):
            link = next(group for group in match.groups() if group is not None)
            wrong = _wrong(page, link, pages, places)
            if wrong:
                yield f"{page}:{text.count(chr(10), 0, match.start()) + 1}: {wrong}"
