"""Signal files as bytes: 512-byte records, three number formats, two arrangements of the data."""

import math
import struct

from ieee import Fault, single

RECORD = 512
VALUES = 125

# Offset, width, kind (t text, i integer, r real) of the fields that a comparison can see.
FILE_HEADER = {"FILEID": (0, 12, "t"), "FILEFORM": (16, 10, "t"), "NUMFORM": (26, 5, "t"), "DIMSYS": (31, 3, "t")}
CURVE_HEADER = {"TAG": (0, 12, "t"), "YTYPE": (88, 20, "t"), "YUNITS": (108, 20, "t"), "XTYPE": (128, 20, "t"),
                "XUNITS": (148, 20, "t"), "STATUS": (168, 20, "t"), "NFP": (278, 4, "i"), "NLP": (282, 4, "i"),
                "delt": (286, 4, "r"), "INIVEL": (290, 4, "r"), "PREFIL": (294, 4, "r"), "FCUT": (298, 4, "r"),
                "FSTP": (306, 4, "r")}


def text_at(image, offset, width):
    return image[offset:offset + width].decode("latin-1").strip(" ")


def ieee_of_vax(b0, b1, b2, b3):
    return bytes(4) if b1 in (0, 128) else bytes((b2, b3, b0, b1 - 1))


def read_real(four, number_format):
    if number_format == "IEEE":
        value = struct.unpack("<f", four)[0]
    elif number_format == "SUN":
        value = struct.unpack(">f", four)[0]
    elif number_format == "VAX":
        value = struct.unpack("<f", ieee_of_vax(*four))[0]
    else:
        return 0.0
    return 0.0 if math.isnan(value) else value


def read_integer(four, number_format):
    if number_format not in ("IEEE", "SUN", "VAX"):
        return 0
    return struct.unpack(">i" if number_format == "SUN" else "<i", four)[0]


def read_fields(image, base, layout, number_format):
    fields = {}
    for name, (offset, width, kind) in layout.items():
        if kind == "t":
            fields[name] = text_at(image, base + offset, width)
        elif kind == "i":
            fields[name] = read_integer(image[base + offset:base + offset + 4], number_format)
        else:
            fields[name] = read_real(image[base + offset:base + offset + 4], number_format)
    return fields


def record_values(image, start, number_format):
    block = image[start + 12:start + RECORD]
    return [read_real(block[i:i + 4], number_format) for i in range(0, 4 * VALUES, 4)]


def check_sizes(fields, file_size, header_size):
    first, last = fields["NFP"], fields["NLP"]
    if first == last:
        raise Fault("Equal array indices, NFP = NLP in file")
    if first > last:
        raise Fault("Crossed array indices, NFP > NLP in file")
    records = (file_size - header_size) // RECORD
    count = last - first + 1
    padded = -(-count // VALUES) * VALUES
    needed = padded if fields["FILEFORM"] == "Y" else 2 * padded
    if VALUES * records < needed:
        raise Fault("File size too small - Insufficient data points")
    return count


def read_columns(image, header_size, fields, count):
    form, number_format = fields["FILEFORM"], fields["NUMFORM"]
    if form not in ("X-Y", "Y"):
        raise Fault("Format is not known.")
    columns = {"X DATA": [], "Y DATA": []} if form == "X-Y" else {"Y DATA": []}
    for start in range(header_size, len(image), RECORD):
        tag = text_at(image, start, 12)
        if tag not in columns:
            raise Fault("Unknown Data Block")
        room = count - len(columns[tag])
        if room > 0:
            columns[tag] += record_values(image, start, number_format)[:room]
    if any(len(column) < count for column in columns.values()):
        raise Fault("File size too small - Insufficient data points")
    if form == "X-Y":
        return columns["X DATA"], columns["Y DATA"]
    first, step = fields["NFP"], fields["delt"]
    return [single(single(float(first + i)) * step) for i in range(count)], columns["Y DATA"]


def read_uds(path):
    """The fields, abscissas and ordinates of a signal file; raises Fault."""
    try:
        with open(path, "rb") as file:
            image = file.read()
    except OSError:
        raise Fault("Failure to open file: " + path + " for reading.") from None
    if len(image) % RECORD:
        raise Fault("File size not a multiple of 512 bytes.")
    if not image:
        raise Fault("Data buffer too small")
    number_format = text_at(image, 26, 5)
    fields = read_fields(image, 0, FILE_HEADER, number_format)
    if fields["FILEID"] != "UDS-1992":
        raise Fault("Not a UDS-1992 Signal File")
    if len(image) < 2 * RECORD:
        raise Fault("Data buffer too small")
    curve = 2 * RECORD if text_at(image, RECORD, 12) == "CMP-2 HDR" else RECORD
    if len(image) < curve + RECORD:
        raise Fault("Data buffer too small")
    fields.update(read_fields(image, curve, CURVE_HEADER, number_format))
    if fields.pop("TAG") != "CURVE HDR":
        raise Fault("Invalid 3rd Record Header")
    header_size = curve + RECORD
    count = check_sizes(fields, len(image), header_size)
    abscissas, ordinates = read_columns(image, header_size, fields, count)
    return fields, abscissas, ordinates
