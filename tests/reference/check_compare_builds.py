#!/usr/bin/env python3
"""Proof that compare_builds.py finds what differs: a second tool that spoils one output of the first.

    check_compare_builds.py TOOL    TOOL is the path of quorvel-cli
"""

import os
import stat
import sys
import tempfile
import unittest
from pathlib import Path

from compare_builds import Comparison, compare_outputs, copy_examples, is_near, same_json, same_signal, same_table
from document import Options

SPOILED = """#!%s
import json, pathlib, struct, subprocess, sys
run = subprocess.run([%r] + sys.argv[1:], capture_output=True)
out, err, status = run.stdout, run.stderr, run.returncode
def change(name, edit):
    path = pathlib.Path(name)
    if path.exists():
        path.write_bytes(edit(path.read_bytes()))
def flip(content):
    return content[:-9] + bytes([content[-9] ^ 1]) + content[-8:]
%s
sys.stdout.buffer.write(out)
sys.stderr.buffer.write(err)
sys.exit(status)
"""

SPOILS = {
    "stdout": "out = flip(out)",
    "stderr": "err += b'more'",
    "status": "status += 1",
    "out.html": "change('out.html', flip)",
    "out.csv": "change('out.csv', flip)",
    "out.json": "change('out.json', lambda text: text.replace(b'\"pointCount\"', b'\"pointcount\"', 1))",
    "ascii/page-7.txt": "change('ascii/page-7.txt', flip)",
    "ascii/page-11.txt": "change('ascii/page-11.txt', lambda text: text + b'0 ')",
    "uds/page-4-1.uds": "change('uds/page-4-1.uds', flip)",
    "uds/page-11-1.uds": "change('uds/page-11-1.uds', lambda content: content.replace(b'TIME', b'TINE', 1))",
    "ascii/page-3.txt": "pathlib.Path('ascii/page-3.txt').unlink(missing_ok=True)",
    "more": "pathlib.Path('more').write_bytes(b'more')",
    "examples/sled/s01002aa0.001": "change('examples/sled/s01002aa0.001', flip)",
}


def page_line(curves, page=11):
    series = ",".join('{"name":"s","x":[0,1],"y":%s}' % list(curve) for curve in curves)
    return '  {"id":%d,"name":"p","series":[%s]}' % (page, series)


def results(curves, x_units="SECONDS"):
    """Results of two signals of standard deviation 1, with these curves on page 11."""
    inputs = page_line([(-1, 1), (-1, 1)], page=7)
    return ('{\n"reference": "%s",\n"pages": [\n%s,\n%s]\n}\n' % (x_units, inputs, page_line(curves))).encode()


def table(y):
    return b"0 %b 0 1 \r\n" % y


class Comparing(unittest.TestCase):
    tool = ""

    def faults_of(self, spoil, left_out=()):
        options = Options(["examples/sled/s01002aa0.001"], "examples/sled/s01001aa0.001")
        with tempfile.TemporaryDirectory() as folder:
            spoiled = Path(folder) / "tool"
            spoiled.write_text(SPOILED % (sys.executable, self.tool, spoil))
            spoiled.chmod(stat.S_IRWXU)
            comparison = Comparison([self.tool, str(spoiled)], left_out)
            compare_outputs(comparison, "sled", copy_examples, options, options.files)
        self.assertGreater(comparison.outputs, 50)
        return comparison.faults

    def test_equal_builds_agree(self):
        self.assertEqual([], self.faults_of(""))

    def test_every_spoiled_output_is_found(self):
        faults = self.faults_of("\n".join(SPOILS.values()))
        for name in SPOILS:
            self.assertEqual(1, sum(": %s differs: " % name in fault for fault in faults), (name, faults))
        self.assertEqual(len(SPOILS), len(faults))

    def test_what_is_left_out_is_not_compared_and_all_else_is(self):
        self.assertEqual([], self.faults_of(SPOILS["stderr"], ["stderr"]))
        self.assertNotEqual([], self.faults_of(SPOILS["stdout"], ["stderr"]))


class CrossCorrelation(unittest.TestCase):
    def test_a_number_is_near_by_the_product_of_the_deviations(self):
        self.assertTrue(is_near("1.0", "1.0000000000009", 1.0))
        self.assertFalse(is_near("1.0", "1.0000000000011", 1.0))
        self.assertFalse(is_near("1.0", "1.0000000000009", 0.5))
        self.assertTrue(is_near("nan", "nan", 1.0))
        self.assertFalse(is_near("nan", "1", 1.0))
        self.assertFalse(is_near(None, "1", 1.0))

    def test_the_json_may_differ_in_the_curves_alone(self):
        one = results([(1, 0.5), (1, 0.25)])
        self.assertTrue(same_json(one, results([(1, 0.5), (1, 0.2500000000009)]), ()))
        self.assertFalse(same_json(one, results([(1, 0.5), (1, 0.2500000000011)]), ()))
        self.assertFalse(same_json(one, results([(1, 0.5)]), ()))
        self.assertFalse(same_json(one, results([(1, 0.5), (1, 0.25)], "SEC"), ()))
        self.assertFalse(same_json(one, one.replace(b'"x":[0,1],"y":[1, 0.25]', b'"x":[0,2],"y":[1, 0.25]'), ()))
        self.assertFalse(same_json(one, one.replace(b"[-1, 1]", b"[-1, 1.0]"), ()))
        self.assertFalse(same_json(one, one.replace(b',\n"pages"', b',\n\n"pages"'), ()))

    def test_without_the_signals_the_curves_are_equal_or_differ(self):
        one = results([(1, 0.5), (1, 0.25)]).replace(b'"id":7', b'"id":8')
        other = results([(1, 0.5), (1, 0.2500000000001)]).replace(b'"id":7', b'"id":8')
        self.assertTrue(same_json(one, one, ()))
        self.assertFalse(same_json(one, other, ()))
        self.assertFalse(same_table(table(b"0.123456"), table(b"0.12346"), []))

    def test_a_new_member_is_left_out_where_it_is_named(self):
        one = results([(1, 0.5), (1, 0.25)])
        other = one.replace(b'"reference"', b'"notes": [],\n"reference"')
        self.assertFalse(same_json(one, other, ()))
        self.assertTrue(same_json(one, other, ("notes",)))
        self.assertFalse(same_json(one, other.replace(b"SECONDS", b"SEC"), ("notes",)))

    def test_the_table_may_differ_in_the_last_digit_of_y(self):
        self.assertTrue(same_table(table(b"0.123456"), table(b"0.123457"), [1.0, 1.0]))
        self.assertFalse(same_table(table(b"0.123456"), table(b"0.123458"), [1.0, 1.0]))
        self.assertFalse(same_table(table(b"1"), b"0.1 1 0 1 \r\n", [1.0, 1.0]))
        self.assertFalse(same_table(table(b"1"), table(b"1") * 2, [1.0, 1.0]))

    def test_the_signal_may_differ_in_the_last_bit_of_y(self):
        ones, header = b"\x00\x00\x80\x3f" * 125, bytes(1024)
        tag = b"Y DATA".ljust(12)
        near = b"\x01" + ones[1:]
        self.assertTrue(same_signal(header + tag + ones, header + tag + near, 1.0))
        self.assertFalse(same_signal(header + tag + ones, header + tag + b"\x03" + ones[1:], 1.0))
        self.assertFalse(same_signal(header + tag + ones, b"x" + header[1:] + tag + near, 1.0))
        self.assertFalse(same_signal(header + tag + ones, header, 1.0))
        self.assertFalse(same_signal(header + tag + ones, header + tag + near), "not on any other page")

    def test_the_bits_of_a_value_that_is_not_a_number_do_not_count(self):
        header, tag, ones = bytes(1024), b"Y DATA".ljust(12), b"\x00\x00\x80\x3f" * 124
        plus, minus, infinite = b"\x00\x00\xc0\x7f", b"\x00\x00\xc0\xff", b"\x00\x00\x80\x7f"
        self.assertTrue(same_signal(header + tag + plus + ones, header + tag + minus + ones))
        self.assertFalse(same_signal(header + tag + plus + ones, header + tag + infinite + ones))
        self.assertFalse(same_signal(header + tag + bytes(4) + ones, header + tag + b"\x00\x00\x00\x80" + ones))


if __name__ == "__main__":
    Comparing.tool = os.path.abspath(sys.argv.pop(1))
    unittest.main()
