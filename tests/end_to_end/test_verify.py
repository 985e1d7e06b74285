"""quorvel-cli verify: the reference cases, the document that holds their table, and the files of the annex."""

import json
import math
import os
import re
import unittest

from support import SOURCE, EndToEndTest, as_nobody

SCHEMA = json.loads((SOURCE / "docs/formats/verify.schema.json").read_text(encoding="utf-8"))
COLUMNS = ["Case", "Metric", "Expected", "Got", "Deviation", "Tolerance", "Source", "Verdict"]
TESTS = ["AC1", "AC2", "AC3", "AC4", "AN1", "AN2", "DS1", "DS2", "FO1", "FO2", "FO3", "MO1", "MO2", "MO3"]
NAMES = [f"{test} CAE{model}" for test in TESTS for model in (1, 2, 3)]
HEADER = ("Generic_Time,Time,Test,CAE,Outer_Corridor_Upper,Inner_Corridor_Upper,Inner_Corridor_Lower,"
          "Outer_Corridor_Lower,Test_Phase_Shifted,CAE_Phase_Shifted,Test_Slope,CAE_Slope,Test_Warped,CAE_Warped\n")


def rows_of(text):
    """The cells of the table, which ends with the first empty line; columns are where the rule under the headers is."""
    lines = text.split("\n\n")[0].splitlines()
    spans = [(match.start(), match.end()) for match in re.finditer("-+", lines[1])]
    return [[line[start:end].strip() for start, end in spans] for line in [lines[0], *lines[2:]]]


def rest_of(text):
    return text.split("\n\n", 1)[1]


def document_table():
    document = (SOURCE / "docs/validation.md").read_text(encoding="utf-8")
    return document.split("```\n")[1]


def annex_file(count=100, late=4):
    """A pulse that comes `late` samples late, in the layout of the annex."""
    def pulse(i):
        return 50 * math.sin(math.pi * i / 40) if 0 < i < 40 else 0.0
    lines = [f"{i},{i * 1e-4:.4f},{pulse(i - 30)!r},{pulse(i - 30 - late)!r}" + 10 * "," for i in range(count)]
    return (HEADER + ",".join(14 * ["[-]"]) + "\n" + "\n".join(lines) + "\n,,,,,,,,,,,,1,2\n").encode()


class Verify(EndToEndTest):
    def verified(self, *arguments, status=0):
        run = self.run_cli("verify", "--json", *arguments)
        self.assertEqual(run.status, status, run.complaints)
        return self.parse(run.out, SCHEMA)

    def test_every_check_passes(self):
        run = self.run_cli("verify")
        self.assertEqual((run.status, run.err), (0, b""), run.text)
        headers, *rows = rows_of(run.text)
        self.assertEqual(headers, COLUMNS)
        self.assertGreater(len(rows), 250)
        self.assertEqual([row for row in rows if row[-1] != "pass"], [])
        cases = len({row[0] for row in rows})
        self.assertTrue(run.text.endswith(f"\n\nAll {len(rows)} checks of {cases} cases pass.\n"), run.text[-100:])

    def test_verdicts_follow_from_the_numbers(self):
        results = self.verified()
        checks = [check for case in results["cases"] for check in case["checks"]]
        self.assertEqual(results["checkCount"], len(checks))
        self.assertEqual(results["failedCount"], 0)
        self.assertIsNone(results["annex"])
        for check in checks:
            self.assertEqual(check["deviation"], abs(check["got"] - check["expected"]))
            self.assertLessEqual(check["deviation"], check["tolerance"])
            self.assertEqual((check["verdict"], check["reason"]), ("pass", None))
            # The published sums have the largest tolerance but for the numbers with four digits.
            self.assertLessEqual(check["tolerance"], 0.5e-4)
        for case in results["cases"]:
            self.assertIn(case["source"], results["sources"])

    def test_the_table_shows_the_same_checks(self):
        checks = [(case["name"], check["metric"], case["source"], check["expected"], check["got"])
                  for case in self.verified()["cases"] for check in case["checks"]]
        rows = rows_of(self.run_cli("verify").text)[1:]
        self.assertEqual([(row[0], row[1], row[6]) for row in rows], [check[:3] for check in checks])
        for row, (*_, expected, got) in zip(rows, checks):
            digits = len(row[2].partition(".")[2])
            self.assertAlmostEqual(float(row[2]), expected, delta=0.51 * 10 ** -digits)
            self.assertAlmostEqual(float(row[3]), got, delta=0.51 * 10 ** -digits)

    def test_the_document_holds_the_table(self):
        printed, written = self.run_cli("verify").text, document_table()
        update = "run scripts/update-validation"
        self.assertEqual(rest_of(written), rest_of(printed), update)
        self.assertEqual(len(rows_of(written)), len(rows_of(printed)), update)
        for row, line in zip(rows_of(printed), rows_of(written)):
            if row == line:
                continue
            # Another processor may round the last digit otherwise, and the deviation with it.
            self.assertEqual([row[i] for i in (0, 1, 2, 5, 6, 7)], [line[i] for i in (0, 1, 2, 5, 6, 7)], update)
            digits = len(row[3].partition(".")[2])
            self.assertAlmostEqual(float(row[3]), float(line[3]), delta=1.01 * 10 ** -digits, msg=update)

    def test_wrong_usage(self):
        for sentence, arguments in [
                ("verify takes no FILE, only options, not: a.uds", ["a.uds"]),
                ("Option --annex needs a DIR with the files of the annex.", ["--annex"]),
                ("Option --annex takes a path that is not empty.", ["--annex", ""]),
                ("Option --json takes no value.", ["--json=a"]),
                ("Unknown option: --xml\nTo use a file with that name, put it after --.", ["--xml"])]:
            run = self.run_cli("verify", *arguments)
            self.assertEqual((run.status, run.out), (2, b""))
            self.assertComplaints(run, f"quorvel-cli: {sentence}", "Try 'quorvel-cli verify --help'.")

    def test_standard_output_on_a_full_device(self):
        for options in [[], ["--json"]]:
            with open("/dev/full", "wb") as full:
                run = self.run_cli("verify", *options, stdout=full)
            self.assertEqual(run.status, 4)
            self.assertComplaints(run, "quorvel-cli: Standard output could not be written: No space left on device")


class Annex(EndToEndTest):
    def write_annex(self, content):
        os.mkdir(self.folder / "annex")
        for number, name in enumerate(NAMES):
            table = f"annex_c_{number // 3}__" + name.lower().replace(" ", "__") + ".csv"
            self.write(f"annex/{table}", content)

    def test_files_with_other_scores_fail(self):
        self.write_annex(annex_file())
        run = self.run_cli("verify", "--annex", "annex")
        self.assertEqual((run.status, run.err), (1, b""))
        rows = [row for row in rows_of(run.text) if row[6] == "annex"]
        self.assertEqual([row[0] for row in rows], [name for name in NAMES for _ in range(5)])
        self.assertEqual(rows[0][:3] + rows[0][5:], ["AC1 CAE1", "ISO R", "0.9169", "1e-03", "annex", "FAIL"])
        for row in rows:
            if row[1] == "ISO EP":  # a delay of 4 samples of 0.2 * 100
                self.assertEqual(row[3], "0.8000")
            self.assertEqual(row[7], "pass" if abs(float(row[2]) - float(row[3])) < 0.99e-3 else "FAIL", row)
        self.assertRegex(run.text, r"\n\d+ of \d+ checks of \d+ cases FAIL\.\n$")

    def test_json_names_the_folder_and_the_scores(self):
        self.write_annex(annex_file())
        run = self.run_cli("verify", "--annex", "annex", "--json")
        self.assertEqual(run.status, 1)
        results = self.parse(run.out, SCHEMA)
        self.assertEqual(results["annex"], {"folder": "annex", "errors": []})
        cases = [case for case in results["cases"] if case["source"] == "annex"]
        self.assertEqual([case["name"] for case in cases], NAMES)
        failed = [check for case in cases for check in case["checks"] if check["verdict"] == "fail"]
        self.assertEqual(results["failedCount"], len(failed))
        self.assertGreater(len(failed), 100)
        for case in cases:
            self.assertEqual([check["metric"] for check in case["checks"]],
                             ["ISO R", "ISO Z", "ISO EP", "ISO EM", "ISO ES"])
            self.assertAlmostEqual(case["checks"][2]["got"], 0.8, delta=1e-12)
            self.assertAlmostEqual(case["checks"][3]["got"], 1.0, delta=1e-12)

    def test_missing_and_odd_files_are_named_and_the_others_are_scored(self):
        self.write_annex(annex_file())
        first = "annex/annex_c_0__ac1__cae1.csv"
        os.remove(self.folder / "annex/annex_c_1__ac2__cae2.csv")
        self.write(first, b"0 1\n1 2\n")
        self.write("annex/annex_c_0__ac1__cae2.csv", annex_file().replace(b"0.0007", b"later"))
        self.write("annex/annex_c_0__ac1__cae3.csv", annex_file(count=8))
        self.write("annex/annex_c_1__ac2__cae1.csv", b"")
        run = self.run_cli("verify", "--annex", "annex")
        self.assertEqual(run.status, 3)
        self.assertComplaints(
            run, f"quorvel-cli: {first}: The first line does not name the columns Time, Test and CAE once each.",
            "quorvel-cli: annex/annex_c_0__ac1__cae2.csv: Line 10 has no number in the column Time: later",
            "quorvel-cli: annex/annex_c_0__ac1__cae3.csv: ISO/TS 18571 needs at least 9 samples.",
            "quorvel-cli: annex/annex_c_1__ac2__cae1.csv: The first line does not name the columns Time, Test and CAE "
            "once each.",
            "quorvel-cli: annex: Files of the annex are missing: AC2 CAE2.")
        self.assertEqual(len([row for row in rows_of(run.text) if row[6] == "annex"]), 37 * 5)

    def test_a_folder_that_is_not_there(self):
        self.write("file", b"")
        for folder in ["missing", "file"]:
            run = self.run_cli("verify", "--annex", folder)
            self.assertEqual(run.status, 3)
            self.assertComplaints(run, f"quorvel-cli: {folder}: This folder could not be read.")
            self.assertIn(" pass.\n", run.text)
            results = self.parse(self.run_cli("verify", "--annex", folder, "--json").out, SCHEMA)
            self.assertEqual(results["annex"]["errors"],
                             [{"path": folder, "message": "This folder could not be read."}])

    def test_a_folder_without_the_files(self):
        run = self.run_cli("verify", "--annex", ".")
        self.assertEqual(run.status, 3)
        self.assertComplaints(
            run, "quorvel-cli: .: There is no file of the annex in this folder. Names of such files contain the case "
            "and the model, for example annex_c_1_1__ac1__cae1.csv.")

    def test_an_unreadable_file(self):
        self.write_annex(annex_file())
        path = "annex/annex_c_0__ac1__cae1.csv"
        os.chmod(self.folder / path, 0)
        os.chmod(self.folder, 0o755)
        try:
            run = self.run_cli("verify", "--annex", "annex", **as_nobody())
        except PermissionError:
            self.skipTest("the tool cannot be started by another user here")
        self.assertEqual(run.status, 3)
        self.assertComplaints(run, f"quorvel-cli: {path}: Failure to open file: {path} for reading.")


if __name__ == "__main__":
    unittest.main()
