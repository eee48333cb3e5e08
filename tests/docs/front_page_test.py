#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""front_page_test.py ROOT: the README is short, names the packages that a build needs and every folder of the tree, and says
of speed and safety only what the pages on them say."""

import pathlib
import re
import subprocess
import sys
import unittest

ROOT = pathlib.Path(sys.argv[1])
README = (ROOT / "README.md").read_text(encoding="utf-8")


def chapter(title):
    return re.search(rf"^## {title}\n(.*?)(?=^## |\Z)", README, re.MULTILINE | re.DOTALL).group(1)


def page(name):
    return (ROOT / "docs" / name).read_text(encoding="utf-8")


class FrontPage(unittest.TestCase):
    def test_it_is_short(self):
        self.assertLess(len(README.splitlines()), 150)

    def test_it_names_the_packages_that_a_build_needs(self):
        command = re.search(r"apt-get install -y ((?:[^\n]*\\\n)*[^\n]*)", README).group(1)
        lists = (ROOT / "scripts" / "lib" / "packages.sh").read_text(encoding="utf-8")
        needed = re.search(r"^PACKAGES_BUILD=\(([^)]*)\)", lists, re.MULTILINE).group(1).split()
        self.assertEqual(command.replace("\\", " ").split(), [*needed, "pkg-config"])

    def test_its_tree_has_every_folder(self):
        files = subprocess.run(["git", "-C", str(ROOT), "ls-files"], capture_output=True, text=True, check=True).stdout
        folders = {line.split("/")[0] + "/" for line in files.splitlines() if "/" in line}
        self.assertGreater(len(folders), 10)
        self.assertEqual(set(re.findall(r"`([\w.]+/)`", chapter("The tree"))), folders)

    def test_its_figures_of_speed_are_those_of_the_page(self):
        subprocess.run([str(ROOT / "bench" / "speed_plot.py"), "--check"], check=True)
        figures = re.findall(r"\d[\d,.]*\d|\d", re.sub(r"\([^)]*\)", "", chapter("How fast")))
        self.assertTrue(figures)
        for figure in figures:
            self.assertRegex(page("performance.md"), rf"(?m)^\| qmrk \| {re.escape(figure)} ")

    def test_its_table_of_safety_is_that_of_the_page(self):
        rows = re.findall(r"^\|.*\|$", chapter("How safe"), re.MULTILINE)
        self.assertGreater(len(rows), 4)
        for row in rows:
            self.assertIn(row + "\n", page("reliability.md"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
