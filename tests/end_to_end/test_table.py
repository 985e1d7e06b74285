"""The table in the terminal: its contents, its width, its colors, and the progress line."""

import fcntl
import os
import pty
import re
import struct
import subprocess
import termios
import unittest

from support import CLI, HANG_GUARD_S, HEADERS, SCALED, SCALED_COLUMNS, SCALED_VERDICTS, ScaledTest

SEQUENCE = re.compile(r"\x1b\[[0-9;]*m")


class Table(ScaledTest):
    def test_it_holds_headers_texts_and_verdicts(self):
        run = self.compare_scaled(environment={"COLUMNS": "1000"})
        self.assertEqual((run.status, run.err), (0, b""))
        lines = run.text.splitlines()
        head = next(i for i, line in enumerate(lines) if "Peak Value" in line)
        headers = re.split(r" {2,}", lines[head].strip())
        self.assertEqual((headers[:len(HEADERS)], headers[-1]), (HEADERS, "Bad verdicts"))
        words = {"none": "", "good": " good", "bad": " BAD"}
        cells = [text + words[verdict] for text, verdict in zip(SCALED_COLUMNS, SCALED_VERDICTS)]
        number, *shown, balance = re.split(r" {2,}", lines[head + 2].strip())
        self.assertEqual((number, shown[:len(cells)]), ("(1)", cells))
        bad = sum(cell.endswith(" BAD") for cell in shown)
        judged = bad + sum(cell.endswith(" good") for cell in shown)
        self.assertEqual(balance, f"{bad} of {judged}")

    def test_it_fits_the_usual_width(self):
        for line in self.compare_scaled().text.splitlines():
            self.assertLessEqual(len(line), 80, line)

    def test_it_follows_columns(self):
        widths = {}
        for columns in ["60", "120", "200"]:
            lines = self.compare_scaled(environment={"COLUMNS": columns}).text.splitlines()
            widths[columns] = max(len(line) for line in lines)
            for header in HEADERS:
                self.assertTrue(any(header in line for line in lines), header)
        self.assertLess(widths["120"], 121)
        self.assertGreater(widths["120"], 80)
        self.assertGreater(widths["200"], 120)

    def test_it_says_what_was_compared_and_how_it_is_judged(self):
        text = self.compare_scaled("--critical", "t=3", "--window", "0", "10").text
        self.assertIn("Reference    reference.uds\n", text)
        self.assertIn("Signals      (1) scaled.uds\n", text)
        self.assertIn("Preparation  not filtered, window 0 to 10\n", text)
        self.assertIn("T statistic 3;", text)
        self.assertIn("corridor of +-1.5.", text)

    def test_a_hostile_name_is_disarmed(self):
        name = b"\x1b[2Jx\n\xff.uds"
        self.write(name, SCALED)
        run = self.compare(name)
        self.assertEqual(run.status, 0)
        self.assertNotIn(b"\x1b", run.out)
        self.assertIn("(1)  ?[2Jx?\ufffd.uds", run.text)

    def test_wide_characters_stay_in_line(self):
        self.write("\u6e2c\u8a66.uds", SCALED)
        self.write("abcd.uds", SCALED)
        lines = self.compare("\u6e2c\u8a66.uds", "abcd.uds").text.splitlines()
        first = next(line for line in lines if line.startswith("(1)  "))
        second = next(line for line in lines if line.startswith("(2)  "))
        self.assertEqual(len(first) + 2, len(second), "two characters of two columns each")


class Terminal(ScaledTest):
    """Runs whose output or complaints go to a terminal."""

    def on_terminal(self, *arguments, stream="stdout", columns=100, environment=None):
        master, slave = pty.openpty()
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 50, columns, 0, 0))
        streams = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL, stream: slave}
        settings = {**os.environ, "TERM": "xterm", "COLUMNS": "", "NO_COLOR": "", **(environment or {})}
        with subprocess.Popen([CLI, "compare", *arguments], cwd=self.folder, env=settings, stdin=subprocess.DEVNULL,
                              **streams) as process:
            os.close(slave)
            shown = b""
            while True:
                try:
                    part = os.read(master, 65536)
                except OSError:  # the other end is closed
                    break
                if not part:
                    break
                shown += part
            os.close(master)
            self.assertIn(process.wait(HANG_GUARD_S), [0, 3])
        return shown.decode("utf-8").replace("\r\n", "\n")

    def scaled(self, **options):
        return self.on_terminal("--reference", "reference.uds", "--corridor", "1.5", "scaled.uds", **options)

    def test_verdicts_are_colored_and_named(self):
        shown = self.scaled()
        self.assertIn("\x1b[1;31m0.800000 (20.00 %) BAD\x1b[0m", shown)
        self.assertIn("\x1b[32m0.748331 (18.71 %) good\x1b[0m", shown)

    def test_no_color_removes_the_colors_and_nothing_else(self):
        plain = self.scaled(environment={"NO_COLOR": "1"})
        self.assertNotIn("\x1b", plain)
        self.assertEqual(SEQUENCE.sub("", self.scaled()), plain)

    def test_an_empty_no_color_does_not_count(self):
        self.assertIn("\x1b[32m", self.scaled(environment={"NO_COLOR": ""}))

    def test_a_dumb_terminal_gets_no_colors(self):
        self.assertNotIn("\x1b", self.scaled(environment={"TERM": "dumb"}))

    def test_a_file_gets_no_colors(self):
        self.assertNotIn(b"\x1b", self.compare_scaled().out)

    def test_the_table_keeps_to_the_terminal(self):
        for columns in [70, 100, 150]:
            lines = SEQUENCE.sub("", self.scaled(columns=columns)).splitlines()
            table = [line for line in lines if line.startswith(("(1)", "     "))]
            self.assertLessEqual(max(len(line) for line in table), columns)

    def test_the_progress_line_is_erased_at_the_end(self):
        shown = self.scaled(stream="stderr")
        self.assertIn("scaled.uds", shown)
        self.assertTrue(shown.endswith("\r\x1b[K"), repr(shown))
        self.assertNotIn("\n", shown)

    def test_quiet_shows_no_progress(self):
        self.assertEqual(self.on_terminal("--quiet", "scaled.uds", stream="stderr"), "")

    def test_complaints_are_on_their_own_lines(self):
        shown = self.on_terminal("scaled.uds", "missing\x1b[2J", stream="stderr")
        self.assertIn("\r\x1b[Kquorvel-cli: Failure to open file: missing?[2J for reading. (2 times)\n", shown)
        self.assertTrue(shown.endswith("Nothing was compared.\n"))


if __name__ == "__main__":
    unittest.main()
