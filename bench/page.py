# SPDX-License-Identifier: MIT
"""Writes docs/performance.md, its plot and that of the README from measured figures."""
import statistics
import subprocess

import speed_plot
from workloads import EVERYBODY, LIBRARY_WORKLOADS, PEERS, UNPACKAGED_PEERS, WORKLOADS

SHOWN = EVERYBODY + UNPACKAGED_PEERS

DISABLED_TITLE = "A disabled statement"

CONFIGURATION = """\
Every library writes the same line, `[App.Module.info] 20261121 10:00:00.123 ` and a message of 60 characters with an
integer in it, as closely as it can be configured, and flushes it where the workload says "at once". Each is used as its
documentation recommends for the job; the code is in `bench/subjects/`.

| subject | configuration |
|---|---|
| raw | formatted by hand into one buffer with a cached second, one `write` on an `O_APPEND` descriptor; rolling: the size counted, `rename`; writer thread: a lock and two swapped buffers |
| qmrk | `QMRK_LOG`, the three modifiers of the default set-up, `write_to_file`; rolling: `rolling_file_appender`; writer thread: `ts_appender` with interval 0 |
| qmrk-fmt | the same by `QMRK_LOGF` |
| spdlog | `basic_file_sink_mt` or `rotating_file_sink_mt`, flushed at every message; `async_factory`, queue of 8192, flushed at the end of a run of lines |
| log4cplus | `FileAppender` or `RollingFileAppender` with immediate flush and a `PatternLayout`; `AsyncAppender`, queue of 8192 |
| log4cxx | `FileAppender` or `RollingFileAppender` with immediate flush and a `PatternLayout`; `AsyncAppender`, buffer of 8192 |
| Boost.Log | text file backend with automatic flush behind a synchronous or an asynchronous sink, microseconds in the stamp |
| glog | its own prefix, no buffering; it has no rolling by number, no writer thread and no named logs |
| quill | writer thread only, measured where `QMRK_BENCH_QUILL` names its headers: the default queue of each thread, preallocated; `FileSink`; its backend thread as it is by default, which writes every 200 ms; flushed at the end of a run of many lines |
"""


def number(value):
    if value >= 1e6:
        return f"{value / 1e6:.2f} M"
    if value >= 100:
        return f"{value:,.0f}"
    return f"{value:.3g}"


def ratios(figures, subject, metric, other="raw"):
    """Round by round, so that a drift of the machine's speed does not count."""
    return [mine / its for mine, its in zip(figures[subject][metric], figures[other][metric])]


def reached(goal, value):
    kind, limit = goal
    return value <= limit if kind == "at most" else value >= limit


def cell(values):
    return f"{number(statistics.median(values))} ({number(min(values))} - {number(max(values))})"


def metric_rows(figures, metric, unit, relative):
    for subject in SHOWN:
        if metric not in figures.get(subject, {}):
            continue
        ratio = ""
        if metric in figures.get("raw", {}) and statistics.median(figures["raw"][metric]) > 0:
            values = ratios(figures, subject, metric)
            ratio = f"{statistics.median(values):.2f} ({min(values):.2f} - {max(values):.2f})"
        yield f"| {subject} | {cell(figures[subject][metric])} {unit} | {ratio} |"


def metrics_of_qmrk(figures):
    """(key, title, metric, unit, is a ratio?, goal, measured, the best peer and its figure or None) in order."""
    for workload in WORKLOADS:
        of_key = figures[workload.key]
        for metric, unit, relative, goal in workload.metrics:
            value = typical(of_key, "qmrk", metric, relative)
            best = best_peer(of_key, PEERS, metric, relative)
            yield workload.key, workload.title, metric, unit, relative, goal, value, best
    off = figures["C"]
    yield ("C", DISABLED_TITLE, "instructions", "", False, ("at most", 8), off["qmrk"],
           min(((off[peer], peer) for peer in PEERS if peer in off), default=None))
    for workload in LIBRARY_WORKLOADS:
        for metric, unit, relative, goal in workload.metrics:
            yield (workload.key, workload.title, metric, unit, relative, goal,
                   statistics.median(figures[workload.key][metric]), None)


def best_peer(of_key, peers, metric, relative=False):
    """(its figure, its name) of the best that has lost no line, or None."""
    known = [(typical(of_key, peer, metric, relative), peer) for peer in peers
             if metric in of_key.get(peer, {}) and max(of_key[peer].get("lines_lost", [0])) == 0]
    return (max if metric == "lines_per_second" else min)(known, default=None)


def compared(workload, of_key):
    """(subject, metric, (figure, name) of the best of the others, goal, ratio to it), where others were measured."""
    for subject, metric, others, goal in workload.comparisons:
        best = best_peer(of_key, others, metric)
        if best:
            yield subject, metric, best, goal, statistics.median(ratios(of_key, subject, metric, best[1]))


def typical(of_key, subject, metric, relative):
    """The median; of ratios that were formed round by round where the workload has them."""
    return statistics.median(ratios(of_key, subject, metric) if relative else of_key[subject][metric])


def state(goal, value):
    if reached(goal, value):
        return "reached"
    missed = abs(value - goal[1]) / goal[1] if goal[1] else 1
    return f"**missed** by {missed:.0%}"


def beats(metric, one, other):
    return one > other if metric == "lines_per_second" else one < other


def summary(figures):
    lines = ["## Goals", "", "| | metric | goal | measured | | best peer |", "|---|---|---|---|---|---|"]
    for key, _, metric, unit, relative, goal, value, best in sorted(metrics_of_qmrk(figures), key=lambda row: row[0]):
        if goal is None or metric == "lines_lost" and reached(goal, value):
            continue
        what = f"{metric}, ratio to raw" if relative else f"{metric}{', ' + unit if unit else ''}"
        peer = f"{best[1]} {number(best[0])}" if best else ""
        lines.append(f"| {key} | {what} | {goal[0]} {number(goal[1])} | {number(value)} | {state(goal, value)} | {peer} |")
    for workload in WORKLOADS:
        for subject, metric, best, goal, value in compared(workload, figures[workload.key]):
            lines.append(f"| {workload.key} | {subject}: {metric}, ratio to {best[1]} | {goal[0]} {number(goal[1])} "
                         f"| {number(value)} | {state(goal, value)} | {best[1]} {number(best[0])} |")
    return lines + ["", *won_by_peers(figures), ""]


def won_by_peers(figures):
    won = [f"{key}, {metric}: {best[1]} with {number(best[0])}, qmrk {number(value)}"
           for key, _, metric, _, _, _, value, best in metrics_of_qmrk(figures)
           if best and beats(metric, best[0], value)]
    return ["Where a peer is ahead: " + ("; ".join(won) if won else "nowhere") + "."]


def workload_section(workload, figures):
    lines = [f"## {workload.key}. {workload.title}", ""]
    for metric, unit, relative, goal in workload.metrics:
        if metric == "lines_lost":
            lines += [lost_lines(figures), ""]
            continue
        heading = f"| {metric} | median (range) | ratio to raw (range) |"
        lines += [heading, "|---|---|---|", *metric_rows(figures, metric, unit, relative), ""]
        if goal is not None:
            value = typical(figures, "qmrk", metric, relative)
            lines += [f"Goal: {goal[0]} {number(goal[1])}; measured {number(value)}: {state(goal, value)}.", ""]
    for subject, metric, best, goal, value in compared(workload, figures):
        lines += [f"Goal of {subject} for {metric}: {goal[0]} {number(goal[1])} times that of {best[1]}; measured "
                  f"{number(value)}: {state(goal, value)}.", ""]
    return lines


def lost_lines(figures):
    lost = [f"{subject} {number(max(of_subject['lines_lost']))}" for subject, of_subject in figures.items()
            if max(of_subject["lines_lost"]) > 0]
    return f"Lost or torn lines: {', '.join(lost) if lost else 'none'}."


def disabled_section(figures):
    lines = [f"## C. {DISABLED_TITLE}", "", "Instructions, counted by callgrind; an empty loop is raw.", "",
             "| subject | instructions |", "|---|---|"]
    lines += [f"| {subject} | {number(value)} |" for subject, value in figures.items()]
    return lines + ["", f"Goal: at most 8; measured {number(figures['qmrk'])}: {state(('at most', 8), figures['qmrk'])}.",
                    ""]


def library_section(workload, figures):
    lines = [f"## {workload.key}. {workload.title}", ""]
    for metric, unit, _, goal in workload.metrics:
        line = f"{metric}: {cell(figures[metric])} {unit}."
        if goal is not None:
            value = statistics.median(figures[metric])
            line += f" Goal: {goal[0]} {number(goal[1])}; measured {number(value)}: {state(goal, value)}."
        lines += [line, ""]
    return lines


def profile_section(profiles):
    lines = ["## Where the instructions of a line go", "",
             "Counted by callgrind, without the kernel; functions below ten instructions are left out.", ""]
    for key, rows in profiles.items():
        total = sum(count for count, _ in rows)
        lines += [f"{key}: {total:.0f} instructions per line", "", "| instructions | function |", "|---|---|"]
        lines += [f"| {count:.0f} | `{function}` |" for count, function in rows if count >= 10]
        lines += [""]
    return lines


def plot(figures, out):
    """Time per line as a ratio to raw, for the workloads that have one."""
    keys = [w for w in WORKLOADS if w.metrics[0][2]]
    rows = []
    for subject in EVERYBODY[1:]:
        row = []
        for workload in keys:
            metric = workload.metrics[0][0]
            known = metric in figures[workload.key].get(subject, {})
            value = statistics.median(ratios(figures[workload.key], subject, metric)) if known else None
            row.append("?" if value is None else f"{1 / value if metric == 'lines_per_second' else value:.3f}")
        rows.append(f'"{subject}" ' + " ".join(row))
    data = "\n".join(rows)
    columns = ", ".join(f'$data using {i + 2}:xtic(1) title "{w.key}. {w.title}"' for i, w in enumerate(keys))
    script = f"""set terminal svg size 900,420 font "sans-serif,12" background "#ffffff"
set output "{out}"
set datafile missing "?"
set style data histograms
set style fill solid 0.8
set ylabel "time per line, ratio to raw"
set yrange [0:*]
set grid ytics
set key top left
$data << EOD
{data}
EOD
plot {columns}, 1 lc rgb "#444444" dt 2 title "raw"
"""
    subprocess.run(["gnuplot"], input=script, text=True, check=True)


def heading(measured):
    machine = measured["machine"]
    return ["<!-- SPDX-License-Identifier: MIT -->", "# What a logging statement costs", "",
            "Written by `scripts/bench`, which installs the peers, builds everything and runs the subjects in turn. "
            "Ratios are taken round by round and are what counts; absolute times hold for this machine only.", "",
            f"{machine['processor']}, Linux {machine['kernel']}, {machine['compiler']}, {machine['date']}, commit "
            f"{machine['commit']}, {measured['rounds']} rounds, load {machine['load']} before the first. "
            f"Packages: {machine['versions']}.", "",
            "![time per line as a ratio to raw](performance.svg)", ""]


def write(measured, folder):
    """Writes performance.md, performance.svg and speed.svg. What is said by hand is in performance-notes.md."""
    figures = measured["figures"]
    lines = [*heading(measured), *summary(figures), "## How the subjects are used", "", CONFIGURATION]
    sections = {w.key: (lambda w=w: workload_section(w, figures[w.key])) for w in WORKLOADS}
    sections["C"] = lambda: disabled_section(figures["C"])
    sections.update({w.key: (lambda w=w: library_section(w, figures[w.key])) for w in LIBRARY_WORKLOADS})
    for key in sorted(sections):
        lines += sections[key]()
    lines += profile_section(measured["profiles"])
    notes = folder / "performance-notes.md"
    if notes.exists():
        lines += [f"[What was tried, and what the figures mean]({notes.name})", ""]
    (folder / "performance.md").write_text("\n".join(lines), encoding="utf-8")
    plot(figures, folder / "performance.svg")
    speed_plot.write(folder)
