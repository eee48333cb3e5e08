#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""windows_results.py CTEST_XML GTEST_FOLDER: sums up a run of the Windows tests.

A GoogleTest program is one entry of ctest and writes its own XML file, from which its tests are counted; any other entry
counts as one test. Lists tests that cannot run under Wine, with their reasons. Ends with "N passed, M failed", and fails
if a test failed or more tests than allowed could not run.
"""

import pathlib
import sys
import xml.etree.ElementTree

MOST_THAT_CANNOT_RUN = 5


def count_program(path):
    """The passed and failed tests of a GoogleTest program, and those that could not run, with their reasons."""
    root = xml.etree.ElementTree.parse(path).getroot()
    passed, failed, cannot_run = 0, [], []
    for case in root.iter("testcase"):
        name = f"{path.stem}: {case.get('classname')}.{case.get('name')}"
        reasons = [p.get("value") for p in case.iter("property") if p.get("name") == "cannot_run_here"]
        if case.find("failure") is not None:
            failed.append(name)
        elif reasons:
            cannot_run.append(f"{name}: {reasons[0]}")
        elif case.get("status") == "run":
            passed += 1
    return passed, failed, cannot_run


def main():
    entries = xml.etree.ElementTree.parse(sys.argv[1]).getroot()
    folder = pathlib.Path(sys.argv[2])
    passed, failed, cannot_run = 0, [], []
    counted_reports = set()
    for entry in entries.iter("testcase"):
        name, ran_well = entry.get("name"), entry.get("status") == "run"
        report = folder / f"{name}.xml"
        if not report.exists():
            passed += ran_well
            failed += [] if ran_well else [name]
            continue
        counted_reports.add(report)
        counted = count_program(report)
        passed += counted[0]
        failed += counted[1]
        cannot_run += counted[2]
        if not ran_well and not counted[1]:
            failed.append(f"{name}: the program did not end normally")
    # Reports of programs whose tests are separate entries.
    for report in set(folder.glob("*.xml")) - counted_reports:
        reasons = count_program(report)[2]
        passed -= len(reasons)
        cannot_run += reasons
    for line in cannot_run:
        print(f"cannot run under Wine: {line}")
    for line in failed:
        print(f"failed: {line}")
    if len(cannot_run) > MOST_THAT_CANNOT_RUN:
        failed.append("too many tests that cannot run")
        print(f"failed: {len(cannot_run)} tests cannot run under Wine, {MOST_THAT_CANNOT_RUN} are allowed")
    skipped = f", {len(cannot_run)} skipped" if cannot_run else ""
    print(f"{passed} passed, {len(failed)} failed{skipped}")
    return 1 if failed or passed == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
