"""quorvel-cli report: the printed report as PDF or, in a build without reports, the sentence that says so."""

import os
import resource
import shutil
import subprocess
import unittest

from header_file import CURVE, FILE_FIELDS, SECOND_FIELDS, header_file, header_values
from support import CLI, REFERENCE, SCALED, EndToEndTest, uds
from test_show import expected_groups

HAS_REPORT = os.environ["QUORVEL_HAS_REPORT"] == "1"

# Groups that only the full report prints.
FULL_ONLY = ["Other File Fields", "Other Test Fields", "Other Vehicle One Fields", "Other Vehicle Two Fields",
             "Other Occupant InJury Fields", "Other Curve Fields", "Other Sensor Fields", "Extrema"]


def short_values():
    """Fields whose texts fit next to their labels, so that none is wrapped."""
    values = header_values()
    for _, width, name in FILE_FIELDS + SECOND_FIELDS + CURVE:
        if width >= 3 and name not in ("FILEFORM", "NUMFORM"):
            values[name] = name[-width:]
    return values


def words(text):
    return " ".join(text.split())


@unittest.skipUnless(HAS_REPORT, "this build has no report")
class Report(EndToEndTest):
    def report(self, *options, pdf="out.pdf", **run_options):
        run = self.run_cli("report", "a.uds", "--pdf", pdf, *options, **run_options)
        self.assertEqual((run.status, run.out, run.err), (0, b"", b""))
        content = self.read(pdf)
        self.assertTrue(content.startswith(b"%PDF-"))
        self.assertTrue(content.rstrip().endswith(b"%%EOF"))
        return content

    def text(self, name="out.pdf"):
        if not shutil.which("pdftotext"):
            self.skipTest("pdftotext is not installed")
        return subprocess.run(["pdftotext", "-raw", name, "-"], cwd=self.folder, check=True,
                              capture_output=True).stdout.decode("utf-8")

    def assertHolds(self, text, groups):
        for title, entries in groups:
            self.assertIn(title, text)
            for label, value, unit in entries:
                self.assertIn(words(f"{label} {value} {unit}"), text)

    def test_no_other_command_loads_the_libraries_of_the_window(self):
        if not shutil.which("readelf"):
            self.skipTest("readelf is not installed")
        needed = subprocess.run(["readelf", "--dynamic", CLI], check=True, capture_output=True).stdout.decode()
        self.assertIn("NEEDED", needed)
        self.assertNotIn("Qt", needed)

    def test_no_screen_is_needed(self):
        self.write("a.uds", SCALED)
        bare = {name: None for name in ["DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"]}
        self.report(environment=bare)

    def test_the_users_desktop_has_no_say(self):
        self.write("a.uds", SCALED)
        self.report(environment={"DISPLAY": ":987", "QT_QPA_PLATFORM": "xcb", "QT_QPA_PLATFORMTHEME": "gtk3",
                                 "XDG_CURRENT_DESKTOP": "GNOME"})

    def test_the_report_has_every_labeled_value(self):
        values = short_values()
        self.write("a.uds", header_file(values))
        self.report()
        text = words(self.text())
        groups = [group for group in expected_groups(values) if group[0] not in FULL_ONLY]
        self.assertHolds(text, groups)
        self.assertIn("UDS File Specification Report", text)
        self.assertIn(f"Test Number: {values['TSTNO']} Curve Number: {values['CURNO']}", text)
        self.assertIn("Page: 1", text)
        self.assertNotIn("IMPANG:", text)

    def test_the_full_report_has_every_value(self):
        values = short_values()
        self.write("a.uds", header_file(values))
        self.report("--full")
        text = words(self.text())
        self.assertHolds(text, expected_groups(values))
        self.assertIn("Full UDS File Report", text)
        self.assertNotIn("UDS File Specification Report", text)

    def test_the_users_locale_has_no_say_in_numbers(self):
        values = short_values()
        self.write("a.uds", header_file(values))
        self.report("--full", environment={"LC_ALL": "de_DE.UTF-8"})
        self.assertHolds(words(self.text()), expected_groups(values))

    def test_an_old_file_is_replaced(self):
        self.write("a.uds", SCALED)
        self.write("out.pdf", b"old")
        self.report()

    def test_names_beyond_ascii(self):
        self.write("a.uds", SCALED)
        self.report(pdf="\u00fcber \u4e2d.pdf")
        self.assertEqual(self.names(), ["a.uds", "\u00fcber \u4e2d.pdf"])


@unittest.skipUnless(HAS_REPORT, "this build has no report")
class Refused(EndToEndTest):
    def assertNotWritten(self, status, *complaints, arguments=("a.uds", "--pdf", "out.pdf"), **options):
        before = self.names()
        run = self.run_cli("report", *arguments, **options)
        self.assertEqual((run.status, run.out), (status, b""))
        self.assertComplaints(run, *complaints)
        self.assertEqual(self.names(), before)

    def test_unreadable_files(self):
        self.write("out.pdf", b"old")
        self.assertNotWritten(3, "quorvel-cli: Failure to open file: a.uds for reading.",
                              "quorvel-cli: Could not be read: a.uds")
        self.write("a.uds", uds(SCALED)[:1024])
        self.assertNotWritten(3, "quorvel-cli: File size too small - Insufficient data points",
                              "quorvel-cli: Could not be read: a.uds")
        self.assertEqual(self.read("out.pdf"), b"old")

    def test_unwritable_outputs(self):
        self.write("a.uds", SCALED)
        os.mkdir(self.folder / "folder")
        for pdf in ["missing/out.pdf", "folder"]:
            self.assertNotWritten(4, "quorvel-cli: The report could not be written; the file cannot be opened for "
                                  f"writing: {pdf}", arguments=["a.uds", "--pdf", pdf])
        self.assertNotWritten(4, "quorvel-cli: The report could not be written in full: /dev/full",
                              arguments=["a.uds", "--pdf", "/dev/full"])

    def test_an_old_file_is_intact_when_writing_fails_on_the_way(self):
        self.write("a.uds", uds(REFERENCE * 200))
        self.write("out.pdf", b"old")
        self.assertNotWritten(4, "quorvel-cli: The report could not be written in full: out.pdf",
                              preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (2000, 2000)))
        self.assertEqual(self.read("out.pdf"), b"old")

    def test_the_input_as_output(self):
        self.write("a.uds", SCALED)
        before = self.read("a.uds")
        self.assertNotWritten(2, "quorvel-cli: An output would overwrite an input: ./a.uds",
                              "Try 'quorvel-cli report --help'.", arguments=["a.uds", "--pdf", "./a.uds"])
        self.assertEqual(self.read("a.uds"), before)


class Usage(EndToEndTest):
    def assertRefused(self, sentence, *arguments):
        before = self.names()
        run = self.run_cli("report", *arguments)
        self.assertEqual((run.status, run.out), (2, b""))
        self.assertComplaints(run, f"quorvel-cli: {sentence}", "Try 'quorvel-cli report --help'.")
        self.assertEqual(self.names(), before)

    def test_wrong_usage(self):
        self.assertRefused("A FILE to report on is needed.", "--pdf", "b")
        self.assertRefused("Only one FILE can be reported on at a time, not also: c", "a", "c", "--pdf", "b")
        self.assertRefused("Option --pdf is needed, with a PATH to write to.", "a", "--full")
        self.assertRefused("Option --pdf needs a PATH to write to.", "a", "--pdf", "--full")
        self.assertRefused("Option --pdf takes a path that is not empty.", "a", "--pdf", "")
        self.assertRefused("Option --pdf takes the path of a file, not standard output (-).", "a", "--pdf", "-")

    @unittest.skipIf(HAS_REPORT, "this build has the report")
    def test_a_build_without_the_desktop_program_says_so(self):
        self.write("a.uds", SCALED)
        for file in ["a.uds", "missing"]:
            self.assertRefused("Reports need a build with the desktop program; this quorvel-cli was built without it.",
                               file, "--pdf", "out.pdf")


if __name__ == "__main__":
    unittest.main()
