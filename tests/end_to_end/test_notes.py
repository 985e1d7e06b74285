"""Notes on what a run does without being asked: in JSON, with --verbose, and those that every run prints."""

import unittest

from support import REFERENCE, SCALED, EndToEndTest, ScaledTest, uds

# 0 to 3 in seven points, against a reference from 0 to 2: 0, 0.5, 1, 1.5 are left, because no cut keeps its last point.
LONG = [0.0, 3.0, 6.0, 3.0, 0.0, 0.0, 0.0]
CUT = {"kind": "cut-to-common-range",
       "text": "Cut to the common time range: 7 points from 0 to 3 became 4 points from 0 to 1.5."}


def points(*pairs):
    return b"".join(b"%g %g\n" % pair for pair in pairs)


def kinds(notes):
    return [note["kind"] for note in notes]


class NothingToNote(ScaledTest):
    def test_there_is_no_member(self):
        results = self.scaled_results("--pages")
        self.assertNotIn("notes", results)
        self.assertNotIn("notes", results["reference"])
        self.assertNotIn("notes", results["signals"][0])
        for page in results["pages"]:
            self.assertNotIn("notes", page)

    def test_verbose_tells_none(self):
        run = self.compare_scaled("--verbose")
        self.assertComplaints(run, "Reference reference.uds: 5 points, step 0.5 SECONDS, in G'S",
                              "Compared scaled.uds: 5 points, step 0.5 SECONDS, in G'S")


class Json(EndToEndTest):
    def setUp(self):
        super().setUp()
        self.write("r", REFERENCE)
        self.write("long", LONG)

    def test_a_signal_that_is_resampled_and_one_that_is_not_filtered(self):
        self.write("fine", uds([0.0, 1.0, 2.0, 3.0, 4.0, 3.0, 2.0, 1.0, 0.0], 0.25))
        self.write("text", points((0, 0), (1, 4), (2, 0)))
        fine, text = self.results("--cfc", "60", "--reference", "r", "fine", "text")["signals"]
        self.assertEqual(fine["notes"], [
            {"kind": "resampled", "text": "Resampled for the comparison: 9 points from 0 to 2 at a step of 0.25 became "
                                          "5 points from 0 to 2 at a step of 0.5."}])
        self.assertEqual(text["notes"], [
            {"kind": "not-filtered", "text": "Not filtered: computed signals from ASCII points never are."},
            {"kind": "resampled", "text": "Resampled for the comparison: 3 points from 0 to 2 without a time step "
                                          "became 5 points from 0 to 2 at a step of 0.5."}])
        self.assertFalse([text for text in text["warnings"] if "ASCII" in text])
        self.assertEqual(list(text)[:5], ["path", "referenceName", "pointCount", "warnings", "notes"])

    def test_a_reference_without_a_time_step(self):
        # One point every microsecond: 0 to 0.2 are 2000 steps of 0.0001.
        self.write("dense", b"".join(b"%.6f 1\n" % (i / 1e6) for i in range(200001)))
        self.write("a", uds([1.0] * 2001, 0.0001))
        results = self.results("--reference", "dense", "a")
        self.assertEqual(results["reference"]["notes"], [
            {"kind": "reference-resampled",
             "text": "The reference has no time step and was resampled: 200001 points from 0 to 0.2 without a time "
                     "step became 2001 points from 0 to 0.2 at a step of 0.0001."}])
        self.assertEqual(results["reference"]["pointCount"], 2001)

    def test_a_signal_that_is_cut_to_the_common_range(self):
        signal = self.results("--reference", "r", "long")["signals"][0]
        self.assertEqual(signal["notes"], [CUT])
        self.assertEqual(signal["pointCount"], 4)

    def test_pages_that_cut_tell_which_signal_and_how_far(self):
        results = self.results("--pages", "--reference", "r", "r", "long")
        self.assertEqual(results["signals"][1]["notes"], [CUT])
        noted = {page["id"]: page["notes"] for page in results["pages"] if "notes" in page}
        self.assertEqual(noted, {
            6: [{"signal": 1, "kind": "cut-by-page",
                 "text": "Cut by the page Residuals: 4 points from 0 to 1.5 became 3 points from 0 to 1."}],
            10: [{"signal": 1, "kind": "cut-by-page",
                  "text": "Cut by the page Cummulative Density: 3 points from 0 to 1 became 2 points from 0 to 0.5."}]})
        residuals = next(page for page in results["pages"] if page["id"] == 6)
        self.assertEqual(len(residuals["series"][1]["x"]), 3)

    def test_the_first_signal_that_serves_as_the_average(self):
        results = self.results("r", "long")
        self.assertEqual(results["notes"], [
            {"kind": "average-is-first",
             "text": "The reference is the first signal, r, not the mean of all signals."}])
        self.assertEqual(kinds(results["signals"][0]["notes"]), ["cut-to-common-range"])
        self.assertEqual(results["reference"]["notes"], results["signals"][0]["notes"])
        self.assertEqual(list(results)[3:7], ["errors", "referenceErrors", "notes", "reference"])

    def test_the_name_in_a_note_appears_as_elsewhere(self):
        name = b"m\xfcller"
        self.write(name, SCALED)
        run = self.compare(b"--json", b"-", name)
        self.assertEqual(self.parse(run.out)["notes"][0]["text"],
                         "The reference is the first signal, m\ufffdller, not the mean of all signals.")


class Verbose(EndToEndTest):
    def test_it_shows_every_note(self):
        self.write("r", REFERENCE)
        self.write("long", LONG)
        run = self.compare("--verbose", "--reference", "r", "--pages", "--json", "o.json", "long")
        self.assertComplaints(
            run, "Reference r: 5 points, step 0.5 SECONDS, in G'S",
            "Compared long: 4 points, step 0.5 SECONDS, in G'S",
            "  note: " + CUT["text"],
            "long: note: Cut by the page Residuals: 4 points from 0 to 1.5 became 3 points from 0 to 1.",
            "long: note: Cut by the page Cummulative Density: 3 points from 0 to 1 became 2 points from 0 to 0.5.",
            "quorvel-cli: Page 11 (Cross Correlation): Start Index (0)is >= Stop Index (0)")

    def test_notes_of_the_run_come_first(self):
        self.write("a", SCALED)
        run = self.compare("--verbose", "a")
        cut = "  note: Cut to the common time range: 5 points from 0 to 2 became 4 points from 0 to 1.5."
        self.assertComplaints(run, "note: The reference is the first signal, a, not the mean of all signals.",
                              "Reference a: 4 points, step 0.5 SECONDS, in G'S", cut,
                              "Compared a: 4 points, step 0.5 SECONDS, in G'S", cut)

    def test_without_it_notes_are_no_complaints(self):
        self.write("r", REFERENCE)
        self.write("long", LONG)
        for option in ([], ["--quiet"]):
            self.assertComplaints(self.compare(*option, "--reference", "r", "long"))


class NoCommonTime(EndToEndTest):
    """Two signals seconds apart were once compared without a message: the points of the text are numbered from 0, so
    resampling begins there and extends the line through the first two points backward."""

    SENTENCE = "No time in common with r, which runs from 0 to 2; this signal runs from 5 to 6. A comparison of the " \
               "two means nothing."

    def setUp(self):
        super().setUp()
        self.write("r", REFERENCE)
        self.write("apart", points((5, 1), (5.5, 2), (6, 3)))

    def test_it_is_always_on_standard_error(self):
        for option in ([], ["--quiet"]):
            run = self.compare(*option, "--reference", "r", "apart")
            self.assertEqual(run.status, 0)
            self.assertComplaints(run, "quorvel-cli: apart: " + self.SENTENCE)

    def test_verbose_does_not_repeat_it(self):
        run = self.compare("--verbose", "--reference", "r", "apart")
        self.assertEqual(run.complaints.count("No time in common"), 1)
        self.assertIn("became 12 points from 0.5 to 6 at a step of 0.5. Beyond its own points, the curve continues as a "
                      "straight line.\n", run.complaints)

    def test_numbers_stay_and_the_signal_has_the_note(self):
        signal = self.results("--reference", "r", "apart")["signals"][0]
        self.assertEqual(signal["notes"][0], {"kind": "no-common-time", "text": self.SENTENCE})
        self.assertEqual(kinds(signal["notes"]), ["no-common-time", "resampled", "cut-to-common-range"])
        # 0.5, 1, 1.5 on the line from (5, 1) to (5.5, 2): -8, -7, -6; of the first point the sign counts.
        self.assertEqual(signal["measures"]["computedPeak"], 7.0)
        self.assertEqual((signal["measures"]["computedMinimum"], signal["measures"]["computedMaximum"]), (-8.0, -6.0))

    def test_a_run_that_stops_tells_it_too(self):
        self.write("late", uds(SCALED, nfp=100))
        run = self.compare("--quiet", "--reference", "r", "late")
        self.assertEqual(run.status, 3)
        self.assertComplaints(
            run, "quorvel-cli: late: Stop time (2) is before or equals Start Time (50)",
            "quorvel-cli: late: No time in common with r, which runs from 0 to 2; this signal runs from 50 to 52. "
            "A comparison of the two means nothing.")

    def test_verbose_tells_what_was_read_and_noted_before_a_run_stopped(self):
        self.write("late", uds(SCALED, nfp=100))
        run = self.compare("--verbose", "--json", "o.json", "r", "late", "missing")
        self.assertEqual(run.status, 3)
        self.assertIn("Read r: ", run.complaints)
        self.assertIn("Read late: ", run.complaints)
        self.assertNotIn("Read missing: ", run.complaints)
        self.assertIn("Nothing was compared.", run.complaints)

    def test_signals_without_a_common_time_leave_no_reference(self):
        self.write("late", uds(SCALED, nfp=100))
        run = self.compare("--quiet", "--json", "o.json", "r", "late")
        sentence = "The signals have no time in common, so no reference was made. Nothing was compared; every result " \
                   "is 0."
        self.assertEqual(run.status, 3)
        self.assertComplaints(
            run, "quorvel-cli: Error Computing the time range for evaluation", "quorvel-cli: " + sentence,
            "quorvel-cli: late: No time in common with r, which runs from 0 to 2; this signal runs from 50 to 52. "
            "A comparison of the two means nothing.")
        results = self.parse(self.read("o.json"))
        self.assertEqual(results["notes"], [{"kind": "no-common-time", "text": sentence}])
        self.assertEqual(results["errors"], ["Error Computing the time range for evaluation"])


if __name__ == "__main__":
    unittest.main()
