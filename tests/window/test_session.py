"""A whole session in a real window: choose files, read the table, look at every page, change the limits, export the
results, and quit. What the window says is checked against the command line."""

import configparser
import json
import subprocess
from html.parser import HTMLParser

import window_test
from accessible import FocusWatch
from pictures import Metafile, read_bitmap, read_png
from program import click, clipboard, press_keys
from waiting import wait_until
from window_test import HEADERS, Results, WindowTest, chart_description, run_cli

REFERENCE = "examples/sled/s01001aa0.001"
SLED = [f"examples/sled/s0100{number}aa0.{'txt' if number == 7 else '001'}" for number in range(2, 8)]
OPTIONS = ["--cfc", "180", "--window", "0", "0.15"]

# In the order of the page selector. The corridor is the page that is exported; later pages cut the signals permanently.
ALL_PAGES = ["Acceleration", "Velocity", "Displacement", "Corridor", "Standard Deviation", "90 Percentile Corridor",
             "Residuals", "Cummulative Density", "Cross Correlation"]

SAVE_CHART = [("Save", "Bmp"), ("Save", "Wmf"), ("Print...",)]


class Session(WindowTest):
    def test_from_start_to_exit(self):
        self.program = self.start()
        self.files = [str(self.folder / file) for file in SLED[:2]] + SLED[2:]
        self.options = ["--reference", str(self.folder / REFERENCE), *OPTIONS]
        self.results = Results(self.folder, self.files, *self.options)
        self.results.write_pages(self.folder / "expected")

        self.the_dialog_insists_on_reference_and_signals()
        self.pick_files()
        self.compare()
        self.read_table()
        self.copy_data()
        self.save_html()
        self.visit_pages(ALL_PAGES[:4])
        self.point_at_the_chart()
        self.copy_chart()
        self.save_pictures()
        self.print_chart()
        self.save_ascii()
        self.save_series()
        self.visit_pages(ALL_PAGES[4:])
        self.change_critical_values()
        self.change_corridor_size()
        self.look_into_a_loaded_file()
        self.ask_for_context_menus()
        self.hide_and_show_the_status_bar()
        self.leave()

    # Choosing what to compare.

    def the_dialog_insists_on_reference_and_signals(self):
        select = self.program.dialog("Select Uds Files")
        self.assertEqual(select.nameless(), [])
        ok = select.get("push button", "OK")
        reference = select.get("text", "Reference file")
        select.get("push button", "Browse for the reference file").take_focus()
        ok.act()
        wait_until(lambda: reference.has("focused"), "the reference had the focus")

        reference.set_text(REFERENCE)
        ok.act()
        self.program.answer_message("You must select at least one signal")
        reference.set_text("")

    def pick_files(self):
        select = self.program.dialog("Select Uds Files")
        self.add_files()
        listed = select.get("list", "Signals to be Evaluated")
        self.assertEqual(names(listed), self.files[:2])

        self.read_hit_list(self.program, "examples/sled/sled.hit")
        self.assertEqual(names(listed), self.files[:2] + SLED)

        # The first two of the hit list are already there.
        for item in listed.children[2:4]:
            item.act("Toggle")
            wait_until(lambda item=item: item.has("selected"), f"{item!r} was selected")
        select.get("push button", "Remove").act()
        wait_until(lambda: names(listed) == self.files, "the two were removed")

        select.get("push button", "Browse for the reference file").act()
        self.program.pick("Select Reference Uds File", self.folder / REFERENCE)
        self.assertEqual(select.get("text", "Reference file").text, str(self.folder / REFERENCE))

    def add_files(self):
        self.program.dialog("Select Uds Files").get("push button", "Add Files ...").act()
        picker = self.program.dialog("Select Uds File(s) to Evaluate")
        kind = picker.get("combo box", "UDS Force Data (*fa0.*)")
        kinds = kind.get("list")
        kind.act("ShowMenu")
        wait_until(lambda: kinds.has("showing"), "the data types were listed")
        press_keys("Home", "Return")
        wait_until(lambda: kind.name == "UDS Acceleration Data (*aa0.*)", "the data type had changed")
        self.program.pick("Select Uds File(s) to Evaluate", *[self.folder / file for file in SLED[:2]])

    def compare(self):
        select = self.program.dialog("Select Uds Files")
        channel_filter = select.get("check box", "Filter all signals prior to analysis -->")
        self.assertTrue(channel_filter.has("checked"))
        channel_filter.take_focus()
        channel_class = select.get("combo box", "CFC60")
        self.program.keys(select, "Tab")
        wait_until(lambda: channel_class.has("focused"), "the channel frequency class had the focus")
        self.program.keys(select, "Down")
        wait_until(lambda: channel_class.name == "CFC180", "the channel frequency class had changed")

        longest = select.get("text", "Max Time")
        self.assertFalse(longest.has("enabled"))
        select.get("check box", "Trancate all signals -->").set_checked(True)
        self.assertEqual(longest.text, "0.30000001192092896")
        longest.set_text("0.15")
        self.program.close("Select Uds Files", "OK")
        self.program.wait_status("6 signals were compared.")

    # The summary.

    def read_table(self):
        self.assertEqual(self.program.window.nameless(), [])
        wait_until(lambda: self.program.table().has("focused"), "the table had the focus")
        self.assertEqual(self.program.table().headers[:len(HEADERS)], HEADERS)
        self.assertEqual(self.program.cells(), self.results.accessible_cells())
        verdicts = {verdict for row in self.results.rows for _, verdict in row}
        self.assertEqual(verdicts, {"none", "good", "bad"})

        self.assertEqual([page["name"] for page in self.results.pages], ["Summary", *ALL_PAGES])
        self.assertEqual(self.program.pages(), ["Summary", *ALL_PAGES])
        self.assertEqual(self.program.page(), "Summary")
        self.assert_enabled("File", {("Save", "HTML"): True, **dict.fromkeys(SAVE_CHART, False)})
        self.assert_enabled("Edit", {("Copy",): True, ("Copy Data",): True})

    def copy_data(self):
        self.program.choose("Edit", "Copy Data")
        self.program.wait_status("The table was copied to the clipboard.")
        self.assertEqual(clipboard("UTF8_STRING"), self.results.copied_data())

    def save_html(self):
        path = self.folder / "report.html"
        self.program.choose("File", "Save", "HTML")
        self.program.save("Save Results to HTML File", path)
        self.program.wait_status(f"The report was saved as {path}.")
        header, *rows = HtmlTable(path.read_text(encoding="ascii")).rows
        self.assertEqual(header, [(text, "none") for text in HEADERS])
        self.assertEqual(rows, [[tuple(cell) for cell in row] for row in self.results.rows])

    # The chart pages.

    def visit_pages(self, pages):
        for name in pages:
            self.program.choose_page(name)
            self.assertEqual(self.program.chart().description, chart_description(self.results.page(name)))
            self.assert_enabled("File", {("Save", "HTML"): False, ("Save", "UDS"): True, ("Save", "ASCII"): True,
                                         ("Print Preview",): False, **dict.fromkeys(SAVE_CHART, True)})
            self.assert_enabled("Edit", {("Copy",): True, ("Copy Data",): False})

    def point_at_the_chart(self):
        self.assertRegex(self.program.point_at_chart(), r"^X: 0\.\d+   Y: -?\d+(\.\d+)?$")
        self.program.choose_page("Summary")
        self.assertEqual(self.program.readout(), "")
        self.program.choose_page("Corridor")

    def copy_chart(self):
        self.program.choose("Edit", "Copy")
        self.program.wait_status("The plot was copied to the clipboard.")
        targets = clipboard("TARGETS").decode().split("\n")
        for target in ["image/png", "image/x-wmf", 'application/x-openoffice-wmf;windows_formatname="Image WMF"']:
            self.assertIn(target, targets)
        self.check_metafile(clipboard("image/x-wmf"))
        self.assertEqual(clipboard(targets[targets.index("image/x-wmf")]),
                         clipboard('application/x-openoffice-wmf;windows_formatname="Image WMF"'))
        read_png(clipboard("image/png")).assert_drawn_on_white()

    def save_pictures(self):
        bitmap, metafile, drawn = (self.folder / name for name in ["chart.bmp", "chart.wmf", "drawn.png"])
        self.program.choose("File", "Save", "Bmp")
        self.program.save("Save Bitmap as", bitmap)
        self.program.wait_status(f"The plot was saved as {bitmap}.")
        picture = read_bitmap(bitmap.read_bytes())
        self.assertEqual(picture.size, (800, 600))
        picture.assert_drawn_on_white()

        self.program.choose("File", "Save", "Wmf")
        self.program.save("Save Metafile as", metafile)
        self.program.wait_status(f"The plot was saved as {metafile}.")
        self.check_metafile(metafile.read_bytes())
        subprocess.run(["wmf2gd", "-t", "png", "-o", drawn, metafile], check=True, capture_output=True,
                       timeout=window_test.HANG_GUARD_S)
        read_png(drawn.read_bytes()).assert_drawn_on_white()

    def check_metafile(self, data):
        metafile = Metafile(data)
        self.assertEqual((metafile.width, metafile.height), (10000, 5000))
        page = self.results.page("Corridor")
        self.assertEqual([series["name"] for series in page["series"]][:2], ["Plus 4", "Minus 4"])
        for text in [page["xTitle"], page["yTitle"], *(series["name"] for series in page["series"])]:
            self.assertIn(text, metafile.texts)
        self.assertGreater(metafile.point_count, 100 * len(page["series"]))

    def print_chart(self):
        path = self.folder / "chart.pdf"
        self.program.choose("File", "Print...")
        self.program.dialog("Print").get("text", "Output file:").set_text(str(path))
        self.program.close("Print", "Print")
        self.program.wait_status("The plot was printed.")
        printed = subprocess.run(["pdftotext", path, "-"], check=True, capture_output=True, text=True,
                                 timeout=window_test.HANG_GUARD_S).stdout
        page = self.results.page("Corridor")
        for text in [page["xTitle"], *(series["name"] for series in page["series"])]:
            self.assertIn(text, printed)

    def save_ascii(self):
        path = self.folder / "saved.txt"
        self.program.choose("File", "Save", "ASCII")
        self.program.save("Save ASCII data As", path)
        self.wait_written(path)
        page = self.results.page("Corridor")
        self.assertEqual(path.read_bytes(), (self.folder / f"expected/page-{page['id']}.txt").read_bytes())

    def save_series(self):
        """One dialog per curve; the third is canceled, which leaves out only its curve."""
        page = self.results.page("Corridor")
        self.program.choose("File", "Save", "UDS")
        saved = {}
        for number, series in enumerate(page["series"], 1):
            path = self.folder / f"saved-{number}.uds"
            if number == 3:
                self.program.close(f"Save {series['name']} as", "Cancel")
            else:
                self.program.save(f"Save {series['name']} as", path)
                saved[number] = path
        for number, path in saved.items():
            self.wait_written(path)
            self.assertEqual(path.read_bytes(),
                             (self.folder / f"expected/page-{page['id']}-{number}.uds").read_bytes())
            shown, = show(self.folder, path)["files"]
            y = page["series"][number - 1]["y"]
            extrema = {entry["label"]: float(entry["value"]) for entry in shown["groups"][-1]["entries"]}
            self.assertEqual(shown["pointCount"], len(y))
            self.assertAlmostEqual(extrema["YMax:"], max(y), delta=1e-5)
            self.assertAlmostEqual(extrema["YMin:"], min(y), delta=1e-5)
        self.assertFalse((self.folder / "saved-3.uds").exists())

    # The limits.

    def change_critical_values(self):
        self.program.choose_page("Summary")
        self.program.choose("Edit", "Critical Values")
        dialog = self.program.dialog("Edit Critical Values")
        self.assertEqual(dialog.nameless(), [])
        shown = {name: dialog.get("text", name).text for name in
                 ["Average Residual", "Standard Deviation", "Less than … % outside 4 G corridor", "Correlation Factor",
                  "T Statistic", "Moment Differences"]}
        self.assertEqual(list(shown.values()), ["5", "20", "0.1", "0.05", "2.58", "0.2"])
        dialog.get("text", "Average Residual").set_text("5 %")
        dialog.get("push button", "OK").act()
        self.program.close("Error", "OK")
        dialog.get("text", "Average Residual").set_text("0.5")
        dialog.get("text", "Moment Differences").set_text("0.01")
        self.program.close("Edit Critical Values", "OK")

        self.options += ["--critical", "residual=0.5", "--critical", "moment=0.01"]
        stricter = Results(self.folder, self.files, *self.options)
        self.assertNotEqual(stricter.rows, self.results.rows)
        self.limits = {"Avg Residual": "below 0.5 % of the reference peak",
                       **{header: "below 0.01" for header in HEADERS if header.endswith("Moment Difference")}}
        self.wait_cells(stricter)

    def change_corridor_size(self):
        """The next run uses the new size."""
        before = self.program.cells()
        self.program.choose("Edit", "Corridor Size")
        size = self.program.dialog("Enter Corridor Size").get("text", "Corridor size")
        self.assertEqual(size.text, "4")
        size.set_text("0")
        self.program.dialog("Enter Corridor Size").get("push button", "OK").act()
        self.program.answer_message("You must enter a positive Value for the corridor Size")
        size.set_text("2.5")
        self.program.close("Enter Corridor Size", "OK")
        self.assertEqual(self.program.cells(), before)

        self.program.choose("File", "Select Files...")
        select = self.program.dialog("Select Uds Files")
        self.assertEqual(names(select.get("list", "Signals to be Evaluated")), self.files)
        self.assertEqual(select.get("text", "Reference file").text, str(self.folder / REFERENCE))
        select.get("combo box", "CFC180")
        self.assertTrue(select.get("check box", "Trancate all signals -->").has("checked"))
        select.get("text", "Max Time").set_text("0.15")  # the dialog always offers its own times
        self.program.close("Select Uds Files", "OK")

        self.results = Results(self.folder, self.files, *self.options, "--corridor", "2.5")
        self.wait_cells(self.results)
        self.assertNotEqual(self.program.cells(), before)
        page = self.results.page("Corridor")
        self.assertEqual([series["name"] for series in page["series"]][:2], ["Plus 2.5", "Minus 2.5"])
        self.program.choose_page("Corridor")
        self.assertEqual(self.program.chart().description, chart_description(page))
        self.program.choose_page("Summary")

    # Other windows and menus.

    def look_into_a_loaded_file(self):
        """By the keys of the menu: the third of the loaded files, after the reference and the first signal."""
        file_menu = self.program.entry("File")
        loaded = self.program.entry("File", "UDS Specification of")
        self.program.keys(self.program.window, "alt+f")
        wait_until(lambda: file_menu.children[0].has("showing"), "the File menu was open")
        press_keys("o")
        wait_until(lambda: loaded.children[0].has("showing"), "the loaded files were listed")
        self.assertEqual(names(loaded.children[0]), [f"{number} {path}" for number, path in
                                                     enumerate([str(self.folder / REFERENCE), *self.files], 1)])
        press_keys("3")
        self.check_sheet("s01003aa0.001", self.files[1])

    def check_sheet(self, name, path):
        """Every field of the sheet says what the command line shows; then the sheet is closed."""
        sheet = self.program.dialog(f"UDS File Specification - {name}")
        self.assertEqual(sheet.nameless(), [])
        shown, = show(self.folder, path)["files"]
        expected = {f"{group['title']}, {entry['label'].rstrip(':')}": f"{entry['value']} {entry['unit']}".rstrip()
                    for group in shown["groups"] for entry in group["entries"]}
        fields = {node.name: node.text for node in sheet.walk() if node.role == "text"}
        self.assertEqual(fields["Test, Test Number"], "1001")
        self.assertEqual(fields["Curve, Number of Points"], "2151")
        self.assertGreater(len(fields), 50)
        for field, text in fields.items():
            self.assertEqual(text, expected.get(field, ""), field)
        self.program.close(f"UDS File Specification - {name}", "Close")

    def ask_for_context_menus(self):
        with FocusWatch() as focus:
            click(self.program.table().cell(1, 1).center, 3)
            press_keys("Up")
            last = wait_until(lambda: focus.last("menu item"), "an entry of the context menu was chosen")
            self.assertEqual(names(last.parent), ["Cut", "Copy", "Paste", "", "UDS Speification"])
            self.assertEqual([entry.has("enabled") for entry in last.parent.children if entry.name],
                             [False, True, False, True])
            self.assertEqual(last.name, "UDS Speification")
        press_keys("Return")
        self.check_sheet("s01003aa0.001", self.files[1])

        self.program.choose_page("Velocity")
        with FocusWatch() as focus:
            self.program.chart().take_focus()
            self.assertNotEqual(self.program.status, "The plot was copied to the clipboard.")
            self.program.keys(self.program.window, "Menu", "Down")
            last = wait_until(lambda: focus.last("menu item"), "an entry of the context menu was chosen")
            self.assertEqual(last.name, "Copy")
        press_keys("Return")
        self.program.wait_status("The plot was copied to the clipboard.")

    def hide_and_show_the_status_bar(self):
        for is_shown in (False, True):
            self.program.choose("View", "Status Bar")
            wait_until(lambda is_shown=is_shown: self.program.window.get("status bar").has("showing") ==
                                   is_shown, "the status bar had changed")
            self.assertEqual(self.program.entry("View", "Status Bar").has("checked"), is_shown)

    def leave(self):
        self.assertEqual(self.program.recent_files(), [f"1 {self.folder / 'examples/sled/sled.hit'}"])
        self.program.choose("File", "Exit")
        self.assertEqual(self.program.end_status(), 0)

        store = configparser.ConfigParser(interpolation=None)
        store.optionxform = str
        store.read(self.program.settings_folder / "Ostrel Crashworthiness/Quorvel.conf", encoding="utf-8")
        sled = f"{self.folder}/examples/sled/"
        self.assertEqual(dict(store["Settings"]), {
            "AsciiOutputDir": f"{self.folder}/", "DataType": "1", "HitlistDir": sled, "InputDir": sled,
            "ReferenceDir": sled, "ReferenceType": "0", "UdsOutputDir": f"{self.folder}/"})

    # Checks and waits that several steps share.

    def assert_enabled(self, menu, states):
        for command, is_enabled in states.items():
            self.assertEqual(self.program.is_enabled(menu, *command), is_enabled, command)

    def wait_cells(self, results):
        expected = results.accessible_cells(self.limits)
        try:
            wait_until(lambda: self.program.cells() == expected, "the table had changed")
        finally:
            self.assertEqual(self.program.cells(), expected)

    def wait_written(self, path):
        """A file appears under its name when it is complete."""
        wait_until(path.exists, f"{path} was written")


class Average(WindowTest):
    def test_force_signals_with_their_average(self):
        """Signals that are not accelerations have their own page instead of three others."""
        program = self.start()
        select = self.read_hit_list(program, "examples/force/force.hit")
        reference = select.get("text", "Reference file")
        self.assertTrue(reference.has("enabled"))
        select.get("radio button", "Compare to Average").set_checked(True)
        wait_until(lambda: not reference.has("enabled"), "the reference could not be chosen")
        program.close("Select Uds Files", "OK")
        program.wait_status("3 signals were compared.")

        files = (self.folder / "examples/force/force.hit").read_text().split()
        results = Results(self.folder, files, "--cfc", "60")
        self.assertEqual(program.cells(), results.accessible_cells())
        self.assertEqual(program.pages(), ["Summary", "Input Data", *ALL_PAGES[3:]])
        for page in results.pages[1:]:
            program.choose_page(page["name"])
            self.assertEqual(program.chart().description, chart_description(page))

        program.keys(program.window, "ctrl+q")
        self.assertEqual(program.end_status(), 0)


class HtmlTable(HTMLParser):
    """The rows of the one table of a page: texts, and verdicts by the colors of the cells."""

    VERDICTS = {None: "none", "#00E000": "good", "#E00000": "bad"}

    def __init__(self, text):
        super().__init__()
        self.rows, self._open = [], []
        self.feed(text)
        self.close()
        assert self._open == [], f"These are not closed: {self._open}"

    def handle_starttag(self, tag, attributes):
        self._open.append(tag)
        if tag == "tr":
            self.rows.append([])
        elif tag == "td":
            self.rows[-1].append(("", self.VERDICTS[dict(attributes).get("bgcolor")]))

    def handle_endtag(self, tag):
        assert self._open.pop() == tag, f"{tag} is closed, but not open"

    def handle_data(self, data):
        if "td" in self._open:
            text, verdict = self.rows[-1][-1]
            self.rows[-1][-1] = (text + data, verdict)


def names(node):
    return [child.name for child in node.children]


def show(folder, path):
    return json.loads(run_cli(folder, "show", "--json", path))


if __name__ == "__main__":
    window_test.main()
