"""Chart pages in the JSON, as ASCII tables and as UDS-1992 files."""

import os
import struct
import unittest

from support import OTHER_PAGES, EndToEndTest, read_uds_y, uds

NAMES = {1: "Summary", 2: "Input Data", 3: "Standard Deviation", 4: "Corridor", 5: "90 Percentile Corridor",
         6: "Residuals", 7: "Acceleration", 8: "Velocity", 9: "Displacement", 10: "Cummulative Density",
         11: "Cross Correlation"}


# About an eighth of a millisecond; a power of two, so that resampling to it changes no bit.
STEP = 2.0**-13

# A cell with this value counts as empty, whatever its source.
PADDING = 2.0**-52


def wave(count, factor=1.0):
    return [factor * ((7 * i) % 11 - 5) for i in range(count)]


class Waves(EndToEndTest):
    """Long enough for every page at this step."""

    def setUp(self):
        super().setUp()
        self.write("r", uds(wave(300), STEP))
        self.write("a", uds(wave(300, 1.25), STEP))
        self.write("b", uds(wave(250, 0.5), STEP))

    def pages(self, *options):
        results = self.results("--pages", "--reference", "r", *options, "a", "b")
        return {page["id"]: page for page in results["pages"]}

    def test_they_come_in_the_order_of_the_page_list(self):
        results = self.results("--pages", "--reference", "r", "a", "b")
        self.assertEqual([page["id"] for page in results["pages"]], results["pageList"])
        for page in results["pages"]:
            self.assertEqual(page["name"], NAMES[page["id"]])
            self.assertEqual((page["built"], page["error"]), (True, None))

    def test_counts_are_those_of_the_series(self):
        for page in self.pages().values():
            self.assertEqual(page["seriesCount"], len(page["series"]))
            self.assertEqual(page["pointCount"], max((len(s["x"]) for s in page["series"]), default=0))
            for series in page["series"]:
                self.assertEqual(len(series["x"]), len(series["y"]))

    def test_the_summary_has_no_series(self):
        summary = self.pages()[1]
        self.assertEqual((summary["pointCount"], summary["seriesCount"], summary["series"]), (0, 0, []))

    def test_the_acceleration_page_shows_the_signals(self):
        page = self.pages()[7]
        self.assertEqual([series["name"] for series in page["series"]], ["Reference", "a", "b"])
        self.assertEqual(page["series"][0]["y"], wave(300))
        self.assertEqual(page["series"][1]["y"][:200], wave(200, 1.25))

    def test_the_corridor_page_lies_around_the_reference(self):
        series = {series["name"]: series["y"] for series in self.pages("--corridor", "2.5")[4]["series"]}
        self.assertEqual(series["Plus 2.5"], [y + 2.5 for y in wave(300)])
        self.assertEqual(series["Minus 2.5"], [y - 2.5 for y in wave(300)])

    def test_the_residual_page_shows_the_differences(self):
        residual = self.pages()[6]["series"][0]
        self.assertEqual(residual["name"], "a")
        expected = [0.25 * y for y in wave(300)]
        self.assertEqual(residual["y"], expected[:len(residual["y"])])
        self.assertGreater(len(residual["y"]), 290)

    def test_selecting_pages_does_not_change_the_signals_of_the_results(self):
        without = self.results("--reference", "r", "a", "b")
        with_pages = self.results("--pages", "--reference", "r", "a", "b")
        with_pages.pop("pages")
        self.assertEqual(with_pages, without)

    def test_ascii_tables_hold_the_series_side_by_side(self):
        run = self.compare("--ascii", "out/ascii", "--json", "-", "--pages", "--reference", "r", "a", "b")
        self.assertEqual((run.status, run.err), (0, b""))
        results = self.parse(run.out)
        self.assertEqual(sorted(os.listdir(self.folder / "out/ascii")),
                         sorted(f"page-{page}.txt" for page in results["pageList"]))
        for page in results["pages"]:
            self.assertEqual(self.read(f"out/ascii/page-{page['id']}.txt"), ascii_table(page), page["name"])
        self.assertEqual(self.read("out/ascii/page-1.txt"), b"")

    def test_uds_files_hold_one_series_each(self):
        run = self.compare("--uds", "uds", "--json", "-", "--pages", "--reference", "r", "a", "b")
        self.assertEqual((run.status, run.err), (0, b""))
        expected = set()
        for page in self.parse(run.out)["pages"]:
            for number, series in enumerate(page["series"], 1):
                name = f"page-{page['id']}-{number}.uds"
                expected.add(name)
                written = read_uds_y(self.read(f"uds/{name}"))
                self.assertEqual(len(written), len(series["y"]), name)
                for single, double in zip(written, series["y"]):
                    self.assertAlmostEqual(single, double, delta=abs(double) * 2**-23, msg=name)
        self.assertEqual(set(os.listdir(self.folder / "uds")), expected)
        self.assertGreater(len(expected), 20)

    def test_asking_for_more_changes_nothing_of_the_pages(self):
        alone = self.pages()
        together = self.pages("--ascii", "x", "--uds", "y")
        self.assertEqual(together, alone)

    def test_old_folders_are_used(self):
        os.mkdir(self.folder / "old")
        self.write("old/page-7.txt", b"old")
        self.assertEqual(self.compare("--quiet", "--ascii", "old", "--reference", "r", "a").status, 0)
        self.assertNotEqual(self.read("old/page-7.txt"), b"old")

    def test_series_files_of_an_earlier_run_go_and_no_other_file(self):
        self.assertEqual(self.compare("--quiet", "--uds", "uds", "--reference", "r", "a", "b").status, 0)
        kept = ["page-7-1.UDS", "page-99-1.uds", "page-7-03.uds", "page-7.txt", "page-7-3.uds.bak", "other.uds"]
        for name in kept:
            self.write(f"uds/{name}", b"mine")
        os.symlink("nowhere", self.folder / "uds/page-2-1.uds")
        os.mkdir(self.folder / "uds/page-2-2.uds")
        run = self.compare("--quiet", "--uds", "uds", "--reference", "r", "a")
        self.assertEqual((run.status, run.err), (0, b""))
        names = os.listdir(self.folder / "uds")
        self.assertIn("page-7-2.uds", names)
        self.assertNotIn("page-7-3.uds", names, "of the second signal of the earlier run")
        self.assertNotIn("page-2-1.uds", names, "a link of such a name")
        self.assertTrue(set(kept) | {"page-2-2.uds"} <= set(names))

    def test_an_input_of_such_a_name_is_not_removed(self):
        os.mkdir(self.folder / "uds")
        self.write("uds/page-10-9.uds", uds(wave(300), STEP))
        run = self.compare("--quiet", "--uds", "uds", "--reference", "r", "uds/page-10-9.uds")
        self.assertEqual((run.status, run.err), (0, b""))
        self.assertEqual(self.read("uds/page-10-9.uds"), uds(wave(300), STEP))

    def test_a_run_that_stops_removes_nothing(self):
        os.mkdir(self.folder / "uds")
        self.write("uds/page-7-1.uds", b"old")
        self.assertEqual(self.compare("--quiet", "--uds", "uds", "missing").status, 3)
        self.assertEqual(self.read("uds/page-7-1.uds"), b"old")

    def test_a_folder_that_cannot_be_made_stops_only_its_own_files(self):
        run = self.compare("--quiet", "--ascii", "r/x", "--uds", "uds", "--csv", "out.csv", "--reference", "r", "a")
        self.assertEqual(run.status, 4)
        self.assertComplaints(run, "quorvel-cli: The folder could not be made: r/x")
        self.assertTrue((self.folder / "uds/page-7-1.uds").is_file())
        self.assertTrue((self.folder / "out.csv").is_file())

    def test_a_file_that_cannot_be_written_stops_no_other(self):
        os.makedirs(self.folder / "uds/page-7-1.uds")
        run = self.compare("--quiet", "--uds", "uds", "--reference", "r", "a")
        self.assertEqual(run.status, 4)
        self.assertComplaints(run, "quorvel-cli: The series could not be written: uds/page-7-1.uds: "
                              "Failure to open file for writing.")
        self.assertTrue((self.folder / "uds/page-7-2.uds").is_file())
        self.assertTrue((self.folder / "uds/page-11-1.uds").is_file())


def ascii_table(page):
    """What the ASCII table of a page holds, from the page's series; "%g" writes six significant digits."""
    text = ""
    for row in range(page["pointCount"]):
        for series in page["series"]:
            inside = row < len(series["x"]) and series["x"][row] != PADDING
            x, y = (series["x"][row], series["y"][row]) if inside else (None, None)
            text += f"{number(x)} {number(y)} " if inside else "0.0 0.0 "
        text += "\r\n"
    return text.encode("ascii")


def number(value):
    return "nan" if value is None else "%g" % value


class RefusedSeries(EndToEndTest):
    """A reference of two points, so that a signal cut to it keeps one, which the writer refuses."""

    def test_the_others_are_written(self):
        self.write("r", uds([1.0, 2.0]))
        self.write("a", uds([float(i) for i in range(10)]))
        run = self.compare("--quiet", "--uds", "uds", "--json", "out.json", "--pages", "--reference", "r", "a")
        self.assertEqual(run.status, 4)
        refused = [line for line in run.complaints.splitlines() if "could not be written" in line]
        self.assertTrue(refused)
        for line in refused:
            self.assertRegex(line, r"^quorvel-cli: The series could not be written: uds/page-\d+-\d+\.uds: "
                                   r"Equal array indices, NFP = NLP$")
        self.assertTrue((self.folder / "uds/page-7-1.uds").is_file(), "the reference's two points")
        refused_names = {line.split(": ")[2].split("/")[1] for line in refused}
        self.assertFalse(refused_names & set(os.listdir(self.folder / "uds")))
        self.assertEqual(self.parse(self.read("out.json"))["signals"][0]["measures"]["pointCount"], 1)


class Inputs(EndToEndTest):
    """A measurement may exist only once: no output replaces it."""

    def test_a_series_never_overwrites_a_signal(self):
        (self.folder / "uds").mkdir()
        self.write("uds/page-7-1.uds", uds(wave(300), STEP))
        before = self.read("uds/page-7-1.uds")
        run = self.compare("--quiet", "--uds", "uds", "uds/page-7-1.uds")
        self.assertEqual(run.status, 4)
        self.assertComplaints(run, "quorvel-cli: An output would overwrite an input: uds/page-7-1.uds")
        self.assertEqual(self.read("uds/page-7-1.uds"), before)
        self.assertTrue((self.folder / "uds/page-7-2.uds").is_file())

    def test_a_table_never_overwrites_a_signal(self):
        (self.folder / "ascii").mkdir()
        lines = "".join(f"{i * STEP} {value}\n" for i, value in enumerate(wave(300))).encode()
        self.write("ascii/page-4.txt", lines)
        run = self.compare("--quiet", "--ascii", "ascii", "ascii/page-4.txt")
        self.assertEqual(run.status, 4)
        self.assertIn("An output would overwrite an input: ascii/page-4.txt", run.complaints)
        self.assertEqual(self.read("ascii/page-4.txt"), lines)


class FailedPages(EndToEndTest):
    """A reference whose point numbers do not begin at 0 leaves the cross correlation page without its offsets: the page
    fails, but the run does not."""

    def setUp(self):
        super().setUp()
        self.write("r", uds(wave(300), STEP, nfp=5))
        self.write("a", uds(wave(300, 2.0), STEP, nfp=5))

    MESSAGE = "Unable to provide requested stop/start indices"

    def test_the_page_carries_its_error_and_the_status_stays(self):
        run = self.compare("--json", "-", "--pages", "--reference", "r", "a")
        self.assertEqual(run.status, 0)
        self.assertComplaints(run, f"quorvel-cli: Page 11 (Cross Correlation): {self.MESSAGE}")
        results = self.parse(run.out)
        pages = {page["id"]: page for page in results["pages"]}
        self.assertEqual((pages[11]["built"], pages[11]["error"]), (False, self.MESSAGE))
        self.assertEqual((pages[11]["pointCount"], pages[11]["seriesCount"], pages[11]["series"]), (0, 0, []))
        self.assertEqual(results["errors"], [])
        self.assertTrue(all(page["built"] for page in results["pages"] if page["id"] != 11))

    def test_its_table_is_empty_and_it_has_no_series_files(self):
        run = self.compare("--quiet", "--ascii", "ascii", "--uds", "uds", "--reference", "r", "a")
        self.assertEqual(run.status, 0)
        self.assertEqual(self.read("ascii/page-11.txt"), b"")
        self.assertNotEqual(self.read("ascii/page-10.txt"), b"")
        self.assertFalse([name for name in os.listdir(self.folder / "uds") if name.startswith("page-11-")])
        self.assertTrue((self.folder / "uds/page-10-1.uds").is_file())

    def test_its_empty_table_takes_the_place_of_an_older_one(self):
        os.mkdir(self.folder / "ascii")
        self.write("ascii/page-11.txt", b"old")
        self.assertEqual(self.compare("--quiet", "--ascii", "ascii", "--reference", "r", "a").status, 0)
        self.assertEqual(self.read("ascii/page-11.txt"), b"", "an older one would pass for this run's")

    def test_a_bad_verdict_still_counts(self):
        self.assertEqual(self.compare("--quiet", "--pages", "--fail-on-bad=moment", "--reference", "r", "a").status, 1)


class LostTimes(EndToEndTest):
    """A signal in the form Y, cut from a time before its first sample, is numbered from where the cut began."""

    def test_standard_error_names_the_files_whose_times_are_others(self):
        self.write("r", uds(wave(300), STEP))
        self.write("a", uds(wave(300, 1.25), STEP, x=[i * STEP for i in range(300)]))
        run = self.compare("--quiet", "--window", "-0.015625", "0.03", "--uds", "uds", "--reference", "r", "a")
        self.assertEqual(run.status, 0)
        named = [name for name in sorted(os.listdir(self.folder / "uds"))
                 if f"The times of uds/{name} are not those of its curve." in run.complaints]
        lying = [name for name in sorted(os.listdir(self.folder / "uds")) if self.first_time(f"uds/{name}") == -0.015625]
        self.assertIn("page-7-1.uds", named)
        self.assertEqual(named, lying)
        self.assertEqual(run.complaints.count("The times of "), len(named))
        self.assertIn("quorvel-cli: The times of uds/page-7-1.uds are not those of its curve. The file holds the values "
                      "alone, and point 1, at 0, will be read as at -0.015625.\n", run.complaints)

    def test_a_window_after_the_first_sample_keeps_the_times(self):
        self.write("r", uds(wave(300), STEP))
        run = self.compare("--quiet", "--window", "0.015625", "0.03", "--uds", "uds", "--reference", "r", "r")
        self.assertEqual(run.status, 0)
        self.assertNotIn("The times of", run.complaints)
        self.assertEqual(self.first_time("uds/page-7-1.uds"), 0.015625)

    def first_time(self, name):
        """The time of the first point in the file; none in the form X-Y."""
        content = self.read(name)
        first, _, step = struct.unpack("<iif", content[512 + 278:512 + 290])
        return first * step if content[16:26] == b"Y".ljust(10) else None


class Forces(EndToEndTest):
    def test_a_force_has_the_input_page(self):
        self.write("r", uds(wave(300), STEP, units=b"NEWTONS"))
        self.write("a", uds(wave(300), STEP, units=b"NEWTONS"))
        pages = self.results("--pages", "--reference", "r", "a")["pages"]
        self.assertEqual([page["id"] for page in pages], OTHER_PAGES)
        self.assertEqual(pages[1]["series"][0]["y"], wave(300))


if __name__ == "__main__":
    unittest.main()
