#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""failed_tests.py CTEST_XML: prints the failed tests of a run. First their names, since a reader may see only the beginning;
then the end of the output of each.
"""

import sys
import xml.etree.ElementTree

LINES_OF_EACH = 40


def main():
    entries = xml.etree.ElementTree.parse(sys.argv[1]).getroot()
    failed = [entry for entry in entries.iter("testcase") if entry.get("status") == "fail"]
    for entry in failed:
        failure = entry.find("failure")
        reason = failure.get("message") if failure is not None else ""
        print(f"FAILED after {float(entry.get('time')):.1f} s: {entry.get('name')} {reason}".rstrip())
    for entry in failed:
        print(f"\n{entry.get('name')} wrote:")
        for line in (entry.findtext("system-out") or "").splitlines()[-LINES_OF_EACH:]:
            print(f"  {line}")


if __name__ == "__main__":
    main()
