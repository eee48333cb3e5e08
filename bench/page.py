# SPDX-License-Identifier: MIT
"""Writes docs/performance.md and its plot from measured figures."""
import statistics
import subprocess

from workloads import EVERYBODY, LIBRARY_WORKLOADS, WORKLOADS

CONFIGURATION = """\
Every library writes the same line, `[App.Module.info] 20261121 10:00:00.123 ` and a message of 60 characters with an
integer in it, as near as it can be configured, and flushes it where the workload says "at once". Each is used as its
documentation recommends for the job; the code is in `bench/subjects/`.

| subject | configuration |
|---|---|
| raw | formatted by hand into one buffer with a cached second, one `write` on an `O_APPEND` descriptor; rolling: the size counted, `rename`; writer thread: a lock and two swapped buffers |
| qmrk | `QMRK_LOG`, the three modifiers of the default set-up, `write_to_file`; rolling: `rolling_file_appender`; writer thread: `ts_appender` with interval 0 |
| spdlog | `basic_file_sink_mt` or `rotating_file_sink_mt`, flushed at every message; `async_factory`, queue of 8192, flushed at the end of a run of lines |
| log4cplus | `FileAppender` or `RollingFileAppender` with immediate flush and a `PatternLayout`; `AsyncAppender`, queue of 8192 |
| log4cxx | `FileAppender` or `RollingFileAppender` with immediate flush and a `PatternLayout`; `AsyncAppender`, buffer of 8192 |
| Boost.Log | text file backend with automatic flush behind a synchronous or an asynchronous sink, microseconds in the stamp |
| glog | its own prefix, no buffering; it has no rolling by number, no writer thread and no named logs |
"""


def number(value):
    if value >= 1e6:
        return f"{value / 1e6:.2f} M"
    if value >= 100:
        return f"{value:,.0f}"
    return f"{value:.3g}"


def ratios(figures, subject, metric):
    """Round by round, so that a drift of the machine's speed does not count."""
    return [mine / raw for mine, raw in zip(figures[subject][metric], figures["raw"][metric])]


def reached(goal, value):
    kind, limit = goal
    return value <= limit if kind == "at most" else value >= limit


def cell(values):
    return f"{number(statistics.median(values))} ({number(min(values))} - {number(max(values))})"


def metric_rows(figures, metric, unit, relative):
    for subject in EVERYBODY:
        if metric not in figures.get(subject, {}):
            continue
        ratio = ""
        if metric in figures.get("raw", {}) and statistics.median(figures["raw"][metric]) > 0:
            values = ratios(figures, subject, metric)
            ratio = f"{statistics.median(values):.2f} ({min(values):.2f} - {max(values):.2f})"
        yield f"| {subject} | {cell(figures[subject][metric])} {unit} | {ratio} |"


def verdict(metric, goal, value, relative):
    what = "ratio to raw" if relative else metric
    state = "reached" if reached(goal, value) else "**missed**"
    return f"To reach: {what} {goal[0]} {number(goal[1])}; measured {number(value)}: {state}."


def workload_section(workload, figures):
    lines = [f"## {workload.key}. {workload.title}", ""]
    for metric, unit, relative, goal in workload.metrics:
        lines += ["| subject | median (range) | ratio to raw (range) |", "|---|---|---|"]
        lines += metric_rows(figures, metric, unit, relative)
        value = statistics.median(ratios(figures, "qmrk", metric) if relative else figures["qmrk"][metric])
        lines += ["", verdict(metric, goal, value, relative), ""]
    return lines


def disabled_section(figures):
    lines = ["## C. A statement of a log that is off", "", "Counted by callgrind; an empty loop is raw.", "",
             "| subject | instructions |", "|---|---|"]
    lines += [f"| {subject} | {number(value)} |" for subject, value in figures.items()]
    return lines + ["", verdict("instructions", ("at most", 8), figures["qmrk"], False), ""]


def library_section(workload, figures):
    lines = [f"## {workload.key}. {workload.title}", ""]
    for metric, unit, _, goal in workload.metrics:
        lines += [f"{metric}: {cell(figures[metric])} {unit}. "
                  + verdict(metric, goal, statistics.median(figures[metric]), False), ""]
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


def write(figures, machine, rounds, folder, notes=None):
    lines = ["<!-- SPDX-License-Identifier: MIT -->", "# What a logging statement costs", "",
             "Written by `scripts/bench`, which installs the peers, builds everything and runs the subjects in turn. "
             "Ratios are formed round by round and are what counts; absolute times are this machine's.", "",
             f"{machine['processor']}, Linux {machine['kernel']}, {machine['date']}, commit {machine['commit']}, "
             f"{rounds} rounds.", "", "![time per line as a ratio to raw](performance.svg)", "", CONFIGURATION]
    sections = {w.key: (lambda w=w: workload_section(w, figures[w.key])) for w in WORKLOADS}
    sections["C"] = lambda: disabled_section(figures["C"])
    sections.update({w.key: (lambda w=w: library_section(w, figures[w.key])) for w in LIBRARY_WORKLOADS})
    for key in sorted(sections):
        lines += sections[key]()
    remarks = folder / "performance-notes.md"
    if remarks.exists():
        lines += [remarks.read_text(encoding="utf-8")]
    (folder / "performance.md").write_text("\n".join(lines), encoding="utf-8")
    plot(figures, folder / "performance.svg")
