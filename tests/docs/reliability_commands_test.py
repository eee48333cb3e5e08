#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""reliability_commands_test.py ROOT BUILD: docs/reliability.md names only commands that work. A script is asked for its
help, since it takes minutes to run; a selection of tests, and each name in the last column of a table, must select some
that exist; and the limits of the coverage must be those that scripts/coverage keeps."""

import pathlib
import re
import shlex
import subprocess
import sys
import unittest

ROOT, BUILD = (pathlib.Path(argument) for argument in sys.argv[1:3])
PAGE = (ROOT / "docs" / "reliability.md").read_text(encoding="utf-8")
CASES = re.findall(r"^\|.*\| (`[A-Z].*`) \|$", PAGE, re.MULTILINE)
COMMANDS = re.findall(r"(?:^    |`)((?:scripts/|ctest )[^`\n]*)", PAGE, re.MULTILINE)


def words_of(command):
    return shlex.split(command, comments=True)


def run(words, folder):
    return subprocess.run(words, cwd=folder, capture_output=True, text=True, check=False)


def listing_of(pattern):
    return run(["ctest", "--test-dir", str(BUILD), "-N", "-R", pattern], ROOT).stdout


class ReliabilityPage(unittest.TestCase):
    def test_its_scripts_tell_how_they_are_used(self):
        scripts = {words_of(command)[0] for command in COMMANDS if command.startswith("scripts/")}
        self.assertTrue(scripts)
        for script in scripts:
            result = run([str(ROOT / script), "--help"], ROOT)
            self.assertEqual(result.returncode, 0, script)
            self.assertIn(script, result.stdout)

    def test_its_selections_select_tests(self):
        selections = [words_of(command) for command in COMMANDS if command.startswith("ctest ")]
        self.assertTrue(selections)
        for words in selections:
            self.assertRegex(listing_of(words[words.index("-R") + 1]), r"(?m)^Total Tests: [1-9]", " ".join(words))

    def test_its_cases_are_tests(self):
        names = {name for case in CASES for name in re.findall(r"`([^`]+)`", case)}
        self.assertGreater(len(names), 10)
        listing = listing_of(".")
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
