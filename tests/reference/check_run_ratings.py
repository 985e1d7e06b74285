#!/usr/bin/env python3
"""The ratings of whole runs of the tool, recomputed from the curves that the same run puts into its JSON.

    check_run_ratings.py TOOL [FIRST COUNT]    TOOL is the path of quorvel-cli; by default seeds 1 ... 30
"""

import json
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from document import Document, Options
from make_random import RandomRun
from rated_pair import Pair, expected_ratings
from tool import STATUS_DONE, Tally, arguments, refuse_constant

TOP = Path(__file__).resolve().parents[2]
ALL_SEEDS = range(1, 13)
# The plain definitions take minutes for more samples than this; such runs are rated without ISO/TS 18571.
MOST_ISO_SAMPLES = 400
WITHOUT_ISO = "sprague-geers,geers,geers-csa,russell,knowles-gear,anova,values,cora"
CURVES = 1  # the page in a run's list that shows the signals as they were compared
LONGEST_RUN_S = 300


class CheckedRun:
    """One run of the tool with ratings, and the independent document of the same options."""

    def __init__(self, tally, tool, label, options, words):
        self.tally, self.tool, self.label = tally, tool, label
        self.options, self.words = options, words
        self.document = Document(options)
        self.is_complete = self.document.run()

    def result(self, families):
        command = [self.tool] + arguments(self.options) + ["--ratings", families] + self.words
        finished = subprocess.run(command, capture_output=True, timeout=LONGEST_RUN_S, check=False)
        self.tally.runs += 1
        return json.loads(finished.stdout.decode("utf-8"), parse_constant=refuse_constant), finished.returncode

    def check(self):
        if not self.is_complete:
            return
        result, status = self.result("values")
        if status != STATUS_DONE or not result["pages"][CURVES]["built"]:
            return
        pairs = self.pairs(result)
        with_iso = all(pair is None or pair.iso_count() <= MOST_ISO_SAMPLES for pair in pairs)
        result, _ = self.result("all" if with_iso else WITHOUT_ISO)
        for i, (pair, shown) in enumerate(zip(pairs, result["signals"])):
            self.check_signal("%s signal %d" % (self.label, i), pair, shown["ratings"], with_iso)
        self.tally.finished_runs += 1

    def pairs(self, result):
        """A pair for each signal; None where it has no time in common with the reference."""
        curves = result["pages"][CURVES]["series"]
        reference, pairs = (curves[0]["x"], curves[0]["y"]), []
        for i, (signal, shown) in enumerate(zip(self.document.computed, result["signals"])):
            computed = (curves[i + 1]["x"], curves[i + 1]["y"])
            if any(kind == "no-common-time" for kind, _ in signal.notes):
                pairs.append(None)
                continue
            window = (shown["measures"]["minimumTime"], shown["measures"]["maximumTime"])
            units = (result["reference"]["xUnits"], signal.record.x_units)
            pairs.append(Pair(numbers(reference), numbers(computed), window, result["reference"]["timeStep"], units))
        return pairs

    def check_signal(self, place, pair, seen, with_iso):
        tally = self.tally
        tally.same(place + " pointCount", len(pair.m) if pair else 0, seen["pointCount"])
        if pair and pair.m:
            tally.near_all(place + " window", [pair.start, pair.end], seen["window"])
            tally.near(place + " step", pair.step, seen["step"])
        else:
            tally.same(place + " window", None, seen["window"])
        expected = expected_ratings(pair, with_iso)
        tally.same(place + " families", sorted(expected), sorted(set(seen) - {"pointCount", "step", "window",
                                                                              "filterClass"}))
        for family, values in expected.items():
            self.check_family("%s %s" % (place, family), values, seen[family])
        if with_iso and pair and pair.has_time and pair.m:
            m, _, is_resampled = pair.at_iso_step()
            tally.same(place + " resampled", is_resampled, seen["iso18571"]["resampled"])
            if seen["iso18571"]["state"] == "ok":
                tally.same(place + " ISO points", len(m), seen["iso18571"]["pointCount"])

    def check_family(self, place, expected, seen):
        is_defined = any(value is not None for name, value in expected.items() if name != "interval")
        self.tally.same(place + " state", "ok" if is_defined else "unavailable", seen["state"])
        self.tally.same(place + " reason", is_defined, seen["reason"] is None)
        for name, value in expected.items():
            check_value(self.tally, "%s %s" % (place, name), value, seen[name])


def check_value(tally, place, expected, seen):
    if expected is None or isinstance(expected, str):
        tally.same(place, expected, seen)
        tally.notes += expected is None
    elif isinstance(expected, list):
        tally.near_all(place, expected, seen)
    else:
        tally.near(place, float(expected), seen, 1.0)


def numbers(points):
    """A curve with a value that is not finite shows null; any such value will do."""
    return tuple([float("nan") if value is None else value for value in values] for values in points)


class RunRatings(unittest.TestCase):
    tool = ""
    seeds = ALL_SEEDS

    def require(self, tally, numbers_least, unavailable, runs):
        print("%d runs rated, %d numbers, %d values not available, largest deviation %.3g %s" %
              (tally.finished_runs, tally.values, tally.notes, tally.largest, tally.where), flush=True)
        self.assertEqual([], tally.faults[:20], "%d disagreements" % len(tally.faults))
        self.assertGreaterEqual(tally.values, numbers_least)
        self.assertGreaterEqual(tally.notes, unavailable)
        self.assertGreaterEqual(tally.finished_runs, runs)

    def test_random_runs(self):
        tally, here = Tally(), os.getcwd()
        for seed in self.seeds:
            with tempfile.TemporaryDirectory() as folder:
                run = RandomRun(seed, Path(folder))
                os.chdir(folder)
                try:
                    CheckedRun(tally, self.tool, "seed %d" % seed, run.options, run.words).check()
                finally:
                    os.chdir(here)
        whole = self.seeds == ALL_SEEDS
        self.require(tally, 400 if whole else 0, 100 if whole else 0, 6 if whole else 0)

    def test_the_examples(self):
        tally, here = Tally(), os.getcwd()
        sled = ["examples/sled/s0100%daa0.001" % number for number in (2, 3, 4)] + ["examples/sled/s01007aa0.txt"]
        force = ["examples/force/f0100%dfa0.001" % number for number in (2, 3)]
        os.chdir(TOP)
        try:
            for label, options in (
                    ("sled", Options(sled, "examples/sled/s01001aa0.001", channel_class=60, window=(0.03, 0.07))),
                    ("force", Options(force, "examples/force/f01001fa0.001", window=(0.02, 0.06)))):
                CheckedRun(tally, self.tool, label, options, options.files).check()
        finally:
            os.chdir(here)
        self.require(tally, 250, 0, 2)

    def test_the_check_can_fail(self):
        for expected, seen in ((1.0, 1.0 + 3e-9), (None, 0.0), (0.0, None), ("pass", "fail"), ([0.0, 1.0], None)):
            tally = Tally()
            check_value(tally, "", expected, seen)
            self.assertEqual(1, len(tally.faults), (expected, seen))


if __name__ == "__main__":
    RunRatings.tool = os.path.abspath(sys.argv.pop(1))
    if len(sys.argv) > 2:
        RunRatings.seeds = range(int(sys.argv[1]), int(sys.argv[1]) + int(sys.argv[2]))
        del sys.argv[1:3]
    unittest.main()
