#!/usr/bin/env python3
"""The ratings of random pairs of signals, recomputed from their definitions.

    check_ratings.py DRIVER [FIRST COUNT]    DRIVER is the path of quorvel_rating_values; by default seeds 1 ... 300
"""

import collections
import math
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import ratings
from make_pairs import KINDS, RandomPair

ALL_SEEDS = range(1, 301)
TOLERANCE = 1e-9
LEAST_NUMBERS = 9000
LEAST_UNAVAILABLE = 1500


def pair_text(name, pair):
    lines = ["pair %s %d %r %r" % (name, len(pair.m), pair.start, pair.step)]
    lines += ["%r %r" % values for values in zip(pair.m, pair.c)]
    return "\n".join(lines) + "\n"


def printed_values(text):
    """{name: {key: number or None}}; None is not available."""
    pairs = collections.defaultdict(dict)
    for line in text.splitlines():
        name, key, state, rest = line.split(" ", 3)
        if state == "unavailable" and rest.endswith("."):
            pairs[name][key] = None
        elif state == "number" and math.isfinite(float(rest)):
            pairs[name][key] = float(rest)
        else:
            raise ValueError("not a value: " + line)
    return pairs


def disagrees(expected, seen):
    if expected is None or seen is None:
        return expected is not seen
    return not abs(expected - seen) <= TOLERANCE * max(1.0, abs(expected))


class RandomPairs(unittest.TestCase):
    driver = ""
    seeds = ALL_SEEDS

    def printed(self, pairs):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "pairs.txt"
            path.write_text("".join(pair_text(name, pair) for name, pair in pairs.items()), encoding="ascii")
            finished = subprocess.run([self.driver, str(path)], capture_output=True, check=True, timeout=300)
        return printed_values(finished.stdout.decode("ascii"))

    def test_every_value_of_every_pair_agrees(self):
        pairs = {"seed%d" % seed: RandomPair(seed) for seed in self.seeds}
        seen = self.printed(pairs)
        self.assertEqual(sorted(pairs), sorted(seen))
        faults, numbers, unavailable, largest = [], 0, 0, 0.0
        for name, pair in pairs.items():
            expected = ratings.rate(pair.m, pair.c, pair.start, pair.step)
            self.assertEqual(sorted(expected), sorted(seen[name]))
            for key, value in expected.items():
                if disagrees(value, seen[name][key]):
                    faults.append("%s (%s) %s: expected %r, the program says %r" % (name, pair.kind, key, value,
                                                                                   seen[name][key]))
                elif value is None:
                    unavailable += 1
                else:
                    numbers += 1
                    largest = max(largest, abs(value - seen[name][key]) / max(1.0, abs(value)))
        print("%d pairs, %d numbers and %d values not available compared, largest deviation %.3g" %
              (len(pairs), numbers, unavailable, largest), flush=True)
        self.assertEqual([], faults[:20], "%d disagreements" % len(faults))
        if self.seeds == ALL_SEEDS:
            self.assertGreaterEqual(numbers, LEAST_NUMBERS)
            self.assertGreaterEqual(unavailable, LEAST_UNAVAILABLE)

    def test_the_pairs_reach_what_they_are_meant_to_reach(self):
        pairs = [RandomPair(seed) for seed in ALL_SEEDS]
        self.assertEqual(set(KINDS), {pair.kind for pair in pairs})
        self.assertTrue({0, 1, 8, 9} <= {len(pair.m) for pair in pairs})

    def test_the_comparison_can_fail(self):
        self.assertTrue(disagrees(1.0, 1.0 + 2e-9))
        self.assertTrue(disagrees(None, 0.0))
        self.assertTrue(disagrees(0.0, None))
        self.assertFalse(disagrees(1000.0, 1000.0000005))
        self.assertRaises(ValueError, printed_values, "seed1 iso.r number nan")
        self.assertRaises(ValueError, printed_values, "seed1 iso.r unavailable ")


class HandWorked(unittest.TestCase):
    """The definitions themselves, held to cases that can be done on paper."""

    def test_warping_takes_the_cheapest_path(self):
        self.assertEqual((1.0, 5.0), ratings.warping_sums([0.0, 1.0, 2.0], [0.0, 2.0, 2.0], 3))

    def test_lags_are_positive_when_the_computed_signal_is_late(self):
        early, late = [0.0] * 50, [0.0] * 50
        early[20], late[24] = 1.0, 1.0
        self.assertEqual(4, ratings.iso_scores(early, late)["lag"])
        self.assertEqual(-4, ratings.iso_scores(late, early)["lag"])

    def test_published_scores_are_reproduced(self):
        m = [math.sin(i / 9) for i in range(200)]
        c = [math.sin((i - 45) / 9) for i in range(200)]
        scores = ratings.iso_scores(m, c)
        for name, value in (("r", .5575760), ("z", .1063305), ("ep", .7), ("em", .9005065), ("es", .9747127)):
            self.assertAlmostEqual(value, scores[name], delta=0.51e-7)
        self.assertEqual(-12, scores["lag"])

    def test_a_gain_is_all_magnitude(self):
        m = [math.sin(i / 9) for i in range(100)]
        rated = ratings.rate(m, [1.2 * value for value in m], 0.1, 0.01)
        self.assertAlmostEqual(0.2, rated["spragueGeers.m"])
        self.assertAlmostEqual(0.0, rated["spragueGeers.p"], delta=1e-12)
        self.assertAlmostEqual(.1202, rated["russell.c"], delta=1e-4)
        self.assertAlmostEqual(0.2 * math.sqrt(10 / 12), rated["knowlesGear.c"])
        self.assertAlmostEqual(0.2 / 2.2, rated["values.theil"])
        self.assertAlmostEqual(1.2 ** -2, rated["cora.size"])


if __name__ == "__main__":
    RandomPairs.driver = sys.argv.pop(1)
    if len(sys.argv) > 2:
        RandomPairs.seeds = range(int(sys.argv[1]), int(sys.argv[1]) + int(sys.argv[2]))
        del sys.argv[1:3]
    unittest.main()
