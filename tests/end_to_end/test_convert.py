"""quorvel-cli convert: the other number format with the same fields and points."""

import os
import resource
import struct
import unittest

from header_file import ORDINATES, header_file, header_values
from support import IEEE, SCALED, SUN, EndToEndTest, data_blocks, uds


def vax(value):
    """A single-precision number in the VAX format: the exponent is higher by 2, the 16-bit halves are swapped."""
    if value == 0.0:
        return bytes(4)
    b0, b1, b2, b3 = struct.pack("<f", value * 4.0)
    return bytes([b2, b3, b0, b1])


class Formats(EndToEndTest):
    def convert(self, name, to, out="out.uds"):
        run = self.run_cli("convert", name, "--to", to, "--out", out)
        self.assertEqual((run.status, run.out), (0, b""), run.complaints)
        return self.read(out), run.complaints

    def test_every_field_and_point_is_kept(self):
        for second in [True, False]:
            values = header_values(second)
            image = {"ieee": header_file(values, second=second), "sun": header_file(values, second=second, form=SUN)}
            for source in image:
                for target in image:
                    self.write("a.uds", image[source])
                    self.assertEqual(self.convert("a.uds", target), (image[target], ""), (second, source, target))

    def test_pairs_are_kept(self):
        x = [0.0, 0.25, 1.0, 1.5, 4.0]
        self.write("a.uds", uds(SCALED, x=x))
        converted, _ = self.convert("a.uds", "sun")
        self.assertEqual(converted[1024:], data_blocks(b"Y DATA", SCALED, SUN) + data_blocks(b"X DATA", x, SUN))
        self.write("b.uds", converted)
        back, _ = self.convert("b.uds", "ieee", "back.uds")
        self.assertEqual(back[1024:], data_blocks(b"Y DATA", SCALED, IEEE) + data_blocks(b"X DATA", x, IEEE))

    def test_many_points(self):
        y = [float(i % 97) - 40.0 for i in range(126)]
        self.write("a.uds", uds(y))
        converted, _ = self.convert("a.uds", "sun")
        self.assertEqual(converted[1024:], data_blocks(b"Y DATA", y, SUN))

    def test_a_vax_file(self):
        # Integers of a VAX file are those of an IEEE file; its reals are put in one by one.
        values = header_values(second=False)
        expected = header_file(values, second=False)
        image = bytearray(expected)
        image[26:31] = b"VAX".ljust(5)
        for offset in [177, 290, 294, 309, *range(355, 379, 4), *range(512 + 286, 512 + 314, 4),
                       *range(512 + 334, 512 + 354, 4), *range(1024 + 12, 1024 + 12 + 4 * len(ORDINATES), 4)]:
            image[offset:offset + 4] = vax(struct.unpack_from("<f", image, offset)[0])
        self.write("a.uds", bytes(image))
        self.assertEqual(self.convert("a.uds", "ieee"), (expected, ""))
        self.assertEqual(self.convert("a.uds", "sun"), (header_file(values, second=False, form=SUN), ""))

    def test_texts_keep_their_bytes(self):
        values = {**header_values(), "TITLE": "M\u00fcnchen 20\u00b0 \x01\x7f\x80\u00ff"}
        self.write("a.uds", header_file(values))
        self.assertEqual(self.convert("a.uds", "sun"), (header_file(values, form=SUN), ""))

    def test_infinities_are_kept(self):
        y = [0.0, float("inf"), -float("inf")]
        self.write("a.uds", uds(y))
        self.assertEqual(self.convert("a.uds", "sun")[0][1024:], data_blocks(b"Y DATA", y, SUN))

    def test_standard_output(self):
        self.write("a.uds", header_file(header_values()))
        run = self.run_cli("convert", "a.uds", "--to", "sun", "--out", "-")
        self.assertEqual((run.status, run.err), (0, b""))
        self.assertEqual(run.out, header_file(header_values(), form=SUN))


class Changes(EndToEndTest):
    def assertTold(self, image, expected, *notes):
        self.write("a.uds", image)
        run = self.run_cli("convert", "a.uds", "--to", "ieee", "--out", "out.uds")
        self.assertEqual((run.status, run.out), (0, b""))
        self.assertComplaints(run, *notes)
        self.assertEqual(self.read("out.uds"), expected)

    def test_user_reals(self):
        same = {**header_values(), "RD1": 0.5, "RD2": 0.5, "RD3": 0.5, "RD4": 0.5, "RD5": 0.5}
        self.assertTold(header_file({**same, "RD2": 2.25, "RD4": 0.1, "RD5": -0.0}), header_file(same),
                        "RD2 was 2.25 and is now 0.5, the value of RD1.",
                        "RD4 was 0.1 and is now 0.5, the value of RD1.", "RD5 was -0 and is now 0.5, the value of RD1.")

    def test_user_reals_that_are_not_a_number(self):
        nan = float("nan")
        same = {**header_values(), "RD1": 0.5, "RD2": 0.5, "RD3": 0.5, "RD4": 0.5, "RD5": 0.5}
        self.assertTold(header_file({**same, "RD2": nan}), header_file(same),
                        "RD2 was not a number and is now 0.5, the value of RD1.")
        zeros = {**same, "RD1": 0.0, "RD2": 0.0, "RD3": 0.0, "RD4": 0.0, "RD5": 0.0}
        self.assertTold(header_file({**zeros, "RD1": nan, "RD3": nan}), header_file(zeros),
                        "RD3 was not a number and is now 0, the value of RD1.",
                        "Values that were not a number and are now 0: 1")

    def test_texts_after_blanks(self):
        values = {**header_values(), "TITLE": "  A  B  ", "MAKE2": " C", "CD2": "", "DESC": "D "}
        self.assertTold(header_file(values), header_file({**values, "TITLE": "A  B", "MAKE2": "C"}),
                        "Texts that lost their leading blanks: 2")

    def test_bytes_after_the_last_field_or_point(self):
        expected = header_file(header_values())
        image = bytearray(expected)
        for place in [380, 2 * 512 - 1, 2 * 512 + 444, 3 * 512 + 12 + 4 * len(ORDINATES)]:
            image[place:place + 1] = b"!"
        self.assertTold(bytes(image), expected, "Records whose unused bytes are now 0: 4")

    def test_a_year_of_two_digits(self):
        values = header_values()
        for old, new in [(50, 1950), (49, 2049), (1, 2001), (99, 1999)]:
            self.assertTold(header_file({**values, "YEAR1": old}), header_file({**values, "YEAR1": new}),
                            f"The year of component 1 was {old} and is now {new}.")
        for year in [0, 100, 1987, -1]:
            image = header_file({**values, "YEAR1": year, "YEAR2": 50})
            self.assertTold(image, image)

    def test_values_that_are_not_a_number(self):
        values = header_values()
        nan = float("nan")
        self.assertTold(header_file({**values, "FCUT": nan}, y=[0.0, nan, 1.0, nan, 2.0]),
                        header_file({**values, "FCUT": 0.0}, y=[0.0, 0.0, 1.0, 0.0, 2.0]),
                        "Values that were not a number and are now 0: 3")

    def test_records_beyond_the_last_point(self):
        image = header_file(header_values())
        self.assertTold(image + data_blocks(b"Y DATA", [1.0] * 300, IEEE), image,
                        "Data records dropped after the last point: 3")


class Refused(EndToEndTest):
    def assertNotConverted(self, status, *complaints, arguments=("a.uds", "--to", "sun", "--out", "out.uds"),
                           **options):
        before = self.names()
        run = self.run_cli("convert", *arguments, **options)
        self.assertEqual((run.status, run.out), (status, b""))
        self.assertComplaints(run, *complaints)
        self.assertEqual(self.names(), before)

    def test_unreadable_files(self):
        self.assertNotConverted(3, "quorvel-cli: Failure to open file: a.uds for reading.",
                                "quorvel-cli: Could not be read: a.uds")
        self.write("a.uds", b"UDS-1993" + uds(SCALED)[8:])
        self.assertNotConverted(3, "quorvel-cli: Not a UDS-1992 Signal File", "quorvel-cli: Could not be read: a.uds")

    def test_unwritable_outputs(self):
        # When nothing was written, what would have changed does not matter.
        self.write("a.uds", header_file({**header_values(), "RD2": 0.25, "YEAR1": 87}))
        os.mkdir(self.folder / "folder")
        for out in ["missing/out.uds", "folder"]:
            self.assertNotConverted(4, "quorvel-cli: The UDS-1992 file could not be written; the file cannot be opened "
                                    f"for writing: {out}", arguments=["a.uds", "--to", "sun", "--out", out])
        self.assertNotConverted(4, "quorvel-cli: The UDS-1992 file could not be written in full: /dev/full",
                                arguments=["a.uds", "--to", "sun", "--out", "/dev/full"])

    def test_an_old_file_is_intact_when_writing_fails_on_the_way(self):
        self.write("a.uds", uds(SCALED))
        self.write("out.uds", b"old")
        self.assertNotConverted(4, "quorvel-cli: The UDS-1992 file could not be written in full: out.uds",
                                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000)))
        self.assertEqual(self.read("out.uds"), b"old")

    def test_the_input_as_output(self):
        self.write("a.uds", SCALED)
        before = self.read("a.uds")
        self.assertNotConverted(2, "quorvel-cli: An output would overwrite an input: ./a.uds",
                                "Try 'quorvel-cli convert --help'.",
                                arguments=["a.uds", "--to", "sun", "--out", "./a.uds"])
        self.assertEqual(self.read("a.uds"), before)

    def test_wrong_usage(self):
        self.write("a.uds", SCALED)
        for sentence, arguments in [
                ("A FILE to convert is needed.", ["--to", "sun", "--out", "b"]),
                ("Only one FILE can be converted at a time, not also: c", ["a.uds", "c", "--to", "sun", "--out", "b"]),
                ("Option --to is needed, with the number format ieee or sun.", ["a.uds", "--out", "b"]),
                ("Option --to takes the number format ieee or sun, not: vax", ["a.uds", "--to", "vax", "--out", "b"]),
                ("Option --out is needed, with a PATH to write to, or - for standard output.", ["a.uds", "--to", "sun"]),
                ("Option --out takes a path that is not empty.", ["a.uds", "--to", "sun", "--out", ""])]:
            self.assertNotConverted(2, f"quorvel-cli: {sentence}", "Try 'quorvel-cli convert --help'.",
                                    arguments=arguments)


if __name__ == "__main__":
    unittest.main()
