#!/usr/bin/env python3
"""Random comparisons, recomputed from the raw bytes: measures, columns, verdicts, page series, and the sentences of
runs and pages that cannot be done.

    check_random.py TOOL [FIRST COUNT]    TOOL is the path of quorvel-cli; by default seeds 1 ... 200
"""

import os
import sys
import tempfile
import unittest
from pathlib import Path

from document import Options
from make_random import RandomRun
from tool import Tally, check_run, require


ALL_SEEDS = range(1, 201)
LEAST_NUMBERS = 5000000
LEAST_FINISHED_RUNS = 120
LEAST_NOTES = 1200


class RandomRuns(unittest.TestCase):
    tool = ""
    seeds = ALL_SEEDS

    def test_every_value_of_every_run_agrees(self):
        tally, here = Tally(), os.getcwd()
        for seed in self.seeds:
            with tempfile.TemporaryDirectory() as folder:
                run = RandomRun(seed, Path(folder))
                os.chdir(folder)
                try:
                    check_run(tally, self.tool, folder, "seed %d" % seed, run.options, run.words)
                finally:
                    os.chdir(here)
        whole = self.seeds == ALL_SEEDS
        require(self, tally, LEAST_NUMBERS if whole else 0, runs=len(self.seeds),
                finished_runs=LEAST_FINISHED_RUNS if whole else 0, notes=LEAST_NOTES if whole else 0)

    def test_signals_seconds_apart_are_told(self):
        """Points of text, numbered from 0: a resampling carries the late ones back to the early ones' times."""
        tally, here = Tally(), os.getcwd()
        with tempfile.TemporaryDirectory() as folder:
            for name, start in (("early.txt", 0.0), ("late.txt", 5.0)):
                lines = ["%.3f %g\n" % (start + i / 1000, i % 7) for i in range(100)]
                Path(folder, name).write_text("".join(lines), encoding="ascii")
            os.chdir(folder)
            try:
                for options in (Options(["late.txt"], "early.txt"), Options(["early.txt", "late.txt"])):
                    document = check_run(tally, self.tool, folder, "apart", options)
                    self.assertEqual("no-common-time", document.computed[-1].notes[0][0])
            finally:
                os.chdir(here)
        require(self, tally, 0, finished_runs=2)


if __name__ == "__main__":
    RandomRuns.tool = os.path.abspath(sys.argv.pop(1))
    if len(sys.argv) > 2:
        RandomRuns.seeds = range(int(sys.argv[1]), int(sys.argv[1]) + int(sys.argv[2]))
        del sys.argv[1:3]
    unittest.main()
