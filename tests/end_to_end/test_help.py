"""Help, version and the manual page."""

import re
import shutil
import subprocess
import unittest

from support import SOURCE, EndToEndTest


COMMANDS = ["compare", "show", "export", "convert", "report", "verify"]
PAGES = [["--help"]] + [[command, "--help"] for command in COMMANDS]


class Help(EndToEndTest):
    def printed(self, *arguments):
        run = self.run_cli(*arguments)
        self.assertEqual((run.status, run.err), (0, b""))
        return run.text

    def test_the_version_is_that_of_the_project(self):
        version = re.search(r"^\s*VERSION (\S+)", (SOURCE / "CMakeLists.txt").read_text(), re.MULTILINE).group(1)
        self.assertEqual(self.printed("--version"), f"quorvel-cli {version}\n")
        for command in COMMANDS:
            self.assertEqual(self.printed(command, "--version"), f"quorvel-cli {version}\n")

    def test_help_wins_over_wrong_usage(self):
        self.assertEqual(self.printed("compare", "--corridor", "0", "--help"), self.printed("compare", "--help"))
        self.assertEqual(self.printed("convert", "--to", "vax", "--help"), self.printed("convert", "--help"))

    def test_the_program_names_its_commands(self):
        section = self.printed("--help").split("Commands:\n")[1].split("\n\n")[0]
        self.assertEqual(re.findall(r"^  (\w+)$", section, re.MULTILINE), COMMANDS)

    def test_help_fits_a_terminal(self):
        for arguments in PAGES:
            for line in self.printed(*arguments).splitlines():
                self.assertLessEqual(len(line), 80, line)

    def test_help_tells_every_exit_status(self):
        for arguments in PAGES:
            section = self.printed(*arguments).split("Exit status:\n")[1].split("\n\n")[0]
            self.assertEqual(re.findall(r"^  (\d)$", section, re.MULTILINE), ["2", "4", "3", "1", "0"])

    def test_help_warns_of_the_first_file_compared_with_itself(self):
        words = " ".join(self.printed("compare", "--help").split())
        self.assertIn("In a run without --reference the first file is compared with itself, so its T statistic is not "
                      "a number and counts as bad", words)

    def test_the_manual_page_has_the_same_texts(self):
        man = self.printed("--man")
        plain = man.replace("\\-", "-")
        words = " ".join(plain.split())
        for command in COMMANDS:
            for line in self.printed(command, "--help").splitlines():
                if line.startswith("      "):
                    self.assertIn(line.strip(), words)

    @unittest.skipUnless(shutil.which("groff"), "groff is not installed")
    def test_the_manual_page_is_clean(self):
        checked = subprocess.run(["groff", "-man", "-ww", "-Tutf8", "-z"], input=self.printed("--man").encode(),
                                 capture_output=True, check=False)
        self.assertEqual((checked.returncode, checked.stderr), (0, b""))


if __name__ == "__main__":
    unittest.main()
