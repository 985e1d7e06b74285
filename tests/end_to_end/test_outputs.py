"""Outputs: their bytes, and what happens when they cannot be written."""

import os
import resource
import subprocess
import unittest

from support import HEADERS, SCALED, SCALED_COLUMNS, SCALED_VERDICTS, EndToEndTest, ScaledTest

COLORS = {"none": "", "good": 'bgcolor="#00E000" ', "bad": 'bgcolor="#E00000" '}


def html(rows):
    """The report; each row is a list of (text, verdict)."""
    lines = ["<html>\n", "<head><title> Quorvel</title></head>\n", "<body>\n", "<h1>Quorvel</h1> ",
             '<CENTER>\n<TABLE BORDER=3 CELLPADDING=3 WIDTH="90%" >\n', "<TR ALIGN=CENTER VALIGN=CENTER>\n"]
    lines += [f"\t<TD><B>{header}</B></TD>\n" for header in HEADERS] + ["</TR>\n"]
    for row in rows:
        lines += ["<TR ALIGN=CENTER VALIGN=CENTER>\n"]
        lines += [f"\t<TD {COLORS[verdict]}>{text}</TD>\n" for text, verdict in row] + ["</TR>\n"]
    lines += ["</TABLE> </CENTER> ", "</body> ", "</html> "]
    return "".join(lines).replace("\n", "\r\n").encode("ascii")


class Bytes(ScaledTest):
    def test_html_report(self):
        run = self.compare_scaled("--html", "out.html")
        self.assertEqual(run.status, 0)
        self.assertEqual(self.read("out.html"), html([list(zip(SCALED_COLUMNS, SCALED_VERDICTS))]))

    def test_html_report_of_a_name_with_markup(self):
        name = "<b>&\u00e9\".uds"
        self.write(name, SCALED)
        run = self.compare("--reference", "reference.uds", "--corridor", "1.5", "--html", "out.html", name)
        self.assertEqual(run.status, 0)
        shown = ["&lt;b&gt;&amp;&#233;&quot;.uds"] + SCALED_COLUMNS[1:]
        self.assertEqual(self.read("out.html"), html([list(zip(shown, SCALED_VERDICTS))]))

    def test_csv(self):
        run = self.compare_scaled("--csv", "-")
        self.assertEqual((run.status, run.err), (0, b""))
        self.assertEqual(run.out, (",".join(HEADERS) + "\r\n" + ",".join(SCALED_COLUMNS) + "\r\n").encode())

    def test_csv_with_a_comma_in_a_name(self):
        name = 'a,"b".uds'
        self.write(name, SCALED)
        self.assertEqual(self.compare("--csv", "out.csv", "--quiet", name).status, 0)
        self.assertTrue(self.read("out.csv").split(b"\r\n")[1].startswith(b'"a,""b"".uds",6.0,'))

    def test_csv_keeps_bytes_that_are_not_utf8(self):
        self.write(b"\xff.uds", SCALED)
        run = self.compare(b"--csv", b"-", b"\xff.uds")
        self.assertTrue(run.out.split(b"\r\n")[1].startswith(b"\xff.uds,6.0,"))

    def test_an_output_on_standard_output_replaces_the_table(self):
        run = self.compare_scaled("--csv", "-", "--json", "out.json", "--html", "out.html")
        self.assertEqual(run.status, 0)
        self.assertTrue(run.out.startswith(b"Filename,"))
        self.assertNotIn(b"Reference", run.out)
        self.assertEqual(self.names(), ["out.html", "out.json", "reference.uds", "scaled.uds"])

    def test_quiet_prints_only_what_is_asked_for(self):
        run = self.compare_scaled("--quiet", "--csv", "-")
        self.assertTrue(run.out.startswith(b"Filename,"))
        run = self.compare_scaled("--quiet")
        self.assertEqual((run.status, run.out, run.err), (0, b"", b""))

    def test_verbose_tells_of_points_and_warnings(self):
        run = self.compare_scaled("--verbose", "--cfc", "60")
        self.assertEqual(run.status, 0)
        self.assertIn("Reference reference.uds: 5 points, step 0.5 SECONDS, in G'S\n", run.complaints)
        self.assertIn("Compared scaled.uds: 5 points, step 0.5 SECONDS, in G'S\n", run.complaints)
        results = self.scaled_results("--cfc", "60")
        for warning in results["signals"][0]["warnings"] + results["reference"]["warnings"]:
            self.assertIn(f"  warning: {warning}\n", run.complaints)


# The step of the files is longer than the offsets of the page.
PAGE = "quorvel-cli: Page 11 (Cross Correlation): Start Index (0)is >= Stop Index (0)"


class Failures(ScaledTest):
    def test_the_others_are_written(self):
        run = self.compare_scaled("--html", "missing/out.html", "--csv", "out.csv", "--json", "missing/out.json")
        self.assertEqual(run.status, 4)
        self.assertComplaints(
            run, "quorvel-cli: The HTML report could not be written; the file cannot be opened for writing: "
            "missing/out.html",
            "quorvel-cli: The JSON results could not be written; the file cannot be opened for writing: "
            "missing/out.json")
        self.assertTrue(self.read("out.csv").startswith(b"Filename,"))
        self.assertIn("Peak Value", run.text)

    def test_pages_go_to_the_json_before_its_sentence(self):
        run = self.compare_scaled("--quiet", "--json", "missing/out.json", "--pages", "--uds", "scaled.uds/folder")
        self.assertEqual(run.status, 4)
        self.assertComplaints(run, "quorvel-cli: The folder could not be made: scaled.uds/folder", PAGE,
                              "quorvel-cli: The JSON results could not be written; the file cannot be opened for "
                              "writing: missing/out.json")

    def test_the_json_may_be_in_a_folder_made_for_the_pages(self):
        run = self.compare_scaled("--quiet", "--json", "made/out.json", "--pages", "--ascii", "made")
        self.assertEqual(run.status, 0)
        self.assertComplaints(run, PAGE)
        self.assertEqual(self.read("made/out.json"), self.compare_scaled("--pages", "--json", "-").out)
        self.assertEqual([name for name in os.listdir(self.folder / "made") if not name.startswith("page-")],
                         ["out.json"])

    def test_pages_on_a_full_device(self):
        self.write("out.json", b"old")
        run = self.compare_scaled("--json", "/dev/full", "--quiet", "--pages")
        self.assertComplaints(run, PAGE, "quorvel-cli: The JSON results could not be written in full: /dev/full")

        def limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000))

        run = self.compare_scaled("--json", "out.json", "--quiet", "--pages", preexec_fn=limit)
        self.assertEqual(run.status, 4)
        self.assertComplaints(run, PAGE, "quorvel-cli: The JSON results could not be written in full: out.json")
        self.assertEqual(self.read("out.json"), b"old")
        self.assertEqual(self.names(), ["out.json", "reference.uds", "scaled.uds"], "no temporary file")

    def test_a_folder_is_no_target(self):
        os.mkdir(self.folder / "folder")
        run = self.compare_scaled("--csv", "folder")
        self.assertEqual(run.status, 4)
        self.assertComplaints(run, "quorvel-cli: The CSV table could not be written; the file cannot be opened for "
                              "writing: folder")

    def test_an_old_file_is_intact_when_writing_fails_on_the_way(self):
        self.write("out.html", b"old")

        def limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000))

        run = self.compare_scaled("--html", "out.html", "--csv", "out.csv", preexec_fn=limit)
        self.assertEqual(run.status, 4)
        self.assertComplaints(run, "quorvel-cli: The HTML report could not be written in full: out.html")
        self.assertEqual(self.read("out.html"), b"old")
        self.assertTrue(self.read("out.csv").startswith(b"Filename,"))
        self.assertEqual(self.names(), ["out.csv", "out.html", "reference.uds", "scaled.uds"], "no temporary file")

    def test_a_full_device(self):
        run = self.compare_scaled("--json", "/dev/full", "--quiet")
        self.assertEqual(run.status, 4)
        self.assertComplaints(run, "quorvel-cli: The JSON results could not be written in full: /dev/full")

    def test_standard_output_on_a_full_device(self):
        with open("/dev/full", "wb") as full:
            for options in [[], ["--json", "-"], ["--csv", "-"]]:
                run = self.compare_scaled("--html", "out.html", *options, stdout=full)
                self.assertEqual(run.status, 4, options)
                self.assertComplaints(run, "quorvel-cli: Standard output could not be written: No space left on device")
                self.assertTrue(self.read("out.html").startswith(b"<html>"))
                os.remove(self.folder / "out.html")

    def test_help_on_a_full_device(self):
        with open("/dev/full", "wb") as full:
            self.assertEqual(self.run_cli("--help", stdout=full).status, 4)

    def test_a_pipe_closed_by_its_reader(self):
        read_end, write_end = os.pipe()
        os.close(read_end)
        try:
            run = self.compare_scaled("--html", "out.html", stdout=write_end)
        finally:
            os.close(write_end)
        self.assertEqual(run.status, 4)
        self.assertComplaints(run, "quorvel-cli: Standard output could not be written: Broken pipe")
        self.assertTrue(self.read("out.html").startswith(b"<html>"))

    def test_an_unwritable_folder(self):
        os.mkdir(self.folder / "closed")
        self.write("closed/old.csv", b"old")
        os.chmod(self.folder / "closed", 0o555)
        os.chmod(self.folder / "closed/old.csv", 0o444)
        os.chmod(self.folder, 0o755)
        options = {"user": 65534, "group": 65534, "extra_groups": []} if os.geteuid() == 0 else {}
        try:
            new = self.compare_scaled("--quiet", "--csv", "closed/new.csv", **options)
            old = self.compare_scaled("--quiet", "--csv", "closed/old.csv", **options)
            page = self.compare_scaled("--quiet", "--ascii", "closed/pages", **options)
        except PermissionError:
            self.skipTest("the tool cannot be started by another user here")
        finally:
            os.chmod(self.folder / "closed", 0o755)
        self.assertEqual((new.status, old.status, page.status), (4, 4, 4))
        self.assertComplaints(page, "quorvel-cli: The folder could not be made: closed/pages")
        self.assertEqual(os.listdir(self.folder / "closed"), ["old.csv"])
        self.assertEqual(self.read("closed/old.csv"), b"old")

    def test_a_link_is_followed(self):
        self.write("target.csv", b"old")
        os.symlink("target.csv", self.folder / "link.csv")
        self.assertEqual(self.compare_scaled("--quiet", "--csv", "link.csv").status, 0)
        self.assertTrue(self.read("target.csv").startswith(b"Filename,"))
        self.assertTrue((self.folder / "link.csv").is_symlink())


class ManySignals(EndToEndTest):
    def test_a_thousand_files(self):
        self.write("a", SCALED)
        self.write("list.hit", b"a\r\n" * 1000)
        run = self.compare("--hit-list", "list.hit", "--csv", "-", stderr=subprocess.PIPE)
        self.assertEqual(run.status, 0)
        self.assertEqual(run.out.count(b"\r\n"), 1001)


if __name__ == "__main__":
    unittest.main()
