#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""reliability_page_test.py ROOT BUILD: each name in the last column of a table of docs/reliability.md is that of tests, and
the limits of the coverage are those that scripts/coverage keeps."""

import pathlib
import re
import subprocess
import sys
import unittest

ROOT, BUILD = (pathlib.Path(argument) for argument in sys.argv[1:3])
PAGE = (ROOT / "docs" / "reliability.md").read_text(encoding="utf-8")
CASES = re.findall(r"^\|.*\| (`[A-Z].*`) \|$", PAGE, re.MULTILINE)


class ReliabilityPage(unittest.TestCase):
    def test_its_cases_are_tests(self):
        names = {name for case in CASES for name in re.findall(r"`([^`]+)`", case)}
        self.assertGreater(len(names), 10)
        listing = subprocess.run(["ctest", "--test-dir", str(BUILD), "-N"], capture_output=True, text=True, check=True).stdout
        for name in sorted(names):
            self.assertRegex(listing, rf"(?m)[ /]{re.escape(name)}[.]", name)

    def test_its_limits_of_the_coverage_are_those_that_are_kept(self):
        limits = (ROOT / "scripts" / "lib" / "coverage_limits.py").read_text(encoding="utf-8")
        lines = re.search(r"LEAST_LINES = (\d+)", limits).group(1)
        branches = re.search(r"LEAST_BRANCHES = (\d+)", limits).group(1)
        self.assertIn(f"at least {lines} % of the lines", PAGE)
        self.assertIn(f"{branches} % of the branches", PAGE)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
