#!/usr/bin/env python3
"""Two builds of the tool on the same command lines: the same bytes in every output, standard streams and exit status
included. Only the curves of the Cross Correlation page may differ, by 1e-12 of the standard deviations' product, and
the bits of a value that is not a number in a UDS file.

    compare_builds.py TOOL_A TOOL_B [--seeds FIRST COUNT] [--except OUTPUT]... [--new-member NAME]...

Runs both example sets and, by default, seeds 1 ... 200. --except leaves one output out: status, stdout, stderr, or a
file's name. --new-member leaves out a member of the JSON results that only one of the two builds knows.
"""

import argparse
import json
import math
import os
import shutil
import struct
import subprocess
import sys
import tempfile
from pathlib import Path

from check_examples import option_sets
from make_random import RandomRun
from tool import LONGEST_RUN_S, arguments

TOP = Path(__file__).resolve().parents[2]
TOLERANCE = 1e-12
CROSS_CORRELATION = 11
# The pages that show the signals themselves, from which the standard deviations come.
INPUT_PAGES = (2, 7)
OUTPUTS = ["--json", "out.json", "--html", "out.html", "--csv", "out.csv", "--ascii", "ascii", "--uds", "uds"]
RECORD_SIZE, TAG_SIZE = 512, 12
SIGN_BIT, INFINITY_BITS, NAN_BITS = 0x80000000, 0x7f800000, 0x7fc00000
# What the texts and the files can hold of a number: six digits, and single precision.
TEXT_DIGITS, SINGLE_DIGITS = 1e-5, 2.0**-23
MOST_SHOWN = 20


class Digits(str):
    """A number of a JSON text as written there: only equal digits are equal numbers."""


def read_json(content):
    return json.loads(content.decode("utf-8"), parse_float=Digits, parse_int=Digits)


def strip(value, members):
    """The value without the members of these names, wherever they are."""
    if isinstance(value, dict):
        return {name: strip(part, members) for name, part in value.items() if name not in members}
    return [strip(part, members) for part in value] if isinstance(value, list) else value


def with_order(value):
    """Objects as lists, so that the order of their members counts."""
    if isinstance(value, dict):
        return [(name, with_order(part)) for name, part in value.items()]
    return [with_order(part) for part in value] if isinstance(value, list) else value


def deviation(values):
    """The standard deviation of a series' y; 0 where it has none."""
    numbers = [float(value) for value in values if value is not None]
    if not numbers:
        return 0.0
    mean = math.fsum(numbers) / len(numbers)
    return math.sqrt(math.fsum((number - mean)**2 for number in numbers) / len(numbers))


def curve_scales(results):
    """The product of the standard deviations for each curve of the Cross Correlation page, the reference's first."""
    for page in results.get("pages", []):
        if int(page["id"]) in INPUT_PAGES and page["series"]:
            deviations = [deviation(series["y"]) for series in page["series"]]
            return [deviations[0] * other for other in deviations]
    return []


def scale_of(scales, i):
    """0, so that only equal numbers are near, where the signals themselves are not known."""
    return scales[i] if i < len(scales) else 0.0


def is_near(a, b, scale, digits=0.0):
    """Within the tolerance of the page, and what its digits can hold; a not-a-number value equals only itself."""
    if a is None or b is None or not (math.isfinite(float(a)) and math.isfinite(float(b))):
        return str(a) == str(b)
    a, b = float(a), float(b)
    return abs(a - b) <= TOLERANCE * scale + digits * max(abs(a), abs(b))


def are_near(a, b, scale, digits=0.0):
    return len(a) == len(b) and all(is_near(x, y, scale, digits) for x, y in zip(a, b))


def same_curves(page_a, page_b, scales):
    """Whether two Cross Correlation pages agree: all but y exactly."""
    bare = [with_order(strip(page, {"y"})) for page in (page_a, page_b)]
    return bare[0] == bare[1] and all(
        are_near(one["y"], other["y"], scale_of(scales, i))
        for i, (one, other) in enumerate(zip(page_a["series"], page_b["series"])))


def same_json(bytes_a, bytes_b, members):
    """Whether two results agree: every line to the byte, except for the curves of the one page."""
    if bytes_a == bytes_b:
        return True
    a, b = (strip(read_json(content), members) for content in (bytes_a, bytes_b))
    if not isinstance(a, dict) or not isinstance(b, dict) or len(a.get("pages", [])) != len(b.get("pages", [])):
        return False
    scales = curve_scales(a)
    exact = members or same_lines(bytes_a, bytes_b)
    for i, (page_a, page_b) in enumerate(zip(a.get("pages", []), b.get("pages", []))):
        if int(page_a["id"]) == CROSS_CORRELATION:
            if not same_curves(page_a, page_b, scales):
                return False
            a["pages"][i] = b["pages"][i] = None
    return bool(exact) and with_order(a) == with_order(b)


def same_lines(bytes_a, bytes_b):
    """Whether all lines agree but those of the one page; each page has a line of its own."""
    page = b'  {"id":%d,' % CROSS_CORRELATION
    lines = [[line for line in content.split(b"\n") if not line.startswith(page)] for content in (bytes_a, bytes_b)]
    return lines[0] == lines[1]


def same_table(bytes_a, bytes_b, scales):
    """Whether two ASCII tables of the one page agree: x to the byte, y by the tolerance."""
    rows = [content.split(b"\r\n") for content in (bytes_a, bytes_b)]
    return len(rows[0]) == len(rows[1]) and all(same_row(a, b, scales) for a, b in zip(*rows))


def same_row(row_a, row_b, scales):
    a, b = row_a.decode("ascii").split(" "), row_b.decode("ascii").split(" ")
    if len(a) != len(b) or a[::2] != b[::2]:  # x, and the empty text after the last blank
        return False
    return all(is_near(x, y, scale_of(scales, i), TEXT_DIGITS) for i, (x, y) in enumerate(zip(a[1::2], b[1::2])))


def without_nan_bits(record):
    """A data record in which every value that is not a number has the same bits: processors and compilers differ in
    the sign that they give it."""
    values = struct.unpack("=125I", record[TAG_SIZE:])
    return record[:TAG_SIZE] + struct.pack("=125I", *(NAN_BITS if value & ~SIGN_BIT > INFINITY_BITS else value
                                                      for value in values))


def same_signal(bytes_a, bytes_b, scale=None):
    """Whether two UDS files agree: all to the byte, but y by the tolerance where there is a scale."""
    if len(bytes_a) != len(bytes_b):
        return False
    starts = range(0, len(bytes_a), RECORD_SIZE)
    return all(same_record(bytes_a[i:i + RECORD_SIZE], bytes_b[i:i + RECORD_SIZE], scale) for i in starts)


def same_record(a, b, scale):
    if a == b:
        return True
    if not a.startswith(b"Y DATA") or a[:TAG_SIZE] != b[:TAG_SIZE]:
        return False
    if without_nan_bits(a) == without_nan_bits(b):
        return True
    values = [struct.unpack("=125f", record[TAG_SIZE:]) for record in (a, b)]
    return scale is not None and are_near(*values, scale, SINGLE_DIGITS)


def same_output(name, bytes_a, bytes_b, scales, members):
    if bytes_a == bytes_b:
        return True
    if bytes_a is None or bytes_b is None:
        return False
    if name == "out.json":
        return same_json(bytes_a, bytes_b, members)
    if name == "ascii/page-%d.txt" % CROSS_CORRELATION:
        return same_table(bytes_a, bytes_b, scales)
    curve = "uds/page-%d-" % CROSS_CORRELATION
    if name.startswith(curve):
        number = int(name[len(curve):-len(".uds")])
        return same_signal(bytes_a, bytes_b, scale_of(scales, number - 1))
    return name.startswith("uds/") and same_signal(bytes_a, bytes_b)


class Outcome:
    """What one command line gave: the standard streams, the status, and every file in its folder after the run."""

    def __init__(self, tool, folder, words):
        finished = subprocess.run([tool] + words, cwd=folder, capture_output=True, timeout=LONGEST_RUN_S, check=False,
                                  env={**os.environ, "COLUMNS": "100"})
        self.outputs = {"status": b"%d" % finished.returncode, "stdout": finished.stdout, "stderr": finished.stderr}
        for path in sorted(folder.rglob("*")):
            self.outputs[path.relative_to(folder).as_posix()] = path.read_bytes() if path.is_file() else b""

    def scales(self):
        try:
            return curve_scales(json.loads(self.outputs["out.json"].decode("utf-8")))
        except (KeyError, ValueError):
            return []


class Comparison:
    """The tally of all command lines."""

    def __init__(self, tools, left_out=(), new_members=()):
        self.tools, self.left_out, self.new_members = tools, set(left_out), set(new_members)
        self.runs = self.outputs = self.bytes = self.by_tolerance = 0
        self.faults = []

    def run(self, label, make_files, words):
        """One command line in two folders of equal files; `make_files` fills one."""
        outcomes = []
        for tool in self.tools:
            with tempfile.TemporaryDirectory() as name:
                folder = Path(name)
                make_files(folder)
                outcomes.append(Outcome(tool, folder, words))
        self.runs += 1
        scales = outcomes[0].scales()
        for name in sorted(set(outcomes[0].outputs) | set(outcomes[1].outputs)):
            if name not in self.left_out:
                self.compare(label, name, [outcome.outputs.get(name) for outcome in outcomes], scales)

    def compare(self, label, name, contents, scales):
        self.outputs += 1
        self.bytes += len(contents[0] or b"")
        if not same_output(name, *contents, scales, self.new_members):
            self.faults.append("%s: %s differs: %s" % (label, name, first_difference(*contents)))
        elif contents[0] != contents[1]:
            self.by_tolerance += 1

    def report(self):
        return ("%d command lines, %d outputs, %d bytes compared, %d of the outputs by tolerance, %d differ"
                % (self.runs, self.outputs, self.bytes, self.by_tolerance, len(self.faults)))


def first_difference(a, b):
    if a is None or b is None:
        return "only the %s build has it" % ("second" if a is None else "first")
    at = next((i for i, (x, y) in enumerate(zip(a, b)) if x != y), min(len(a), len(b)))
    start = max(at - 30, 0)
    return "at byte %d, %r against %r" % (at, a[start:at + 30], b[start:at + 30])


def copy_examples(folder):
    shutil.copytree(TOP / "examples", folder / "examples")


def compare_examples(comparison):
    here = os.getcwd()
    os.chdir(TOP)
    rows = option_sets()
    os.chdir(here)
    for label, options, words in rows:
        compare_one(comparison, label, copy_examples, options, words)


def compare_one(comparison, label, make_files, options, words):
    comparison.run(label, make_files, arguments(options)[:2] + OUTPUTS + arguments(options)[4:] + words)
    first = options.files[0]
    comparison.run(label + ", show", make_files, ["show", "--json"] + options.files)
    comparison.run(label + ", export", make_files, ["export", first, "--xy", "--out", "points.txt"])
    comparison.run(label + ", convert", make_files, ["convert", first, "--to", "sun", "--out", "sun.uds"])


def compare_random(comparison, seeds):
    for seed in seeds:
        with tempfile.TemporaryDirectory() as folder:
            run = RandomRun(seed, Path(folder))
        compare_one(comparison, "seed %d" % seed, lambda folder, seed=seed: RandomRun(seed, folder), run.options,
                    run.words)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tools", nargs=2, metavar="TOOL")
    parser.add_argument("--seeds", nargs=2, type=int, default=(1, 200), metavar=("FIRST", "COUNT"))
    parser.add_argument("--except", dest="left_out", action="append", default=[], metavar="OUTPUT")
    parser.add_argument("--new-member", dest="new_members", action="append", default=[], metavar="NAME")
    options = parser.parse_args()
    comparison = Comparison([os.path.abspath(tool) for tool in options.tools], options.left_out, options.new_members)
    compare_examples(comparison)
    compare_random(comparison, range(options.seeds[0], sum(options.seeds)))
    for fault in comparison.faults[:MOST_SHOWN]:
        print(fault)
    print(comparison.report())
    return 1 if comparison.faults else 0


if __name__ == "__main__":
    sys.exit(main())
