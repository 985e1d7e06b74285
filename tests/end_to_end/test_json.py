"""The JSON results of runs whose numbers can be worked out by hand."""

import math
import struct
import unittest

from support import (ACCELERATION_PAGES, IEEE, REFERENCE, SCALED, SCALED_COLUMNS, SCALED_VERDICTS, SUN, EndToEndTest,
                     ScaledTest, uds)


class ScaledSignal(ScaledTest):
    """c = 1.5 r, so e = r / 2 = 0, 1, 2, 1, 0 with N = 5; the last point is left out of the residual sums."""

    def test_members_are_in_order(self):
        results = self.scaled_results("--pages")
        self.assertEqual(list(results), ["format", "version", "settings", "errors", "referenceErrors", "reference",
                                         "pageList", "signals", "pages"])
        self.assertEqual(list(results["settings"]), ["cfc", "filterReference", "window", "corridor", "critical"])
        self.assertEqual(list(results["settings"]["critical"]),
                         ["residual", "stddev", "corridor", "correlation", "t", "moment"])
        self.assertEqual(list(results["reference"]),
                         ["path", "pointCount", "timeStep", "xUnits", "yUnits", "warnings"])
        self.assertEqual(list(results["signals"][0]),
                         ["path", "referenceName", "pointCount", "warnings", "measures", "columns", "verdicts"])
        self.assertEqual(list(results["pages"][0]), ["id", "name", "built", "error", "xTitle", "yTitle", "pointCount",
                                                     "seriesCount", "series"])
        self.assertEqual(list(results["pages"][1]["series"][0]), ["name", "x", "y"])

    def test_measures(self):
        measures = self.scaled_results()["signals"][0]["measures"]
        deviation = math.sqrt((6.0 - 4.0 * 4.0 / 5.0) / 5.0)
        self.assertEqual(list(measures), [
            "meanSquareResidual", "computedPeak", "referencePeak", "computedMaximum", "referenceMaximum",
            "computedMinimum", "referenceMinimum", "residualStandardDeviation", "residualSum", "residualSumOfSquares",
            "percentOutsideCorridor", "pointCount", "momentDifferences", "correlationFactor", "magnitudeError",
            "phaseError", "comprehensiveError", "tStatistic", "minimumTime", "maximumTime", "corridorSize"])
        exact = {"meanSquareResidual": 6.0 / 5.0, "computedPeak": 6.0, "referencePeak": 4.0, "computedMaximum": 6.0,
                 "referenceMaximum": 4.0, "computedMinimum": 0.0, "referenceMinimum": 0.0, "residualSum": 4.0,
                 "residualSumOfSquares": 6.0, "percentOutsideCorridor": 20.0, "pointCount": 5, "minimumTime": 0.0,
                 "maximumTime": 2.0, "corridorSize": 1.5}
        for name, value in exact.items():
            self.assertEqual(measures[name], value, name)
        rounded = {"residualStandardDeviation": deviation, "correlationFactor": 1.0, "magnitudeError": -1.0 / 3.0,
                   "phaseError": 0.0, "comprehensiveError": 1.0 / 3.0,
                   "tStatistic": 4.0 / 5.0 / (deviation / math.sqrt(5.0))}
        for name, value in rounded.items():
            self.assertAlmostEqual(measures[name], value, delta=1e-14, msg=name)
        for difference in measures["momentDifferences"]:
            self.assertAlmostEqual(difference, 1.0 / 3.0, delta=1e-15)

    def test_columns_and_verdicts(self):
        signal = self.scaled_results()["signals"][0]
        self.assertEqual(signal["columns"], SCALED_COLUMNS)
        self.assertEqual(signal["verdicts"], SCALED_VERDICTS)
        self.assertEqual(signal["path"], "scaled.uds")
        self.assertEqual(signal["referenceName"], "reference.uds")
        self.assertEqual(signal["pointCount"], 5)

    def test_reference_and_messages(self):
        results = self.scaled_results()
        self.assertEqual(results["reference"], {"path": "reference.uds", "pointCount": 5, "timeStep": 0.5,
                                                "xUnits": "SECONDS", "yUnits": "G'S", "warnings": []})
        self.assertEqual(results["errors"], [])
        self.assertEqual(results["referenceErrors"], [])
        self.assertEqual(results["pageList"], ACCELERATION_PAGES)
        self.assertNotIn("pages", results)

    def test_settings_are_the_options(self):
        self.assertEqual(self.results("scaled.uds")["settings"],
                         {"cfc": None, "filterReference": False, "window": None, "corridor": 4.0,
                          "critical": {"residual": 5.0, "stddev": 20.0, "corridor": 0.1, "correlation": 0.05, "t": 2.58,
                                       "moment": 0.2}})
        settings = self.results("--reference", "reference.uds", "--cfc", "180", "--window", "-0.25", "1.75",
                                "--corridor", "2.5", "--critical", "residual=1", "--critical", "stddev=2",
                                "--critical", "corridor=3", "--critical", "correlation=4", "--critical", "t=5",
                                "--critical", "moment=-6e-1", "scaled.uds")["settings"]
        self.assertEqual(settings, {"cfc": 180, "filterReference": True, "window": [-0.25, 1.75], "corridor": 2.5,
                                    "critical": {"residual": 1.0, "stddev": 2.0, "corridor": 3.0, "correlation": 4.0,
                                                 "t": 5.0, "moment": -0.6}})
        self.assertFalse(self.results("--cfc", "60", "--no-filter-reference", "--reference", "reference.uds",
                                      "scaled.uds")["settings"]["filterReference"])

    def test_a_result_equal_to_its_critical_value_is_bad(self):
        # The average residual is exactly 20 % of the peak, the share outside exactly 0.2.
        def verdicts(limit):
            results = self.scaled_results("--critical", f"residual={limit}", "--critical", f"corridor={limit / 100}")
            return results["signals"][0]["verdicts"][2], results["signals"][0]["verdicts"][4]

        self.assertEqual(verdicts(20), ("bad", "bad"))
        self.assertEqual(verdicts(20.5), ("good", "good"))

    def test_the_same_bytes_go_to_a_file(self):
        printed = self.compare_scaled("--pages", "--json", "-")
        written = self.compare_scaled("--pages", "--json", "out.json", "--quiet")
        self.assertEqual((printed.status, written.status, written.out), (0, 0, b""))
        self.assertEqual(self.read("out.json"), printed.out)

    def test_every_number_format_gives_the_same_results(self):
        expected = self.scaled_results("--pages")
        self.write("scaled.uds", uds(SCALED, form=SUN))
        self.write("reference.uds", uds(REFERENCE, x=[0.0, 0.5, 1.0, 1.5, 2.0], form=IEEE))
        self.assertEqual(self.scaled_results("--pages"), expected)


class SpecialValues(EndToEndTest):
    def test_a_signal_compared_with_itself_has_no_t_statistic(self):
        self.write("a.uds", SCALED)
        signal = self.results("a.uds")["signals"][0]
        self.assertIsNone(signal["measures"]["tStatistic"])
        self.assertEqual(signal["columns"][6], "nan")
        self.assertEqual(signal["verdicts"][6], "bad")
        self.assertEqual(signal["referenceName"], "a.uds")

    def test_an_infinite_value_is_null(self):
        self.write("r.uds", REFERENCE)
        self.write("z.uds", [0.0] * 5)
        measures = self.results("--reference", "r.uds", "z.uds")["signals"][0]["measures"]
        self.assertEqual(measures["momentDifferences"], [None] * 6)  # r / 0
        self.assertIsNone(measures["magnitudeError"])
        self.assertEqual(measures["referencePeak"], 4.0)

    def test_numbers_read_back_bit_for_bit(self):
        # Single-precision tenths are not tenths; widening and printing must not lose a bit of them.
        tenths = [struct.unpack("<f", struct.pack("<f", i / 10))[0] for i in range(50)]
        self.write("t.uds", uds(tenths, 0.1))
        page = self.results("--pages", "--reference", "t.uds", "t.uds")["pages"][1]
        self.assertEqual(page["series"][0]["name"], "Reference")
        self.assertEqual(page["series"][0]["y"], tenths)

    def test_a_name_that_is_not_utf8_appears_with_the_replacement_character(self):
        name = b"m\xfcller.uds"
        self.write(name, SCALED)
        run = self.compare(b"--json", b"-", name)
        self.assertEqual(run.status, 0)
        self.assertEqual(self.parse(run.out)["signals"][0]["path"], "m\ufffdller.uds")

    def test_a_name_in_utf8_stays_as_it_is(self):
        self.write("m\u00fcller \u6e2c.uds", SCALED)
        self.assertEqual(self.results("m\u00fcller \u6e2c.uds")["signals"][0]["columns"][0], "m\u00fcller \u6e2c.uds")


if __name__ == "__main__":
    unittest.main()
