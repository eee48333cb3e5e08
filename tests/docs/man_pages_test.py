#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""man_pages_test.py ROOT BUILD: scdoc makes the man pages and man shows them without a warning; they name every option of
LogTest, every command, option and exit status of qmrkctl, every key of the configuration, and only pages that exist."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT, BUILD = (pathlib.Path(argument) for argument in sys.argv[1:3])
SOURCES = sorted((ROOT / "docs" / "man").glob("*.scd"))


def made(source):
    return subprocess.run(["scdoc"], input=source.read_bytes(), capture_output=True, check=False)


def source_of(name):
    return (ROOT / "docs" / "man" / f"{name}.scd").read_text(encoding="utf-8")


def warnings_of(roff):
    with tempfile.TemporaryDirectory() as folder:
        page = pathlib.Path(folder, "page.1")
        page.write_bytes(roff)
        shown = subprocess.run(["man", "--warnings", "--local-file", "-Tutf8", str(page)], capture_output=True, text=True,
                               env={**os.environ, "LC_ALL": "C.UTF-8", "MANROFFSEQ": "", "MANWIDTH": "80"}, check=False)
    return shown.returncode, shown.stderr


def help_of(*words):
    """(the options, the commands) that qmrkctl names in the help of a command."""
    told = subprocess.run([str(BUILD / "tools" / "qmrkctl" / "qmrkctl"), *words, "--help"], capture_output=True, text=True,
                          check=True).stdout
    options, _, commands = told.partition("\nSubcommands:\n")
    names = {name for names in re.findall(r"(?m)^  (-[\w,-]+)", options) for name in names.split(",")}
    return names, re.findall(r"(?m)^  ([a-z-]+) ", commands)


def commands_below(*words):
    """What leads to each command that does something, with its options."""
    options, commands = help_of(*words)
    if not commands:
        yield words, options - {"-h", "--help"}
    for command in commands:
        yield from commands_below(*words, command)


def defined_options(text, indentation):
    lines = re.findall(rf"(?m)^{indentation}(\*-.*)", text)
    return {name for line in lines for name in re.findall(r"\*(-[\w-]+)\*", line)}


class ManPages(unittest.TestCase):
    def test_every_page_is_made_and_shown_without_a_warning(self):
        self.assertGreater(len(SOURCES), 4)
        for source in SOURCES:
            page = made(source)
            self.assertEqual((page.returncode, page.stderr), (0, b""), source.name)
            self.assertEqual(warnings_of(page.stdout), (0, ""), source.name)

    def test_no_mark_of_the_source_is_taken_for_text_or_text_for_a_request(self):
        for source in SOURCES:
            text = source.read_text(encoding="utf-8")
            # Within a word, scdoc takes "_" as it is; man takes a "." that begins a line for a request, and drops it.
            self.assertNotIn("__", made(source).stdout.decode("utf-8"), source.name)
            self.assertEqual(re.findall(r"(?m)^\s*\.\w.*", text), [], source.name)

    def test_man_would_have_warned_of_an_unknown_request(self):
        self.assertIn("warning", warnings_of(b".TH a 1\n.SH NAME\na \\- b\n.nonsense\n")[1])

    def test_a_page_has_the_name_of_its_file(self):
        for source in SOURCES:
            name, section = source.stem.rsplit(".", 1)
            self.assertEqual(source_of(source.stem).splitlines()[0], f"{name}({section})")

    def test_pages_refer_to_pages_that_exist(self):
        names = {source.stem for source in SOURCES}
        for source in SOURCES:
            for name, section in re.findall(r"\*([\w.]+)\*\((\d)\)", source.read_text(encoding="utf-8")):
                self.assertIn(f"{name}.{section}", names, source.name)

    def test_the_page_of_the_companion_program_has_its_options(self):
        told = subprocess.run([str(BUILD / "tools" / "LogTest"), "--help"], capture_output=True, text=True, check=True)
        options = set(re.findall(r"(?m)^  (?:-h,)?(--[a-z]+)", told.stdout))
        self.assertGreater(len(options), 5)
        self.assertEqual(set(re.findall(r"(?m)^\*(--[a-z]+)\*", source_of("LogTest.1"))), options)

    def test_the_page_of_the_administration_has_its_common_options(self):
        described = source_of("qmrkctl.1").split("# COMMANDS")[0]
        self.assertEqual(defined_options(described, ""), help_of()[0])

    def test_the_page_of_the_administration_has_its_commands_with_their_options(self):
        described = source_of("qmrkctl.1").split("# COMMANDS")[1].split("# EXIT STATUS")[0]
        entries = re.findall(r"(?ms)^\*([a-z][a-z -]*)\*(.*?)(?=^\*|^#|\Z)", described)
        commands = dict(commands_below())
        self.assertGreater(len(commands), 15)
        self.assertEqual(sorted(name for name, _ in entries), sorted(" ".join(words) for words in commands))
        for first in {words[0] for words in commands}:
            # Commands below one command share the description of their options.
            wanted = set().union(*(options for words, options in commands.items() if words[0] == first))
            text = "".join(text for name, text in entries if name.split()[0] == first)
            self.assertEqual(defined_options(text, "\t"), wanted, first)

    def test_the_page_of_the_administration_has_its_exit_codes(self):
        codes = re.findall(r"(?m)^constexpr int exit\w+ = (\d+);",
                           (ROOT / "tools" / "qmrkctl" / "exit_code.h").read_text(encoding="utf-8"))
        self.assertGreater(len(codes), 5)
        described = source_of("qmrkctl.1").split("# EXIT STATUS")[1].split("# ENVIRONMENT")[0]
        self.assertEqual(re.findall(r"\*(\d+)\*", described), codes)

    def test_the_page_of_the_configuration_has_its_keys(self):
        table = (ROOT / "docs" / "file-formats.md").read_text(encoding="utf-8")
        keys = set(re.findall(r"(?m)^\| `([A-Z_]+)` \|", table))
        self.assertGreater(len(keys), 8)
        self.assertEqual(set(re.findall(r"(?m)^\*([A-Z_]+)\*$", source_of("qmrk_logging.cfg.5"))), keys)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
