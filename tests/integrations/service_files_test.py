#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""service_files_test.py ROOT BUILD: systemd takes the unit and the settings of the journal in integrations/, and an
application that runs as the unit says finds its folders."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

from logging_machine import LoggingMachine, replaced

ROOT, BUILD = (pathlib.Path(argument) for argument in sys.argv[1:3])
UNIT = (ROOT / "integrations" / "systemd" / "shop.service").read_text(encoding="utf-8")
SWEEP = (ROOT / "integrations" / "systemd" / "qmrk-lease-sweep.service").read_text(encoding="utf-8")
JOURNAL = (ROOT / "integrations" / "journald" / "60-qmrk.conf").read_text(encoding="utf-8")
CONTROL = str(BUILD / "tools" / "qmrkctl" / "qmrkctl")
JOURNALD = pathlib.Path("/lib/systemd/systemd-journald")


def values(text, key):
    return re.findall(rf"(?m)^{key}=(.*)$", text)


class ServiceFiles(unittest.TestCase):
    def setUp(self):
        self.machine = LoggingMachine(self, ROOT)

    def verify(self, text):
        unit = self.machine.folder / "shop.service"
        unit.write_text(text, encoding="utf-8")
        return subprocess.run(["systemd-analyze", "verify", "--man=no", str(unit)], capture_output=True, text=True,
                              check=False)

    def test_systemd_has_nothing_to_say_about_the_unit(self):
        found = self.verify(replaced(UNIT, [("/usr/bin/shop", "/usr/bin/true")]))
        self.assertEqual((found.returncode, found.stdout, found.stderr), (0, "", ""))

    def test_systemd_would_have_found_a_wrong_key(self):
        self.assertIn("LogsDir", self.verify(replaced(UNIT, [("/usr/bin/shop", "/usr/bin/true"),
                                                             ("LogsDirectory=", "LogsDir=")])).stderr)

    def test_systemd_has_nothing_to_say_about_the_timer_and_its_service(self):
        for name in ("qmrk-lease-sweep.service", "qmrk-lease-sweep.timer"):
            text = (ROOT / "integrations" / "systemd" / name).read_text(encoding="utf-8")
            (self.machine.folder / name).write_text(text.replace("/usr/bin/qmrkctl", "/usr/bin/true"), encoding="utf-8")
        timer = self.machine.folder / "qmrk-lease-sweep.timer"
        found = subprocess.run(["systemd-analyze", "verify", "--man=no", str(timer)], capture_output=True, text=True,
                               check=False)
        self.assertEqual((found.returncode, found.stdout, found.stderr), (0, "", ""))

    def run_here(self, *command):
        return subprocess.run(command, env=self.machine.environment, capture_output=True, text=True, check=False)

    def run_sweep(self):
        return self.run_here(*values(SWEEP, "ExecStart")[0].replace("/usr/bin/qmrkctl", CONTROL).split())

    def test_the_command_of_the_timer_works(self):
        found = self.run_sweep()
        self.assertEqual((found.returncode, found.stdout, found.stderr), (0, "", ""))

    def test_the_journal_hears_of_the_timer_only_what_it_has_ended(self):
        self.machine.environment["DEFAULT_CA_NR"] = "CA12"
        # It may end with a complaint about another program of this machine, which has no listener.
        self.run_here(CONTROL, "classes", "enable", "Demo.Net", "--for", "1ms")
        found = self.run_sweep()
        self.assertEqual((found.stdout.splitlines()[:1], found.stderr), (["CA12: -Demo.Net"], ""))
        # What systemd says itself of a service that starts and ends has the level info, which comes after notice.
        self.assertEqual((values(SWEEP, "LogLevelMax"), values(SWEEP, "SyslogLevel")), (["notice"], ["notice"]))

    def test_the_journal_knows_the_keys(self):
        known = JOURNALD.read_bytes()
        keys = re.findall(r"(?m)^(\w+)=", JOURNAL)
        self.assertGreater(len(keys), 2)
        for key in keys:
            self.assertIn(f"Journal.{key}\0".encode(), known)

    def run_without_rights(self, **variables):
        """Runs LogTest as an account without rights, from where that account can read it."""
        program = self.machine.folder / "bin" / "LogTest"
        program.parent.mkdir(exist_ok=True)
        for file in (BUILD / "tools" / "LogTest", *BUILD.glob("*/libqmrk*.so.1")):
            shutil.copy(file, program.parent)
        subprocess.run(["chmod", "-R", "a+rX", str(self.machine.folder)], check=True)
        account = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"] if os.geteuid() == 0 else []
        environment = {name: value for name, value in self.machine.environment.items()
                       if name not in ("HOME", "XDG_DATA_HOME", "QMRK_APPDATA")}
        # Programs of scripts/coverage write their counts below it, and complain where they cannot.
        counts = self.machine.folder / "counts"
        counts.mkdir(exist_ok=True)
        counts.chmod(0o777)
        environment.update(variables, LD_LIBRARY_PATH=str(program.parent), GCOV_PREFIX=str(counts))
        return subprocess.run([*account, str(program)], env=environment, capture_output=True, text=True, check=False)

    def test_an_account_without_a_home_needs_the_variable(self):
        refused = self.run_without_rights(HOME="/nonexistent")
        self.assertEqual(refused.returncode, 1, refused.stdout)
        self.assertIn("/nonexistent/.local/share", refused.stderr)
        logs = self.machine.folder / "log"
        logs.mkdir()
        logs.chmod(0o777)
        found = self.run_without_rights(HOME="/nonexistent", QMRK_APPDATA=str(logs))
        self.assertEqual((found.returncode, found.stderr), (0, ""))
        self.assertTrue((logs / "Orvane" / "Quillmark" / "Logging" / "common.log").exists())

    def test_an_application_run_as_the_unit_says_logs_below_its_folder(self):
        folder = values(UNIT, "LogsDirectory")[0]
        variables = dict(value.split("=", 1) for value in values(UNIT, "Environment"))
        logs = self.machine.folder / "log"
        (logs / folder).mkdir(parents=True, mode=int(values(UNIT, "LogsDirectoryMode")[0], 8))
        self.machine.environment.update(HOME="/", QMRK_APPDATA=variables["QMRK_APPDATA"].replace("%L", str(logs)),
                                        DEFAULT_CA_NR=variables["DEFAULT_CA_NR"])
        self.machine.environment.pop("XDG_DATA_HOME", None)
        program = self.machine.start("sh", "-c", 'umask "$0"; exec "$@"', values(UNIT, "UMask")[0],
                                     BUILD / "tools/LogTest", messages=subprocess.DEVNULL)
        self.assertEqual(program.wait(), 0)
        log = logs / folder / "Orvane" / "Quillmark" / "Logging" / "common.log"
        self.assertIn("[Demo.App.info]", log.read_text(encoding="utf-8"))
        self.assertEqual((log.stat().st_mode & 0o777, log.parent.stat().st_mode & 0o777), (0o640, 0o750))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
