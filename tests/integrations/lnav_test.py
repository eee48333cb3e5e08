#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""lnav_test.py ROOT BUILD: lnav reads what processes have logged by the format in integrations/lnav/, which the commands of
docs/integrations.md install and use."""

import json
import pathlib
import re
import shlex
import subprocess
import sys
import unittest

from logging_machine import LoggingMachine

ROOT, BUILD = (pathlib.Path(argument) for argument in sys.argv[1:3])
sys.path.insert(0, str(ROOT / "tests" / "docs"))
from page_blocks import commands_below  # noqa: E402  (it lies elsewhere)

INSTALL, SHOW, COUNT = commands_below(ROOT / "docs/integrations.md", "lnav")


class LnavFormat(unittest.TestCase):
    def setUp(self):
        self.machine = LoggingMachine(self, ROOT)
        self.environment = {**self.machine.environment, "HOME": str(self.machine.folder / "home" / "ann"), "TERM": "dumb"}
        self.environment.pop("XDG_CONFIG_HOME", None)
        self.run_in(ROOT, INSTALL)

    def run_in(self, folder, commands):
        found = subprocess.run(["bash", "-ec", commands], cwd=folder, env=self.environment, capture_output=True, text=True,
                               stdin=subprocess.DEVNULL, check=False)
        self.assertEqual(found.returncode, 0, found.stderr + found.stdout)
        return found.stdout

    def lnav(self, *words):
        return self.run_in(ROOT, shlex.join(["lnav", *(str(word) for word in words)]))

    def query(self, statement, *files):
        return json.loads(self.lnav("-n", "-c", f";{statement}", "-c", ":write-json-to -", *files))

    def write(self, name, text):
        file = self.machine.folder / name
        file.write_text(text, encoding="utf-8")
        return file

    def run_writer(self):
        writer = self.machine.start(BUILD / "tests/integrations/stamped_writer", "app1", 5, 1000)
        self.assertEqual(writer.wait(), 0)
        return writer.pid

    def test_the_lines_of_an_application_are_recognised(self):
        process = self.run_writer()
        rows = self.query("SELECT class, process, log_body FROM qmrk_log WHERE class = 'Demo.App.shared'",
                          self.machine.logs / "common.log")
        self.assertEqual(rows, [{"class": "Demo.App.shared", "process": str(process), "log_body": f"app1 line {i} of 5"}
                                for i in range(1, 6)])

    def test_the_stamps_of_the_companion_program_are_recognised(self):
        program = self.machine.start(BUILD / "tools/LogTest", "--classes", "Demo.App.info;", "--lines", "1", "--stamps",
                                     messages=subprocess.DEVNULL)
        self.assertEqual(program.wait(), 0)
        rows = self.query("SELECT process, thread FROM qmrk_log", self.machine.logs / "common.log")
        self.assertEqual([row["process"] for row in rows], [str(program.pid)])
        self.assertRegex(rows[0]["thread"], r"^\d+$")

    def test_the_query_of_the_page_counts_the_lines_of_each_class(self):
        self.run_writer()
        self.assertEqual(self.run_in(self.machine.logs, COUNT), "class,lines\nDemo.App.shared,5\n")

    def test_the_command_of_the_page_shows_all_logs_of_the_user(self):
        self.run_writer()
        (self.machine.logs / "qmrk.info").write_text("2007/01/05 09:03:07 Unspecified error.\n", encoding="utf-8")
        # Without its screen, on which one would leave it by "q".
        shown = self.run_in(self.machine.folder, SHOW.replace("lnav ", "lnav -n ", 1))
        self.assertIn("Unspecified error.", shown)
        self.assertIn("[Demo.App.shared]", shown)
        self.assertIn("[Demo.Own]", shown)

    def test_files_are_merged_by_time(self):
        first = self.write("first.log", "[Demo.App.info] 20261121 10:00:00.123 a\n[Demo.App.info] 20261121 10:00:02.000 c\n")
        second = self.write("second.log", "[Demo.Net.info] 20261121 10:00:01 b\n")
        self.assertEqual([line[-1] for line in self.lnav("-n", first, second).splitlines()], ["a", "b", "c"])

    def test_the_level_follows_the_last_part_of_the_class(self):
        classes = {"Demo.App.error": "error", "Demo.Net.warning": "warning", "Demo.App.info": "info",
                   "Demo.App.details": "debug", "Demo.trace": "trace", "Demo.fatal": "fatal"}
        log = self.write("levels.log", "".join(f"[{name}] 20261121 10:00:00.123 text\n" for name in classes))
        rows = self.query("SELECT class, log_level FROM qmrk_log", log)
        self.assertEqual({row["class"]: row["log_level"] for row in rows}, classes)

    def test_a_line_without_a_stamp_belongs_to_the_one_before(self):
        log = self.write("lines.log", "[Demo.App.error] 20261121 10:00:00.123 [47] first\nsecond\n")
        self.assertEqual(self.query("SELECT log_body FROM qmrk_log", log), [{"log_body": "first\nsecond"}])

    def test_error_records_are_recognised(self):
        record = "2007/01/05 09:03:07 Unspecified error. Log state is FALSE for CA12."
        rows = self.query("SELECT log_time, log_body FROM qmrk_info", self.write("qmrk.info", record + "\n"))
        self.assertEqual(rows, [{"log_time": "2007-01-05 09:03:07.000",
                                 "log_body": "Unspecified error. Log state is FALSE for CA12."}])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
