"""How the program starts and ends, in a real window."""

import os
import subprocess

import window_test
from window_test import Results, WindowTest

EMPTY = "Choose File > Select Files... or drop signal files here to compare them."


class Start(WindowTest):
    def test_with_files_it_opens_an_empty_window_and_no_dialog(self):
        program = self.start("-cfc180", "examples/sled/s01001aa0.001", "examples/sled/s01002aa0.001")
        program.window.shown("label", EMPTY)
        self.assertEqual(program.status, "Ready")

        # A dialog that opens by itself would be there before this one, which is asked for.
        program.choose("Help", "About Quorvel...")
        program.close("About: Quorvel", "OK")
        self.assertEqual(program.window_names(), ["Quorvel"])
        self.assertIsNone(program.window.find("table"))
        self.assertEqual(program.pages(), [])
        for command in [("Save", "Bmp"), ("Save", "Wmf"), ("Save", "HTML"), ("Save", "UDS"), ("Save", "ASCII"),
                        ("Print...",), ("Print Preview",), ("Recent File",)]:
            self.assertFalse(program.is_enabled("File", *command), command)

        program.keys(program.window, "alt+F4")
        self.assertEqual(program.end_status(), 0)

    def test_a_list_file_that_names_nothing_leaves_the_choice_of_files(self):
        program = self.start("-l", "no-such-file.hit")
        program.close("Select Uds Files", "Cancel")
        program.window.shown("label", EMPTY)
        program.keys(program.window, "ctrl+q")
        self.assertEqual(program.end_status(), 0)

    def test_in_german_numbers_keep_their_point(self):
        program = self.start(environment=self.german())
        files = [f"examples/sled/s0100{number}aa0.001" for number in (2, 3)]
        (self.folder / "two.hit").write_text("".join(f"{file}\n" for file in files))
        select = self.read_hit_list(program, "two.hit")
        self.assertEqual(select.get("text", "Max Time").text, "0.30000001192092896")
        select.get("text", "Reference file").set_text("examples/sled/s01001aa0.001")
        select.get("check box", "Trancate all signals -->").set_checked(True)
        select.get("text", "Max Time").set_text("0.15")
        program.close("Select Uds Files", "OK")
        program.wait_status("2 signals were compared.")

        results = Results(self.folder, files, "--reference", "examples/sled/s01001aa0.001", "--cfc", "60", "--window",
                          "0", "0.15")
        self.assertEqual(program.cells(), results.accessible_cells())

        program.choose("Edit", "Critical Values")
        self.assertEqual(program.dialog("Edit Critical Values").get("text", "T Statistic").text, "2.58")
        program.close("Edit Critical Values", "OK")

        program.choose_page("Acceleration")
        self.assertRegex(program.point_at_chart(), r"^X: 0\.\d+   Y: -?\d+(\.\d+)?$")
        program.choose("File", "Save", "ASCII")
        program.save("Save ASCII data As", self.folder / "saved.txt")
        results.write_pages(self.folder / "expected")
        self.assertEqual((self.folder / "saved.txt").read_bytes(), (self.folder / "expected/page-7.txt").read_bytes())

        program.choose("File", "Exit")
        self.assertEqual(program.end_status(), 0)

    def german(self):
        """Makes the German language for this test alone: few machines have it installed."""
        locales = self.folder / "locales"
        locales.mkdir()
        subprocess.run(["localedef", "-i", "de_DE", "-f", "UTF-8", locales / "de_DE.UTF-8"], check=True,
                       timeout=window_test.HANG_GUARD_S)
        environment = {"LOCPATH": str(locales), "LC_ALL": "de_DE.UTF-8", "LANG": "de_DE.UTF-8"}
        point = subprocess.run(["locale", "decimal_point"], env={**os.environ, **environment}, check=True,
                               capture_output=True, text=True, timeout=window_test.HANG_GUARD_S).stdout
        self.assertEqual(point.strip(), ",")
        return environment


if __name__ == "__main__":
    window_test.main()
