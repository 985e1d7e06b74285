"""What the end-to-end tests share: a folder per test, runs of the tool, the results' schema, and a writer of UDS-1992
files that is independent of the program."""

import json
import os
import shutil
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path

import jsonschema

CLI = os.environ["QUORVEL_CLI"]
SOURCE = Path(os.environ["QUORVEL_SOURCE"])
SCHEMA = json.loads((SOURCE / "docs/formats/compare.schema.json").read_text(encoding="utf-8"))
SHOW_SCHEMA = json.loads((SOURCE / "docs/formats/show.schema.json").read_text(encoding="utf-8"))

# No run of these tests comes near this; it only ends a run that hangs.
HANG_GUARD_S = 120

# The pages in their order, for a reference in G'S and for any other.
ACCELERATION_PAGES = [1, 7, 8, 9, 4, 3, 5, 6, 10, 11]
OTHER_PAGES = [1, 2, 4, 3, 5, 6, 10, 11]

HEADERS = ["Filename", "Peak Value", "Avg Residual", "Std Dev of Residual", "% in Corridor", "Correlation Factor",
           "T Statistic", "0 Moment Difference", "1st Moment Difference", "2nd Moment Difference",
           "3rd Moment Difference", "4th Moment Difference", "5th Moment Difference", "Ref Filename", "Min Time",
           "Max Time"]


class Form:
    """Number format of a file: what struct calls its byte order, and its name in the header."""

    def __init__(self, order, name):
        self.order, self.name = order, name


IEEE = Form("<", b"IEEE")
SUN = Form(">", b"SUN")


def uds(y, step=0.5, *, x=None, nfp=0, nlp=None, units=b"G'S", form=IEEE):
    """The bytes of a UDS-1992 file. With `x` the arrangement is X-Y, without it Y."""
    nlp = nfp + len(y) - 1 if nlp is None else nlp
    arrangement = b"Y" if x is None else b"X-Y"
    header = bytearray(512)
    header[0:12] = b"UDS-1992".ljust(12)
    header[12:16] = struct.pack(form.order + "i", 1)
    header[16:26] = arrangement.ljust(10)
    header[26:31] = form.name.ljust(5)
    curve = bytearray(512)
    curve[0:12] = b"CURVE HDR".ljust(12)
    curve[88:108] = b"ACCELERATION".ljust(20)
    curve[108:128] = units.ljust(20)
    curve[128:148] = b"TIME".ljust(20)
    curve[148:168] = b"SECONDS".ljust(20)
    curve[168:188] = b"COMPUTED".ljust(20)
    curve[278:290] = struct.pack(form.order + "iif", nfp, nlp, step)
    blocks = data_blocks(b"Y DATA", y, form) + (b"" if x is None else data_blocks(b"X DATA", x, form))
    return bytes(header + curve) + blocks


def data_blocks(tag, values, form):
    blocks = b""
    for first in range(0, len(values), 125):
        part = values[first:first + 125]
        blocks += tag.ljust(12) + struct.pack(f"{form.order}{len(part)}f", *part).ljust(500, b"\0")
    return blocks


def as_nobody():
    """Options for a run without the rights of root."""
    return {"user": 65534, "group": 65534, "extra_groups": []} if os.geteuid() == 0 else {}


def read_uds_y(image, form=IEEE):
    """The ordinates of a file as this tool writes it: all Y DATA records first."""
    nfp, nlp = struct.unpack_from(form.order + "ii", image, 512 + 278)
    values = []
    for record in range(1024, len(image), 512):
        if image[record:record + 12].rstrip() == b"Y DATA":
            values += struct.unpack_from(form.order + "125f", image, record + 12)
    return values[:nlp - nfp + 1]


class Run:
    """A finished run of the tool."""

    def __init__(self, completed):
        self.status = completed.returncode
        self.out, self.err = completed.stdout, completed.stderr

    @property
    def text(self):
        return self.out.decode("utf-8")

    @property
    def complaints(self):
        return self.err.decode("utf-8", "surrogateescape")


class EndToEndTest(unittest.TestCase):
    """A test in its own folder, which is also the current folder of the runs."""

    maxDiff = None

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="quorvel-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def write(self, name, content):
        """Writes bytes, or a signal given as its ordinates, and returns the name."""
        path = os.path.join(os.fsencode(self.folder), os.fsencode(name))
        with open(path, "wb") as file:
            file.write(content if isinstance(content, bytes) else uds(content))
        return name

    def read(self, name):
        return (self.folder / name).read_bytes()

    def names(self):
        return sorted(os.listdir(self.folder))

    def run_cli(self, *arguments, environment=None, **options):
        settings = {**os.environ, "NO_COLOR": "", "COLUMNS": "", **(environment or {})}
        settings = {name: value for name, value in settings.items() if value is not None}
        options.setdefault("stdin", subprocess.DEVNULL)
        options.setdefault("stdout", subprocess.PIPE)
        options.setdefault("stderr", subprocess.PIPE)
        return Run(subprocess.run([CLI, *arguments], cwd=self.folder, env=settings, timeout=HANG_GUARD_S, check=False,
                                  **options))

    def compare(self, *arguments, **options):
        return self.run_cli("compare", *arguments, **options)

    def results(self, *arguments, status=0):
        """Compares with --json -, checks the results against the schema, and returns them."""
        run = self.compare("--json", "-", *arguments)
        self.assertEqual(run.status, status, run.complaints)
        return self.parse(run.out)

    def parse(self, text, schema=SCHEMA):
        def refuse(constant):
            raise AssertionError(f"{constant} is no JSON")

        results = json.loads(text.decode("utf-8"), parse_constant=refuse)
        jsonschema.validate(results, schema, cls=jsonschema.Draft202012Validator)
        return results

    def assertComplaints(self, run, *sentences):
        """The complaints are exactly these, in this order."""
        self.assertEqual(run.complaints, "".join(f"{sentence}\n" for sentence in sentences))


# A reference and a signal 1.5 times as large, at t = 0, 0.5 ... 2. Everything can be worked out by hand, and every
# number is exact in single precision.
REFERENCE = [0.0, 2.0, 4.0, 2.0, 0.0]
SCALED = [0.0, 3.0, 6.0, 3.0, 0.0]
SCALED_COLUMNS = ["scaled.uds", "6.0", "0.800000 (20.00 %)", "0.748331 (18.71 %)", "20.00", "1.000", "2.39", "0.333",
                  "0.333", "0.333", "0.333", "0.333", "0.333", "reference.uds", "0.0000", "2.0000"]
SCALED_VERDICTS = ["none", "none", "bad", "good", "bad", "good", "good", "bad", "bad", "bad", "bad", "bad", "bad",
                   "none", "none", "none"]


class ScaledTest(EndToEndTest):
    """A test that has both files and compares with the corridor of 1.5 that fits the numbers above."""

    def setUp(self):
        super().setUp()
        self.write("reference.uds", REFERENCE)
        self.write("scaled.uds", SCALED)

    def compare_scaled(self, *arguments, **options):
        return self.compare("--reference", "reference.uds", "--corridor", "1.5", *arguments, "scaled.uds", **options)

    def scaled_results(self, *arguments):
        return self.results("--reference", "reference.uds", "--corridor", "1.5", *arguments, "scaled.uds")
