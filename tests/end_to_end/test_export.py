"""quorvel-cli export: the points of a file as text."""

import math
import os
import random
import resource
import struct
import unittest

from support import REFERENCE, SCALED, SUN, EndToEndTest, uds


def single(value):
    return struct.unpack("<f", struct.pack("<f", value))[0]


def lines(text):
    assert text.endswith(b"\r\n"), text
    return text[:-2].decode("ascii").split("\r\n")


class Points(EndToEndTest):
    def export(self, *arguments, **options):
        return self.run_cli("export", *arguments, **options)

    def exported(self, *arguments):
        run = self.export("a.uds", *arguments, "--out", "out.txt")
        self.assertEqual((run.status, run.out, run.err), (0, b"", b""))
        return self.read("out.txt")

    def test_x_and_y(self):
        self.write("a.uds", uds([0.0, 3.5, -6.0], nfp=-1))
        self.assertEqual(self.exported("--xy"), b"-0.5 0\r\n0 3.5\r\n0.5 -6\r\n")

    def test_y_alone(self):
        self.write("a.uds", uds([0.0, 3.5, -6.0], x=[1.0, 2.0, 4.0]))
        self.assertEqual(self.exported("--x"), b"0\r\n3.5\r\n-6\r\n")

    def test_abscissas_of_a_file_that_has_its_own(self):
        self.write("a.uds", uds([0.0, 3.5, -6.0], x=[1.0, 2.0, 4.0], form=SUN))
        self.assertEqual(self.exported("--xy"), b"1 0\r\n2 3.5\r\n4 -6\r\n")

    def test_every_bit_survives(self):
        rng = random.Random(1992)
        y = [0.1, -0.0, 1e-45, 1.1754942e-38, 3.4028235e38, -1e-10, 16777217.0]
        while len(y) < 1000:
            value = struct.unpack("<f", rng.randbytes(4))[0]
            if math.isfinite(value):
                y.append(value)
        y = [single(value) for value in y]
        x = list(reversed(y))
        self.write("a.uds", uds(y, x=x))
        pairs = [[float(text) for text in line.split(" ")] for line in lines(self.exported("--xy"))]
        self.assertEqual([struct.pack("<dd", *pair) for pair in pairs],
                         [struct.pack("<dd", *pair) for pair in zip(x, y)])
        ordinates = [float(line) for line in lines(self.exported("--x"))]
        self.assertEqual([struct.pack("<d", value) for value in ordinates], [struct.pack("<d", value) for value in y])

    def test_numbers_are_as_short_as_they_can_be(self):
        y = [single(value) for value in [0.1, 1.0 / 3.0, 1e30, 123456.789]]
        self.write("a.uds", uds(y))
        for line, value in zip(lines(self.exported("--x")), y):
            self.assertEqual(len(line.replace("e+", "e")), len(repr(value).removesuffix(".0").replace("e+", "e")), line)

    def test_the_comparison_reads_what_was_exported(self):
        self.write("a.uds", uds(SCALED))
        self.exported("--xy")
        [direct, read_back] = self.results("--reference", "a.uds", "a.uds", "out.txt")["signals"]
        self.assertEqual(direct["measures"], read_back["measures"])

    def test_standard_output(self):
        self.write("a.uds", uds(SCALED))
        run = self.export("--x", "a.uds", "--out", "-")
        self.assertEqual((run.status, run.out, run.err), (0, b"0\r\n3\r\n6\r\n3\r\n0\r\n", b""))
        self.assertEqual(self.names(), ["a.uds"])

    def test_the_users_locale_has_no_say(self):
        self.write("a.uds", uds([0.5, 1.5]))
        run = self.export("--x", "a.uds", "--out", "-", environment={"LC_ALL": "de_DE.UTF-8"})
        self.assertEqual(run.out, b"0.5\r\n1.5\r\n")

    def test_an_old_file_is_replaced(self):
        self.write("a.uds", uds([0.5, 1.5]))
        self.write("out.txt", b"old and longer than the new one")
        self.assertEqual(self.exported("--x"), b"0.5\r\n1.5\r\n")

    def test_names_that_are_no_text(self):
        self.write(b"\xff.uds", uds([0.5, 1.5]))
        run = self.export(b"--x", b"\xff.uds", b"--out", b"\xfe.txt")
        self.assertEqual((run.status, run.err), (0, b""))
        self.assertEqual(sorted(os.listdir(os.fsencode(self.folder))), [b"\xfe.txt", b"\xff.uds"])


class Refused(EndToEndTest):
    def assertNotExported(self, status, *complaints, arguments=("a.uds", "--xy", "--out", "out.txt"), **options):
        before = self.names()
        run = self.run_cli("export", *arguments, **options)
        self.assertEqual((run.status, run.out), (status, b""))
        self.assertComplaints(run, *complaints)
        self.assertEqual(self.names(), before)

    def test_points_without_a_finite_number(self):
        infinity = float("inf")
        for y, x, point in [([0.0, infinity], None, 2), ([-infinity, 0.0], None, 1), ([0.0, 1.0], [0.0, infinity], 2)]:
            self.write("a.uds", uds(y, x=x))
            for old in [None, b"old"]:
                if old is not None:
                    self.write("out.txt", old)
                self.assertNotExported(
                    3, f"quorvel-cli: Point {point} of 2 holds no finite number; an ASCII file cannot hold it.",
                    "quorvel-cli: Could not be exported: a.uds")
            self.assertEqual(self.read("out.txt"), b"old")
            os.remove(self.folder / "out.txt")

    def test_an_abscissa_that_is_not_written_may_be_infinite(self):
        self.write("a.uds", uds([0.0, 1.0], x=[0.0, float("inf")]))
        self.assertEqual(self.run_cli("export", "a.uds", "--x", "--out", "-").out, b"0\r\n1\r\n")

    def test_unreadable_files(self):
        self.assertNotExported(3, "quorvel-cli: Failure to open file: a.uds for reading.",
                               "quorvel-cli: Could not be read: a.uds")
        self.write("a.uds", b"0 1\n1 2\n")
        self.assertNotExported(3, "quorvel-cli: File size not a multiple of 512 bytes.",
                               "quorvel-cli: Could not be read: a.uds")

    def test_unwritable_outputs(self):
        self.write("a.uds", SCALED)
        os.mkdir(self.folder / "folder")
        for out in ["missing/out.txt", "folder"]:
            self.assertNotExported(4, "quorvel-cli: The ASCII file could not be written; the file cannot be opened for "
                                   f"writing: {out}", arguments=["a.uds", "--xy", "--out", out])
        self.assertNotExported(4, "quorvel-cli: The ASCII file could not be written in full: /dev/full",
                               arguments=["a.uds", "--xy", "--out", "/dev/full"])
        with open("/dev/full", "wb") as full:
            run = self.run_cli("export", "a.uds", "--xy", "--out", "-", stdout=full)
        self.assertEqual(run.status, 4)
        self.assertComplaints(run, "quorvel-cli: Standard output could not be written: No space left on device")

    def test_an_old_file_is_intact_when_writing_fails_on_the_way(self):
        self.write("a.uds", uds(REFERENCE * 200))
        self.write("out.txt", b"old")
        self.assertNotExported(4, "quorvel-cli: The ASCII file could not be written in full: out.txt",
                               preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000)))
        self.assertEqual(self.read("out.txt"), b"old")

    def test_the_input_as_output(self):
        self.write("a.uds", SCALED)
        os.symlink("a.uds", self.folder / "link")
        os.link(self.folder / "a.uds", self.folder / "twin")
        before = self.read("a.uds")
        for out in ["a.uds", "./a.uds", "link", "twin", str(self.folder / "a.uds")]:
            self.assertNotExported(2, f"quorvel-cli: An output would overwrite an input: {out}",
                                   "Try 'quorvel-cli export --help'.", arguments=["a.uds", "--xy", "--out", out])
        self.assertEqual(self.read("a.uds"), before)

    def test_wrong_usage(self):
        self.write("a.uds", SCALED)
        for sentence, arguments in [
                ("A FILE to export is needed.", ["--xy", "--out", "b"]),
                ("Only one FILE can be exported at a time, not also: c", ["a.uds", "c", "--xy", "--out", "b"]),
                ("One of the options --xy and --x is needed.", ["a.uds", "--out", "b"]),
                ("Options --xy and --x exclude each other.", ["a.uds", "--x", "--xy", "--out", "b"]),
                ("Option --out is needed, with a PATH to write to, or - for standard output.", ["a.uds", "--x"]),
                ("Option --out takes a path that is not empty.", ["a.uds", "--x", "--out", ""])]:
            self.assertNotExported(2, f"quorvel-cli: {sentence}", "Try 'quorvel-cli export --help'.",
                                   arguments=arguments)


if __name__ == "__main__":
    unittest.main()
