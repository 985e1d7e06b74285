"""Too little memory: a sentence of ours, status 4 for an output, and the others are written."""

import os
import resource
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

    def compare_within(self, megabytes, *arguments):
        def limit():
            resource.setrlimit(resource.RLIMIT_AS, (megabytes * MEGABYTE,) * 2)

        return self.compare("--quiet", "--reference", "r", *arguments, "a", "b", preexec_fn=limit)

    def test_whatever_the_limit_only_sentences_are_printed(self):
        failed = finished = 0
        least = self.least(self.compare_within)
        for megabytes in range(least, least + 64, 6):
            for name in ("out.html", "out.csv", "ascii/page-11.txt", "out.json"):
                if (self.folder / name).exists():
                    os.remove(self.folder / name)
            run = self.compare_within(megabytes, "--json", "out.json", "--pages", "--html", "out.html", "--csv",
                                      "out.csv", "--ascii", "ascii")
            for word in (b"bad_alloc", b"std::", b"length_error", b"terminate"):
                self.assertNotIn(word, run.err, megabytes)
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

    def least(self, run):
        """The least memory in megabytes, rounded up to a multiple of eight, with which a run succeeds."""
        for megabytes in range(16, 400, 8):
            outcome = run(megabytes)
            if (outcome.status, outcome.err) == (0, b""):
                return megabytes
        raise AssertionError("no run succeeds")


if __name__ == "__main__":
    unittest.main()
