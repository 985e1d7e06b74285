"""What the options do to a run: files, reference, window, filter, corridor, judgment and exit status."""

import unittest

from support import ACCELERATION_PAGES, OTHER_PAGES, REFERENCE, SCALED, EndToEndTest, ScaledTest, uds


class Files(EndToEndTest):
    def paths(self, *arguments):
        return [signal["path"] for signal in self.results(*arguments)["signals"]]

    def test_files_come_before_those_of_the_hit_lists_in_order(self):
        for name in "abcde":
            self.write(name, SCALED)
        self.write("one.hit", b"c\r\nb\r\n")
        self.write("two.hit", b"e\n\n\nb")
        self.assertEqual(self.paths("--hit-list", "one.hit", "d", "--hit-list", "two.hit", "a"),
                         ["d", "a", "c", "b", "e", "b"])

    def test_a_hit_list_alone_is_enough(self):
        self.write("a", SCALED)
        self.write("one.hit", b"a\r\n")
        self.assertEqual(self.paths("--hit-list", "one.hit"), ["a"])

    def test_a_line_of_blanks_is_a_path(self):
        self.write("  ", SCALED)
        self.write("one.hit", b"  \r\n")
        self.assertEqual(self.paths("--hit-list", "one.hit"), ["  "])

    def test_names_that_begin_with_a_hyphen_come_after_the_separator(self):
        self.write("-a", SCALED)
        self.write("--json", SCALED)
        self.assertEqual(self.paths("--", "-a", "--json"), ["-a", "--json"])

    def test_names_with_brackets_are_names(self):
        self.write("[a,b]", SCALED)
        self.assertEqual(self.paths("[a,b]"), ["[a,b]"])

    def test_an_ascii_point_file_is_a_signal(self):
        self.write("points.txt", b"".join(b"%g,%g\n" % (0.5 * i, y) for i, y in enumerate(SCALED)))
        self.write("reference.uds", REFERENCE)
        signal = self.results("--reference", "reference.uds", "points.txt")["signals"][0]
        self.assertEqual(signal["measures"]["computedPeak"], 6.0)


class Reference(EndToEndTest):
    def test_without_one_the_first_signal_is_the_reference(self):
        self.write("first", SCALED)
        self.write("second", REFERENCE)
        results = self.results("first", "second")
        self.assertEqual(results["reference"]["path"], "first")
        self.assertEqual([signal["referenceName"] for signal in results["signals"]], ["first", "first"])
        self.assertEqual(results["signals"][0]["measures"]["residualSum"], 0.0)
        # Cut to the common range, both lose their last point; e = r - 1.5 r = -1, -2 and, left out, -1.
        self.assertEqual(results["signals"][1]["measures"]["residualSum"],
                         -3.0 if results["reference"]["pointCount"] == 4 else -4.0)

    def test_page_list_follows_the_units_of_the_reference(self):
        self.write("g", SCALED)
        self.write("n", uds(SCALED, units=b"NEWTONS"))
        self.assertEqual(self.results("--reference", "n", "g")["pageList"], OTHER_PAGES)
        self.assertEqual(self.results("--reference", "g", "n")["pageList"], ACCELERATION_PAGES)


def ramp(count):
    return [float(i) for i in range(count)]


class Window(EndToEndTest):
    def test_it_cuts_the_signals_and_the_reference(self):
        self.write("a", uds(ramp(21)))
        self.write("r", uds(ramp(21)))
        results = self.results("--reference", "r", "--window", "1", "4", "a")
        # t = 1, 1.5 ... 3.5: the end of the window is not in it. The value is the point number, 2 t.
        measures = results["signals"][0]["measures"]
        self.assertEqual((measures["minimumTime"], measures["maximumTime"]), (1.0, 3.5))
        self.assertEqual((measures["referenceMinimum"], measures["referenceMaximum"]), (2.0, 7.0))
        self.assertEqual((measures["computedMinimum"], measures["computedMaximum"]), (2.0, 7.0))
        self.assertEqual((results["reference"]["pointCount"], measures["pointCount"]), (6, 6))

    def test_its_bounds_may_be_negative(self):
        self.write("r", uds(ramp(21), nfp=-4))
        results = self.results("--reference", "r", "--window", "-1.0", "-.25", "r")
        self.assertEqual(results["settings"]["window"], [-1.0, -0.25])
        # t = -1 and -0.5
        self.assertEqual(results["reference"]["pointCount"], 2)

    def test_without_it_nothing_is_cut(self):
        self.write("a", uds(ramp(21)))
        self.write("r", uds(ramp(21)))
        self.assertEqual(self.results("--reference", "r", "a")["signals"][0]["measures"]["maximumTime"], 10.0)


# 40 samples up, 40 down at 10 kHz: an alternation of 125 Hz, above the corner of channel class 60.
ALTERNATION = ([1.0] * 40 + [-1.0] * 40) * 10


class Filter(EndToEndTest):
    def setUp(self):
        super().setUp()
        self.write("signal", uds(ALTERNATION, 0.0001))
        self.write("reference", uds(ALTERNATION, 0.0001))

    def peaks(self, *options):
        measures = self.results("--reference", "reference", *options, "signal")["signals"][0]["measures"]
        return measures["computedMaximum"], measures["referenceMaximum"]

    def test_without_a_class_nothing_is_filtered(self):
        self.assertEqual(self.peaks(), (1.0, 1.0))
        self.assertEqual(self.peaks("--no-filter-reference"), (1.0, 1.0))

    def test_a_class_filters_the_signals_and_the_reference_alike(self):
        computed, reference = self.peaks("--cfc", "60")
        self.assertNotEqual(computed, 1.0)
        self.assertEqual(computed, reference)

    def test_the_reference_can_be_left_unfiltered(self):
        computed, reference = self.peaks("--cfc", "60", "--no-filter-reference")
        self.assertNotEqual(computed, 1.0)
        self.assertEqual(reference, 1.0)

    def test_each_class_passes_more_than_the_one_below(self):
        # Without the overshoot at the edges: the mean magnitude of the residual against the unfiltered reference.
        squares = []
        for channel_class in ["60", "180", "600", "1000"]:
            results = self.results("--reference", "reference", "--no-filter-reference", "--cfc", channel_class,
                                   "signal")
            squares.append(results["signals"][0]["measures"]["meanSquareResidual"])
        self.assertEqual(squares, sorted(squares, reverse=True))
        self.assertEqual(len(set(squares)), 4)

    def test_an_ascii_signal_is_never_filtered_an_ascii_reference_is(self):
        text = b"".join(b"%.4f %g\n" % (0.0001 * i, y) for i, y in enumerate(ALTERNATION))
        self.write("signal", text)
        self.write("reference", text)
        computed, reference = self.peaks("--cfc", "60")
        self.assertEqual(computed, 1.0)
        self.assertNotEqual(reference, 1.0)


class Judgment(ScaledTest):
    """Bad are residual, corridor and moment; good are stddev, correlation and t."""

    def status(self, *options):
        run = self.compare_scaled("--quiet", *options)
        self.assertEqual((run.out, run.err), (b"", b""))
        return run.status

    def test_bad_verdicts_alone_are_no_failure(self):
        self.assertEqual(self.status(), 0)

    def test_any_bad_verdict_fails_when_asked(self):
        self.assertEqual(self.status("--fail-on-bad"), 1)

    def test_only_the_named_verdicts_count(self):
        for name, expected in {"residual": 1, "stddev": 0, "corridor": 1, "correlation": 0, "t": 0, "moment": 1,
                               "stddev,correlation,t": 0, "t,moment": 1}.items():
            self.assertEqual(self.status(f"--fail-on-bad={name}"), expected, name)

    def test_critical_values_decide(self):
        loose = ["--critical", "residual=20.1", "--critical", "corridor=0.21", "--critical", "moment=0.34"]
        self.assertEqual(self.status("--fail-on-bad", *loose), 0)
        self.assertEqual(self.status("--fail-on-bad", *loose, "--critical", "stddev=18"), 1)
        self.assertEqual(self.status("--fail-on-bad", *loose, "--critical", "t=2.3"), 1)
        self.assertEqual(self.status("--fail-on-bad", *loose, "--critical", "correlation=0"), 1)

    def test_without_a_reference_the_first_file_fails_by_its_t_statistic(self):
        self.assertEqual(self.compare("--quiet", "--fail-on-bad", "scaled.uds").status, 1)
        self.assertEqual(self.compare("--quiet", "--fail-on-bad=t", "scaled.uds").status, 1)
        self.assertEqual(self.compare("--quiet", "--fail-on-bad=residual,stddev,corridor,correlation,moment",
                                      "scaled.uds").status, 0)

    def test_a_larger_corridor_holds_more_points(self):
        def outside(size):
            results = self.results("--reference", "reference.uds", "--corridor", size, "scaled.uds")
            return results["signals"][0]["measures"]["percentOutsideCorridor"]

        self.assertEqual([outside("0.5"), outside("1"), outside("1.99"), outside("2")], [60.0, 20.0, 20.0, 0.0])


class StatusOrder(ScaledTest):
    def test_a_failed_output_comes_before_an_unread_file_and_a_bad_verdict(self):
        run = self.compare("--json", "missing/out.json", "--fail-on-bad", "nothing.uds")
        self.assertEqual(run.status, 4)
        self.assertEqual(self.compare_scaled("--fail-on-bad", "--quiet", "--csv", "missing/a.csv").status, 4)

    def test_an_unread_file_comes_before_a_bad_verdict(self):
        self.assertEqual(self.compare("--fail-on-bad", "scaled.uds", "nothing.uds").status, 3)

    def test_a_message_of_a_completed_run_comes_before_a_bad_verdict(self):
        self.write("early", uds(ramp(5)))
        self.write("late", uds(ramp(5), nfp=100))
        run = self.compare("--fail-on-bad", "--quiet", "early", "late")
        self.assertEqual(run.status, 3)


class NoCommonRange(EndToEndTest):
    """The run continues with the previous reference, here an empty one, and writes everything."""

    MESSAGE = "Error Computing the time range for evaluation"

    def setUp(self):
        super().setUp()
        self.write("early", uds(ramp(5)))
        self.write("late", uds(ramp(5), nfp=100))

    def test_everything_is_written(self):
        run = self.compare("--json", "o.json", "--html", "o.html", "--csv", "o.csv", "--ascii", "a", "--pages", "early",
                           "late")
        self.assertEqual(run.status, 3)
        results = self.parse(self.read("o.json"))
        self.assertEqual(results["errors"], [self.MESSAGE])
        self.assertEqual([signal["path"] for signal in results["signals"]], ["early", "late"])
        self.assertEqual(results["pageList"], OTHER_PAGES)
        self.assertEqual(len(results["pages"]), len(OTHER_PAGES))
        self.assertIn(b"late", self.read("o.html"))
        self.assertEqual(self.read("o.csv").count(b"\r\n"), 3)
        self.assertTrue((self.folder / "a" / "page-2.txt").is_file())
        self.assertIn("Peak Value", run.text)
        self.assertEqual(run.complaints.splitlines()[0], f"quorvel-cli: {self.MESSAGE}")

    def test_series_files_are_written_too_but_for_those_of_the_empty_reference(self):
        run = self.compare("--quiet", "--uds", "u", "early", "late")
        self.assertEqual(run.status, 4)
        self.assertIn("quorvel-cli: The series could not be written: u/page-2-1.uds: Equal array indices, NFP = NLP\n",
                      run.complaints)
        self.assertTrue((self.folder / "u/page-2-2.uds").is_file())
        self.assertTrue((self.folder / "u/page-2-3.uds").is_file())


if __name__ == "__main__":
    unittest.main()
