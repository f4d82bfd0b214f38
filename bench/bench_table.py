#!/usr/bin/env python3
"""Prints the benchmark table from Google Benchmark JSON files: for every path
the project's median time next to its baseline's, their ratio and the target.
Rows without results are printed as "not measured"."""

import json
import sys

# path, family, size, target ratio (None: a reference row, left out when not measured)
ROWS = [
    ("Search filter, typing a 5-letter query", "filter", 1000, 2.0),
    ("  with the table refreshing on each key", "filter:table", 1000, None),
    ("Table sort by article number", "sort_sku", 1000, 4.0),
    ("Table sort by name", "sort_name", 1000, 4.0),
    ("Decoding a product response", "decode", 1000, 2.0),
    ("Decoding a product response", "decode", 100000, 2.0),
    ("Print run, 1,000 labels through QTcpSocket", "print_run", 1000, 3.0),
    ("  largest event loop stall in the run", "print_run:stall", 1000, None),
    ("Settings save, 100 dossiers/printers/templates", "settings_save", None, 2.5),
    ("Label preview, five texts and an EAN-13", "render", None, 1.5),
    ("Start-up to the painted table", "startup", 1000, 1.4),
    ("  peak memory (RSS) of that start-up", "startup:memory", 1000, 1.25),
]
STALL_LIMIT_MS = 50.0
UNIT_NS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}


def load(paths):
    """(family, variant, size) -> median run, from every file given."""
    runs = {}
    for path in paths:
        try:
            with open(path) as f:
                data = json.load(f)
        except (OSError, ValueError):
            continue
        for run in data.get("benchmarks", []):
            if run.get("run_type") == "aggregate" and run.get("aggregate_name") != "median":
                continue
            parts = run["run_name"].split("/")
            size = int(parts[2]) if len(parts) > 2 and parts[2].isdigit() else None
            runs[(parts[0], parts[1], size)] = run
    return runs


def nanoseconds(run):
    return run["real_time"] * UNIT_NS[run.get("time_unit", "ns")]


def show_time(ns):
    for unit, scale in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if ns >= scale:
            return f"{ns / scale:.3g} {unit}" if ns < 100 * scale else f"{ns / scale:.0f} {unit}"
    return f"{ns:.0f} ns"


def row(label, family, size, target, runs):
    size_text = f"{size:,}" if size else "—"
    family, _, kind = family.partition(":")
    if kind == "table":
        project = runs.get(("filter_table", "project", size))
    else:
        project = runs.get((family, "project", size))
    baseline = runs.get((family, "baseline", size))
    if kind == "stall":
        if not project or "max_stall_ms" not in project:
            return [label, size_text, "not measured", "—", "—", f"< {STALL_LIMIT_MS:.0f} ms", "TODO"]
        stall = project["max_stall_ms"]
        return [label, size_text, f"{stall:.1f} ms", "—", "—", f"< {STALL_LIMIT_MS:.0f} ms",
                "ok" if stall < STALL_LIMIT_MS else "MISS"]
    target_text = f"≤ {target}" if target else "(reference)"
    if not project or not baseline:
        if not target:
            return None
        return [label, size_text, "not measured", "not measured", "—", target_text, "TODO"]
    if kind.endswith("memory"):
        mine, theirs = project["peak_rss_kib"], baseline["peak_rss_kib"]
        shown = (f"{mine / 1024:.1f} MiB", f"{theirs / 1024:.1f} MiB")
    else:
        mine, theirs = nanoseconds(project), nanoseconds(baseline)
        shown = (show_time(mine), show_time(theirs))
    ratio = mine / theirs
    verdict = "" if not target else ("ok" if ratio <= target else "MISS")
    return [label, size_text, shown[0], shown[1], f"{ratio:.2f}", target_text, verdict]


def main():
    runs = load(sys.argv[1:])
    header = ["Path", "Size", "Project", "Baseline", "Ratio", "Target", "ok/MISS"]
    table = [r for r in (row(label, family, size, target, runs)
                         for label, family, size, target in ROWS) if r]
    widths = [max(len(r[i]) for r in [header] + table) for i in range(len(header))]
    line = lambda cells: "| " + " | ".join(c.ljust(w) for c, w in zip(cells, widths)) + " |"
    print(line(header))
    print("|" + "|".join("-" * (w + 2) for w in widths) + "|")
    for cells in table:
        print(line(cells))
    misses = sum(1 for r in table if r[-1] == "MISS")
    missing = sum(1 for r in table if r[-1] == "TODO")
    print(f"\n{misses} of {len(table)} rows miss their target; {missing} not measured.")
    return 0


if __name__ == "__main__":
    sys.exit(main())
