#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""known_commands_test.py ROOT BUILD: every command of a page, in a block, in a line of text or among the examples of a man
page, names only what there is (known_commands.py). It runs none of them: the tests that tests/rules/page_commands.py
names do, and a script that takes minutes is one of the steps of scripts/test."""

import pathlib
import re
import sys
import unittest

from known_commands import Checker, simple_commands
from page_blocks import blocks_of, examples_of_man_page, inline_code_of, is_of_commands

ROOT, BUILD = (pathlib.Path(argument) for argument in sys.argv[1:3])
CHECKER = Checker(ROOT, BUILD)
PAGES = sorted(page for folder in ("*.md", "docs/*.md", "examples/**/*.md", "integrations/**/*.md") for page in ROOT.glob(folder))
# A command in a line of text begins like this: a program and something behind it, or a script of its own.
COMMAND = re.compile(r"[a-z][\w./-]* +[\w./-]|scripts/[\w-]+$")
# Commands in a line of text that this test cannot judge, and why no test runs them.
OTHERS = {
    "clang-format-14 -i": "an option of another program; scripts/test format runs it without changing files",
    "docker exec CONTAINER qmrkctl signal": "the page says that no test runs containers",
    "git log": "shows an address, which every clone has",
    "apt-get source": "scripts/build-windows-dependencies is what runs it",
    "kill -9": "the name of a signal more than a command; the tests of KilledWriter send it",
    "man qmrkctl": "docs.man_pages shows the page",
    "net localgroup qmrk NAME /add": "the page says that Wine has no local groups",
    "sudo program": "stands for any program",
    "sudo -E program": "stands for any program",
    "systemctl stop": "as it is, not a command to type: it says how a service ends",
    "systemd-analyze verify": "integrations.service_files runs it",
    "ulimit -f": "the tests of FileSizeLimitTest set it",
    "umask 077": "the tests of the modes set it",
}


def text_of(page):
    return page.read_text(encoding="utf-8")


class KnownCommands(unittest.TestCase):
    def fault_of(self, command):
        faults = [CHECKER.fault_of(words) for words in simple_commands(command)]
        return next((fault for fault in faults if fault), None)

    def check(self, where, command):
        self.assertIsNone(self.fault_of(command), f"{where}: {command}")

    def test_the_blocks_of_all_pages_name_what_there_is(self):
        blocks = [(page.name, block) for page in PAGES for block in blocks_of(text_of(page)) if is_of_commands(block)]
        self.assertGreater(len(blocks), 40)
        for page, block in blocks:
            self.check(f"{page}:{block.line}", block.text)

    def test_the_commands_in_the_text_of_all_pages_name_what_there_is(self):
        commands = [(page.name, line, code) for page in PAGES for line, code in inline_code_of(text_of(page))
                    if COMMAND.match(code)]
        self.assertGreater(len(commands), 100)
        for page, line, code in commands:
            words = next(simple_commands(code))
            self.assertTrue(code in OTHERS or CHECKER.knows(words), f"{page}:{line}: what can a test say of {code}?")
            self.check(f"{page}:{line}", "" if code in OTHERS else code)

    def test_the_page_for_contributors_names_every_preset(self):
        presets = re.search(r"(?m)^Presets: .*$", text_of(ROOT / "CONTRIBUTING.md")).group()
        named = re.findall(r"`((?:linux|windows)[\w-]+)`", presets)
        self.assertEqual(sorted(named), sorted(CHECKER.names_of("configurePresets")))

    def test_no_exception_is_left_over(self):
        shown = {code for page in PAGES for _, code in inline_code_of(text_of(page))}
        self.assertEqual(set(OTHERS) - shown, set())

    def test_the_examples_of_the_man_pages_name_what_there_is(self):
        examples = [(page.name, line) for page in ROOT.glob("docs/man/*.scd")
                    for line in examples_of_man_page(text_of(page))]
        self.assertGreater(len(examples), 4)
        for page, line in examples:
            self.check(page, line)

    def test_each_kind_of_mistake_is_found(self):
        for wrong in ("scripts/tests", "scripts/test --quik", "scripts/test release widows", "scripts/bench --onlyy E",
                      "cmake --preset linux-debugg", "cmake --preset", "cmake --build --preset linux-relase",
                      "cmake --build build/linux-old",
                      "sudo cmake --build build/linux-release --target uninstal", "cmake --install build/linux-realease",
                      "ctest --preset linux-test", "ctest --preset linux-tests -R no_such_test",
                      "ls && (cd tests && ctest -R docs)", "qmrkctl whi CLASS", "qmrkctl classes enabel A",
                      "qmrkctl tail --classs A", "qmrkctl --jsn apps", "LogTest --clases A",
                      "tests/support/with_private_processes bench/answer.py build", "bench/instructions.py BUILD --rite",
                      "tests/integrations/rsyslog_test.py . build/linux-tests --long"):
            self.assertIsNotNone(self.fault_of(wrong), wrong)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
