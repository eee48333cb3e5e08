# SPDX-License-Identifier: MIT
"""The workloads that are compared, and their goals."""
import dataclasses
import json
import os
import statistics
import subprocess
import tempfile
import typing

import instructions

PACKAGED_PEERS = ["spdlog", "log4cplus", "log4cxx", "Boost.Log", "glog"]
# Of these only the headers are needed; they are measured where a variable names their folder.
UNPACKAGED_PEERS = ["quill"]
PEERS = PACKAGED_PEERS + UNPACKAGED_PEERS
# qmrk-fmt is the formatting form of the statement; all else is qmrk's.
OURS = ["qmrk", "qmrk-fmt"]
EVERYBODY = ["raw", *OURS, *PACKAGED_PEERS]
USUAL = ["raw", "qmrk", *PACKAGED_PEERS]
QUEUED = USUAL + (UNPACKAGED_PEERS if os.environ.get("QMRK_BENCH_QUILL") else [])


@dataclasses.dataclass
class Workload:
    """A program that is run for each subject; `metrics` are (name, unit, ratio to raw?, goal or None),
    `comparisons` are (subject, name of a metric, others, the goal of the ratio to the best of them that loses nothing)."""
    key: str
    title: str
    program: str
    arguments: typing.List[str]
    metrics: typing.List[tuple]
    subjects: typing.List[str] = dataclasses.field(default_factory=lambda: USUAL)
    comparisons: typing.List[tuple] = dataclasses.field(default_factory=list)


def at_most(limit):
    return ("at most", limit)


def at_least(limit):
    return ("at least", limit)


WORKLOADS = [
    Workload("A", "One thread, plain file, each message written at once", "plain_file_bench", [],
             [("ns_per_line", "ns", True, at_most(1.10))], EVERYBODY,
             [("qmrk-fmt", "ns_per_line", ["raw"], at_most(1.10))]),
    Workload("B", "One thread, 1,000,000 bytes, 5 files", "rolling_file_bench", [],
             [("ns_per_line", "ns", True, at_most(1.25))]),
    Workload("D", "Four threads, one file, each message written at once", "threads_bench", ["--threads", "4"],
             [("lines_per_second", "lines/s", True, at_least(0.85))]),
    Workload("E1", "Writer thread: caller's latency and processor time in bursts of 20 lines, 1 ms apart",
             "queued_burst_bench", [],
             [("p50_ns", "ns", False, at_most(60)), ("p99_ns", "ns", False, None),
              ("processor_us_per_line", "us", False, at_most(5))],
             QUEUED, [("qmrk", "p99_ns", ["quill"], at_most(2.5))]),
    Workload("E2", "Writer thread: flood of 200,000 lines until all are in the file, 1 thread", "queued_flood_bench", [],
             [("lines_per_second", "lines/s", False, at_least(6e6)), ("idle_ms", "ms in 3 s", False, at_most(0.05)),
              ("lines_lost", "lines", False, at_most(0))], QUEUED),
    Workload("E3", "Writer thread: the same flood from 4 threads", "queued_flood_bench",
             ["--threads", "4"],
             [("lines_per_second", "lines/s", False, at_least(4.5e6)), ("lines_lost", "lines", False, at_most(0))],
             QUEUED, [("qmrk", "lines_per_second", PEERS, at_least(2))]),
    Workload("E4", "Writer thread: 100 lines per second, processor time as a share of one core", "queued_steady_bench",
             ["--rate", "100"], [("processor_percent", "%", False, at_most(0.8))], QUEUED),
    Workload("E5", "Writer thread: 1,000 lines per second, processor time as a share of one core", "queued_steady_bench",
             ["--rate", "1000"], [("processor_percent", "%", False, at_most(5))], QUEUED),
    Workload("E6", "Writer thread: from the statement to the line in the file, about 200 lines per second",
             "queued_delivery_bench", [],
             [("p50_us", "us", False, None), ("p99_us", "us", False, at_most(2000)),
              ("lines_lost", "lines", False, at_most(0))], QUEUED),
    Workload("F1", "All logs off, then 1,000 patterns on, over 1,000 logs", "level_update_bench", [],
             [("us_per_update", "us", False, at_most(150))]),
    Workload("F2", "The same with 10,000 patterns over 10,000 logs (not log4cxx, which takes many seconds)", "level_update_bench",
             ["--count", "10000", "--rounds", "3"], [("us_per_update", "us", False, None)],
             [subject for subject in USUAL if subject != "log4cxx"]),
    Workload("G", "Two processes, 100,000 lines each, one file", "processes_bench", [],
             [("ns_per_line", "ns", True, at_most(1.10)), ("lines_lost", "lines", False, at_most(0))]),
]


@dataclasses.dataclass
class LibraryWorkload:
    """A measurement of this library alone: run(build, folder, rounds) gives {metric: [values]}."""
    key: str
    title: str
    run: typing.Callable
    metrics: typing.List[tuple]


def google_benchmark(program, name, environment=None, repetitions=5):
    """Real time per iteration of the benchmark in nanoseconds, {benchmark: [a value per repetition]}."""
    done = subprocess.run([program, "--benchmark_format=json", f"--benchmark_repetitions={repetitions}",
                           f"--benchmark_filter=^{name}(/|$)"],
                          stdout=subprocess.PIPE, env={**os.environ, **(environment or {})}, check=True)
    result = {}
    for run in json.loads(done.stdout)["benchmarks"]:
        if run.get("run_type") == "iteration" and "error_message" not in run:
            result.setdefault(run["name"].split("/")[0], []).append(run["real_time"])
    return result


def figures_of(command):
    """The figures that a program prints, one a line."""
    done = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True)
    return {name: float(value) for name, value in (line.split() for line in done.stdout.splitlines())}


def repeated(command_of_round, rounds):
    """{metric: [a value per round]}"""
    figures = {}
    for number in range(rounds):
        for name, value in figures_of(command_of_round(number)).items():
            figures.setdefault(name, []).append(value)
    return figures


def create_loggers(build, _folder, rounds):
    return repeated(lambda _: [f"{build}/bench/logger_creation_bench"], rounds)


def growth_of_update(build, _folder, _rounds):
    """Counted, as the times of many logs show the caches of the processor."""
    few, many = (instructions.of_pattern(build, logs) for logs in (1000, 10000))
    return {"instructions_of_a_pattern_of_1000": [few], "instructions_of_a_pattern_of_10000": [many],
            "growth": [many / few]}


def write(path, text):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


def set_up(build, folder, rounds, benchmark, classes):
    """Milliseconds of a set-up with these classes in the filter and in the list of what is on."""
    folder = tempfile.mkdtemp(dir=folder)
    base = {name: f"{folder}/{name}" for name in ("QMRK_APPDATA", "QMRK_COMMON_PROGRAM_FILES", "QMRK_COMMON_APPDATA")}
    cfg = f"{base['QMRK_COMMON_PROGRAM_FILES']}/Orvane Shared/qmrk/logging/cfg/qmrk_logging_"
    write(cfg + "GE.cfg", "CA_NR=GE\nREDIRECT_CA_NR=CA12\n")
    write(cfg + "CA12.cfg", f"LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.txt\nCOMMON_LOG_FILE_FILTER={classes}\n")
    write(f"{base['QMRK_COMMON_APPDATA']}/Orvane/qmrk/logging/qmrk_logging_CA12.init", classes)
    os.makedirs(base["QMRK_APPDATA"], exist_ok=True)
    nanoseconds = google_benchmark(f"{build}/bench/set_up_bench", benchmark, base, rounds)
    return {name: [value / 1e6 for value in values] for name, values in nanoseconds.items()}


def small_set_up(build, folder, rounds):
    classes = "".join(f"App.Module{i}.info;" for i in range(20))
    return set_up(build, folder, rounds, "initialiseDefaultLogs", classes)


def large_set_up(build, folder, rounds):
    classes = "".join(f"Class{i}.*.info;" for i in range(4000))
    return set_up(build, folder, rounds, "initialiseDefaultLogsOverLogs", classes)


def load_library(build, _folder, rounds):
    """Milliseconds that the library takes beyond an empty one, the two loaded in turn; 20 times a round."""
    def load(library):
        done = subprocess.run([f"{build}/bench/load_library_bench", library], stdout=subprocess.PIPE, check=True)
        return float(done.stdout.split()[1]) / 1e3
    beyond = []
    for _ in range(rounds):
        pairs = [(load(f"{build}/include/libqmrk_log.so"), load(f"{build}/bench/libbench_empty.so"))
                 for _ in range(20)]
        beyond.append(statistics.median(full - empty for full, empty in pairs))
    return {"loadBeyondAnEmptyLibrary": beyond}


def listener_latency(build, folder, rounds):
    """Microseconds; each round has 1,000 settings."""
    return repeated(lambda number: [f"{build}/bench/listener_latency_bench", f"{folder}/listener{number}"], rounds)


LIBRARY_WORKLOADS = [
    LibraryWorkload("F3", "Instructions of one pattern, with 1,000 and with 10,000 patterns and logs", growth_of_update,
                    [("instructions_of_a_pattern_of_1000", "instructions", False, None),
                     ("instructions_of_a_pattern_of_10000", "instructions", False, None),
                     ("growth", "times", False, at_most(1.5))]),
    LibraryWorkload("H", "Creating a logger", create_loggers,
                    [("existing_name_ns", "ns", False, at_most(100)), ("new_name_ns", "ns", False, at_most(5000))]),
    LibraryWorkload("I1", "initDefaultLogs, generic file redirected, filter of 20 entries", small_set_up,
                    [("initialiseDefaultLogs", "ms", False, at_most(1))]),
    LibraryWorkload("I2", "Loading the library, beyond an empty library with the same dependencies", load_library,
                    [("loadBeyondAnEmptyLibrary", "ms", False, at_most(0.3))]),
    LibraryWorkload("I3", "initDefaultLogs again, filter of 4,000 entries as X.*.info, over 4,000 logs", large_set_up,
                    [("initialiseDefaultLogsOverLogs", "ms", False, at_most(100))]),
    LibraryWorkload("J", "From setting the event to the first line of the newly enabled class in another process",
                    listener_latency, [("p50_us", "us", False, at_most(1000)), ("p99_us", "us", False, at_most(1000))]),
]
