#!/usr/bin/env python3
"""Writes the bundled sample signals: a sled test in G'S and a barrier test in NEWTONS, each with its hit list.

    python3 examples/make_examples.py [FOLDER]

FOLDER is the folder to write the two sets into; without it they go next to this program. All values come from closed
forms, from math.sin and math.exp and from a small random generator of our own, and are narrowed to single precision
before they are stored, so a second run gives the same bytes. README.md tells how each signal was made.
"""

import math
import struct
import sys
from pathlib import Path

RECORD_BYTES = 512
VALUES_PER_RECORD = 125

# Offset, width and kind of every field that the samples fill: t text, i integer, r real. What a file does not name
# stays blank (text) or zero (number).
FILE_HEADER = {
    "FILEID": (0, 12, "t"), "FILEVER": (12, 4, "i"), "FILEFORM": (16, 10, "t"), "NUMFORM": (26, 5, "t"),
    "DIMSYS": (31, 3, "t"), "TSTSRC": (34, 15, "t"), "TSTNO": (49, 4, "i"), "TSTNAM": (53, 12, "t"),
    "TITLE": (65, 70, "t"), "TSTPRF": (135, 25, "t"), "TSTREF": (160, 10, "t"), "TSTCFN": (170, 3, "t"),
    "IMPANG": (173, 4, "i"), "CLSSPD": (177, 4, "r"), "VEHNO": (181, 4, "i"), "COMPTYPE": (185, 2, "t"),
    "COMPDESC": (187, 30, "t"), "MAKE": (217, 15, "t"), "MODEL": (232, 25, "t"), "YEAR": (257, 4, "i"),
    "BODY": (261, 25, "t"), "ENGINE": (286, 4, "t"), "WEIGHT": (290, 4, "r"), "VEHSPD": (294, 4, "r"),
    "OCCTYPE": (298, 6, "t"), "OCCSIZE": (304, 4, "i"), "OCCCODE": (308, 1, "t"), "OCCWEIGHT": (309, 4, "r"),
    "OCCCODE2": (313, 2, "t"), "RESTRAINT1": (315, 20, "t"), "RESTRAINT2": (335, 20, "t"),
}
COMPONENT_HEADER = {
    "TAG": (0, 12, "t"), "VEHNO": (12, 4, "i"), "COMPTYPE": (16, 2, "t"), "COMPDESC": (18, 30, "t"),
    "MAKE": (48, 15, "t"), "MODEL": (63, 25, "t"), "YEAR": (88, 4, "i"), "BODY": (92, 25, "t"),
    "ENGINE": (117, 4, "t"), "WEIGHT": (121, 4, "r"), "VEHSPD": (125, 4, "r"), "OCCTYPE": (129, 6, "t"),
    "OCCSIZE": (135, 4, "i"), "OCCCODE": (139, 1, "t"), "OCCWEIGHT": (140, 4, "r"), "OCCCODE2": (144, 2, "t"),
    "RESTRAINT1": (146, 20, "t"), "RESTRAINT2": (166, 20, "t"),
}
CURVE_HEADER = {
    "TAG": (0, 12, "t"), "ICHAN": (12, 4, "i"), "CHANFORM": (16, 10, "t"), "CURNO": (26, 4, "i"),
    "CURNAM": (30, 12, "t"), "SENATT": (42, 30, "t"), "SENLOC": (72, 2, "t"), "SENNUM": (74, 4, "i"),
    "BANDNO": (78, 4, "i"), "GAGNO": (82, 4, "i"), "AXIS": (86, 2, "t"), "YTYPE": (88, 20, "t"),
    "YUNITS": (108, 20, "t"), "XTYPE": (128, 20, "t"), "XUNITS": (148, 20, "t"), "STATUS": (168, 20, "t"),
    "CURTYP": (188, 20, "t"), "DESC": (208, 70, "t"), "NFP": (278, 4, "i"), "NLP": (282, 4, "i"),
    "delt": (286, 4, "r"), "INIVEL": (290, 4, "r"), "PREFIL": (294, 4, "r"), "FCUT": (298, 4, "r"),
    "FCOR": (302, 4, "r"), "FSTP": (306, 4, "r"), "SCLFAC": (310, 4, "r"),
}


# --- bytes of a signal file -----------------------------------------------------------------------------------------

def real_bytes(value, number_format):
    """One real as the four bytes of a number format: IEEE, SUN or VAX."""
    b0, b1, b2, b3 = struct.pack("<f", value)
    if number_format == "IEEE":
        return bytes((b0, b1, b2, b3))
    if number_format == "SUN":
        return bytes((b3, b2, b1, b0))
    if b3 in (0, 128):
        return bytes(4)  # too small for the VAX format, or zero
    return bytes((b2, b3 + 1, b0, b1))


def integer_bytes(value, number_format):
    return struct.pack(">i" if number_format == "SUN" else "<i", value)


def header_record(layout, values, number_format):
    record = bytearray(RECORD_BYTES)
    for name, (offset, width, kind) in layout.items():
        if kind == "t":
            field = values.get(name, "").encode("latin-1")[:width].ljust(width)
        elif kind == "i":
            field = integer_bytes(values.get(name, 0), number_format)
        else:
            field = real_bytes(values.get(name, 0.0), number_format)
        record[offset:offset + width] = field
    return bytes(record)


def data_records(tag, values, number_format):
    image = bytearray()
    for first in range(0, len(values), VALUES_PER_RECORD):
        record = bytearray(tag.encode("ascii").ljust(12))
        for value in values[first:first + VALUES_PER_RECORD]:
            record += real_bytes(value, number_format)
        image += record.ljust(RECORD_BYTES, b"\0")
    return bytes(image)


def signal_file(fields, number_format, file_form, first, step, values, second_component=None):
    """The bytes of one file: `values` at point numbers `first`, `first` + 1, ... every `step` seconds."""
    fields = dict(fields, FILEID="UDS-1992", FILEVER=1, FILEFORM=file_form, CHANFORM=file_form,
                  NUMFORM=number_format, NFP=first, NLP=first + len(values) - 1, delt=step)
    image = header_record(FILE_HEADER, fields, number_format)
    if second_component:
        image += header_record(COMPONENT_HEADER, dict(second_component, TAG="CMP-2 HDR"), number_format)
    image += header_record(CURVE_HEADER, dict(fields, TAG="CURVE HDR"), number_format)
    image += data_records("Y DATA", values, number_format)
    if file_form == "X-Y":
        image += data_records("X DATA", [(first + i) * step for i in range(len(values))], number_format)
    return image


# --- shapes ---------------------------------------------------------------------------------------------------------

class Noise:
    """A linear congruential generator, so that the same seed always gives the same noise."""

    def __init__(self, seed):
        self.state = seed

    def next(self):
        """The next value, evenly spread over -1 ... 1."""
        self.state = (self.state * 1664525 + 1013904223) % 4294967296
        return self.state / 2147483648.0 - 1.0


def haversine(time, start, length, peak):
    """One hump that begins and ends without a kink."""
    if time < start or time > start + length:
        return 0.0
    root = math.sin(math.pi * (time - start) / length)
    return peak * root * root


def ringing(time, start, frequency, decay, peak):
    """A sine that begins at `start` and dies away within a few `decay` seconds."""
    if time < start:
        return 0.0
    return peak * math.exp(-(time - start) / decay) * math.sin(2.0 * math.pi * frequency * (time - start))


def sled_pulse(time):
    """Deceleration of the sled in G'S: a 30 g hump over 100 ms, a shoulder, and the structure ringing after it."""
    return (haversine(time, 0.005, 0.100, 28.0) + haversine(time, 0.020, 0.040, 5.0)
            + ringing(time, 0.005, 85.0, 0.030, 1.8) + ringing(time, 0.100, 40.0, 0.025, -1.5))


def barrier_force(time):
    """Force on the barrier in NEWTONS: two humps (front structure, engine) and the ringing of the load cell."""
    return (haversine(time, 0.000, 0.055, 180000.0) + haversine(time, 0.030, 0.060, 310000.0)
            + ringing(time, 0.002, 120.0, 0.020, 9000.0))


def sampled(shape, first, count, step):
    return [shape((first + i) * step) for i in range(count)]


# --- the two sets ---------------------------------------------------------------------------------------------------

SLED = {
    "DIMSYS": "MET", "TSTSRC": "USER DATA", "TSTNO": 1001, "TSTNAM": "SLED TEST", "TITLE": "SLED TEST, MID PULSE",
    "TSTPRF": "OTHER", "TSTREF": "S01", "TSTCFN": "OTH", "CLSSPD": 50.0, "VEHNO": 1, "COMPTYPE": "SL",
    "COMPDESC": "TEST SLED WITH RIGID SEAT", "MAKE": "NONE", "MODEL": "NONE", "YEAR": 1998, "BODY": "SLED BUCK",
    "WEIGHT": 820.0, "VEHSPD": 50.0, "OCCTYPE": "DUMMY", "OCCSIZE": 50, "OCCCODE": "M", "OCCWEIGHT": 78.0,
    "OCCCODE2": "DR", "RESTRAINT1": "3 POINT BELT", "RESTRAINT2": "NONE", "ICHAN": 1, "CURNAM": "SLED X",
    "SENATT": "SLED FLOOR", "SENLOC": "FL", "SENNUM": 7, "AXIS": "XG", "YTYPE": "ACCELERATION", "YUNITS": "G'S",
    "XTYPE": "TIME", "XUNITS": "SECONDS", "CURTYP": "TIME SERIES", "INIVEL": 50.0, "SCLFAC": 1.0,
}
MEASURED = {"STATUS": "AS MEASURED", "PREFIL": 1650.0, "FCUT": 0.0}
COMPUTED = {"STATUS": "COMPUTED", "PREFIL": 0.0, "FCUT": 0.0}

FORCE = dict(SLED, TSTNO=2001, TSTNAM="BARRIER TEST", TITLE="BARRIER TEST, FULL WIDTH", TSTREF="F01", CLSSPD=56.0,
             COMPTYPE="CA", COMPDESC="SAMPLE CAR", BODY="FOUR DOOR", ENGINE="S4IN", WEIGHT=1450.0, VEHSPD=56.0,
             CURNAM="WALL X", SENATT="BARRIER LOAD CELL", SENLOC="BA", SENNUM=21, YTYPE="FORCE", YUNITS="NEWTONS",
             INIVEL=56.0)


def sled_reference():
    values = sampled(sled_pulse, 0, 2201, 0.0001)
    return signal_file(dict(SLED, **MEASURED, CURNO=1, DESC="REFERENCE SLED PULSE"), "IEEE", "Y", 0, 0.0001, values)


def sled_close():
    """The reference with a small oscillation of its own and nearly the same size."""
    values = sampled(lambda t: 1.005 * sled_pulse(t) + ringing(t, 0.010, 25.0, 0.060, 0.35), 0, 2201, 0.0001)
    return signal_file(dict(SLED, **COMPUTED, CURNO=2, DESC="CLOSE TO THE REFERENCE"), "IEEE", "X-Y", 0, 0.0001,
                       values)


def sled_scaled():
    values = sampled(lambda t: 1.18 * sled_pulse(t), 0, 2151, 0.0001)
    return signal_file(dict(SLED, **COMPUTED, CURNO=3, DESC="REFERENCE TIMES 1.18"), "SUN", "Y", 0, 0.0001, values)


def sled_late():
    """The reference 6 ms later; 200 samples before time zero."""
    values = sampled(lambda t: sled_pulse(t - 0.006), -200, 2401, 0.0001)
    return signal_file(dict(SLED, **COMPUTED, CURNO=4, DESC="REFERENCE 6 MS LATER"), "VAX", "X-Y", -200, 0.0001,
                       values)


def sled_noisy():
    """The reference under evenly spread noise of 3 g, measured on a second component."""
    noise = Noise(20240607)
    values = [value + 3.0 * noise.next() for value in sampled(sled_pulse, -100, 2251, 0.0001)]
    fields = dict(SLED, **MEASURED, CURNO=5, DESC="REFERENCE WITH NOISE", TITLE="SLED TEST, PR\u00dcFSTAND 2")
    second = {"VEHNO": 2, "COMPTYPE": "SL", "COMPDESC": "SECOND SEAT", "MAKE": "NONE", "MODEL": "NONE",
              "YEAR": 1998, "BODY": "SLED BUCK", "WEIGHT": 40.0, "VEHSPD": 50.0, "OCCTYPE": "DUMMY", "OCCSIZE": 5,
              "OCCCODE": "F", "OCCWEIGHT": 49.0, "OCCCODE2": "PA", "RESTRAINT1": "3 POINT BELT",
              "RESTRAINT2": "NONE"}
    return signal_file(fields, "SUN", "X-Y", -100, 0.0001, values, second)


def sled_drifting():
    """The reference on a base line that climbs by 15 g per second, sampled twice as fast."""
    values = sampled(lambda t: sled_pulse(t) + 15.0 * t, 0, 4401, 0.00005)
    return signal_file(dict(SLED, **MEASURED, CURNO=6, DESC="REFERENCE WITH DRIFT"), "VAX", "Y", 0, 0.00005, values)


def sled_coarse():
    """A point table every 0.5 ms, as a simulation prints it."""
    values = sampled(lambda t: 0.97 * sled_pulse(1.02 * t), 0, 441, 0.0005)
    return "".join("%.4f, %.5f\n" % (i * 0.0005, value) for i, value in enumerate(values)).encode("ascii")


def force_reference():
    values = sampled(barrier_force, 0, 1601, 0.0001)
    return signal_file(dict(FORCE, **MEASURED, CURNO=1, DESC="REFERENCE BARRIER FORCE"), "SUN", "X-Y", 0, 0.0001,
                       values)


def force_stiff():
    """Nine tenths of the time at a ninth more force."""
    values = sampled(lambda t: barrier_force(t / 0.9) / 0.9, 0, 1601, 0.0001)
    return signal_file(dict(FORCE, **COMPUTED, CURNO=2, DESC="STIFFER FRONT STRUCTURE"), "VAX", "Y", 0, 0.0001,
                       values)


def force_soft():
    values = sampled(lambda t: 0.96 * barrier_force(0.97 * t), -50, 1701, 0.0001)
    return signal_file(dict(FORCE, **COMPUTED, CURNO=3, DESC="SOFTER FRONT STRUCTURE"), "IEEE", "Y", -50, 0.0001,
                       values)


def force_rough():
    """The reference sampled every 0.2 ms by a load cell with 4 kN of noise."""
    noise = Noise(77)
    values = [value + 4000.0 * noise.next() for value in sampled(barrier_force, 0, 801, 0.0002)]
    return signal_file(dict(FORCE, **MEASURED, CURNO=4, DESC="REFERENCE WITH NOISE, 5 KHZ"), "IEEE", "X-Y", 0, 0.0002,
                       values)


SETS = {
    "sled": [("s01001aa0.001", sled_reference), ("s01002aa0.001", sled_close), ("s01003aa0.001", sled_scaled),
             ("s01004aa0.001", sled_late), ("s01005aa0.001", sled_noisy), ("s01006aa0.001", sled_drifting),
             ("s01007aa0.txt", sled_coarse)],
    "force": [("f01001fa0.001", force_reference), ("f01002fa0.001", force_stiff), ("f01003fa0.001", force_soft),
              ("f01004fa0.001", force_rough)],
}


def hit_list(name, files):
    """The computed signals of a set (all but the first), with the paths they have from the top of the tree."""
    return "".join("examples/%s/%s\r\n" % (name, file) for file, _ in files[1:]).encode("ascii")


def write_examples(folder):
    for name, files in SETS.items():
        (folder / name).mkdir(parents=True, exist_ok=True)
        for file, make in files:
            (folder / name / file).write_bytes(make())
        (folder / name / (name + ".hit")).write_bytes(hit_list(name, files))


if __name__ == "__main__":
    write_examples(Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent)
