"""Signal files with every header field set: the layout again, taken from the format's description, not from the
program's tables."""

import struct

from support import IEEE, data_blocks

# Offset in the file header, offset in the second component's record, width (0: integer, -1: real), name without its
# number.
COMPONENT = [(181, 12, 0, "CMPNO"), (185, 16, 2, "CMPTYP"), (187, 18, 30, "CMPDSC"), (217, 48, 15, "MAKE"),
             (232, 63, 25, "MODEL"), (257, 88, 0, "YEAR"), (261, 92, 25, "BODY"), (286, 117, 4, "ENGINE"),
             (290, 121, -1, "VEHWGT"), (294, 125, -1, "VEHSPD"), (298, 129, 6, "OCCTYP"), (304, 135, 0, "OCCSIZ"),
             (308, 139, 1, "OCCSEX"), (309, 140, -1, "OCCWGT"), (313, 144, 2, "OCCAGE"), (315, 146, 20, "RSTPRI"),
             (335, 166, 20, "RSTSEC")]

FILE = [(12, 0, "FILEVER"), (16, 10, "FILEFORM"), (26, 5, "NUMFORM"), (31, 3, "DIMSYS"), (34, 15, "TSTSRC"),
        (49, 0, "TSTNO"), (53, 12, "TSTNAM"), (65, 70, "TITLE"), (135, 25, "TSTPRF"), (160, 10, "TSTREF"),
        (170, 3, "TSTCFN"), (173, 0, "IMPANG"), (177, -1, "CLSSPD"), (355, -1, "INJ1"), (359, -1, "INJ2"),
        (363, -1, "INJ3"), (367, -1, "INJ4"), (371, -1, "INJ5"), (375, -1, "INJ6"), (379, 1, "AIS")]

CURVE = [(12, 0, "ICHAN"), (16, 10, "CHANFORM"), (26, 0, "CURNO"), (30, 12, "CURNAM"), (42, 30, "SENATT"),
         (72, 2, "SENLOC"), (74, 0, "SENNUM"), (78, 0, "BANDNO"), (82, 0, "GAGNO"), (86, 2, "AXIS"),
         (88, 20, "YTYPE"), (108, 20, "YUNITS"), (128, 20, "XTYPE"), (148, 20, "XUNITS"), (168, 20, "STATUS"),
         (188, 20, "CURTYP"), (208, 70, "DESC"), (278, 0, "NFP"), (282, 0, "NLP"), (286, -1, "delt"),
         (290, -1, "INIVEL"), (294, -1, "PREFIL"), (298, -1, "FCUT"), (302, -1, "FCOR"), (306, -1, "FSTP"),
         (310, -1, "SCLFAC"), (314, 0, "ID1"), (318, 0, "ID2"), (322, 0, "ID3"), (326, 0, "ID4"), (330, 0, "ID5"),
         (334, -1, "RD1"), (338, -1, "RD2"), (342, -1, "RD3"), (346, -1, "RD4"), (350, -1, "RD5"), (354, 20, "CD1"),
         (374, 70, "CD2")]

FILE_FIELDS = FILE + [(first, width, name + "1") for first, _, width, name in COMPONENT]
SECOND_FIELDS = [(second, width, name + "2") for _, second, width, name in COMPONENT]

ORDINATES = [0.0, 3.0, -6.5, 3.0, 0.25]


def header_values(second=True):
    """A different value for every field: a text as wide as the field, an integer, or a real that is exact."""
    values = {}
    fields = FILE_FIELDS + (SECOND_FIELDS if second else []) + CURVE
    for number, (_, width, name) in enumerate(fields, start=100):
        if width > 0:
            values[name] = str(number)[-width:].ljust(width, chr(ord("A") + number % 26))
        else:
            values[name] = 1000 * number + 7 if width == 0 else number + 0.5
    values.update({"FILEFORM": "Y", "NUMFORM": "IEEE", "YEAR1": 1987, "NFP": -2, "NLP": 2, "delt": 0.5,
                   "RD2": values["RD1"], "RD3": values["RD1"], "RD4": values["RD1"], "RD5": values["RD1"]})
    return values


def _put(record, fields, values, form):
    for offset, width, name in fields:
        value = values[name]
        if width > 0:
            record[offset:offset + width] = value.encode("latin-1").ljust(width)
        else:
            record[offset:offset + 4] = struct.pack(form.order + ("i" if width == 0 else "f"), value)


def header_file(values, *, second=True, form=IEEE, y=None):
    """The bytes of a file with these header fields, its points in the arrangement Y."""
    values = {**values, "NUMFORM": form.name.decode("ascii")}
    header = bytearray(512)
    header[0:12] = b"UDS-1992".ljust(12)
    _put(header, FILE_FIELDS, values, form)
    image = bytes(header)
    if second:
        component = bytearray(512)
        component[0:12] = b"CMP-2 HDR".ljust(12)
        _put(component, SECOND_FIELDS, values, form)
        image += bytes(component)
    curve = bytearray(512)
    curve[0:12] = b"CURVE HDR".ljust(12)
    _put(curve, CURVE, values, form)
    return image + bytes(curve) + data_blocks(b"Y DATA", ORDINATES if y is None else y, form)
