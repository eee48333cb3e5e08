# SPDX-License-Identifier: MIT
"""A machine in a folder: the home of a user who logs, with the configuration of the examples, and what reads it."""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import time

PATIENCE = 300  # seconds after which something that should come is taken as lost


def wait_for(what, reached):
    """Returns when reached() is true; fails after PATIENCE."""
    end = time.monotonic() + PATIENCE
    while not reached():
        if time.monotonic() > end:
            raise AssertionError(f"in vain waited for {what}")
        time.sleep(0.05)


def replaced(text, replacements):
    """The text with each first part replaced by the second; each must be there, so that no replacement is outdated."""
    for former, new in replacements:
        if former not in text:
            raise AssertionError(f"{former} is not in the file")
        text = text.replace(former, new)
    return text


class LoggingMachine:
    """Its folder is removed, and its programs are ended, at the end of the test."""

    def __init__(self, test, root, keys=()):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="qmrk-"))
        test.addCleanup(shutil.rmtree, self.folder)
        self.test = test
        self.data = self.folder / "home" / "ann" / ".local" / "share"
        self.logs = self.data / "Orvane" / "Quillmark" / "Logging"
        self._lay_out(root / "examples", keys)
        self.environment = {**os.environ, "QMRK_APPDATA": str(self.data), "QMRK_COMMON_APPDATA": str(self.folder),
                            "QMRK_COMMON_PROGRAM_FILES": str(self.folder)}
        self.environment.pop("DEFAULT_CA_NR", None)

    def _lay_out(self, examples, keys):
        cfg = self.folder / "Orvane Shared" / "qmrk" / "logging" / "cfg"
        init = self.folder / "Orvane" / "qmrk" / "logging"
        for folder in (cfg, init, self.data):
            folder.mkdir(parents=True)
        for file in examples.glob("*.cfg"):
            text = file.read_text(encoding="utf-8")
            for key, value in keys if "CA12" in file.name else ():
                text = re.sub(rf"(?m)^{key}=.*$", f"{key}={value}", text)
            (cfg / file.name).write_text(text, encoding="utf-8")
        (init / "qmrk_logging_CA12.init").write_text("Demo;\n", encoding="utf-8")

    def start(self, *words, messages=None):
        """A program with the machine's folders, which does not outlive the test. Its messages go to that file."""
        process = subprocess.Popen([str(word) for word in words], env=self.environment, stdin=subprocess.DEVNULL,
                                   stdout=messages, stderr=messages)
        self.test.addCleanup(self.end, process)
        return process

    @staticmethod
    def end(process):
        if process.poll() is None:
            process.kill()
        process.wait()


class Rsyslogd:
    """One rsyslogd in the foreground, with a folder and a configuration of its own; stopped and started at will."""

    def __init__(self, machine, name, text):
        self.machine = machine
        self.folder = machine.folder / name
        self.folder.mkdir()
        self.conf = self.folder / "rsyslog.conf"
        self.conf.write_text(f'global(workDirectory="{self.folder}")\n{text}', encoding="utf-8")
        found = subprocess.run(["/usr/sbin/rsyslogd", "-N1", "-f", str(self.conf)], capture_output=True, text=True,
                               check=False)
        machine.test.assertEqual(found.returncode, 0, found.stderr)
        self.process = None

    def start(self):
        with open(self.folder / "messages", "ab") as messages:
            self.process = self.machine.start("/usr/sbin/rsyslogd", "-n", "-f", self.conf, "-i", self.folder / "pid",
                                              messages=messages)

    def messages(self):
        return (self.folder / "messages").read_text(encoding="utf-8", errors="replace")

    def stop(self):
        self.process.terminate()
        self.process.wait()
