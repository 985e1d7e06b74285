"""Outputs on a disk that is full: a sentence, status 4, and the old file as it was."""

import os
import shutil
import subprocess
import unittest

from support import CLI, EndToEndTest, uds

HAS_REPORT = os.environ["QUORVEL_HAS_REPORT"] == "1"

# A disk of four pages, in a mount namespace of its own that ends with the shell. The old file takes one of them, a part
# of another stays free for the start of a new one.
DISK = """
mount -t tmpfs -o size=16k tmpfs disk || exit 77
cp old disk/old
"$@" 2>complaints
echo $? >status
ls -A disk >listing
cp disk/old kept
"""


class FullDisk(EndToEndTest):
    def setUp(self):
        super().setUp()
        os.mkdir(self.folder / "disk")
        self.write("a.uds", uds([float(i) / 8.0 for i in range(5000)]))
        self.write("old", b"old " * 256)

    def run_on_disk(self, *arguments):
        if not shutil.which("unshare"):
            self.skipTest("unshare is not installed")
        shell = subprocess.run(["unshare", "--mount", "--map-root-user", "sh", "-c", DISK, "sh", CLI, *arguments],
                               cwd=self.folder, capture_output=True, check=False)
        if shell.returncode != 0:
            self.skipTest("nothing can be mounted here: " + shell.stderr.decode("utf-8", "replace").strip())

    def assertNothingLost(self, what, *arguments):
        for target in ["disk/old", "disk/new"]:
            self.run_on_disk(*arguments, target)
            self.assertEqual(self.read("complaints").decode(),
                             f"quorvel-cli: {what} could not be written in full: {target}\n")
            self.assertEqual(self.read("status"), b"4\n")
            self.assertEqual(self.read("listing"), b"old\n", "neither a part of the new file nor a temporary one")
            self.assertEqual(self.read("kept"), self.read("old"))

    def test_what_fits_is_written(self):
        # Else the other tests would prove nothing about the disk's being full.
        self.write("a.uds", uds([0.0, 1.0]))
        self.run_on_disk("export", "a.uds", "--x", "--out", "disk/old")
        self.assertEqual((self.read("status"), self.read("complaints")), (b"0\n", b""))
        self.assertEqual(self.read("kept"), b"0\r\n1\r\n")

    def test_export(self):
        self.assertNothingLost("The ASCII file", "export", "a.uds", "--xy", "--out")

    def test_convert(self):
        self.assertNothingLost("The UDS-1992 file", "convert", "a.uds", "--to", "sun", "--out")

    @unittest.skipUnless(HAS_REPORT, "this build has no report")
    def test_report(self):
        self.assertNothingLost("The report", "report", "a.uds", "--full", "--pdf")


if __name__ == "__main__":
    unittest.main()
