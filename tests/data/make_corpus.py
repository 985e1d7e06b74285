#!/usr/bin/python3
"""Makes the fuzz corpora next to this file: small inputs by hand, good ones and one for every kind of fault.

Deterministic; run it again after a change here. Crash inputs that are added by hand keep their names: the script
writes only its own files.
"""

import math
import pathlib
import struct

CORPUS = pathlib.Path(__file__).resolve().parent / "corpus"
RECORD = 512


def real(value, numform):
    if numform == "SUN":
        return struct.pack(">f", value)
    if numform == "IEEE":
        return struct.pack("<f", value)
    if value == 0.0:
        return bytes(4)
    mantissa, exponent = math.frexp(abs(value))
    fraction = round((mantissa * 2 - 1) * 2**23) & 0x7FFFFF
    word = (0x80000000 if value < 0 else 0) | (exponent + 128) << 23 | fraction
    high = struct.pack(">I", word)
    return bytes([high[1], high[0], high[3], high[2]])


def integer(value, numform):
    return struct.pack(">i" if numform == "SUN" else "<i", value)


def put(record, offset, data):
    record[offset : offset + len(data)] = data


def text(value, width):
    return value.encode("latin-1").ljust(width)[:width]


def headers(numform="IEEE", form="X-Y", nfp=0, nlp=2, delt=0.5, second=False, year=87):
    file = bytearray(RECORD)
    put(file, 0, text("UDS-1992", 12))
    put(file, 12, integer(1, numform))
    put(file, 16, text(form, 10))
    put(file, 26, text(numform, 5))
    put(file, 31, text("MET", 3))
    put(file, 65, text(" Pr\u00fcfung 20\u00b0 ", 70))
    put(file, 173, integer(-30, numform))
    put(file, 177, real(56.25, numform))
    put(file, 257, integer(year, numform))
    put(file, 371, real(-1.5e-3, numform))
    curve = bytearray(RECORD)
    put(curve, 0, text("CURVE HDR", 12))
    put(curve, 88, text("ACCELERATION", 20))
    put(curve, 108, text("G'S", 20))
    put(curve, 278, integer(nfp, numform))
    put(curve, 282, integer(nlp, numform))
    put(curve, 286, real(delt, numform))
    put(curve, 298, real(100.0, numform))
    put(curve, 334, real(7.5, numform))
    put(curve, 338, real(8.5, numform))
    component = bytearray(RECORD)
    put(component, 0, text("CMP-2 HDR", 12))
    put(component, 12, integer(2, numform))
    put(component, 166, text("BELT", 20))
    return bytes(file) + (bytes(component) if second else b"") + bytes(curve)


def blocks(tag, values, numform="IEEE"):
    data = b""
    for start in range(0, len(values), 125):
        piece = b"".join(real(value, numform) for value in values[start : start + 125])
        data += (text(tag, 12) + piece).ljust(RECORD, b"\0")
    return data


def uds(count=3, numform="IEEE", form="X-Y", **more):
    more.setdefault("nlp", count - 1)
    y = [round(math.sin(i / 7.0) * 4096) / 64 for i in range(count)]
    data = blocks("Y DATA", y, numform)
    if form == "X-Y":
        data += blocks("X DATA", [i / 8 for i in range(count)], numform)
    return headers(numform, form, **more) + data


def interleaved():
    x, y = blocks("X DATA", [0.0, 0.5, 1.0]), blocks("Y DATA", [1.0, 2.0, 3.0])
    return headers() + x + y + x + y


def with_nan():
    data = bytearray(uds())
    put(data, 1024 + 12, b"\x00\x00\xc0\x7f")
    put(data, 1024 + 16, b"\x00\x00\x80\x7f")
    put(data, 177, b"\xff\xff\xff\xff")
    return bytes(data)


UDS = {
    "pairs-ieee": uds(),
    "pairs-sun": uds(numform="SUN"),
    "pairs-vax": uds(numform="VAX"),
    "ordinates-ieee": uds(form="Y", nfp=-1, nlp=1),
    "ordinates-sun": uds(form="Y", numform="SUN", nfp=-1, nlp=1),
    "ordinates-vax": uds(form="Y", numform="VAX", nfp=-1, nlp=1),
    "second-component": uds(second=True),
    "second-component-sun": uds(second=True, numform="SUN"),
    "two-records-per-kind": uds(126),
    "interleaved": interleaved(),
    "not-a-number": with_nan(),
    "record-too-many": uds() + bytes(RECORD),
    "unknown-form": uds(form="Z"),
    "unknown-number-format": uds().replace(b"IEEE", b"CRAY"),
    "equal-indices": uds(nlp=0),
    "crossed-indices": uds(nfp=5, nlp=4),
    "all-indices": uds(nfp=-(2**31), nlp=2**31 - 1),
    "only-ordinates": headers() + 2 * blocks("Y DATA", [1.0]),
    "headers-alone": headers(),
    "one-record": headers()[:RECORD],
    "odd-size": uds() + b"x",
    "empty": b"",
}

ASCII = {
    "empty": b"",
    "one": b"1.5",
    "ones": b"1\n-2.5\n+.5e1\n5.\n",
    "twos": b"0.001,2\n0.002, 3\n0.003 4\n0.004\t5\n",
    "threes": b"1 2 3\r\n4 5 6\r\n",
    "all-runs": b"1\n2 3\n4 5 6\n",
    "carriage-returns": b"1 2\r3 4\r",
    "no-separator": b"1-2\n3.5.25\n1..5\n",
    "spanning": b"1,\n2\n3\n4\n",
    "extremes": b"1e400\n-1e400\n1e-400\n1.7976931348623157e308\n4.9e-324\n",
    "long-number": b"0." + 800 * b"3" + b"\n",
    "white": b" \t\v\f\n 1 2\n",
    "cut-at-empty-line": b"1 2\n\nfree text",
    "cut-at-tab": b"1 2\t\n3 4\n",
    "cut-at-blanks": b"1  2\n",
    "blank-at-the-end": b"1 2 \n",
    "words": b"time y\n1 2\n",
    "back-to-one": b"1 2\n3\n",
    "nan": b"nan\n",
    "half-exponent": b"1e+\n",
    "bytes": bytes(range(256)),
}

HIT_LISTS = {
    "empty": b"",
    "dos": b"a.uds\r\nC:\\runs\\b.uds\r\n",
    "unix": b"a.uds\n/runs/b c.uds\n",
    "blank-lines": b"\r\n\n a \n \n\r\nb",
    "carriage-returns": b"a\rb\r\r\n\r",
    "bytes": bytes(range(256)),
}


def main():
    for name, files in (("uds_file", UDS), ("ascii_points", ASCII), ("hit_list", HIT_LISTS)):
        folder = CORPUS / name
        folder.mkdir(parents=True, exist_ok=True)
        for file, data in files.items():
            (folder / file).write_bytes(data)


main()
