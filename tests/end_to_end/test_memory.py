"""Too little memory: a sentence of ours, status 4 for an output, and the others are written."""

import os
import resource
import shutil
import unittest

from support import CLI, EndToEndTest, uds

MEGABYTE = 2**20
STEP = 2.0**-13
JSON = "quorvel-cli: The JSON results could not be written; there is not enough memory: out.json\n"


class Memory(EndToEndTest):
    def setUp(self):
        super().setUp()
        with open(CLI, "rb") as tool:
            if b"__asan_init" in tool.read():
                self.skipTest("a sanitizer takes the memory")
        wave = [float((7 * i) % 11 - 5) for i in range(15000)]
        self.write("r", uds(wave, STEP))
        self.write("a", uds([1.25 * y for y in wave], STEP))
        self.write("b", uds([0.5 * y for y in wave], STEP))

    def run_within(self, megabytes, *arguments):
        def limit():
            resource.setrlimit(resource.RLIMIT_AS, (megabytes * MEGABYTE,) * 2)

        return self.compare("--quiet", "--reference", "r", *arguments, preexec_fn=limit)

    def compare_within(self, megabytes, *arguments):
        return self.run_within(megabytes, *arguments, "a", "b")

    def test_whatever_the_limit_only_sentences_are_printed(self):
        failed = finished = 0
        least = self.least(self.compare_within)
        for megabytes in range(least, least + 64, 6):
            for name in ("out.html", "out.csv", "ascii/page-11.txt", "out.json"):
                if (self.folder / name).exists():
                    os.remove(self.folder / name)
            run = self.compare_within(megabytes, "--json", "out.json", "--pages", "--html", "out.html", "--csv",
                                      "out.csv", "--ascii", "ascii")
            self.assertOnlySentences(run, megabytes)
            self.assertIn(run.status, (0, 4), (megabytes, run.complaints))
            if run.status == 4:
                failed += 1
                self.assertTrue(run.complaints.endswith(JSON), run.complaints)
                self.assertFalse((self.folder / "out.json").exists())
                for name in ("out.html", "out.csv", "ascii/page-11.txt"):
                    self.assertTrue((self.folder / name).exists(), (megabytes, name))
            finished += run.status == 0 and run.err == b""
        self.assertGreater(failed, 1)
        self.assertGreater(finished, 1)

    # The JSON's arrays asked for memory while they were destroyed, which ended the program.
    def test_long_curves_leave_the_other_outputs(self):
        for name, factor in (("r", 1), ("a", 2)):
            self.write(name, b"".join(b"%.4f %d.25\n" % (i / 8192, factor * ((7 * i) % 11 - 5)) for i in range(60000)))
        statuses = set()
        run = self.compare_one
        least = self.least(run)
        for megabytes in range(least, least + 40, 4):
            shutil.rmtree(self.folder / "out", ignore_errors=True)
            os.mkdir(self.folder / "out")
            outcome = run(megabytes, "--json", "out/json", "--pages", "--html", "out/html", "--csv", "out/csv",
                          "--ascii", "out/ascii", "--uds", "out/uds")
            self.assertOnlySentences(outcome, megabytes)
            self.assertIn(outcome.status, (0, 4), (megabytes, outcome.complaints))
            statuses.add(outcome.status)
            self.assertEqual((self.folder / "out/json").exists(), "The JSON results" not in outcome.complaints)
            for name in ("html", "csv", "ascii/page-2.txt", "ascii/page-11.txt"):
                self.assertTrue((self.folder / "out" / name).exists(), (megabytes, name))
        self.assertEqual(statuses, {0, 4})

    # The message about too little memory needed memory, and the results were lost with it.
    def test_many_signals_leave_the_results_of_a_stopped_run(self):
        wave = uds([float((7 * i) % 11 - 5) for i in range(1500)], STEP)
        os.mkdir(self.folder / "many")
        names = [self.write(f"many/{i}", wave) for i in range(1000)]
        self.write("list", "".join(f"{name}\r\n" for name in names).encode())
        least = self.least(self.compare_one)
        stopped = 0
        for megabytes in range(least, least + 144, 24):
            (self.folder / "out.json").unlink(missing_ok=True)
            outcome = self.compare_one(megabytes, "--json", "out.json", "--hit-list", "list")
            self.assertOnlySentences(outcome, megabytes)
            self.assertIn(outcome.status, (0, 3, 4), (megabytes, outcome.complaints))
            is_written = "out.json" in self.names()
            self.assertTrue(is_written or outcome.complaints.endswith(JSON), outcome.complaints)
            if not is_written:
                continue
            errors = self.parse(self.read("out.json"))["errors"]
            self.assertEqual(errors != [], outcome.status == 3)
            for error in errors:
                self.assertIn("There is not enough memory", error)
            stopped += outcome.status == 3
        self.assertGreater(stopped, 1)

    def compare_one(self, megabytes, *arguments):
        return self.run_within(megabytes, *arguments, "a")

    def assertOnlySentences(self, run, megabytes):
        for word in (b"bad_alloc", b"std::", b"length_error", b"terminate"):
            self.assertNotIn(word, run.err, megabytes)

    def least(self, run):
        """The least memory in megabytes, rounded up to a multiple of eight, with which a run succeeds."""
        for megabytes in range(16, 400, 8):
            outcome = run(megabytes)
            if (outcome.status, outcome.err) == (0, b""):
                return megabytes
        raise AssertionError("no run succeeds")


if __name__ == "__main__":
    unittest.main()
