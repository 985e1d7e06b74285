#!/usr/bin/env python3
"""Proof that the check of the includes finds what it is for, on trees made up here."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from check_includes import Checker

SCRIPT = Path(__file__).with_name("check_includes.py")

ROWS = {"files/": "std, Boost", "signal/": "`files`", "chart/": "`signal`, Qt",
        "chart/qcustomplot/": "`chart`, Qt, QCustomPlot", "cli/": "`signal`, CLI11", "cli/pdf.cpp": "`cli`, `chart`, Qt",
        "tests/support/": "`signal`, `files`"}


def table(rows):
    lines = [f"| `{row}` | holds this | {allowed} |" for row, allowed in rows.items()]
    return "\n".join(["# Architecture", "", "| Folder | Holds | May include |", "|---|---|---|", *lines, "", "Text."])


class CheckIncludes(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = Path(folder.name)
        self.write("docs/architecture.md", table(ROWS))

    def write(self, path, *lines):
        file = self.tree / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text("\n".join(lines) + "\n", encoding="utf-8")

    def include(self, path, *headers):
        """Writes a source file that includes these; those in "" are written as well."""
        for header in headers:
            if header.startswith('"') and not (self.tree / header.strip('"')).exists():
                self.write(header.strip('"'), "#pragma once")
        self.write(path, *[f"#include {header}" for header in headers])

    def assert_faults(self, *faults):
        self.assertEqual(list(faults), Checker(self.tree).faults())

    def test_what_the_table_allows_passes(self):
        self.include("files/a.cpp", '"files/a.h"', "<boost/any.hpp>", "<string>", "<unistd.h>")
        self.include("signal/b.cpp", '"files/a.h"', '"signal/b.h"')
        self.include("chart/c.cpp", '"signal/b.h"', "<QString>", "<QtMath>", '"chart/ui_form.h"')
        self.include("chart/qcustomplot/d.cpp", "<qcustomplot.h>", '"chart/c.h"')
        self.include("cli/pdf.cpp", '"cli/pdf.h"', '"chart/c.h"', "<QApplication>")
        self.assert_faults()

    def test_an_arrow_that_the_table_lacks_is_a_fault(self):
        self.include("files/a.cpp", "<string>", '"signal/b.h"')
        self.assert_faults('files/a.cpp:2: "signal/b.h" is of signal, which files may not include')

    def test_no_arrow_passes_on_what_it_points_at(self):
        self.include("cli/a.cpp", '"files/a.h"')
        self.assert_faults('cli/a.cpp:1: "files/a.h" is of files, which cli may not include')

    def test_a_row_of_its_own_takes_a_folder_out_of_the_one_above(self):
        self.include("chart/a.cpp", '"chart/qcustomplot/b.h"')
        self.assert_faults('chart/a.cpp:1: "chart/qcustomplot/b.h" is of chart/qcustomplot, which chart may not include')

    def test_qt_in_the_core_is_a_fault(self):
        self.include("signal/a.h", "<QString>")
        self.include("cli/a.cpp", "<QtGlobal>", "<qglobal.h>")
        self.assert_faults("cli/a.cpp:1: <QtGlobal> is Qt, which cli may not include",
                           "cli/a.cpp:2: <qglobal.h> is Qt, which cli may not include",
                           "signal/a.h:1: <QString> is Qt, which signal may not include")

    def test_the_table_may_not_let_qt_into_the_core(self):
        self.write("docs/architecture.md", table({**ROWS, "files/": "std, Qt", "signal/": "`files`, `chart`",
                                                  "chart/": "Qt"}))
        self.assert_faults("docs/architecture.md: row files is of the core and may not include Qt",
                           "docs/architecture.md: row signal is of the core and may not include chart")

    def test_the_plotting_library_is_for_one_folder(self):
        self.include("chart/a.cpp", "<qcustomplot.h>")
        self.include("chart/a_test.cpp", "<qcustomplot.h>")
        self.assert_faults("chart/a.cpp:1: <qcustomplot.h> is QCustomPlot, which chart may not include",
                           "chart/a_test.cpp:1: <qcustomplot.h> is QCustomPlot, which chart may not include")
        self.write("docs/architecture.md", table({**ROWS, "chart/": "`signal`, Qt, QCustomPlot"}))
        self.assert_faults("docs/architecture.md: row chart may not include QCustomPlot; chart/qcustomplot alone may")

    def test_a_library_that_the_row_does_not_name_is_a_fault(self):
        self.include("signal/a.cpp", "<boost/any.hpp>", "<CLI/CLI.hpp>")
        self.assert_faults("signal/a.cpp:1: <boost/any.hpp> is Boost, which signal may not include",
                           "signal/a.cpp:2: <CLI/CLI.hpp> is CLI11, which signal may not include")

    def test_a_ring_in_the_table_is_a_fault(self):
        self.write("docs/architecture.md", table({**ROWS, "files/": "`cli`"}))
        self.assert_faults("docs/architecture.md: the rows form a ring: cli -> signal -> files -> cli")

    def test_a_ring_of_headers_is_a_fault(self):
        self.include("files/a.h", '"files/b.h"')
        self.include("files/b.h", '"files/a.h"')
        self.assert_faults("headers include each other: files/a.h -> files/b.h -> files/a.h")

    def test_tests_may_use_helpers_and_programs_may_not(self):
        self.include("files/a_test.cpp", '"tests/support/b.h"', "<gmock/gmock.h>", '"files/testing/c.h"')
        self.include("chart/qcustomplot/b_test.cpp", '"signal/e.h"')
        self.include("chart/a_bench.cpp", '"chart/qcustomplot/d.h"', "<benchmark/benchmark.h>")
        self.assert_faults()
        self.include("files/a.cpp", '"tests/support/b.h"', "<gmock/gmock.h>", '"files/testing/c.h"')
        self.assert_faults('files/a.cpp:1: "tests/support/b.h" is for tests',
                           "files/a.cpp:2: <gmock/gmock.h> is GoogleTest, which files may not include",
                           'files/a.cpp:3: "files/testing/c.h" is for tests')

    def test_tests_are_bound_by_the_table_as_well(self):
        self.include("files/a_test.cpp", '"signal/b.h"', "<QTest>")
        self.assert_faults('files/a_test.cpp:1: "signal/b.h" is of signal, which files may not include',
                           "files/a_test.cpp:2: <QTest> is Qt, which files may not include")

    def test_a_folder_without_a_row_is_a_fault(self):
        self.write("extra/a.cpp")
        self.assert_faults("extra/a.cpp: docs/architecture.md has no row for it")

    def test_includes_name_the_folder(self):
        self.write("files/a.h")
        self.write("files/a.cpp", '#include "a.h"')
        self.assert_faults('files/a.cpp:1: "a.h" is no file of ours by its path from the top of the tree')

    def test_a_word_that_is_no_row_and_no_library_is_a_fault(self):
        self.write("docs/architecture.md", table({**ROWS, "signal/": "`flies`"}))
        self.assert_faults("docs/architecture.md: row signal names flies, which is neither a row nor a library")

    def test_a_page_without_the_table_is_a_fault(self):
        self.write("docs/architecture.md", "# Architecture")
        self.assertIn('docs/architecture.md has no table with a column "May include"', Checker(self.tree).faults())

    def test_the_program_prints_the_faults_and_fails(self):
        run = [sys.executable, "-B", SCRIPT, self.tree]
        self.assertEqual((0, b""), (lambda done: (done.returncode, done.stdout))(subprocess.run(run, capture_output=True)))
        self.include("files/a.cpp", "<QString>")
        done = subprocess.run(run, capture_output=True, text=True)
        self.assertEqual((1, "files/a.cpp:1: <QString> is Qt, which files may not include\n"),
                         (done.returncode, done.stdout))


if __name__ == "__main__":
    unittest.main()
