#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""rsyslog_test.py ROOT BUILD [--full]: what processes log arrives at the central machine by the two configurations in
integrations/rsyslog/, line by line, although files are rotated and the receiver is away for a while. The full form
has 16 processes of 6,250 lines to the common log and as many to files of their own, and a receiver that is away for ten
seconds."""

import collections
import os
import pathlib
import re
import socket
import subprocess
import sys
import time
import unittest

from logging_machine import LoggingMachine, Rsyslogd, replaced, wait_for

ROOT, BUILD = (pathlib.Path(argument) for argument in sys.argv[1:3])
FULL = sys.argv[3:] == ["--full"]
if sys.argv[3:] and not FULL:
    sys.exit(__doc__)
WRITERS = 16
LINES, PER_SECOND, SECONDS_AWAY = (6250, 150, 10) if FULL else (400, 80, 1.5)
ROTATIONS = 4
STAMPED = re.compile(r"\[Demo\.(App\.shared|Own)\] \d{8} \d\d:\d\d:\d\d\.\d{3} \[(\d+)\] (app\d+) line (\d+) of \d+")
HOSTILE = ['tab\t, "quotes", \\backslash\\, {"brace": 1} and \u20ac', "# 100 %s %d", " blanks around ", "x" * 300000,
           # As JSON each is longer: twice, and six times.
           '"' * 140000, "\x01" * 340000]


def free_port():
    with socket.socket() as taken:
        taken.bind(("127.0.0.1", 0))
        return taken.getsockname()[1]


class Machines(unittest.TestCase):
    maxDiff = 2000

    def setUp(self):
        self.machine = LoggingMachine(self, ROOT, [("SPEC_LOG_FILE_LIMIT", "100000" if FULL else "9000"),
                                                   ("SPEC_NR_OF_LOG_FILES", "9")])
        self.port = str(free_port())
        self.central = self.machine.folder / "central"

    def rsyslogd(self, name, *replacements):
        folder = self.machine.folder
        places = {"sender": [('="/home', f'="{folder}/home'), ('="/var', f'="{folder}/var'), ('"^/', f'"^{folder}/'),
                             ('target="central.example.com"', 'target="127.0.0.1"')],
                  "receiver": [("/var/log/qmrk", str(self.central))]}[name]
        text = (ROOT / "integrations" / "rsyslog" / f"30-qmrk-{name}.conf").read_text(encoding="utf-8")
        return Rsyslogd(self.machine, name, replaced(text, [*replacements, *places, ("2514", self.port)]))

    def arrived(self, name):
        """The whole lines that have arrived, of all files of that name."""
        texts = (file.read_bytes() for file in self.central.glob(f"*/ann/{name}"))
        return [line for text in texts for line in text.decode("utf-8").split("\n")[:-1]]

    def different(self, name):
        """The same, each once: a line can arrive twice, even while the first connection is made."""
        return list(dict.fromkeys(self.arrived(name)))


class CentralLog(Machines):
    def numbered_lines(self):
        """How often each line of the writers has arrived, with the process that its stamp names."""
        lines = [STAMPED.fullmatch(line) for line in self.arrived("common.log") + self.arrived("*_log.txt")]
        self.assertNotIn(None, lines, "a line that no writer has written")
        return collections.Counter((line[1], line[3], int(line[4]), int(line[2])) for line in lines)

    def rotate(self):
        conf = self.machine.folder / "logrotate.conf"
        text = (ROOT / "integrations" / "logrotate" / "qmrk").read_text(encoding="utf-8")
        conf.write_text(replaced(text, [("/home/ann", str(self.machine.folder / "home" / "ann")), ("  su ann ann\n", "")]),
                        encoding="utf-8")
        conf.chmod(0o644)
        subprocess.run(["/usr/sbin/logrotate", "--force", "--state", str(self.machine.folder / "rotated"), str(conf)],
                       check=True)

    def write_while(self, disturb):
        """Lets the writers write, calls disturb(seconds since the start) meanwhile, until it says that all is done, and
        returns their process ids."""
        start = time.monotonic()
        writers = {f"app{i}": self.machine.start(BUILD / "tests/integrations/stamped_writer", f"app{i}", LINES, PER_SECOND)
                   for i in range(WRITERS)}
        while not disturb(time.monotonic() - start) or any(writer.poll() is None for writer in writers.values()):
            time.sleep(0.02)
        self.assertEqual({writer.returncode for writer in writers.values()}, {0})
        return {name: writer.pid for name, writer in writers.items()}

    def test_every_line_arrives_with_its_process_while_files_rotate_and_the_receiver_is_away(self):
        receiver, sender = self.rsyslogd("receiver"), self.rsyslogd("sender")
        receiver.start()
        sender.start()
        due = [LINES / PER_SECOND * (i + 1) / (ROTATIONS + 1) for i in range(ROTATIONS)]
        rotated = [-1]
        leaves = LINES / PER_SECOND / 3
        moments = collections.deque([(leaves, receiver.stop), (leaves + SECONDS_AWAY, receiver.start)])

        def disturb(now):
            # On a busy machine several are due at once. Nobody rotates a file again before its writers know of the first.
            if due and now > max(due[0], rotated[-1] + 1):
                due.pop(0)
                self.rotate()
                rotated.append(now)
            if moments and now > moments[0][0]:
                moments.popleft()[1]()
            # On a busy machine the last of them can come when the writers are done: there are lines to send all the same.
            return not due and not moments

        processes = self.write_while(disturb)
        expected = {(log, name, line, process) for name, process in processes.items()
                    for log in ("App.shared", "Own") for line in range(1, LINES + 1)}
        last = {}

        def all_there():
            last["counts"] = self.numbered_lines()
            return expected <= set(last["counts"])

        try:
            wait_for("lines", all_there)
        except AssertionError:
            missing = sorted(expected - set(last["counts"]))
            self.fail(f"{len(missing)} of {len(expected)} lines are missing: {missing[:20]}")
        self.assertEqual(set(last["counts"]), expected)
        twice = sum(last["counts"].values()) - len(expected)
        print(f"{len(expected)} lines, all arrived, {twice} of them twice")
        # Neither a rename nor the return of the receiver sends whole files again.
        self.assertLess(twice, len(expected) / 4)

    def test_a_line_arrives_byte_for_byte(self):
        receiver, sender = self.rsyslogd("receiver"), self.rsyslogd("sender")
        self.machine.logs.mkdir(parents=True)
        receiver.start()
        sender.start()
        with open(self.machine.logs / "common.log", "a", encoding="utf-8") as log:
            log.writelines(line + "\n" for line in HOSTILE)
        (self.machine.logs / "qmrk.info").write_text("2007/01/05 09:03:07 Unspecified error.\n", encoding="utf-8")
        wait_for("the hostile lines", lambda: len(self.different("common.log")) >= len(HOSTILE))
        self.assertEqual(self.different("common.log"), HOSTILE)
        wait_for("the record", lambda: self.different("qmrk.info"))
        self.assertEqual(self.different("qmrk.info"), ["2007/01/05 09:03:07 Unspecified error."])

    def test_a_line_that_is_too_long_is_kept_without_its_end(self):
        receiver, sender = self.rsyslogd("receiver"), self.rsyslogd("sender")
        self.machine.logs.mkdir(parents=True)
        receiver.start()
        sender.start()
        (self.machine.logs / "common.log").write_text("before " + "x" * 2200000 + "\nafter\n", encoding="utf-8")
        wait_for("the line after it", lambda: self.different("common.log") == ["after"])
        unreadable = self.central / "unreadable.log"
        wait_for("the long line", lambda: unreadable.exists() and unreadable.read_bytes().endswith(b"x\n"))
        self.assertRegex(unreadable.read_bytes()[:500],
                         rb'^\d{4}-\S+ 127\.0\.0\.1 <134>.*"user":"ann", "file":"common\.log", "line":"before xxx')

    def test_what_does_not_arrive_of_a_line_is_what_the_page_says(self):
        receiver, sender = self.rsyslogd("receiver"), self.rsyslogd("sender")
        self.machine.logs.mkdir(parents=True)
        receiver.start()
        sender.start()
        (self.machine.logs / "common.log").write_bytes(b"first\n\nbefore\0after\n \nlast\n")
        wait_for("the last line", lambda: "last" in self.arrived("common.log"))
        self.assertEqual(self.different("common.log"), ["first", "before", " ", "last"])

    def test_a_sender_that_was_stopped_goes_on_where_it_was(self):
        # Its stop waits for the receiver, which is not there.
        receiver, sender = self.rsyslogd("receiver"), self.rsyslogd("sender", ('Completion="30000"', 'Completion="1000"'))
        self.machine.logs.mkdir(parents=True)
        log = self.machine.logs / "common.log"
        lines = [f"line {number}" for number in range(3000)]
        log.write_text("\n".join(lines[:1000]) + "\n", encoding="utf-8")
        sender.start()
        wait_for("the sender to read", lambda: "imfile-state" in " ".join(os.listdir(sender.folder)))
        sender.stop()
        with open(log, "a", encoding="utf-8") as stream:
            stream.write("\n".join(lines[1000:2000]) + "\n")
        log.rename(self.machine.logs / "common.log.1")
        log.write_text("\n".join(lines[2000:]) + "\n", encoding="utf-8")
        receiver.start()
        sender.start()
        wait_for("all lines", lambda: set(self.arrived("common.log")) >= set(lines))
        self.assertEqual(set(self.arrived("common.log")), set(lines))

    def test_lines_of_a_service_arrive_under_its_name(self):
        receiver, sender = self.rsyslogd("receiver"), self.rsyslogd("sender")
        logs = self.machine.folder / "var" / "log" / "shop" / "Orvane" / "Quillmark" / "Logging"
        (logs / "Application logs").mkdir(parents=True)
        receiver.start()
        sender.start()
        for name in ("common.log", "qmrk.info", "Application logs/Shop_log.txt"):
            (logs / name).write_text(f"of {name}\n", encoding="utf-8")
        wait_for("all files", lambda: len(list(self.central.glob("*/shop/*"))) == 3)
        wait_for("the line of the last", lambda: list(self.central.glob("*/shop/Shop_log.txt"))[0].read_text(
            encoding="utf-8").startswith("of Application logs"))

    def test_a_line_without_its_end_is_not_sent_before_it_is_whole(self):
        receiver, sender = self.rsyslogd("receiver"), self.rsyslogd("sender")
        self.machine.logs.mkdir(parents=True)
        receiver.start()
        sender.start()
        log = self.machine.logs / "common.log"
        log.write_text("first\nsec", encoding="utf-8")
        wait_for("the first line", lambda: self.different("common.log"))
        with open(log, "a", encoding="utf-8") as stream:
            stream.write("ond\n")
        wait_for("the second line", lambda: len(self.different("common.log")) > 1)
        self.assertEqual(self.different("common.log"), ["first", "second"])


class CentralLogByTls(Machines):
    """The same two files with their lines of TLS in force."""

    def setUp(self):
        super().setUp()
        self.keys = self.machine.folder / "tls"
        self.keys.mkdir()
        self.openssl("req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=An authority",
                     "-keyout", "ca.key", "-out", "ca.pem")
        for name, host in (("receiver", "central.example.com"), ("sender", "shop7.example.com"),
                           ("stranger", "shop7.example.net")):
            self.certify(name, host)

    def openssl(self, *words):
        subprocess.run(["openssl", *words], cwd=self.keys, check=True, capture_output=True)

    def certify(self, name, host):
        self.openssl("req", "-newkey", "rsa:2048", "-nodes", "-subj", f"/CN={host}", "-keyout", f"{name}.key",
                     "-out", f"{name}.csr")
        (self.keys / f"{name}.ext").write_text(f"subjectAltName=DNS:{host}\n", encoding="utf-8")
        self.openssl("x509", "-req", "-in", f"{name}.csr", "-CA", "ca.pem", "-CAkey", "ca.key", "-CAcreateserial",
                     "-days", "2", "-extfile", f"{name}.ext", "-out", f"{name}.pem")

    def rsyslogd(self, name, *replacements):
        return super().rsyslogd(name, ("#TLS ", ""), ("/etc/rsyslog.d/tls", str(self.keys)), *replacements)

    def sent_by(self, sender):
        """Starts a receiver and that sender, which has a line to send."""
        receiver = self.rsyslogd("receiver")
        self.machine.logs.mkdir(parents=True)
        (self.machine.logs / "common.log").write_text("a line\n", encoding="utf-8")
        receiver.start()
        sender.start()
        return receiver

    def test_a_line_arrives(self):
        self.sent_by(self.rsyslogd("sender"))
        wait_for("the line", lambda: self.different("common.log") == ["a line"])

    def test_nothing_is_taken_from_a_sender_with_a_foreign_name(self):
        stranger = self.rsyslogd("sender", ("sender.pem", "stranger.pem"), ("sender.key", "stranger.key"))
        receiver = self.sent_by(stranger)
        wait_for("the refusal", lambda: "shop7.example.net" in receiver.messages())
        self.assertEqual(self.different("common.log"), [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
