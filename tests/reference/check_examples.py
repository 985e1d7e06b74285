#!/usr/bin/env python3
"""Every measure, column, verdict and page series of the bundled sample signals, recomputed from the raw bytes.

    check_examples.py TOOL    TOOL is the path of quorvel-cli
"""

import os
import sys
import unittest
from pathlib import Path

from document import Options
from tool import Tally, check_run, require

TOP = Path(__file__).resolve().parents[2]
SLED = "examples/sled/"
FORCE = "examples/force/"


def listed(hit_list):
    return [line for line in (TOP / hit_list).read_bytes().decode("utf-8").replace("\r\n", "\n").split("\n") if line]


def option_sets():
    """Name, options, and the words that name the files on the command line."""
    sled, force = listed(SLED + "sled.hit"), listed(FORCE + "force.hit")
    sled_reference, force_reference = SLED + "s01001aa0.001", FORCE + "f01001fa0.001"
    sled_list = ["--hit-list", SLED + "sled.hit"]
    rows = [("sled as read", Options(sled, sled_reference), sled_list),
            ("sled, average", Options(sled), sled_list),
            ("sled, average, window", Options(sled, channel_class=180, window=(0.0, 0.12)), sled_list),
            ("sled, reference not filtered",
             Options(sled, sled_reference, channel_class=60, filter_reference=False, window=(0.0, 0.15),
                     corridor=2.5), sled_list),
            ("sled, other critical values",
             Options(sled, sled_reference, corridor=0.75,
                     critical={"residual": 0.5, "stddev": 40.0, "corridor": 0.6, "correlation": 0.001, "t": 30.0,
                               "moment": 0.01}), sled_list),
            ("sled, ascii reference", Options(sled[:2], SLED + "s01007aa0.txt", channel_class=60), sled[:2]),
            ("sled, one file", Options([sled_reference]), [sled_reference]),
            ("force", Options(force, force_reference, corridor=20000.0), ["--hit-list", FORCE + "force.hit"]),
            ("force, average", Options(force, channel_class=60, corridor=5000.0), force),
            ("both units", Options(force + sled[:1], force_reference), force + sled[:1])]
    for channel_class in (60, 180, 600, 1000):
        name = "cfc %d" % channel_class
        rows.append(("sled, " + name, Options(sled, sled_reference, channel_class, window=(0.0, 0.15)), sled_list))
        rows.append(("force, " + name, Options(force, force_reference, channel_class, window=(0.01, 0.1)), force))
    return rows


class Examples(unittest.TestCase):
    tool = ""

    def test_every_value_of_every_example_agrees(self):
        tally = Tally()
        for label, options, words in option_sets():
            check_run(tally, self.tool, TOP, label, options, words)
        require(self, tally, 2000000, runs=18, finished_runs=18, series=800, notes=250)

    def test_both_sets_together_show_every_page_without_an_error(self):
        for page_list, options, words in (([1, 7, 8, 9, 4, 3, 5, 6, 10, 11], *option_sets()[0][1:]),
                                          ([1, 2, 4, 3, 5, 6, 10, 11], *option_sets()[7][1:])):
            tally = Tally()
            document = check_run(tally, self.tool, TOP, "pages", options, words)
            self.assertEqual([], tally.faults[:20])
            self.assertEqual(0, tally.failed_pages)
            self.assertEqual(page_list, document.pages)


if __name__ == "__main__":
    Examples.tool = os.path.abspath(sys.argv.pop(1))
    os.chdir(TOP)
    unittest.main()
