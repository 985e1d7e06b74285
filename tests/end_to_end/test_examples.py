"""The bundled examples: every file is read, every page built, and every output agrees with the JSON."""

import csv
import io
import unittest

from support import ACCELERATION_PAGES, HEADERS, OTHER_PAGES, SOURCE, EndToEndTest

SETS = {"sled": ("s01001aa0.001", ["--cfc", "60", "--window", "0", "0.15"], set(ACCELERATION_PAGES)),
        "force": ("f01001fa0.001", ["--corridor", "20000"], set(OTHER_PAGES))}


class Examples(EndToEndTest):
    def setUp(self):
        super().setUp()
        # The hit lists name their files from the top of the tree.
        (self.folder / "examples").symlink_to(SOURCE / "examples")

    def arguments(self, name):
        reference, options, _ = SETS[name]
        return ["--reference", f"examples/{name}/{reference}", "--hit-list", f"examples/{name}/{name}.hit", *options]

    def test_all_ten_chart_pages_come_out(self):
        seen = set()
        for name, (_, _, expected) in SETS.items():
            results = self.results("--pages", *self.arguments(name))
            self.assertEqual({page["id"] for page in results["pages"]}, expected)
            for page in results["pages"]:
                self.assertTrue(page["built"], page["error"])
                self.assertEqual(bool(page["series"]), page["id"] != 1)
            seen |= expected
        self.assertEqual(seen, set(range(1, 12)))

    def test_csv_and_table_show_the_columns_of_the_json(self):
        for name in SETS:
            signals = self.results(*self.arguments(name))["signals"]
            rows = list(csv.reader(io.StringIO(self.compare("--csv", "-", *self.arguments(name)).text, newline="")))
            self.assertEqual(rows, [HEADERS] + [signal["columns"] for signal in signals])
            table = self.compare(*self.arguments(name)).text
            for signal in signals:
                for text in signal["columns"]:
                    self.assertIn(text, table)

    def test_an_average_run_compares_with_the_first_file(self):
        for name in SETS:
            results = self.results("--hit-list", f"examples/{name}/{name}.hit")
            first = results["signals"][0]["path"]
            self.assertEqual({signal["referenceName"] for signal in results["signals"]}, {first})
            self.assertEqual(results["reference"]["path"], first)


if __name__ == "__main__":
    unittest.main()
