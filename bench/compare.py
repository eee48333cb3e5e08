#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs every workload for every subject in turn, several rounds, and writes docs/performance.md with its plot.

What was measured is kept in BUILD_FOLDER/figures.json. With --only the medians of some workloads are
printed and nothing is written; with --render the page is written again from kept figures.

usage: bench/compare.py BUILD_FOLDER [--rounds N] [--out DOCS_FOLDER] [--only A,E,F1,...] [--render]
"""
import argparse
import json
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile

import instructions
import machine
import page
from workloads import EVERYBODY, LIBRARY_WORKLOADS, WORKLOADS


def run_once(program, subject, arguments, folder):
    """One round in a fresh folder; the printed figures, or None where the subject has nothing of the kind."""
    run_folder = tempfile.mkdtemp(dir=folder)
    try:
        done = subprocess.run(
            [program, "--subject", subject, "--folder", run_folder, *arguments],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, timeout=300, check=False)
    finally:
        shutil.rmtree(run_folder, ignore_errors=True)
    if done.returncode == instructions.NOT_SUPPORTED:
        return None
    if done.returncode != 0:
        sys.exit(f"{program} --subject {subject} failed ({done.returncode}):\n{done.stderr}")
    return {name: float(value) for name, value in (line.split() for line in done.stdout.splitlines())}


def run_workload(build, workload, rounds, folder):
    """{subject: {metric: [a value per round]}}, the subjects interleaved round by round."""
    figures = {}
    subjects = list(workload.subjects)
    for _ in range(rounds):
        for subject in list(subjects):
            values = run_once(f"{build}/bench/{workload.program}", subject, workload.arguments, folder)
            if values is None:
                subjects.remove(subject)
                continue
            for metric, value in values.items():
                figures.setdefault(subject, {}).setdefault(metric, []).append(value)
    return figures


def instructions_per_statement(build):
    counts = {subject: instructions.of_disabled_statement(build, subject) for subject in EVERYBODY}
    return {subject: count for subject, count in counts.items() if count is not None}


def measure(build, rounds, keys, folder):
    """{key of a workload: its figures}, of the keys that begin with one of the given, or of all."""
    works = {w.key: (w.title, lambda w=w: run_workload(build, w, rounds, folder)) for w in WORKLOADS}
    works["C"] = (page.DISABLED_TITLE, lambda: instructions_per_statement(build))
    works.update({w.key: (w.title, lambda w=w: w.run(build, folder, rounds)) for w in LIBRARY_WORKLOADS})
    figures = {}
    for key in sorted(works):
        if keys and not key.startswith(tuple(keys)):
            continue
        title, run = works[key]
        print(f"{key}: {title}", flush=True)
        figures[key] = run()
    return figures


def profiles(build):
    """Where the instructions of the two workloads with a file go."""
    programs = {"A": "plain_file_bench", "B": "rolling_file_bench"}
    return {key: instructions.by_function(build, program, "qmrk") for key, program in programs.items()}


def print_medians(figures):
    for key, of_key in figures.items():
        for name, value in of_key.items():
            values = value.items() if isinstance(value, dict) else [("", value)]
            for metric, numbers in values:
                median = statistics.median(numbers if isinstance(numbers, list) else [numbers])
                print(f"{key} {name} {metric} {median:.4g}")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("build")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--out", default="docs")
    parser.add_argument("--only", default="", metavar="KEY,...",
                        help="print the medians of these workloads and write nothing; E is all of E1 to E6")
    parser.add_argument("--render", action="store_true", help="write the page again from kept figures")
    options = parser.parse_args()
    build = pathlib.Path(options.build).resolve()
    kept = build / "figures.json"
    if options.render:
        measured = json.loads(kept.read_text(encoding="utf-8"))
    else:
        with tempfile.TemporaryDirectory(dir=build, prefix="run-") as folder:
            measured = {"machine": machine.description(), "rounds": options.rounds}
            measured["figures"] = measure(str(build), options.rounds, [k for k in options.only.split(",") if k], folder)
    if options.only:
        print_medians(measured["figures"])
        return
    if not options.render:
        measured["profiles"] = profiles(str(build))
        kept.write_text(json.dumps(measured), encoding="utf-8")
    page.write(measured, pathlib.Path(options.out))


if __name__ == "__main__":
    main()
