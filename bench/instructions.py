#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Counts, by callgrind, the instructions of what one thread does, and compares them with bench/instructions.txt.

Instructions are stable where times are not. Fails when a count has grown by more than 10 % over the committed one.

usage: bench/instructions.py BUILD_FOLDER [--write]
"""
import argparse
import pathlib
import re
import subprocess
import sys
import tempfile

COMMITTED = pathlib.Path(__file__).with_name("instructions.txt")
TOLERANCE = 1.10
NOT_SUPPORTED = 3
# The lines that a workload logs before it measures.
WARM_UP = 1000


def total(program, arguments):
    """The instructions of a whole run, or None where the subject has nothing of the kind."""
    with tempfile.TemporaryDirectory() as folder:
        out = f"{folder}/callgrind.out"
        arguments = [argument.replace("FOLDER", folder) for argument in arguments]
        done = subprocess.run(["valgrind", "--tool=callgrind", f"--callgrind-out-file={out}", program, *arguments],
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, check=False)
        if done.returncode == NOT_SUPPORTED:
            return None
        if done.returncode != 0:
            sys.exit(f"callgrind of {program} {' '.join(arguments)} failed:\n{done.stderr}")
        with open(out, encoding="utf-8") as lines:
            return next(int(line.split()[1]) for line in lines if line.startswith("summary:"))


def per_step(program, arguments, option, few, many):
    """The difference of two counts leaves out everything but the steps."""
    counts = [total(program, [*arguments, option, str(count)]) for count in (few, many)]
    return None if None in counts else (counts[1] - counts[0]) / (many - few)


def of_subject(build, program, subject, few, many, *arguments):
    return per_step(f"{build}/bench/{program}", ["--subject", subject, "--folder", "FOLDER", *arguments], "--count", few,
                    many)


def of_disabled_statement(build, subject):
    return of_subject(build, "disabled_statement_bench", subject, 10000, 110000)


def of_loggers(build, option, few, many):
    other = "--new" if option == "--existing" else "--existing"
    return per_step(f"{build}/bench/logger_creation_bench", [other, "1"], option, few, many)


def of_pattern(build, logs):
    """What one pattern of an update costs, with so many logs and patterns."""
    program = f"{build}/bench/level_update_bench"
    arguments = ["--subject", "qmrk", "--folder", "FOLDER", "--count", str(logs)]
    return per_step(program, arguments, "--rounds", 1, 3) / logs


def by_function(build, program, subject, lines=20000):
    """[(instructions per line, function)] of a run, the dearest first, without the start of the process."""
    with tempfile.TemporaryDirectory() as folder:
        out = f"{folder}/callgrind.out"
        subprocess.run(["valgrind", "--tool=callgrind", f"--callgrind-out-file={out}", "--toggle-collect=*logLines*",
                        f"{build}/bench/{program}", "--subject", subject, "--folder", folder, "--count", str(lines)],
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
        table = subprocess.run(["callgrind_annotate", "--threshold=100", out], stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL, text=True, check=True).stdout
    table = table[table.index("file:function"):]
    rows = re.findall(r"^ *([\d,]+) \([ \d.]+%\) +[^:]+:(.+?)(?: \[.*\])?$", table, re.MULTILINE)
    counts = [(int(count.replace(",", "")) / (lines + WARM_UP), plain_name(function)) for count, function in rows]
    return [(count, function) for count, function in counts if count >= 1]


def plain_name(function):
    """Without parameters and unnamed namespaces."""
    return function.replace("(anonymous namespace)::", "").split("(")[0]


def measured(build):
    return {
        "A plain_file": of_subject(build, "plain_file_bench", "qmrk", 2000, 12000),
        "A plain_file_with_format": of_subject(build, "plain_file_bench", "qmrk-fmt", 2000, 12000),
        "B rolling_file": of_subject(build, "rolling_file_bench", "qmrk", 20000, 30000),
        "C disabled_statement": of_disabled_statement(build, "qmrk"),
        "C disabled_statement_with_format": of_disabled_statement(build, "qmrk-fmt"),
        "F pattern_of_1000_over_1000_logs": of_pattern(build, 1000),
        "F pattern_of_10000_over_10000_logs": of_pattern(build, 10000),
        "H logger_of_existing_name": of_loggers(build, "--existing", 1000, 11000),
        "H logger_of_new_name": of_loggers(build, "--new", 1000, 11000),
    }


def committed():
    if not COMMITTED.exists():
        return {}
    lines = [line for line in COMMITTED.read_text(encoding="utf-8").splitlines() if line and not line.startswith("#")]
    return {line.rsplit(" ", 1)[0]: float(line.rsplit(" ", 1)[1]) for line in lines}


def write(counts):
    text = ["# SPDX-License-Identifier: MIT",
            "# Instructions of one statement, pattern or logger; renewed by: bench/instructions.py BUILD_FOLDER --write"]
    text += [f"{name} {count:.0f}" for name, count in counts.items()]
    COMMITTED.write_text("\n".join(text) + "\n", encoding="utf-8")


def compare(counts, limits):
    """Prints each count beside the committed one; whether none has grown too much and none is missing."""
    well = set(counts) == set(limits)
    if not well:
        print(f"{COMMITTED.name} names other workloads than are measured: renew it with --write")
    for name, count in counts.items():
        limit = limits.get(name, 0) * TOLERANCE
        grown = round(count) > limit
        well = well and not grown
        print(f"{name}: {count:.0f}, committed {limits.get(name, 0):.0f}"
              + (", GROWN by more than 10 %" if grown else ""))
    return well


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("build")
    parser.add_argument("--write", action="store_true", help="make what is measured the committed counts")
    options = parser.parse_args()
    counts = measured(str(pathlib.Path(options.build).resolve()))
    if options.write:
        write(counts)
    sys.exit(0 if compare(counts, committed()) else 1)


if __name__ == "__main__":
    main()
