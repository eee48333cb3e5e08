#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs every command of qmrkctl on installations that are good, missing, broken, unreadable, huge and hostile, into
pipes that are closed and onto disks that are full, and checks what holds for all of them: the exit code, that JSON
fits its schema, that nothing from outside can steer a terminal, and that the library's trace never shows.

every_command_test.py QMRKCTL LOGTEST [UNITTEST-ARGUMENT...]"""

import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

import jsonschema

QMRKCTL, LOGTEST = (os.path.abspath(path) for path in sys.argv[1:3])
CFG = "program_files/Orvane Shared/qmrk/logging/cfg"
INIT = "common_data/Orvane/qmrk/logging"
LOGS = "user_data/Orvane/Quillmark/Logging"
DEADLINE = 60  # against hanging, not a limit of speed
OK, NEGATIVE, USAGE, NOT_FOUND, NO_PERMISSION, PARTIAL, TIMEOUT, INTERNAL = 0, 1, 2, 3, 4, 5, 6, 70

# The command lines: one at least for each command. What changes something comes last, and changes as little as it can.
COMMANDS = [
    ["doctor"], ["doctor", "--strict"], ["why", "Demo.App.info"], ["check"], ["check", "--all"], ["explain"],
    ["explain", "Q301"], ["where"], ["show"], ["show", "--diff", "GE"], ["apps"], ["classes", "list"], ["leases"],
    ["leases", "list"], ["history"], ["tail"], ["tail", "-n", "3", "--class", "*.error"], ["errors"],
    ["completion", "bash"], ["schema"], ["schema", "doctor"], ["signal"],
    ["classes", "enable", "Demo.Extra", "--dry-run"], ["leases", "sweep"], ["mark", "a mark"],
    ["classes", "enable", "Demo.Extra", "--wait", "0"], ["classes", "disable", "Demo.Extra", "--wait", "0"],
    ["init-config", "--ca", "CA77"], ["bundle", "--out", "bundle.tar.gz"],
]
# These print no lines of text: a script, or bytes.
WITHOUT_LINES = {"completion"}


def write(path, data):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as file:
        file.write(data)


class Installation:
    """A folder with configuration and logs, and how a command runs in it."""

    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="qmrk-every-")
        os.chmod(self.folder, 0o755)
        for name in ("program_files", "common_data", "user_data", "work"):
            os.mkdir(os.path.join(self.folder, name))
        self.environment = {name: value for name, value in os.environ.items()
                            if name not in ("DEFAULT_CA_NR", "NO_COLOR", "XDG_DATA_HOME")}
        self.environment.update(QMRK_COMMON_PROGRAM_FILES=self.path("program_files"),
                                QMRK_COMMON_APPDATA=self.path("common_data"), QMRK_APPDATA=self.path("user_data"))

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def lay_out(self, trace=b"FALSE"):
        write(self.path(CFG, "qmrk_logging_GE.cfg"), b"CA_NR=GE\nREDIRECT_CA_NR=CA12\n")
        write(self.path(CFG, "qmrk_logging_CA12.cfg"),
              b"CA_NR=CA12\nLOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\n"
              b"COMMON_LOG_FILE_FILTER=Demo.App;Demo.Net;\nQMRK_TRACE=" + trace + b"\n")
        write(self.path(INIT, "qmrk_logging_CA12.init"), b"Demo.App;\n")
        return self

    def log(self):
        subprocess.run([LOGTEST, "--classes", "Demo.App.info;Demo.App.error;", "--lines", "2"], env=self.environment,
                       check=True, capture_output=True, timeout=DEADLINE)
        return self

    def run(self, arguments, unprivileged=False, **options):
        options.setdefault("capture_output", "stdout" not in options)
        if unprivileged and os.geteuid() == 0:
            options.update(user=65534, group=65534, extra_groups=[])
        return subprocess.run([QMRKCTL] + arguments, env=self.environment, cwd=self.path("work"), timeout=DEADLINE,
                              check=False, **options)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.folder, ignore_errors=True)


def described(arguments, result):
    return f"qmrkctl {' '.join(arguments)}: {result.returncode}\n{result.stdout!r}\n{result.stderr!r}"


class EveryCommand(unittest.TestCase):
    maxDiff = None

    def check_text(self, arguments, result):
        """What holds for every run in text form."""
        shown = described(arguments, result)
        self.assertNotIn(result.returncode, (USAGE, INTERNAL), shown)
        self.assertGreaterEqual(result.returncode, 0, shown)
        for stream in (result.stdout, result.stderr):
            self.assertNotRegex(stream, rb"(?m)^ *(==>|<==|<!=|-!-|---) ", shown)
            self.assertNotRegex(stream, rb"[\x00-\x08\x0b-\x1f\x7f]", shown)
            if arguments[0] not in WITHOUT_LINES:
                stream.decode("utf-8")
        if result.returncode not in (OK, NEGATIVE):
            self.assertNotEqual(result.stderr + result.stdout, b"", shown)

    def check_json(self, arguments, result):
        shown = described(arguments, result)
        self.assertNotIn(result.returncode, (USAGE, INTERNAL), shown)
        value = json.loads(result.stdout.decode("utf-8"))
        name = re.fullmatch(r"qmrkctl\.([\w-]+)/1", value["schema"]).group(1)
        with Installation() as plain:
            schema = plain.run(["schema", name])
        self.assertEqual(schema.returncode, OK, name)
        jsonschema.Draft202012Validator(json.loads(schema.stdout)).validate(value)
        self.assertEqual(value["ok"], result.returncode == OK, shown)

    def run_all(self, installation, **options):
        for arguments in COMMANDS:
            with self.subTest(arguments=" ".join(arguments)):
                self.check_text(arguments, installation.run(arguments, **options))
                self.check_json(arguments, installation.run(["--json"] + arguments, **options))
            forget(installation)

    def test_table_has_every_command(self):
        with Installation() as plain:
            text = plain.run(["--help"]).stdout.decode()
        commands = set(re.findall(r"^  ([a-z][a-z-]*) ", text.split("Subcommands:")[1], re.MULTILINE))
        self.assertEqual(commands, {arguments[0] for arguments in COMMANDS})

    def test_on_a_good_installation(self):
        with Installation() as good:
            self.run_all(good.lay_out().log())

    def test_never_shows_the_trace_of_the_library(self):
        with Installation() as tracing:
            self.run_all(tracing.lay_out(b"TRUE").log())

    def test_without_any_configuration(self):
        with Installation() as missing:
            self.run_all(missing)
            self.assertEqual(os.listdir(missing.path("program_files")), [], "a look must not create a file")

    def test_on_broken_files(self):
        with Installation() as broken:
            broken.lay_out()
            write(broken.path(CFG, "qmrk_logging_CA12.cfg"), b"\xff\xfe\0junk\nLOG_STAT =yes\nCOMMON_LOG_FILE_NAME=\n")
            write(broken.path(INIT, "qmrk_logging_CA12.init"), b"# comment\n Demo.App; \0\xc3(;;;*.*;")
            write(broken.path(LOGS, "qmrk.info"), b"\0\xff\n2007/01/05 half a record")
            write(broken.path(LOGS, "common.log"), b"[Demo.App.info] \xff\x00 no end")
            self.run_all(broken)

    def test_on_files_with_hostile_text(self):
        hostile = b"\x1b[2J\x1b]0;owned\x07\r\xc2\x9b31m\xe2\x80\xae"
        with Installation() as installation:
            installation.lay_out()
            write(installation.path(CFG, "qmrk_logging_CA12.cfg"),
                  b"LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=Demo.App;" + hostile +
                  b";\n" + hostile + b"=" + hostile + b"\n")
            write(installation.path(CFG, "qmrk_logging_CA" + "\n\x1b[31m" + ".cfg"), b"LOG_STATE=TRUE\n")
            write(installation.path(INIT, "qmrk_logging_CA12.init"), b"Demo.App;" + hostile + b";\n")
            write(installation.path(LOGS, "common.log"), b"[Demo.App.error] 20261122 10:00:00.000 " + hostile + b"\n")
            write(installation.path(LOGS, "qmrk.info"), b"2026/11/22 10:00:00 Failed to open file " + hostile + b"\n")
            self.run_all(installation)

    def test_on_files_that_cannot_be_read(self):
        with Installation() as closed:
            closed.lay_out().log()
            for folder, _, files in os.walk(closed.folder):
                for name in files:
                    os.chmod(os.path.join(folder, name), 0)
            os.chmod(closed.path("work"), 0o777)
            self.run_all(closed, unprivileged=True)

    def test_on_huge_files(self):
        with Installation() as huge:
            huge.lay_out()
            with open(huge.path(CFG, "qmrk_logging_CA12.cfg"), "ab") as file:
                file.truncate(65 * 1024 * 1024)
            write(huge.path(INIT, "qmrk_logging_CA12.init"), b"Demo.App;" * 100000)
            write(huge.path(LOGS, "common.log"), b"[Demo.App.info] 20261122 10:00:00.000 x\n" * 1000000)
            self.run_all(huge)

    def test_with_something_else_in_place_of_files(self):
        with Installation() as odd:
            odd.lay_out()
            os.remove(odd.path(INIT, "qmrk_logging_CA12.init"))
            os.mkfifo(odd.path(INIT, "qmrk_logging_CA12.init"))
            os.makedirs(odd.path(LOGS, "common.log"))
            os.symlink("/dev/zero", odd.path(LOGS, "qmrk.info"))
            self.run_all(odd)

    def test_into_a_closed_pipe(self):
        with Installation() as good:
            good.lay_out().log()
            for arguments in COMMANDS:
                with self.subTest(arguments=" ".join(arguments)):
                    reader, writer = os.pipe()
                    os.close(reader)
                    try:
                        result = good.run(arguments, stdout=writer, stderr=subprocess.PIPE)
                    finally:
                        os.close(writer)
                    self.assertIn(result.returncode, (OK, NEGATIVE, NOT_FOUND, PARTIAL, TIMEOUT), result.stderr)
                    self.assertNotIn(b"internal error", result.stderr)
                forget(good)

    def test_onto_a_full_disk_says_so(self):
        with Installation() as good:
            good.lay_out().log()
            for arguments in COMMANDS:
                for line in (arguments, ["--json"] + arguments):
                    with self.subTest(arguments=" ".join(line)):
                        with open("/dev/full", "wb") as full:
                            result = good.run(line, stdout=full, stderr=subprocess.PIPE)
                        if "--json" in line or good.run(line).stdout:
                            self.assertEqual(result.returncode, INTERNAL, result.stderr)
                            self.assertIn(b"cannot be written", result.stderr)
                    forget(good)

    def test_colours_only_where_they_are_wanted(self):
        with Installation() as broken:
            broken.lay_out()
            write(broken.path(CFG, "qmrk_logging_CA12.cfg"), b"LOG_STAT=TRUE\n")
            self.assertNotIn(b"\x1b", broken.run(["doctor"]).stdout)
            self.assertIn(b"\x1b[31m", broken.run(["doctor", "--color", "always"]).stdout)
            self.assertNotIn(b"\x1b", broken.run(["--color", "always", "--json", "doctor"]).stdout)

    def test_quiet_says_nothing(self):
        with Installation() as good:
            good.lay_out().log()
            for arguments in COMMANDS:
                with self.subTest(arguments=" ".join(arguments)):
                    self.assertEqual(good.run(["-q"] + arguments).stdout, b"")
                forget(good)

    def test_help_of_each_command(self):
        with Installation() as plain:
            for name in sorted({arguments[0] for arguments in COMMANDS}):
                result = plain.run([name, "--help"])
                self.assertEqual(result.returncode, OK, name)
                self.assertIn(b"Usage: qmrkctl " + name.encode(), result.stdout)


def forget(installation):
    """Removes what a command of the table leaves, so that it finds the same again."""
    shutil.rmtree(installation.path("work"))
    os.mkdir(installation.path("work"))
    os.chmod(installation.path("work"), 0o777)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
