#!/usr/bin/env python3
"""The core as a library: installs it into a folder of its own, builds examples/library against it, runs the program."""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SOURCE = Path(os.environ["QUORVEL_SOURCE"])
sys.path.insert(0, str(SOURCE / "examples"))

from make_examples import signal_file  # noqa: E402  (its folder is known only now)

CMAKE = os.environ["QUORVEL_CMAKE"]


class Install(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.prefix = cls.folder / "prefix"
        cls.run_checked(CMAKE, "--install", os.environ["QUORVEL_BUILD"], "--prefix", cls.prefix, "--component",
                        "library")
        build = cls.folder / "build"
        cls.run_checked(CMAKE, "-S", SOURCE / "examples/library", "-B", build, "-G", os.environ["QUORVEL_GENERATOR"],
                        f"-DCMAKE_PREFIX_PATH={cls.prefix}", f"-DCMAKE_CXX_COMPILER={os.environ['QUORVEL_CXX']}",
                        f"-DCMAKE_CXX_FLAGS={os.environ['QUORVEL_CXX_FLAGS']}")
        cls.run_checked(CMAKE, "--build", build)
        cls.program = build / "compare_two"

    @staticmethod
    def run_checked(*words):
        done = subprocess.run(words, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if done.returncode != 0:
            raise AssertionError(f"{' '.join(map(str, words))}\n{done.stdout}")

    def signal(self, name, values):
        path = self.folder / name
        path.write_bytes(signal_file({"YUNITS": "G'S", "XUNITS": "SECONDS"}, "IEEE", "Y", 0, 0.5, values))
        return path

    def compare(self, *files):
        return subprocess.run([self.program, *files], capture_output=True, text=True)

    def test_the_program_compares_two_files(self):
        reference = self.signal("reference.001", [1.0, 3.0] * 4)
        computed = self.signal("computed.001", [3.0, 5.0] * 4)
        # The residual is 2 everywhere; of its eight squares the sum leaves the last one out: 7 * 4 / 8. Covariance with
        # the same curve two higher is the variance.
        done = self.compare(reference, computed)
        self.assertEqual(("8 points, mean square residual 3.5, covariance 1\n", "", 0),
                         (done.stdout, done.stderr, done.returncode))

    def test_a_file_that_is_missing_is_an_error_of_the_library(self):
        done = self.compare(self.folder / "missing.001", self.folder / "missing.001")
        self.assertEqual(("", 1), (done.stdout, done.returncode))
        self.assertTrue(done.stderr.strip())

    def test_only_the_core_is_installed(self):
        headers = {path.relative_to(self.prefix / "include/quorvel").parts[0]
                   for path in (self.prefix / "include").rglob("*") if path.is_file()}
        self.assertEqual({"files", "signal", "compare"}, headers)

    def test_all_headers_compile_from_where_they_are_installed(self):
        root = self.prefix / "include/quorvel"
        headers = [path.relative_to(root).as_posix() for path in sorted(root.rglob("*.h"))]
        self.assertGreater(len(headers), 30)
        source = self.folder / "all.cpp"
        source.write_text("".join(f'#include "{header}"\n' for header in headers))
        self.run_checked(os.environ["QUORVEL_CXX"], "-std=c++20", "-fsyntax-only", "-I", root, source)

    def test_no_setting_of_the_build_leaves_it(self):
        targets = "".join(path.read_text() for path in self.prefix.rglob("QuorvelTargets*.cmake"))
        self.assertIn("Quorvel::compare", targets)
        for word in ("warnings", "sanitiz", "Werror", os.environ["QUORVEL_BUILD"], str(SOURCE)):
            self.assertNotIn(word, targets)


if __name__ == "__main__":
    unittest.main()
