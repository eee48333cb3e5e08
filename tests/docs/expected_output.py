# SPDX-License-Identifier: MIT
"""What a page shows of the output of its commands: a number of several digits stands for any number, one with a fraction
for any such, several blanks for any, and "..." for any text."""

import re

_PLACEHOLDERS = {r"\.\.\.": r"(.|\n)*", r" {2,}": " +", r"\d+\.\d+": r"\d+\.\d+", r"\d{2,}": r"\d+"}


def pattern_of(expected):
    """What is printed must match this as a whole."""
    pattern = ""
    for part in re.split(f"({'|'.join(_PLACEHOLDERS)})", expected):
        pattern += next((any_ for kind, any_ in _PLACEHOLDERS.items() if re.fullmatch(kind, part)), re.escape(part))
    return pattern


def is_as_shown(expected, printed, commands, where):
    """Whether the commands have printed what the page shows; tells where not."""
    if re.fullmatch(pattern_of(expected), printed):
        return True
    print(f"{where}:\n{commands}prints\n{printed}instead of\n{expected}")
    return False
