"""Too little memory: a sentence of ours; status 4 for an output, and the others are written; status 3 for a signal."""

import filecmp
import os
import resource
import shutil
import unittest

from support import CLI, EndToEndTest, uds

MEGABYTE = 2**20
STEP = 2.0**-13
JSON = "quorvel-cli: The JSON results could not be written; there is not enough memory: out.json\n"
SENTENCE = "There is not enough memory to read the file: {}."


def large(points):
    """The bytes of a file of that many points, a multiple of 125."""
    image = uds([float((7 * i) % 11 - 5) for i in range(125)], STEP, nlp=points - 1)
    return image + image[-512:] * (points // 125 - 1)


class LimitedTest(EndToEndTest):
    def setUp(self):
        super().setUp()
        with open(CLI, "rb") as tool:
            if b"__asan_init" in tool.read():
                self.skipTest("a sanitizer takes the memory")

    def run_within(self, megabytes, *arguments, **options):
        def limit():
            resource.setrlimit(resource.RLIMIT_AS, (megabytes * MEGABYTE,) * 2)

        return self.run_cli(*arguments, preexec_fn=limit, **options)

    def least(self, run):
        """The least memory in megabytes, rounded up to a multiple of eight, with which a run succeeds."""
        for megabytes in range(16, 400, 8):
            outcome = run(megabytes)
            if (outcome.status, outcome.err) == (0, b""):
                return megabytes
        raise AssertionError("no run succeeds")


class Outputs(LimitedTest):
    def setUp(self):
        super().setUp()
        wave = [float((7 * i) % 11 - 5) for i in range(15000)]
        self.write("r", uds(wave, STEP))
        self.write("a", uds([1.25 * y for y in wave], STEP))
        self.write("b", uds([0.5 * y for y in wave], STEP))

    def compare_within(self, megabytes, *arguments):
        return self.run_within(megabytes, "compare", "--quiet", "--reference", "r", *arguments, "a", "b")

    def test_whatever_the_limit_only_sentences_are_printed(self):
        short = finished = 0
        least = self.least(self.compare_within)
        for megabytes in range(least, least + 64, 3):
            for name in ("out.html", "out.csv", "ascii/page-11.txt", "out.json"):
                if (self.folder / name).exists():
                    os.remove(self.folder / name)
            run = self.compare_within(megabytes, "--json", "out.json", "--pages", "--html", "out.html", "--csv",
                                      "out.csv", "--ascii", "ascii")
            self.assertOnlySentences(run, megabytes)
            for name in ("out.html", "out.csv", "ascii/page-11.txt"):
                self.assertTrue((self.folder / name).exists(), (megabytes, name))
            short += self.assertPagesAreToldOf(run, megabytes)
            finished += run.status == 0 and run.err == b""
        self.assertGreater(short, 0)
        self.assertGreater(finished, 1)

    def assertPagesAreToldOf(self, run, megabytes):
        """The JSON shows the failure of each page that standard error names, or is missing with its own sentence. True
        if there was not enough memory for a page."""
        self.assertIn(run.status, (0, 4), (megabytes, run.complaints))
        self.assertEqual((self.folder / "out.json").exists(), run.status == 0)
        if run.status == 4:
            self.assertTrue(run.complaints.endswith(JSON), run.complaints)
            return True
        pages = self.parse(self.read("out.json"))["pages"]
        told = [f"quorvel-cli: Page {page['id']} ({page['name']}): {page['error']}" for page in pages if page["error"]]
        self.assertComplaints(run, *told)
        return bool(told)

    # The JSON's arrays asked for memory while they were destroyed, which ended the program.
    def test_long_curves_leave_the_other_outputs(self):
        for name, factor in (("r", 1), ("a", 2)):
            self.write(name, b"".join(b"%.4f %d.25\n" % (i / 8192, factor * ((7 * i) % 11 - 5)) for i in range(60000)))
        statuses, complaints = set(), set()
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
            complaints.add(outcome.err)
            self.assertEqual((self.folder / "out/json").exists(), "The JSON results" not in outcome.complaints)
            for name in ("html", "csv", "ascii/page-2.txt", "ascii/page-11.txt"):
                self.assertTrue((self.folder / "out" / name).exists(), (megabytes, name))
        self.assertIn(0, statuses)
        self.assertGreater(len(complaints), 1, "no limit was too low for a page")

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
        return self.run_within(megabytes, "compare", "--quiet", "--reference", "r", *arguments, "a")

    def assertOnlySentences(self, run, megabytes):
        for word in (b"bad_alloc", b"std::", b"length_error", b"terminate"):
            self.assertNotIn(word, run.err, megabytes)


class LongPages(LimitedTest):
    """The JSON of long pages goes to the disk while it is made: it needs far more room than the memory has."""

    POINTS = 100000
    LEAST_SIZE = 30 * MEGABYTE
    FOR_PAGES = 20  # megabytes; two curves, and the transform of the last page

    def setUp(self):
        super().setUp()
        self.write("r", large(self.POINTS))
        self.write("a", large(self.POINTS))
        least = self.least(lambda megabytes: self.compare_within(megabytes, "--json", "out.json"))
        self.enough = least + self.FOR_PAGES

    def compare_within(self, megabytes, *arguments, **options):
        return self.run_within(megabytes, "compare", "--quiet", "--jobs", "1", "--reference", "r", *arguments, "a",
                               **options)

    def test_they_need_little_memory(self):
        with open(self.folder / "printed", "wb") as printed:
            run = self.compare_within(self.enough, "--json", "-", "--pages", stdout=printed)
        self.assertEqual((run.status, run.err), (0, b""))
        run = self.compare_within(self.enough, "--json", "out.json", "--pages")
        self.assertEqual((run.status, run.err), (0, b""))
        size = os.path.getsize(self.folder / "out.json")
        self.assertGreater(size, self.LEAST_SIZE)
        self.assertEqual(os.path.getsize(self.folder / "printed"), size)
        self.assertTrue(filecmp.cmp(self.folder / "out.json", self.folder / "printed", shallow=False))


class SingleFiles(LimitedTest):
    def assertFailsByPart(self, what, *command):
        """With more and more memory, first the file cannot be read, then the output not written, then both work."""
        unread = f"quorvel-cli: {SENTENCE.format('a')}\nquorvel-cli: Could not be read: a\n"
        unwritten = f"quorvel-cli: {what} could not be written; there is not enough memory: out\n"
        expected = {3: unread, 4: unwritten, 0: ""}
        self.write("a", large(125))
        least = self.least(lambda megabytes: self.run_within(megabytes, *command))
        self.write("a", large(1000000))
        statuses = []
        for megabytes in range(least, least + 150, 3):
            self.write("out", b"old")
            run = self.run_within(megabytes, *command)
            self.assertIn(run.status, expected, run.complaints)
            self.assertEqual(run.complaints, expected[run.status])
            self.assertEqual(self.read("out") == b"old", run.status != 0)
            statuses.append(run.status)
            if run.status == 0:
                break
        self.assertEqual(list(dict.fromkeys(statuses)), [3, 4, 0])

    def test_export(self):
        self.assertFailsByPart("The ASCII file", "export", "a", "--xy", "--out", "out")

    def test_convert(self):
        self.assertFailsByPart("The UDS-1992 file", "convert", "a", "--to", "sun", "--out", "out")


class Signals(LimitedTest):
    """A signal too large for memory gets one sentence: it is not read a second time, as ASCII points."""

    def setUp(self):
        super().setUp()
        self.write("a", large(1000))
        self.enough = self.least(lambda megabytes: self.compare_within(megabytes, "a", "a")) + 8
        self.write("large", large(4000000))

    def compare_within(self, megabytes, reference, computed):
        return self.run_within(megabytes, "compare", "--quiet", "--json", "out.json", "--reference", reference, computed)

    def assertOneSentence(self, run, role, unread):
        self.assertEqual(run.status, 3)
        self.assertComplaints(run, "quorvel-cli: " + SENTENCE.format("large"), f"quorvel-cli: {unread}: large")
        results = self.parse(self.read("out.json"))
        self.assertEqual(results[role], [SENTENCE.format("large")])
        self.assertEqual(results["signals"], [])

    def test_a_computed_signal(self):
        self.assertOneSentence(self.compare_within(self.enough, "a", "large"), "errors", "Could not be read")

    def test_the_reference(self):
        self.assertOneSentence(self.compare_within(self.enough, "large", "a"), "referenceErrors",
                               "The reference could not be read")

    def test_a_file_to_show(self):
        run = self.run_within(self.enough, "show", "large", "a")
        self.assertEqual(run.status, 3)
        self.assertComplaints(run, "quorvel-cli: " + SENTENCE.format("large"), "quorvel-cli: Could not be read: large")
        self.assertIn("Time Step", run.text)


if __name__ == "__main__":
    unittest.main()
