"""Shared by the tests in a real window: a folder with the examples, runs of the command line to compare with, what
the table should say, and a main program that sets up the desktop."""

import json
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import requirements  # noqa: F401  (first: it names what is missing)

import accessible
import desktop
from program import Program

CLI = os.environ["QUORVEL_CLI"]
SOURCE = Path(os.environ["QUORVEL_SOURCE"])
HANG_GUARD_S = 120

HEADERS = ["Filename", "Peak Value", "Avg Residual", "Std Dev of Residual", "% in Corridor", "Correlation Factor",
           "T Statistic", "0 Moment Difference", "1st Moment Difference", "2nd Moment Difference",
           "3rd Moment Difference", "4th Moment Difference", "5th Moment Difference", "Ref Filename", "Min Time",
           "Max Time"]

LIMITS = {"Avg Residual": "below 5 % of the reference peak", "Std Dev of Residual": "below 20 % of the reference peak",
          "% in Corridor": "below 10 % of the points outside the corridor",
          "Correlation Factor": "above 0.95 (1 minus 0.05)", "T Statistic": "below 2.58",
          **{header: "below 0.2" for header in HEADERS if header.endswith("Moment Difference")}}


def run_cli(folder, *arguments):
    """Runs the command line in a folder, in the language of programs, and returns what it prints."""
    return subprocess.run([CLI, *map(str, arguments)], cwd=folder, env={**os.environ, "LC_ALL": "C"}, check=True,
                          capture_output=True, timeout=HANG_GUARD_S).stdout


class Results:
    """A comparison on the command line, to check the window against."""

    def __init__(self, folder, files, *options):
        self._files, self._options, self._folder = files, options, folder
        self._results = json.loads(run_cli(folder, "compare", "--json", "-", "--pages", *options, "--", *files))

    def write_pages(self, into):
        """The files of every page: INTO/page-ID.txt and INTO/page-ID-N.uds."""
        run_cli(self._folder, "compare", "--quiet", "--ascii", into, "--uds", into, *self._options, "--", *self._files)

    @property
    def rows(self):
        """Texts and verdicts of every cell."""
        return [list(zip(found["columns"], found["verdicts"])) for found in self._results["signals"]]

    def accessible_cells(self, limits=None):
        """What the cells of the table say to those who cannot see their colors."""
        limits = {**LIMITS, **(limits or {})}

        def cell(header, text, verdict):
            return f"{header}: {text}" + ("" if verdict == "none" else f", {verdict}, limit: {limits[header]}")
        return [[cell(header, *content) for header, content in zip(HEADERS, row)] for row in self.rows]

    def copied_data(self):
        lines = [HEADERS] + [[text for text, _ in row] for row in self.rows]
        return "".join("\t".join(line) + "\r\n" for line in lines).encode()

    @property
    def pages(self):
        return self._results["pages"]

    def page(self, name):
        return next(page for page in self.pages if page["name"] == name)


def chart_description(page):
    """What the chart says about itself, from a page of the results."""
    names = ", ".join(series["name"] for series in page["series"])
    return f"{page['yTitle']} over {page['xTitle']}. Curves: {names}"


class WindowTest(unittest.TestCase):
    """A test in its own folder, which holds the examples; programs start there."""

    maxDiff = None

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="case-", dir=os.environ["HOME"]))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        shutil.copytree(SOURCE / "examples", self.folder / "examples")

    def start(self, *arguments, environment=None):
        program = Program(self.folder, *arguments, environment=environment)
        self.addCleanup(program.end)
        return program

    def read_hit_list(self, program, name):
        """In the dialog that chooses the files; returns the dialog."""
        select = program.dialog("Select Uds Files")
        select.get("push button", "Read Hitlist").act()
        program.pick("Select Hit List", self.folder / name)
        return select


def main():
    """Runs the tests of the calling script on a desktop of their own."""
    # Raised as an exception that the tests do not catch, so that the desktop is shut down.
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    with desktop.Desktop():
        accessible.attach()
        result = unittest.main(exit=False).result
    sys.exit(not result.wasSuccessful())
