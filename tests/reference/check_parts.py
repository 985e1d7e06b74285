#!/usr/bin/env python3
"""Hand-worked cases of the independent check itself, and proof that its comparison can fail."""

import math
import unittest

import ascii_points
import measures as measure
import pages
from ieee import Fault
from notes import as_json
from record import Record
from tool import Tally, check_notes
from uds_bytes import read_integer, read_real


def record_of(y, step=0.001, first=0):
    record = Record()
    record.y, record.step, record.first, record.last = list(y), step, first, first + len(y) - 1
    record.x = [step * (first + i) for i in range(len(y))]
    return record


class Bytes(unittest.TestCase):
    def test_one_is_read_in_every_format(self):
        self.assertEqual(1.0, read_real(bytes((0x00, 0x00, 0x80, 0x3f)), "IEEE"))
        self.assertEqual(1.0, read_real(bytes((0x3f, 0x80, 0x00, 0x00)), "SUN"))
        self.assertEqual(1.0, read_real(bytes((0x80, 0x40, 0x00, 0x00)), "VAX"))

    def test_vax_exponents_0_and_128_and_not_a_number_become_zero(self):
        for four, number_format in (((9, 0, 9, 9), "VAX"), ((9, 128, 9, 9), "VAX"), ((0, 0, 0xc0, 0x7f), "IEEE"),
                                    ((0x7f, 0xc0, 0, 0), "SUN"), ((0, 0, 0x80, 0x3f), "CRAY")):
            self.assertEqual(0.0, read_real(bytes(four), number_format))

    def test_integers_follow_the_byte_order(self):
        self.assertEqual([258, 258, 0], [read_integer(bytes((2, 1, 0, 0)), "VAX"),
                                         read_integer(bytes((0, 0, 1, 2)), "SUN"),
                                         read_integer(bytes((2, 1, 0, 0)), "")])


class Text(unittest.TestCase):
    def points(self, text):
        return ascii_points.parse(ascii_points.cleaned(text))

    def test_points_of_one_two_and_three_numbers(self):
        self.assertEqual([(0.0, 1.5)], self.points("1.5"))
        for separator in (",", ", ", " ", "\t"):
            self.assertEqual([(0.001, 2.0)], self.points("0.001" + separator + "2"))
        self.assertEqual([(0.0, 0.001)], self.points("0.001  2"))
        self.assertEqual([(1.0, -2.0)], self.points("1-2"))
        self.assertEqual([(1.0, 2.0), (3.0, 4.0)], self.points("1 2\r\n3 4 5\r"))
        self.assertEqual([(0.0, 1.0)], self.points("1\n\nwords"))
        self.assertEqual([], self.points(""))

    def test_other_texts_are_refused(self):
        for text in ("words", "1 2 \n", "1 2\n3\n", "1e", "nan", "1 2\r\n\r\n"):
            with self.assertRaises(Fault, msg=repr(text)):
                self.points(text)


class Operations(unittest.TestCase):
    def test_resampling_keeps_a_line(self):
        record = record_of([2.0 * i for i in range(21)], 0.0005)
        record.resample(0.001)
        self.assertEqual((0, 10, 11), (record.first, record.last, len(record.y)))
        for i, value in enumerate(record.y):
            self.assertAlmostEqual(4.0 * i, value, delta=1e-12)

    def test_the_integral_of_one_g_starts_at_the_initial_velocity(self):
        record = record_of([1.0] * 101)
        record.y_units, record.initial_velocity = "G'S", 50.0
        record.integrate()
        self.assertEqual(50.0, record.y[0])
        self.assertAlmostEqual(53.530394, record.y[100], delta=1e-10)

    def test_the_last_sample_is_never_kept(self):
        record = record_of(range(101))
        record.truncate_by_time(0.0, 9.0)
        self.assertEqual(list(range(100)), record.y)

    def test_a_constant_stays_constant_and_a_slow_sine_keeps_size_and_phase(self):
        flat = record_of([3.0] * 300, 0.0001)
        flat.filter(100.0)
        self.assertLess(max(abs(value - 3.0) for value in flat.y), 1e-12)
        sine = [math.sin(2.0 * math.pi * 5.0 * 0.0001 * i) for i in range(4001)]
        slow = record_of(sine, 0.0001)
        slow.filter(100.0)
        self.assertLess(max(abs(a - b) for a, b in zip(slow.y[500:-500], sine[500:-500])), 1e-4)


class Measures(unittest.TestCase):
    def test_a_signal_equals_itself(self):
        record = record_of([math.sin(0.1 * i) for i in range(100)])
        found = measure.compute(record.copy(), record, 4.0)
        self.assertEqual([0.0] * 6, found["momentDifferences"])
        self.assertEqual(0.0, found["residualStandardDeviation"])
        self.assertTrue(math.isnan(found["tStatistic"]))
        self.assertAlmostEqual(1.0, found["correlationFactor"], delta=1e-12)
        self.assertEqual("bad", measure.verdicts(found, measure.DEFAULT_CRITICAL)[6])

    def test_first_point_counts_against_4_and_last_point_never(self):
        reference, computed = record_of([0.0] * 10), record_of([4.5] + [0.0] * 8 + [900.0])
        found = measure.compute(computed, reference, 5.0)
        self.assertEqual(10.0, found["percentOutsideCorridor"])
        self.assertEqual((4.5, 4.5), (found["computedPeak"], found["residualSum"]))


class Pages(unittest.TestCase):
    def test_covariance_pairs_and_divides_by_the_overlap(self):
        values, _ = pages.covariances([1.0, 0.0, -1.0, 0.0], [0.0, 2.0, 0.0, -2.0], 2)
        self.assertEqual([0.0, 4.0 / 3.0, 0.0, -2.0 / 3.0, 0.0], values)

    def test_legend_is_the_file_name(self):
        self.assertEqual(["v01234aa0.001"] * 3,
                         [pages.legend(path + "v01234aa0.001") for path in ("", "c:\\tests\\", "/data/")])


class Comparison(unittest.TestCase):
    def test_it_fails_on_what_differs(self):
        for expected, seen in ((1.0, 1.00000001), (1.0, None), (math.nan, 0.0), (math.inf, 1e308), (0.0, 1e-6),
                               (1.0, "1.0"), (1.0, True)):
            tally = Tally()
            tally.near("value", expected, seen)
            self.assertEqual(1, len(tally.faults), (expected, seen))
        tally = Tally()
        tally.near_all("list", [1.0, 2.0], [1.0])
        tally.same("text", "a", "b")
        tally.same("type", 1, True)
        self.assertEqual(3, len(tally.faults))

    def test_it_fails_on_notes_that_differ(self):
        notes = [("resampled", "Text.")]
        for expected, seen in ((notes, {}), ([], {"notes": []}), ([], {"notes": as_json(notes)}),
                               (notes, {"notes": as_json([("resampled", "Other.")])})):
            tally = Tally()
            check_notes(tally, "notes", expected, seen)
            self.assertEqual(1, len(tally.faults), (expected, seen))
        tally = Tally()
        check_notes(tally, "notes", [], {})
        check_notes(tally, "notes", notes, {"notes": as_json(notes)})
        self.assertEqual(([], 1), (tally.faults, tally.notes))

    def test_it_accepts_what_agrees(self):
        tally = Tally()
        tally.near_all("list", [1.0, math.nan, 0.0, 3.0], [1.0 + 1e-12, None, 0, 3])
        tally.near("small against its scale", 1e-12, 2e-12, scale=1.0)
        self.assertEqual(([], 5), (tally.faults, tally.values))


if __name__ == "__main__":
    unittest.main()
