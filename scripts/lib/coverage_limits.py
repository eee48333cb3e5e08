#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""coverage_limits.py SUMMARY: reads a JSON summary of gcovr and prints how many of the lines and branches of each piece of
the libraries the tests reach. Fails below the limits."""

import json
import sys

LEAST_LINES = 95
LEAST_BRANCHES = 90

FOLDERS = ("platform", "trace", "config", "diagnostics", "logsetup", "control", "logmanager")

# Piece: the beginnings of its file names, the minimum percentages of lines and of branches.
PIECES = {
    "both libraries": (tuple(f"{folder}/" for folder in FOLDERS), LEAST_LINES, None),
    **{f"{folder}/": ((f"{folder}/",), None, None) for folder in FOLDERS if folder != "logmanager"},
    "log manager": (("logmanager/",), LEAST_LINES, LEAST_BRANCHES),
    "scanner": (("config/cfg_parser.",), LEAST_LINES, LEAST_BRANCHES),
    "rolling writer": (("logsetup/rolling_file_appender.", "logsetup/file_appender.", "logsetup/logfile.",
                        "logsetup/output_file_stream."),
                       LEAST_LINES, LEAST_BRANCHES),
}


def percentage(files, what):
    total = sum(file[f"{what}_total"] for file in files)
    return 100 * sum(file[f"{what}_covered"] for file in files) / total if total else 100.0


def row(name, files, least_lines, least_branches):
    """The line of a piece, and whether it meets its limits. A piece without files does not."""
    keeps = bool(files)
    text = f"{name:16}"
    for what, least in (("line", least_lines), ("branch", least_branches)):
        value = percentage(files, what)
        keeps = keeps and (least is None or value >= least)
        limit = f" (at least {least})" if least else ""
        text += f"{value:6.1f} % {what}{'es' if what == 'branch' else 's'}{limit:14}"
    return text.rstrip() + ("" if keeps else "  TOO FEW"), keeps


def main():
    with open(sys.argv[1], encoding="utf-8") as summary:
        files = json.load(summary)["files"]
    all_keep = True
    for name, (beginnings, least_lines, least_branches) in PIECES.items():
        own = [file for file in files if file["filename"].startswith(beginnings)]
        text, keeps = row(name, own, least_lines, least_branches)
        print(text)
        all_keep = all_keep and keeps
    return 0 if all_keep else 1


if __name__ == "__main__":
    sys.exit(main())
