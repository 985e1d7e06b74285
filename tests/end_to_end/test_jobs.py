"""quorvel-cli compare --jobs: the same bytes with any number of jobs."""

import unittest

from support import SCALED, EndToEndTest, uds

WAVES = [[factor * ((step * i) % 17 - 8) for i in range(300 + 10 * step)]
         for factor, step in ((1, 7), (2.5, 3), (-1, 5), (0.25, 11), (3, 2), (1.5, 13))]
STEP = 2.0**-10


class Jobs(EndToEndTest):
    def setUp(self):
        super().setUp()
        self.names = []
        for number, wave in enumerate(WAVES):
            self.names.append(f"wave{number}.uds")
            self.write(self.names[-1], uds(wave, STEP * (1 + number % 3), nfp=-20 * (number % 2)))

    def run_with(self, jobs, *arguments):
        """Everything that a run gives: status, both streams, and every file."""
        out = f"out{jobs}"
        run = self.compare("--jobs", str(jobs), "--verbose", "--html", f"{out}/html", "--json", f"{out}/json", "--csv",
                           f"{out}/csv", "--pages", "--ascii", out, "--uds", out, *arguments)
        files = {path.name: path.read_bytes() for path in sorted((self.folder / out).iterdir())}
        complaints = run.complaints.replace(out, "out")
        return run.status, run.out, complaints, files

    def assertSameWithAnyNumber(self, status, *arguments):
        for jobs in (1, 2, 3, 16):
            (self.folder / f"out{jobs}").mkdir(exist_ok=True)
        one = self.run_with(1, *arguments)
        self.assertEqual(one[0], status, one[2])
        for jobs in (2, 3, 16):
            self.assertEqual(self.run_with(jobs, *arguments), one)

    def test_a_comparison_with_a_reference(self):
        self.assertSameWithAnyNumber(0, "--cfc", "180", "--window", "-0.01", "0.5", "--reference", *self.names)

    def test_a_comparison_with_each_other(self):
        self.assertSameWithAnyNumber(0, "--cfc", "60", *self.names)

    def test_files_that_cannot_be_read(self):
        self.write("words", b"no signal")
        names = [self.names[0], "missing", *self.names[1:3], "words", self.names[3], "missing"]
        self.assertSameWithAnyNumber(3, "--reference", self.names[0], *names)

    def test_signals_that_cannot_be_prepared(self):
        self.write("late.uds", uds(SCALED, nfp=100000))
        names = [self.names[0], "late.uds", *self.names[1:], "late.uds"]
        self.assertSameWithAnyNumber(3, "--window", "0", "0.1", "--reference", self.names[0], *names)

    def test_wrong_numbers_are_refused(self):
        run = self.compare("--jobs", "none", self.names[0])
        self.assertEqual(run.status, 2)
        self.assertIn("Option --jobs takes a whole number from 1 to 1024, not: none", run.complaints)


if __name__ == "__main__":
    unittest.main()
