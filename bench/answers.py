#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Measures how soon running applications answer when a class is switched, and how long doctor takes, on a machine with
real applications that log all the time.

answers.py FOLDER-OF-LogTest-AND-qmrkctl [PROCESSES] [CHANGES]

As root in processes of its own: tests/support/with_private_processes bench/answers.py build/linux-release/tools"""

import json
import os
import subprocess
import sys
import tempfile
import time

CLASSES = "Demo.App.info;Demo.Net.info;"


def program(folder, name):
    paths = (os.path.join(folder, name), os.path.join(folder, name, name))
    return next(os.path.abspath(path) for path in paths if os.path.isfile(path))


def install(root):
    """One CA with two classes, one of them on."""
    files = {"cfg/Orvane Shared/qmrk/logging/cfg/qmrk_logging_GE.cfg": "CA_NR=GE\nREDIRECT_CA_NR=CA12\n",
             "cfg/Orvane Shared/qmrk/logging/cfg/qmrk_logging_CA12.cfg":
                 "CA_NR=CA12\nLOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\n"
                 "COMMON_LOG_FILE_FILTER=Demo.App;Demo.Net;\n",
             "init/Orvane/qmrk/logging/qmrk_logging_CA12.init": "Demo.App;\n"}
    for name, text in files.items():
        path = os.path.join(root, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="ascii") as file:
            file.write(text)
    return dict(os.environ, QMRK_COMMON_PROGRAM_FILES=root + "/cfg", QMRK_COMMON_APPDATA=root + "/init",
                QMRK_APPDATA=root + "/logs")


def run(command, environment):
    begin = time.monotonic()
    result = subprocess.run(command, env=environment, capture_output=True, check=False)
    return result, (time.monotonic() - begin) * 1000


def wait_for_listeners(qmrkctl, environment, number):
    listening = 0
    while listening < number:
        apps = json.loads(run([qmrkctl, "--json", "apps"], environment)[0].stdout)["result"]["apps"]
        listening = sum(app["listens"] == "yes" for app in apps)


def describe(name, values):
    values.sort()
    print(f"{name}: median {values[len(values) // 2]:.1f} ms, p99 {values[len(values) * 99 // 100]:.1f} ms, "
          f"most {values[-1]:.1f} ms")


def main(folder, processes=20, changes=100):
    qmrkctl, logtest = program(folder, "qmrkctl"), program(folder, "LogTest")
    with tempfile.TemporaryDirectory(prefix="qmrk-answers-") as root:
        environment = install(root)
        started = [subprocess.Popen([logtest, "--listen", "600", "--classes", CLASSES], env=environment,
                                    stdout=subprocess.DEVNULL) for _ in range(processes)]
        try:
            wait_for_listeners(qmrkctl, environment, processes)
            answers, commands, examinations = [], [], []
            for change in range(changes):
                what = "disable" if change % 2 else "enable"
                result, took = run([qmrkctl, "--json", "classes", what, "--wait", "60s", "Demo.Net"], environment)
                given = json.loads(result.stdout)["result"]["answers"]
                if sum(answer["outcome"] == "applied" for answer in given) != processes:
                    sys.exit(f"not everybody answered: {given}")
                answers += [answer["milliseconds"] for answer in given]
                commands.append(took)
                examinations.append(run([qmrkctl, "doctor"], environment)[1])
        finally:
            for process in started:
                process.kill()
                process.wait()
    print(f"{processes} processes, {changes} changes, load {os.getloadavg()[0]:.1f}")
    describe("event set until answer seen", answers)
    describe("whole command until its end", commands)
    describe("doctor", examinations)


if __name__ == "__main__":
    main(sys.argv[1], *(int(number) for number in sys.argv[2:]))
