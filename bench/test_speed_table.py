#!/usr/bin/python3
"""Proof that the speed table's judgments can fail: targets, the check against the baseline, the comparison of what
both sides did, and the fitted growth."""

import unittest

import speed_table
from speed_measure import Result, same, slope


def result(ours=10.0, peer=40.0, bare=5.0, megabytes=100.0, **targets):
    return Result("filter", "filter", "SciPy", ours, megabytes, peer, bare, **targets)


class Targets(unittest.TestCase):
    def test_a_ratio_at_its_target_meets_it(self):
        self.assertEqual(result(ratio_target=4.0, over_bare_target=2.0, megabytes_target=100.0).misses(), [])

    def test_each_target_can_be_missed(self):
        self.assertEqual(result(ratio_target=4.1).misses(), ["ratio"])
        self.assertEqual(result(over_bare_target=1.9).misses(), ["bare"])
        self.assertEqual(result(megabytes_target=99.0).misses(), ["memory"])

    def test_what_was_not_measured_is_not_judged(self):
        self.assertEqual(result(peer=None, bare=None, ratio_target=4.0, over_bare_target=1.0).misses(), [])
        self.assertIn("—", speed_table.line(result(peer=None)))

    def test_the_table_names_the_targets_missed(self):
        self.assertIn("no: ratio, bare", speed_table.line(result(ratio_target=5, over_bare_target=1.5)))
        self.assertIn("yes", speed_table.line(result(ratio_target=4)))


class Check(unittest.TestCase):
    def worse(self, before):
        return list(speed_table.worse_than({"filter": {"ours_over_bare": before}}, [result()]))

    def test_thirty_percent_more_passes_and_further_fails(self):
        self.assertEqual(self.worse(2.0 / 1.3), [])
        self.assertEqual(len(self.worse(1.5)), 1)

    def test_rows_without_a_baseline_pass(self):
        self.assertEqual(self.worse(None), [])
        self.assertEqual(list(speed_table.worse_than({}, [result()])), [])


class SameWork(unittest.TestCase):
    def test_digests_of_other_length_or_value_differ(self):
        self.assertTrue(same([3.0, 1.0], [3.0, 1.0 + 1e-9], 1e-6))
        self.assertFalse(same([3.0, 1.0], [3.0, 1.001], 1e-6))
        self.assertFalse(same([3.0], [3.0, 1.0], 1e-6))
        self.assertFalse(same([float("nan")], [float("nan")], 1e-6))


class Growth(unittest.TestCase):
    def test_the_exponent_of_a_power_is_found(self):
        for exponent in (0.0, 1.0, 2.0):
            self.assertAlmostEqual(slope([(n, 0.25 * n**exponent) for n in (10, 100, 1_000)]), exponent)


if __name__ == "__main__":
    unittest.main()
