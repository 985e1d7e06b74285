"""Targets that no other file can replace: they are written anyway, once the bytes are complete."""

import os
import shutil
import subprocess
import unittest

from support import CLI, ScaledTest

# A file on which another one is mounted, in a separate mount namespace that ends with the shell. Prints "made" unless
# the mount cannot be set up.
MOUNT = """
mount --bind source target || exit
touch made
"$@"
"""


class Targets(ScaledTest):
    def test_a_file_that_is_mounted_on(self):
        self.write("source", b"old " * 1000)
        self.write("target", b"hidden by the other")
        if not shutil.which("unshare"):
            self.skipTest("unshare is not installed")
        command = ["compare", "--quiet", "--reference", "reference.uds", "--csv", "target", "scaled.uds"]
        run = subprocess.run(["unshare", "--mount", "--map-root-user", "sh", "-c", MOUNT, "sh", CLI, *command],
                             cwd=self.folder, capture_output=True, check=False)
        if "made" not in self.names():
            self.skipTest("nothing can be mounted here: " + run.stderr.decode("utf-8", "replace"))
        self.assertEqual((run.returncode, run.stderr), (0, b""))
        self.assertTrue(self.read("source").startswith(b"Filename,"))
        self.assertNotIn(b"old", self.read("source"))
        self.assertEqual(self.read("target"), b"hidden by the other")
        self.assertEqual(self.names(), ["made", "reference.uds", "scaled.uds", "source", "target"])

    def test_a_file_of_several_names(self):
        self.write("a.csv", b"old")
        os.link(self.folder / "a.csv", self.folder / "b.csv")
        self.assertEqual(self.compare_scaled("--quiet", "--csv", "a.csv").status, 0)
        self.assertTrue(self.read("a.csv").startswith(b"Filename,"))
        self.assertEqual(self.read("b.csv"), self.read("a.csv"))

    def test_a_file_in_a_folder_that_may_not_be_written(self):
        os.mkdir(self.folder / "closed")
        self.write("closed/out.csv", b"old")
        os.chmod(self.folder / "closed/out.csv", 0o666)
        os.chmod(self.folder / "closed", 0o555)
        os.chmod(self.folder, 0o755)
        options = {"user": 65534, "group": 65534, "extra_groups": []} if os.geteuid() == 0 else {}
        try:
            run = self.compare_scaled("--quiet", "--csv", "closed/out.csv", **options)
        except PermissionError:
            self.skipTest("the tool cannot be started by another user here")
        finally:
            os.chmod(self.folder / "closed", 0o755)
        self.assertEqual((run.status, run.err), (0, b""))
        self.assertTrue(self.read("closed/out.csv").startswith(b"Filename,"))
        self.assertEqual(os.listdir(self.folder / "closed"), ["out.csv"])


if __name__ == "__main__":
    unittest.main()
