#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs every workload for every subject in turn, several rounds, and writes docs/performance.md with its plot.

usage: bench/compare.py BUILD_FOLDER [--rounds N] [--out DOCS_FOLDER]
"""
import argparse
import datetime
import os
import pathlib
import platform
import shutil
import statistics
import subprocess
import sys
import tempfile

from workloads import LIBRARY_WORKLOADS, PEERS, WORKLOADS
import page

NOT_SUPPORTED = 3


def run_once(program, subject, arguments, folder):
    """One round in a fresh folder; the printed figures, or None where the subject has nothing of the kind."""
    run_folder = tempfile.mkdtemp(dir=folder)
    try:
        done = subprocess.run(
            [program, "--subject", subject, "--folder", run_folder, *arguments],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, timeout=300, check=False)
    finally:
        shutil.rmtree(run_folder, ignore_errors=True)
    if done.returncode == NOT_SUPPORTED:
        return None
    if done.returncode != 0:
        sys.exit(f"{program} --subject {subject} failed ({done.returncode}):\n{done.stderr}")
    return {name: float(value) for name, value in (line.split() for line in done.stdout.splitlines())}


def run_workload(build, workload, rounds, folder):
    """{subject: {metric: [a value per round]}}, the subjects interleaved round by round."""
    figures = {}
    subjects = [s for s in ["raw", "qmrk", *PEERS] if s in workload.subjects]
    for _ in range(rounds):
        for subject in list(subjects):
            values = run_once(f"{build}/bench/{workload.program}", subject, workload.arguments, folder)
            if values is None:
                subjects.remove(subject)
                continue
            for metric, value in values.items():
                figures.setdefault(subject, {}).setdefault(metric, []).append(value)
    print(f"{workload.key}: {workload.title}", flush=True)
    return figures


def instructions(build, subject, count, folder):
    """Instructions that callgrind counts for a run of that many disabled statements."""
    out = f"{folder}/callgrind.out"
    program = f"{build}/bench/disabled_statement_bench"
    done = subprocess.run(
        ["valgrind", "--tool=callgrind", f"--callgrind-out-file={out}", program, "--subject", subject, "--folder",
         folder, "--count", str(count)], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, check=False)
    if done.returncode == NOT_SUPPORTED:
        return None
    if done.returncode != 0:
        sys.exit(f"callgrind of {program} --subject {subject} failed:\n{done.stderr}")
    with open(out, encoding="utf-8") as lines:
        return next(int(line.split()[1]) for line in lines if line.startswith("summary:"))


def instructions_per_statement(build, folder):
    """The difference of two counts leaves out everything but the statements."""
    few, many = 10000, 110000
    result = {}
    for subject in ["raw", "qmrk", *PEERS]:
        counts = [instructions(build, subject, n, folder) for n in (few, many)]
        if None not in counts:
            result[subject] = (counts[1] - counts[0]) / (many - few)
    print("C: instructions of a statement of a log that is off", flush=True)
    return result


def machine():
    with open("/proc/cpuinfo", encoding="utf-8") as lines:
        model = next((line.split(":", 1)[1].strip() for line in lines if line.startswith("model name")), "unknown")
    commit = subprocess.run(["git", "rev-parse", "--short", "HEAD"], stdout=subprocess.PIPE, text=True, check=False)
    changed = subprocess.run(["git", "status", "--porcelain", "--untracked-files=no"], stdout=subprocess.PIPE,
                             text=True, check=False).stdout.strip()
    return {
        "processor": f"{model}, {os.cpu_count()} cores",
        "kernel": platform.release(),
        "date": datetime.date.today().isoformat(),
        "commit": commit.stdout.strip() + (" with uncommitted changes" if changed else ""),
    }


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("build")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--out", default="docs")
    options = parser.parse_args()
    build = str(pathlib.Path(options.build).resolve())
    with tempfile.TemporaryDirectory(dir=build, prefix="run-") as folder:
        figures = {w.key: run_workload(build, w, options.rounds, folder) for w in WORKLOADS}
        figures["C"] = instructions_per_statement(build, folder)
        for workload in LIBRARY_WORKLOADS:
            figures[workload.key] = workload.run(build, folder, options.rounds)
            print(f"{workload.key}: {workload.title}", flush=True)
    page.write(figures, machine(), options.rounds, pathlib.Path(options.out))


if __name__ == "__main__":
    main()
