"""Measures the rows of the speed table. All sides of a row take turns, so that what disturbs one disturbs all."""

import json
import math
import statistics
import sys
from dataclasses import dataclass
from pathlib import Path
from typing import Optional

import speed_rows
from speed_process import Worker, output_of, run_whole

BENCH = Path(__file__).parent
PYTHON = [sys.executable, "-B"]


@dataclass
class Result:
    """Medians, in milliseconds and megabytes."""

    name: str
    title: str
    peer: str
    ours_ms: float
    megabytes: float
    peer_ms: Optional[float] = None
    bare_ms: Optional[float] = None
    ratio_target: Optional[float] = None
    over_bare_target: Optional[float] = None
    megabytes_target: Optional[float] = None
    growth: str = "—"

    @property
    def ratio(self):
        return None if self.peer_ms is None else self.peer_ms / self.ours_ms

    @property
    def over_bare(self):
        return None if self.bare_ms is None else self.ours_ms / self.bare_ms

    def misses(self):
        """Which targets were measured and not met."""
        return [name for name, missed in (
            ("ratio", self.ratio is not None and self.ratio_target and self.ratio < self.ratio_target),
            ("bare", self.over_bare is not None and self.over_bare_target and self.over_bare > self.over_bare_target),
            ("memory", self.megabytes_target and self.megabytes > self.megabytes_target)) if missed]


def same(a, b, tolerance):
    return len(a) == len(b) and all(math.isclose(x, y, rel_tol=tolerance, abs_tol=1e-9) for x, y in zip(a, b))


def slope(points):
    """The exponent e of the cost c * n^e that fits best."""
    logs = [(math.log(n), math.log(cost)) for n, cost in points]
    mean_n = statistics.fmean(n for n, _ in logs)
    mean_cost = statistics.fmean(cost for _, cost in logs)
    return (sum((n - mean_n) * (cost - mean_cost) for n, cost in logs) /
            sum((n - mean_n) ** 2 for n, _ in logs))


class Bench:
    def __init__(self, build, size, rounds, with_peer):
        self.programs = Path(build) / "bin"
        self.data = Path(build) / "data"
        self.size, self.rounds, self.with_peer = size, rounds, with_peer

    def make_data(self, names):
        output_of([*PYTHON, BENCH / "speed_data.py", self.data, *names])

    def paths(self, names):
        return [str(self.data / name) for name in names]

    def cost(self, command):
        return run_whole(self.programs / "quorvel_bench_cost", command)

    def turns(self, rounds):
        return min(rounds, self.rounds) if self.rounds else rounds

    # Work items.

    def commands(self, row, samples):
        """The sides of a row, ours first."""
        arguments = [row.item, *self.paths(row.files(samples))]
        sides = {"ours": [self.programs / "quorvel_bench_driver", *arguments]}
        if self.with_peer:
            sides["peer"] = [*PYTHON, BENCH / "peer_rows.py", *arguments]
        if row.over_bare:
            sides["bare"] = [self.programs / "quorvel_bench_bare", *arguments]
        return sides

    def check(self, row, workers):
        digests = {side: worker.digest() for side, worker in workers.items()}
        for side, digest in digests.items():
            if not same(digest, digests["ours"], row.tolerance):
                raise RuntimeError(f"{row.name}: {side} did other work: {digest}, ours: {digests['ours']}")

    def measure_row(self, row):
        samples = row.samples(self.size)
        self.make_data(row.files(samples))
        workers = {side: Worker(command) for side, command in self.commands(row, samples).items()}
        for worker in workers.values():
            worker.run()  # loads what a first run loads
        self.check(row, workers)
        times = {side: [] for side in workers}
        for _ in range(self.turns(row.rounds)):
            for side, worker in workers.items():
                times[side].append(worker.run())
        medians = {side: statistics.median(values) for side, values in times.items()}
        megabytes = {side: worker.end() for side, worker in workers.items()}
        return Result(row.name, row.title, row.peer, medians["ours"], megabytes["ours"], medians.get("peer"),
                      medians.get("bare"), row.ratio, row.over_bare)

    def growth_of(self, row):
        """The exponent of our cost over the number of samples."""
        points = []
        for samples in self.size.growth:
            self.make_data(row.files(samples))
            worker = Worker(self.commands(row, samples)["ours"])
            worker.run()
            points.append((samples, statistics.median(worker.run() for _ in range(self.turns(5)))))
            worker.end()
        return f"n^{slope(points):.2f}"

    # Whole runs.

    def quorvel(self, run, *options, count=None):
        return [self.programs / "quorvel-cli", "compare", "--quiet", "--reference", *self.paths([run.reference()]),
                *options, *self.paths(run.computed(count))]

    def comparison(self, run, count=None):
        return self.quorvel(run, "--cfc", "60", "--window", *run.window(), "--html", self.data / "ours.html",
                            count=count)

    def other_sides(self, run):
        arguments = [*run.window(), *self.paths([run.reference(), *run.computed()])]
        sides = {}
        if self.with_peer:
            sides["peer"] = [*PYTHON, BENCH / "peer_run.py", self.data / "peer.html", *arguments]
        if run.over_bare or run.name == "check":
            sides["bare"] = [self.programs / "quorvel_bench_bare", "run", *arguments]
        return sides

    def check_runs(self):
        """Whether all sides find the same residuals."""
        run = speed_rows.checked()
        self.make_data([run.reference(), *run.computed()])
        target = self.data / "check.json"
        output_of([*self.comparison(run), "--json", target])
        signals = json.loads(target.read_text(encoding="utf-8"))["signals"]
        ours = [value for signal in signals
                for value in (signal["measures"]["residualSum"], signal["measures"]["residualSumOfSquares"])]
        for side, command in self.other_sides(run).items():
            theirs = [float(word) for word in output_of(command).split()]
            if not same(theirs, ours, 1e-5):
                raise RuntimeError(f"The {side} run did other work: {theirs}, ours: {ours}")

    def alternate(self, sides, rounds):
        costs = {side: [] for side in sides}
        for _ in range(self.turns(rounds)):
            for side, command in sides.items():
                costs[side].append(self.cost(command))
        return ({side: statistics.median(cost.milliseconds for cost in values) for side, values in costs.items()},
                statistics.median(cost.megabytes for cost in costs["ours"]))

    def result_of(self, run, medians, megabytes, memory_share=None):
        return Result(run.name, run.title, run.peer, medians["ours"], megabytes, medians.get("peer"),
                      medians.get("bare"), run.ratio, run.over_bare,
                      run.memory_limit(memory_share) if memory_share else None)

    def measure_comparison(self, run):
        self.make_data([run.reference(), *run.computed()])
        sides = self.other_sides(run)
        self.check_runs()
        return self.result_of(run, *self.alternate({"ours": self.comparison(run), **sides}, run.rounds), 2.5)

    def cost_per_file(self, run):
        """Milliseconds for each further file, of few and of many."""
        cost = {count: statistics.median(self.cost(self.comparison(run, count)).milliseconds
                                         for _ in range(self.turns(5))) for count in self.size.counts}
        few, some, many = self.size.counts
        return (f"{(cost[some] - cost[few]) / (some - few):.3f} → "
                f"{(cost[many] - cost[some]) / (many - some):.3f} ms a file")

    def measure_start(self):
        run = speed_rows.start(self.size)
        self.make_data([run.reference(), *run.computed()])
        sides = {"ours": self.quorvel(run)}
        if self.with_peer:
            sides["peer"] = [sys.executable, "-c", "import numpy, scipy.signal"]
        return self.result_of(run, *self.alternate(sides, run.rounds))

    def measure_json(self):
        run = speed_rows.json_pages(self.size)
        self.make_data([run.reference(), *run.computed()])
        ours, theirs = self.data / "ours.json", self.data / "peer.json"
        command = self.quorvel(run, "--pages", "--json", ours)
        self.cost(command)
        peer = Worker([*PYTHON, BENCH / "peer_rows.py", "json-dump", ours, theirs]) if self.with_peer else None
        costs, peer_times = [], []
        for _ in range(self.turns(run.rounds)):
            costs.append(self.cost(command))
            if peer:
                peer_times.append(peer.run())
        if peer:
            peer.end()
        medians = {"ours": statistics.median(cost.milliseconds for cost in costs)}
        if peer:
            medians["peer"] = statistics.median(peer_times)
        for path in (ours, theirs):
            path.unlink(missing_ok=True)
        return self.result_of(run, medians, statistics.median(cost.megabytes for cost in costs), 1.5)
