#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The table of the cases of failure and load (tests/stress/cases.txt).

usage: stress_report.py pattern              prints a regular expression for the tests of all cases
       stress_report.py check BUILD_FOLDER  fails when a case has no test
       stress_report.py report RESULTS.XML   prints the table with the figures of a run, as Markdown; fails when a case
                                             has no test or a test of it has not passed
"""
import argparse
import collections
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree

CASES = pathlib.Path(__file__).resolve().parents[2] / "tests/stress/cases.txt"

Test = collections.namedtuple("Test", "name passed figures")


def cases():
    """[(what happens, pattern of the names of tests)]"""
    lines = [line for line in CASES.read_text(encoding="utf-8").splitlines() if line and not line.startswith("#")]
    return [tuple(part.strip() for part in line.split("|", 1)) for line in lines]


def anchored(pattern):
    return f"^({pattern})$"


def tests_of(results):
    for case in xml.etree.ElementTree.parse(results).iter("testcase"):
        output = "".join(part.text or "" for part in case.iter("system-out"))
        figures = re.findall(r"^figures: (.*)$", output, re.MULTILINE)
        yield Test(case.get("name"), case.get("status") == "run", figures)


def suites(tests):
    """The names of the tests, grouped by suite."""
    names = collections.defaultdict(list)
    for test in tests:
        suite, _, name = test.name.partition(".")
        names[suite].append(name)
    return "; ".join(f"`{suite}.{found[0]}`" if len(found) == 1 else f"`{suite}` ({len(found)} tests)"
                     for suite, found in names.items())


def row(what, tests):
    figures = [line for test in tests for line in test.figures]
    # Rounds of one kind differ only in their numbers.
    kinds = list(dict((re.sub(r"\d+", "0", line), line) for line in figures).values())
    failed = [test.name for test in tests if not test.passed]
    if not tests:
        outcome = "**no test**"
    elif failed:
        outcome = "**FAILED**: " + ", ".join(failed)
    else:
        outcome = "<br>".join(kinds) or "passed"
    return f"| {what} | {outcome} | {suites(tests)} |", bool(tests) and not failed


def report(results, scale):
    tests = list(tests_of(results))
    print(f"Run with scale {scale}: `scripts/stress --scale {scale}`; one case alone: `ctest --preset linux-tests -R NAME`.\n")
    print("| what happens | what was found | shown by |\n|---|---|---|")
    well = True
    for what, pattern in cases():
        text, is_well = row(what, [test for test in tests if re.match(anchored(pattern), test.name)])
        print(text)
        well = well and is_well
    return well


def check(build):
    listed = subprocess.run(["ctest", "-N"], cwd=build, stdout=subprocess.PIPE, text=True, check=True).stdout
    names = re.findall(r"^ *Test +#\d+: (\S+)$", listed, re.MULTILINE)
    without = [what for what, pattern in cases() if not any(re.match(anchored(pattern), name) for name in names)]
    for what in without:
        print(f"no test: {what}")
    print(f"{len(cases())} cases, {len(without)} without a test")
    return bool(names) and not without


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    commands = parser.add_subparsers(dest="command", required=True)
    commands.add_parser("pattern")
    commands.add_parser("check").add_argument("build")
    of_report = commands.add_parser("report")
    of_report.add_argument("results")
    of_report.add_argument("--scale", default="1")
    options = parser.parse_args()
    if options.command == "pattern":
        print(anchored("|".join(pattern for _, pattern in cases())))
        return 0
    is_well = check(options.build) if options.command == "check" else report(options.results, options.scale)
    return 0 if is_well else 1


if __name__ == "__main__":
    sys.exit(main())
