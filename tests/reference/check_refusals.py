#!/usr/bin/env python3
"""Thousands of damaged signal files and odd point tables: which are refused, and with which sentences.

    check_refusals.py TOOL    TOOL is the path of quorvel-cli

Many files go into one run, which names every file that it cannot read, in order. A file that is not there comes first,
so that no run continues with damaged files.
"""

import math
import os
import struct
import sys
import tempfile
import unittest
from pathlib import Path

from document import Document, Options
from make_random import Dice, RandomFile, put_text
from tool import Tally, check_run, require

FILES_PER_RUN = 250
MISSING = "missing.001"
REFERENCE = "reference.001"
WORDS = ("1", "2.5", "-3", "+4", ".5", "5.", "1.E3", "1e", "1e+2", "-.5e-2", "e5", "inf", "nan", "0x10", "-", ".",
         "+-1", "1.5.5", "1e400", "00", "x")
GAPS = (" ", " ", ",", ", ", "\t", "\n", "\n", "\n", "\r\n", "\r", "", "", "  ", "\t ", " \t", ",,", "\v", "\f", "\n\n",
        "\n\t", "\t\n", " \n", "\r\r\n", ";", "\u00a0", "\0")
TAGS = ("UDS-1992", " UDS-1992", "UDS-1992\t", "CURVE HDR", "CMP-2 HDR", "X DATA", "Y DATA", "Z DATA", "",
        "UDS-1992\0")
FORMS = ("Y", "X-Y", "y", "", "X-Y ")
NUMBER_FORMATS = ("IEEE", "SUN", "VAX", "ieee", "", "CRAY")
POINT_NUMBERS = (0, 1, -1, 124, 125, 126, 250, 2147483647, -2147483648, 65536)


def random_text(dice):
    """A table of numbers with hardly any faults, or a heap of words."""
    if dice.chance(0.6):
        return table(dice, dice.one_of((2, 5, 12)))
    text = dice.one_of(("", "", " ", "\n", ","))
    for _ in range(dice.between(0, 6)):
        text += dice.one_of(WORDS) + dice.one_of(GAPS)
    return text.encode("latin-1")


def table(dice, kinds):
    """Numbers with some of the first `kinds` gaps between them, and a decent end."""
    words, gaps = WORDS[:7], GAPS[:kinds]
    text = dice.one_of(words)
    for _ in range(dice.between(0, 11)):
        text += dice.one_of(gaps) + dice.one_of(words)
    return (text + dice.one_of(("", "\n", "\r\n", "\r"))).encode("latin-1")


def damage(dice, image):
    """One change somewhere that matters, or a flipped bit anywhere."""
    kind = dice.between(0, 7)
    records = len(image) // 512
    if kind == 0:
        image[dice.between(0, len(image) - 1)] ^= 1 << dice.between(0, 7)
    elif kind == 1:
        put_text(image, 512 * dice.between(0, records - 1), 12, dice.one_of(TAGS))
    elif kind == 2:
        put_text(image, 16, 10, dice.one_of(FORMS))
    elif kind == 3:
        put_text(image, 26, 5, dice.one_of(NUMBER_FORMATS))
    elif kind == 4:
        offset = dice.one_of((512, 1024)) + dice.one_of((278, 282))
        if offset + 4 <= len(image):
            image[offset:offset + 4] = struct.pack(dice.one_of((">i", "<i")), dice.one_of(POINT_NUMBERS))
    elif kind == 5:
        del image[512 * dice.between(0, records):]
    elif kind == 6:
        del image[dice.between(0, len(image)):]
    else:
        record = 512 * dice.between(0, records - 1)
        image[record:record] = image[record:record + 512]


def damaged_file(dice):
    image = RandomFile(dice, lambda time: 3.0 * time, 0.001, "G'S").binary()
    for _ in range(dice.between(1, 3)):
        if len(image) >= 512:
            damage(dice, image)
    return bytes(image)


def long_reference(dice):
    """A signal that covers what the words of a table can say, at a step that keeps the resampled tables short."""
    file = RandomFile(dice, math.sin, 0.5, "NEWTONS")
    file.form, file.number_format, file.second_component = "Y", "IEEE", False
    file.first, file.step, file.header_step, file.count = -10, 0.5, 0.5, 2100
    file.values = [math.sin(0.5 * (i - 10)) for i in range(2100)]
    return bytes(file.binary())


class Refusals(unittest.TestCase):
    tool = ""

    def check(self, seed, count, make):
        """The sentences of `count` files, run by run."""
        tally, here, dice, sentences = Tally(), os.getcwd(), Dice(seed), 0
        for first in range(0, count, FILES_PER_RUN):
            with tempfile.TemporaryDirectory() as folder:
                names = [MISSING] + ["f%05d.001" % i for i in range(first, first + FILES_PER_RUN)]
                for name in names[1:]:
                    (Path(folder) / name).write_bytes(make(dice))
                (Path(folder) / "all.hit").write_bytes("".join(name + "\n" for name in names).encode("ascii"))
                os.chdir(folder)
                try:
                    document = check_run(tally, self.tool, folder, "files from %d" % first, Options(names),
                                         ["--hit-list", "all.hit"])
                finally:
                    os.chdir(here)
                sentences += len(document.errors)
        require(self, tally, count // FILES_PER_RUN)
        print("%d sentences about %d files" % (sentences, count), flush=True)
        return sentences

    def test_damaged_signal_files(self):
        self.assertGreater(self.check(1, 2000, damaged_file), 1000)

    def test_odd_point_tables(self):
        sentences = self.check(2, 5000, random_text)
        self.assertTrue(4000 < sentences < 9000, sentences)

    def test_points_of_odd_tables(self):
        """Tables that a run can use: what their series show tells how the numbers were paired."""
        tally, here, dice, names = Tally(), os.getcwd(), Dice(3), []
        with tempfile.TemporaryDirectory() as folder:
            os.chdir(folder)
            try:
                Path(REFERENCE).write_bytes(long_reference(dice))
                for i in range(3000):
                    name = "f%05d.txt" % i
                    Path(name).write_bytes(table(dice, 12))
                    if Document(Options([name], REFERENCE)).run():
                        names.append(name)
                Path("all.hit").write_bytes("".join(name + "\n" for name in names).encode("ascii"))
                check_run(tally, self.tool, folder, "tables", Options(names, REFERENCE), ["--hit-list", "all.hit"])
            finally:
                os.chdir(here)
        require(self, tally, 50000, finished_runs=1)
        self.assertGreater(len(names), 100)


if __name__ == "__main__":
    Refusals.tool = os.path.abspath(sys.argv.pop(1))
    unittest.main()
