#!/usr/bin/env python3
"""Turns a Google Benchmark JSON file of vorlan_bench into a table of
ratios against the baselines measured in the same run.

    bench_table.py RESULTS.json                 plain table on stdout
    bench_table.py RESULTS.json --readme FILE   rewrites the table between
                                                the bench-table markers of FILE
"""
import datetime
import json
import os
import platform
import sys

# Benchmark family, what it measures, what the baseline does, per how many.
MEASURES = [
    ("PostPeek", "Posted message, main thread to a worker: post, then peek with `PM_REMOVE`",
     "bare `GAsyncQueue` push and pop", 1),
    ("SendRoundTrip", "Cross-thread send, main thread to a worker's window, reply included",
     "mutex and condition variable ping-pong", 1),
    ("DrawLines", "Line on a memory DC: `MoveToEx` and `LineTo`, 1-pixel pen",
     "`gdk_draw_line` on a pixmap", 64),
    ("DrawRectangles", "`Rectangle` with pen and solid brush, 40 x 30",
     "filled and outlined `gdk_draw_rectangle`", 64),
    ("DrawEllipses", "`Ellipse` with pen and solid brush, 40 x 30",
     "filled and outlined `gdk_draw_arc`", 64),
    ("PatternFills", "`PatBlt` `PATCOPY` with an 8 x 8 pattern brush, 40 x 30",
     "tiled `gdk_draw_rectangle`", 64),
]
START = "<!-- bench-table:start -->"
END = "<!-- bench-table:end -->"


def medians(path):
    """The median of each benchmark when it was repeated, else its one run."""
    runs = {}
    for bench in json.load(open(path))["benchmarks"]:
        name = bench.get("run_name", bench["name"]).split("/real_time")[0]
        if bench.get("run_type") == "aggregate":
            if bench.get("aggregate_name") == "median":
                runs[name] = bench
        else:
            runs.setdefault(name, bench)
    return runs


def rows(runs):
    for family, what, baseline, per in MEASURES:
        ours = runs.get(family + "/Queue") or runs.get(family + "/Vorlan")
        theirs = runs.get(family + "/Baseline")
        if ours and theirs:
            yield family, what, baseline, ours["real_time"] / per, theirs["real_time"] / per


def duration(ns):
    return "%.2f µs" % (ns / 1000.0)


def machine():
    model = platform.processor() or platform.machine()
    try:
        for line in open("/proc/cpuinfo"):
            if line.startswith("model name"):
                model = line.split(":", 1)[1].strip()
                break
    except OSError:
        pass
    return "%s, %d cores" % (model, os.cpu_count() or 0)


def markdown(runs, command):
    lines = ["| Measure | vorlan | Baseline | Ratio |", "|---|---|---|---|"]
    for _, what, baseline, ours, theirs in rows(runs):
        lines.append("| %s | %s | %s (%s) | %.2fx |" % (what, duration(ours), duration(theirs), baseline,
                                                        ours / theirs))
    lines.append("")
    lines.append("Measured %s on %s, with `%s`." % (datetime.date.today().isoformat(), machine(), command))
    return "\n".join(lines)


def main():
    runs = medians(sys.argv[1])
    if len(sys.argv) == 4 and sys.argv[2] == "--readme":
        command = os.environ.get("VORLAN_BENCH_COMMAND", "tools/bench.sh")
        path = sys.argv[3]
        text = open(path).read()
        head, rest = text.split(START, 1)
        _, tail = rest.split(END, 1)
        open(path, "w").write(head + START + "\n" + markdown(runs, command) + "\n" + END + tail)
        return
    print("%-16s %14s %14s %8s" % ("measure", "vorlan", "baseline", "ratio"))
    for family, _, _, ours, theirs in rows(runs):
        print("%-16s %11.0f ns %11.0f ns %7.2fx" % (family, ours, theirs, ours / theirs))


if __name__ == "__main__":
    main()
