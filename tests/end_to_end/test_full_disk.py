"""Outputs on a full disk: a sentence, status 4, and the old file unchanged."""

import os
import shutil
import subprocess
import unittest

from support import CLI, EndToEndTest, uds

HAS_REPORT = os.environ["QUORVEL_HAS_REPORT"] == "1"

# A disk of four pages, in a separate mount namespace that ends with the shell. The old file takes one of them; part of
# another stays free for the start of a new file. Prints "made" unless the disk cannot be set up.
DISK = """
mount -t tmpfs -o size=16k tmpfs disk || exit
set -e
touch made
cp old disk/old
"$@" 2>complaints && status=0 || status=$?
echo $status >status
ls -A disk >listing
if [ -e disk/old ]; then cp disk/old kept; fi
"""


class FullDisk(EndToEndTest):
    tool = CLI

    def setUp(self):
        super().setUp()
        os.mkdir(self.folder / "disk")
        self.write("a.uds", uds([float(i) / 8.0 for i in range(5000)]))
        self.write("old", b"old " * 256)

    def run_on_disk(self, *arguments):
        for name in ["made", "complaints", "status", "listing", "kept"]:
            (self.folder / name).unlink(missing_ok=True)
        if not shutil.which("unshare"):
            self.skipTest("unshare is not installed")
        shell = subprocess.run(["unshare", "--mount", "--map-root-user", "sh", "-c", DISK, "sh", self.tool, *arguments],
                               cwd=self.folder, capture_output=True, check=False)
        complaints = shell.stderr.decode("utf-8", "replace").strip()
        if "made" not in self.names():
            self.skipTest("no disk can be made here: " + complaints)
        self.assertEqual((shell.returncode, complaints), (0, ""))

    def assertNothingLost(self, what, *arguments):
        for target in ["disk/old", "disk/new"]:
            self.run_on_disk(*arguments, target)
            self.assertEqual(self.read("complaints").decode(),
                             f"quorvel-cli: {what} could not be written in full: {target}\n")
            self.assertEqual(self.read("status"), b"4\n")
            self.assertEqual(self.read("listing"), b"old\n", "neither a part of the new file nor a temporary one")
            self.assertEqual(self.read("kept"), self.read("old"))

    def use_script(self, *lines):
        """A stand-in for the tool: runs these lines, then complains about its last argument as the tool would."""
        script = ["#!/bin/sh", 'for target; do :; done', *lines,
                  'echo "quorvel-cli: The thing could not be written in full: $target" >&2', "exit 4", ""]
        self.write("script", "\n".join(script).encode())
        (self.folder / "script").chmod(0o755)
        self.tool = "./script"

    def test_what_a_careless_tool_loses_is_seen(self):
        self.use_script()
        self.assertNothingLost("The thing", "export")
        for careless in ["rm disk/old", "echo new >disk/old", "touch disk/part", "exit 1", "echo more >&2"]:
            self.use_script(careless)
            with self.assertRaises(AssertionError, msg=careless):
                self.assertNothingLost("The thing", "export")

    def test_what_fits_is_written(self):
        # Otherwise the other tests would prove nothing about a full disk.
        self.write("a.uds", uds([0.0, 1.0]))
        self.run_on_disk("export", "a.uds", "--x", "--out", "disk/old")
        self.assertEqual((self.read("status"), self.read("complaints")), (b"0\n", b""))
        self.assertEqual(self.read("kept"), b"0\r\n1\r\n")

    def test_export(self):
        self.assertNothingLost("The ASCII file", "export", "a.uds", "--xy", "--out")

    def test_convert(self):
        self.assertNothingLost("The UDS-1992 file", "convert", "a.uds", "--to", "sun", "--out")

    def test_the_pages_of_a_comparison(self):
        self.write("a.uds", uds([float(i % 7) for i in range(5000)], 2.0**-13))
        self.assertNothingLost("The JSON results", "compare", "--quiet", "a.uds", "--pages", "--json")

    @unittest.skipUnless(HAS_REPORT, "this build has no report")
    def test_report(self):
        self.assertNothingLost("The report", "report", "a.uds", "--full", "--pdf")


if __name__ == "__main__":
    unittest.main()
