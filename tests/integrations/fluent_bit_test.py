#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""fluent_bit_test.py ROOT BUILD: the paths and the expressions in integrations/fluent-bit/ fit what the library writes.
Fluent Bit itself does not run: Debian 12 does not have it. Python reads the same expressions, but for "(?<" before a name."""

import datetime
import fnmatch
import glob
import pathlib
import re
import subprocess
import sys
import unittest

from logging_machine import LoggingMachine

ROOT, BUILD = (pathlib.Path(argument) for argument in sys.argv[1:3])


def sections_of(name):
    """The sections of a file, each with its kind and a list of values for each key."""
    sections = []
    for line in (ROOT / "integrations" / "fluent-bit" / name).read_text(encoding="utf-8").splitlines():
        line = line.strip()
        if line.startswith("["):
            sections.append((line.strip("[]"), {}))
        elif line and not line.startswith("#"):
            key, value = line.split(maxsplit=1)
            sections[-1][1].setdefault(key, []).append(value)
    return sections


def of_kind(sections, kind):
    return [keys for found, keys in sections if found == kind]


INPUTS = of_kind(sections_of("qmrk.conf"), "INPUT")
FILTERS = of_kind(sections_of("qmrk.conf"), "FILTER")
PARSERS = {keys["Name"][0]: keys for keys in of_kind(sections_of("qmrk_parsers.conf"), "PARSER")}


def parsed(tag, line):
    """What the first parser that fits makes of a line with that tag, with the time that it reads."""
    names = [name for keys in FILTERS if fnmatch.fnmatch(tag, keys["Match"][0]) for name in keys.get("Parser", ())]
    for keys in (PARSERS[name] for name in names):
        found = re.search(keys["Regex"][0].replace("(?<", "(?P<"), line)
        if found:
            fields = {name: value for name, value in found.groupdict().items() if value}
            text = fields.pop(keys["Time_Key"][0])
            return datetime.datetime.strptime(text, keys["Time_Format"][0].replace("%L", "%f")), fields
    return None, {"log": line}


class FluentBitFiles(unittest.TestCase):
    def machine_with(self, *keys):
        machine = LoggingMachine(self, ROOT, keys)
        machine.environment["DEFAULT_CA_NR"] = "CA12"
        return machine

    def read_by_the_inputs(self, machine):
        """The files that the paths of the inputs find on that machine, each with its lines as they are parsed."""
        found = {}
        for keys in INPUTS:
            for pattern in keys["Path"][0].split(","):
                for file in glob.glob(f"{machine.folder}{pattern}"):
                    name = str(pathlib.Path(file).relative_to(machine.folder))
                    self.assertNotIn(name, found, "read twice")
                    lines = pathlib.Path(file).read_text(encoding="utf-8").splitlines()
                    found[name] = [parsed(keys["Tag"][0], line) for line in lines]
        return found

    def check_lines_of_the_writer(self, machine):
        before = datetime.datetime.now() - datetime.timedelta(seconds=1)
        writer = machine.start(BUILD / "tests/integrations/stamped_writer", "app1", 3, 1000)
        self.assertEqual(writer.wait(), 0)
        found = self.read_by_the_inputs(machine)
        logs = str(machine.logs.relative_to(machine.folder))
        self.assertEqual(set(found), {f"{logs}/common.log", f"{logs}/Application logs/app1_log.txt"})
        for name, log_class in (("common.log", "Demo.App.shared"), ("Application logs/app1_log.txt", "Demo.Own")):
            self.assertEqual([fields for time, fields in found[f"{logs}/{name}"]],
                             [{"class": log_class, "process": str(writer.pid), "message": f"app1 line {i} of 3"}
                              for i in (1, 2, 3)])
        times = [time for lines in found.values() for time, fields in lines]
        self.assertTrue(all(before <= time <= datetime.datetime.now() for time in times), times)
        return times

    def test_lines_with_milliseconds_are_read(self):
        times = self.check_lines_of_the_writer(self.machine_with())
        self.assertTrue(any(time.microsecond for time in times), times)

    def test_lines_without_milliseconds_are_read(self):
        times = self.check_lines_of_the_writer(self.machine_with(("MILLISECOND_RESOLUTION", "FALSE")))
        self.assertFalse(any(time.microsecond for time in times), times)

    def test_the_stamps_of_the_companion_program_are_read(self):
        machine = self.machine_with()
        program = machine.start(BUILD / "tools/LogTest", "--classes", "Demo.App.info;", "--lines", "1", "--stamps",
                                messages=subprocess.DEVNULL)
        self.assertEqual(program.wait(), 0)
        [(_, fields)] = [line for lines in self.read_by_the_inputs(machine).values() for line in lines]
        self.assertEqual(fields["process"], str(program.pid))
        self.assertRegex(fields["thread"], r"^\d+$")

    def test_error_records_are_read(self):
        machine = self.machine_with()
        machine.environment["DEFAULT_CA_NR"] = "CA99"
        machine.start(BUILD / "tests/integrations/stamped_writer", "app1", 1, 1000).wait()
        records = [line for name, lines in self.read_by_the_inputs(machine).items() if name.endswith("/qmrk.info")
                   for line in lines]
        self.assertTrue(records)
        for time, fields in records:
            self.assertIsNotNone(time, fields)
            self.assertEqual(set(fields), {"message"})
        self.assertIn("CA99", records[0][1]["message"])

    def test_the_logs_of_a_service_are_read(self):
        machine = self.machine_with()
        logs = machine.folder / "var" / "log" / "shop" / "Orvane" / "Quillmark" / "Logging"
        (logs / "Application logs").mkdir(parents=True)
        for name in ("common.log", "qmrk.info", "Application logs/Shop_log.txt"):
            (logs / name).write_text("a line\n", encoding="utf-8")
        found = self.read_by_the_inputs(machine)
        self.assertEqual(list(found.values()), [[(None, {"log": "a line"})]] * 3)

    def test_a_long_line_does_not_end_the_reading_of_its_file(self):
        for keys in INPUTS:
            self.assertEqual((keys["Buffer_Max_Size"], keys["Skip_Long_Lines"]), (["2M"], ["On"]), keys["Tag"])

    def test_stamps_are_local_time(self):
        for name, keys in PARSERS.items():
            self.assertEqual(keys.get("Time_System_Timezone"), ["On"], name)

    def test_each_input_keeps_its_offsets_in_a_file_of_its_own(self):
        self.assertEqual(len({keys["DB"][0] for keys in INPUTS}), len(INPUTS))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
