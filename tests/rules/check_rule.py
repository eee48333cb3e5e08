# SPDX-License-Identifier: MIT
"""check_rule.py RULE ROOT: prints every violation of one rule below a root; fails when there is any."""

import importlib
import sys

import source_tree


def main(rule, root):
    files = source_tree.read_tree(root)
    if not any(file.is_cxx() for file in files):
        print(f"{root} holds no source, so nothing was checked")
        return 1
    found = list(importlib.import_module(rule).violations(files))
    for violation in found:
        print(violation)
    print(f"{rule}: {len(files)} files read, {len(found)} violations")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
