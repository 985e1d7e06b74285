"""Inputs that cannot be read: the sentence on standard error, status 3, and nothing but the JSON written."""

import os
import subprocess
import unittest

from support import CLI, REFERENCE, SCALED, EndToEndTest, uds

PARSE = "Failure to parse the file: {0} for reading.\nFailure to parse the data."
OPEN = "Failure to open file: {0} for reading."
# Both readers say the same about it, and standard error says how often.
TWICE = " (2 times)"


def patched(image, offset, data):
    return image[:offset] + data + image[offset + len(data):]


GOOD = uds(SCALED)


class RefusedSignals(EndToEndTest):
    def assertRefused(self, name, *sentences):
        """As a computed signal and as the reference: its sentences, status 3, no table; the JSON has the same texts."""
        expected = [sentence.format(name) for sentence in sentences]
        shown = [expected[0] + TWICE] if len(set(expected)) == 1 else expected
        self.write("good.uds", SCALED)
        for role in ["errors", "referenceErrors"]:
            arguments = [name] if role == "errors" else ["--reference", name, "good.uds"]
            unread = "Could not be read: " if role == "errors" else "The reference could not be read: "
            run = self.compare("--json", "out.json", *arguments)
            self.assertEqual((run.status, run.out), (3, b""))
            self.assertComplaints(run, *[f"quorvel-cli: {sentence}" for sentence in shown],
                                  f"quorvel-cli: {unread}{name}", "Nothing was compared.")
            results = self.parse(self.read("out.json"))
            self.assertEqual(results[role], expected)
            self.assertEqual(results["signals"], [])
            self.assertEqual(results["pageList"], [])

    def test_missing(self):
        self.assertRefused("missing.uds", OPEN, OPEN)

    def test_empty(self):
        self.write("empty.uds", b"")
        self.assertRefused("empty.uds", "Data buffer too small", "No Information.")

    def test_truncated(self):
        self.write("cut.uds", GOOD[:1100])
        self.assertRefused("cut.uds", "File size not a multiple of 512 bytes.", PARSE)

    def test_one_byte_too_long(self):
        self.write("long.uds", GOOD + b"\0")
        self.assertRefused("long.uds", "File size not a multiple of 512 bytes.", PARSE)

    def test_headers_only(self):
        self.write("headers.uds", GOOD[:1024])
        self.assertRefused("headers.uds", "File size too small - Insufficient data points", PARSE)

    def test_first_header_only(self):
        self.write("header.uds", GOOD[:512])
        self.assertRefused("header.uds", "Data buffer too small", PARSE)

    def test_crossed_point_numbers(self):
        self.write("crossed.uds", uds(SCALED, nfp=4, nlp=0))
        self.assertRefused("crossed.uds", "Crossed array indices, NFP > NLP in file", PARSE)

    def test_one_point(self):
        self.write("one.uds", uds([1.0]))
        self.assertRefused("one.uds", "Equal array indices, NFP = NLP in file", PARSE)

    def test_more_points_than_the_file_holds(self):
        self.write("short.uds", uds(SCALED, nlp=10**6))
        self.assertRefused("short.uds", "File size too small - Insufficient data points", PARSE)

    def test_all_the_points_that_numbers_can_name(self):
        self.write("huge.uds", uds(SCALED, nfp=-2**31, nlp=2**31 - 1))
        self.assertRefused("huge.uds", "File size too small - Insufficient data points", PARSE)

    def test_wrong_tag_of_the_file(self):
        self.write("tag.uds", patched(GOOD, 0, b"UDS-1993"))
        self.assertRefused("tag.uds", "Not a UDS-1992 Signal File", PARSE)

    def test_wrong_tag_of_the_curve_header(self):
        self.write("curve.uds", patched(GOOD, 512, b"CURVE HDX"))
        self.assertRefused("curve.uds", "Invalid 3rd Record Header", PARSE)

    def test_wrong_tag_of_a_data_record(self):
        self.write("data.uds", patched(GOOD, 1024, b"Z DATA"))
        self.assertRefused("data.uds", "Unknown Data Block", PARSE)

    def test_unknown_arrangement(self):
        self.write("form.uds", patched(uds(SCALED, x=REFERENCE), 16, b"Y-X"))
        self.assertRefused("form.uds", "Format is not known.", PARSE)

    def test_text_with_a_header_line(self):
        self.write("header.txt", b"time value\n0 1\n1 2\n")
        self.assertRefused("header.txt", "File size not a multiple of 512 bytes.", PARSE)

    def test_text_that_goes_back_to_fewer_numbers(self):
        self.write("back.txt", b"0 1\n2\n")
        self.assertRefused("back.txt", "File size not a multiple of 512 bytes.", PARSE)

    def test_directory(self):
        os.mkdir(self.folder / "folder")
        self.assertRefused("folder", OPEN, OPEN)

    def test_pipe_that_nobody_writes(self):
        os.mkfifo(self.folder / "pipe")
        self.assertRefused("pipe", OPEN, OPEN)

    def test_devices(self):
        self.assertRefused("/dev/zero", OPEN, OPEN)
        self.assertRefused("/dev/null", OPEN, OPEN)

    def test_link_to_nowhere(self):
        os.symlink("nowhere", self.folder / "link")
        self.assertRefused("link", OPEN, OPEN)

    def test_sparse_file_of_four_gigabytes(self):
        with open(self.folder / "sparse", "wb") as file:
            file.truncate(4 * 2**30)
        self.assertRefused("sparse", "Not a UDS-1992 Signal File",
                           "The file is too large: {0}. Text files of up to 1 GiB can be read.")

    def test_sparse_file_of_four_gigabytes_after_good_headers(self):
        # Its point numbers need far fewer records than there are, so the tags of the records decide.
        with open(self.folder / "sparse", "wb") as file:
            file.write(GOOD)
            file.truncate(4 * 2**30)
        run = self.compare("sparse")
        self.assertEqual((run.status, run.out), (3, b""))
        self.assertTrue(run.complaints.startswith("quorvel-cli: "), run.complaints)

    def test_empty_path(self):
        run = self.compare("")
        self.assertEqual((run.status, run.out), (3, b""))
        self.assertIn("Failure read file due to empty path and file name.", run.complaints)

    def test_unreadable(self):
        self.write("closed.uds", SCALED)
        os.chmod(self.folder / "closed.uds", 0)
        os.chmod(self.folder, 0o755)
        # Root can read everything; the user "nobody" cannot.
        options = {"user": 65534, "group": 65534, "extra_groups": []} if os.geteuid() == 0 else {}
        try:
            run = self.compare("closed.uds", **options)
        except PermissionError:
            self.skipTest("the tool cannot be started by another user here")
        self.assertEqual((run.status, run.out), (3, b""))
        self.assertComplaints(run, "quorvel-cli: " + OPEN.format("closed.uds") + TWICE,
                              "quorvel-cli: Could not be read: closed.uds", "Nothing was compared.")

    def test_every_file_is_tried(self):
        self.write("good.uds", SCALED)
        run = self.compare("missing1", "good.uds", "missing2")
        self.assertEqual((run.status, run.out), (3, b""))
        self.assertComplaints(run, "quorvel-cli: " + OPEN.format("missing1") + TWICE,
                              "quorvel-cli: " + OPEN.format("missing2") + TWICE,
                              "quorvel-cli: Could not be read: missing1", "quorvel-cli: Could not be read: missing2",
                              "Nothing was compared.")

    def test_quiet_still_complains(self):
        run = self.compare("--quiet", "missing")
        self.assertEqual(run.status, 3)
        self.assertComplaints(run, "quorvel-cli: " + OPEN.format("missing") + TWICE,
                              "quorvel-cli: Could not be read: missing")


class RefusedHitLists(EndToEndTest):
    def assertRefused(self, name):
        self.write("good.uds", SCALED)
        run = self.compare("--json", "out.json", "--hit-list", name, "good.uds")
        self.assertEqual((run.status, run.out), (3, b""))
        self.assertComplaints(run, f"quorvel-cli: Unable to read Hit list file: {name}", "Nothing was compared.")
        results = self.parse(self.read("out.json"))
        self.assertEqual(results["errors"], [f"Unable to read Hit list file: {name}"])
        self.assertEqual(results["signals"], [])

    def test_missing(self):
        self.assertRefused("missing.hit")

    def test_directory(self):
        os.mkdir(self.folder / "folder")
        self.assertRefused("folder")

    def test_pipe_that_nobody_writes(self):
        os.mkfifo(self.folder / "pipe")
        self.assertRefused("pipe")

    def test_endless_device(self):
        self.assertRefused("/dev/zero")


class StoppedRuns(EndToEndTest):
    def test_only_the_json_is_written(self):
        run = self.compare("--json", "out.json", "--html", "out.html", "--csv", "out.csv", "--ascii", "ascii", "--uds",
                           "uds", "--pages", "missing.uds")
        self.assertEqual((run.status, run.out), (3, b""))
        self.assertEqual(self.names(), ["out.json"])
        results = self.parse(self.read("out.json"))
        self.assertEqual(results["errors"], [OPEN.format("missing.uds")] * 2)
        self.assertEqual(results["pages"], [])
        self.assertEqual(results["reference"]["pointCount"], 0)
        self.assertEqual(results["reference"]["path"], "")

    def test_old_outputs_stay(self):
        self.write("out.html", b"old")
        self.assertEqual(self.compare("--html", "out.html", "missing.uds").status, 3)
        self.assertEqual(self.read("out.html"), b"old")

    def test_json_can_go_to_standard_output(self):
        run = self.compare("--json", "-", "missing.uds")
        self.assertEqual(run.status, 3)
        self.assertEqual(self.parse(run.out)["signals"], [])

    def test_csv_on_standard_output_is_not_written(self):
        run = self.compare("--csv", "-", "missing.uds")
        self.assertEqual((run.status, run.out), (3, b""))

    def test_a_signal_that_cannot_be_cut_is_named_and_all_are_tried(self):
        self.write("a", uds(SCALED))
        self.write("b", uds(SCALED))
        run = self.compare("--json", "out.json", "--window", "50", "60", "a", "b")
        self.assertEqual((run.status, run.out), (3, b""))
        self.assertComplaints(run, "quorvel-cli: a: No X or Y Signal Data", "quorvel-cli: b: No X or Y Signal Data",
                              "Nothing was compared.")
        self.assertEqual(self.parse(self.read("out.json"))["errors"],
                         ["a: No X or Y Signal Data", "b: No X or Y Signal Data"])

    def test_an_unread_reference_keeps_its_path_in_the_results(self):
        self.write("a", SCALED)
        results = self.results("--reference", "missing", "a", status=3)
        self.assertEqual(results["reference"]["path"], "missing")
        self.assertEqual(results["reference"]["pointCount"], 0)
        self.assertEqual(results["errors"], [])
        self.assertEqual(results["referenceErrors"], [OPEN.format("missing")] * 2)

    def test_a_missing_file_that_is_named_twice_is_complained_of_once(self):
        run = self.compare("missing", "missing")
        self.assertEqual(run.status, 3)
        self.assertComplaints(run, "quorvel-cli: " + OPEN.format("missing") + " (4 times)",
                              "quorvel-cli: Could not be read: missing (2 times)", "Nothing was compared.")

    def test_a_name_that_is_not_utf8_is_in_the_complaint_byte_for_byte(self):
        run = self.compare(b"missing\xff\x1b[2J")
        self.assertEqual(run.status, 3)
        self.assertIn(b"Failure to open file: missing\xff\x1b[2J for reading. (2 times)\n", run.err)


class Locale(EndToEndTest):
    def test_the_users_locale_has_no_say(self):
        self.write("a", SCALED)
        self.write("r", REFERENCE)
        arguments = [CLI, "compare", "--reference", "r", "--corridor", "1.5", "--json", "-", "a"]
        outputs = {subprocess.run(arguments, cwd=self.folder, env={**os.environ, "LC_ALL": name}, check=True,
                                  capture_output=True).stdout for name in ["C", "de_DE.UTF-8", "C.UTF-8"]}
        self.assertEqual(len(outputs), 1)


if __name__ == "__main__":
    unittest.main()
