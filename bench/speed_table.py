#!/usr/bin/python3
"""Measures the speed table of docs/performance.md: our time, the peer's, that of the bare loops, and memory.

    speed_table.py BUILD [--quick | --check | --record] [--rows NAME,...] [--rounds N] [--no-growth]

BUILD is a release build folder with the target quorvel_bench_all; the data go to its folder data. scripts/bench makes
it all. Prints one table, and keeps it as BUILD/speed.json.

    --quick      small data and few rounds: proves that everything runs; the numbers mean nothing
    --check      measures our side and the bare loops only; status 1 when a ratio of the two is 30 % worse than in
                 bench/baseline.json
    --record     takes the ratios as the new baseline and writes the table into docs/performance.md
    --rows       these rows only
    --rounds     at most so many runs of each side
    --no-growth  leaves the column "grows as" out
"""
import argparse
import datetime
import json
import os
import sys
from pathlib import Path

import speed_rows
from speed_measure import Bench

SOURCE = Path(__file__).parent.parent
BASELINE = SOURCE / "bench" / "baseline.json"
DOCUMENT = SOURCE / "docs" / "performance.md"
BEGIN, END = "<!-- table: begin -->\n", "<!-- table: end -->\n"
WORST = 1.3


def machine():
    """What kind of machine this is, and whether it was busy with other work."""
    with open("/proc/meminfo", encoding="ascii") as file:
        kilobytes = int(file.readline().split()[1])
    load = os.getloadavg()[0]
    state = "quiet" if load < 0.3 else f"busy with other work, load {load:.1f}"
    return f"{os.cpu_count()} cores, {round(kilobytes / 2**20)} GiB, {state}"


def steps(bench, size, with_growth):
    """Name and work of each row, in the order of the table."""
    def row_step(row):
        def measure():
            result = bench.measure_row(row)
            if with_growth:
                result.growth = bench.growth_of(row)
            return result
        return measure

    def run_step(run):
        def measure():
            result = bench.measure_comparison(run)
            if with_growth and run.name == "run-many":
                result.growth = bench.cost_per_file(run)
            return result
        return measure

    return {**{row.name: row_step(row) for row in speed_rows.ROWS},
            **{run.name: run_step(run) for run in speed_rows.comparisons(size)},
            "start": bench.measure_start, "json-pages": bench.measure_json}


def cell(value, form, target=None, sign=""):
    if value is None:
        return "—"
    return format(value, form) + (f" ({sign} {target:g})" if target else "")


def line(result):
    misses = result.misses()
    judged = result.ratio_target and (result.ratio is not None or result.over_bare is not None)
    return (result.title, cell(result.ours_ms, ".2f"), result.peer, cell(result.peer_ms, ".2f"),
            cell(result.ratio, ".2f", result.ratio_target, "≥"),
            cell(result.over_bare, ".2f", result.over_bare_target, "≤"),
            cell(result.megabytes, ".0f", result.megabytes_target and round(result.megabytes_target), "≤"),
            "—" if not judged else "no: " + ", ".join(misses) if misses else "yes", result.growth)


def table(results):
    head = ("work", "ours ms", "peer", "peer ms", "peer ÷ ours", "ours ÷ bare", "peak MB", "met", "grows as")
    rows = [head, *(line(result) for result in results)]
    widths = [max(len(row[i]) for row in rows) for i in range(len(head))]
    lines = ["| " + " | ".join(text.ljust(width) for text, width in zip(row, widths)) + " |" for row in rows]
    lines.insert(1, "|" + "|".join("-" * (width + 2) for width in widths) + "|")
    return "\n".join(lines) + "\n"


def as_json(results, caption):
    return {"measured": caption,
            "rows": {result.name: {"ours_ms": round(result.ours_ms, 3),
                                   "peer_over_ours": result.ratio and round(result.ratio, 3),
                                   "ours_over_bare": result.over_bare and round(result.over_bare, 3),
                                   "peak_mb": round(result.megabytes, 1)} for result in results}}


def record(results, caption):
    BASELINE.write_text(json.dumps(as_json(results, caption), indent=2) + "\n", encoding="utf-8")
    text = DOCUMENT.read_text(encoding="utf-8")
    before, rest = text.split(BEGIN)
    after = rest.split(END)[1]
    DOCUMENT.write_text(f"{before}{BEGIN}{caption}\n\n{table(results)}{END}{after}", encoding="utf-8")


def worse_than(baseline, results):
    """A sentence for each row whose ratio to the bare loops has become too bad."""
    for result in results:
        before = baseline.get(result.name, {}).get("ours_over_bare")
        if before is not None and result.over_bare is not None and result.over_bare > WORST * before:
            yield f"{result.name}: {result.over_bare:.2f} times the bare loops, was {before:.2f}"


def parse(arguments):
    parser = argparse.ArgumentParser(description="Measures the speed table.")
    parser.add_argument("build")
    mode = parser.add_mutually_exclusive_group()
    mode.add_argument("--quick", action="store_true", help="small data: proves that everything runs")
    mode.add_argument("--check", action="store_true", help="fail where a ratio to the bare loops is 30 %% worse")
    mode.add_argument("--record", action="store_true", help="take this table as the new one")
    parser.add_argument("--rows", metavar="NAME,...", help="these rows only")
    parser.add_argument("--rounds", type=int, metavar="N", help="at most so many runs of each side")
    parser.add_argument("--no-growth", action="store_true", help="leave the column of the growth out")
    options = parser.parse_args(arguments)
    if options.record and (options.rows or options.no_growth):
        parser.error("--record needs the whole table")
    return options


def chosen(options, todo):
    names = options.rows.split(",") if options.rows else list(todo)
    unknown = [name for name in names if name not in todo]
    if unknown:
        sys.exit(f"No such row: {', '.join(unknown)}. There are: {', '.join(todo)}")
    if options.check:
        with_bare = {row.name for row in (*speed_rows.ROWS, *speed_rows.comparisons(speed_rows.FULL)) if row.over_bare}
        names = [name for name in names if name in with_bare]
    return names


def main(arguments):
    options = parse(arguments)
    size = speed_rows.QUICK if options.quick else speed_rows.FULL
    rounds = options.rounds or (2 if options.quick else None)
    caption = f"{datetime.date.today()}, {machine()}"
    os.sched_setaffinity(0, {max(os.sched_getaffinity(0))})  # whatever is started inherits the one core
    bench = Bench(options.build, size, rounds, with_peer=not options.check)
    todo = steps(bench, size, with_growth=not options.check and not options.no_growth)

    results = []
    for name in chosen(options, todo):
        print(f"{name} ...", file=sys.stderr, flush=True)
        results.append(todo[name]())
    print(caption + "\n\n" + table(results), end="", flush=True)
    kept = json.dumps(as_json(results, caption), indent=2) + "\n"
    (Path(options.build) / "speed.json").write_text(kept, encoding="utf-8")

    if options.record:
        record(results, caption)
    if options.check:
        worse = list(worse_than(json.loads(BASELINE.read_text(encoding="utf-8"))["rows"], results))
        print("\n".join(worse) or "No ratio to the bare loops is 30 % worse than the committed one.")
        return 1 if worse else 0
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
