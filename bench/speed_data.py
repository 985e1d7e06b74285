#!/usr/bin/python3
"""Makes the signal files of the speed table that a folder lacks. Their names tell what they hold:

    speed_data.py FOLDER NAME...

    FORM-NUMBERS-SAMPLES-SEED.uds   a UDS-1992 file. FORM: "y" ordinates only, "xy" both columns, each 1e-5 s apart;
                                    "slow" ordinates 1e-4 s apart; "exact" 2^-13 s, a step that
                                    single precision holds exactly; "lag" ordinates so far apart that 10 ms are a
                                    thirtieth of them. NUMBERS: "sun", "vax" or "ieee".
    lines-SAMPLES.txt               that many lines of two numbers

The same name always gives the same bytes. Needs Debian's python3-numpy.
"""
import os
import re
import struct
import sys
from pathlib import Path

import numpy

VALUES = 125
LINES_AT_A_TIME = 1_000_000
STEPS = {"y": lambda samples: 1e-5, "xy": lambda samples: 1e-5, "slow": lambda samples: 1e-4,
         "exact": lambda samples: 2.0**-13, "lag": lambda samples: 0.3 / samples}


def ordinates(samples, seed):
    """A decaying oscillation with noise; two seeds give two signals that resemble each other."""
    part = numpy.arange(samples) / samples
    noise = numpy.random.default_rng(seed).standard_normal(samples)
    return (40.0 * numpy.exp(-3.0 * part) * numpy.sin(60.0 * part + 0.05 * seed) + noise).astype(numpy.float32)


def encoded(values, numbers):
    if numbers == "sun":
        return values.astype(">f4").view(numpy.uint32)
    bits = values.astype("<f4").view(numpy.uint32)
    if numbers == "ieee":
        return bits
    # Two more in the exponent, then the 16-bit halves change places; numbers too small for that are zeros.
    small = (bits >> 24 & 0x7F) == 0
    larger = bits + numpy.uint32(0x01000000)
    return numpy.where(small, numpy.uint32(0), larger << 16 | larger >> 16)


def blocks(tag, values, numbers):
    records = -(-len(values) // VALUES)
    padded = numpy.zeros(records * VALUES, dtype=numpy.float32)
    padded[:len(values)] = values
    words = numpy.empty((records, VALUES + 3), dtype=numpy.uint32)
    words[:, :3] = numpy.frombuffer(tag.ljust(12).encode(), dtype=numpy.uint32)
    words[:, 3:] = encoded(padded, numbers).reshape(records, VALUES)
    return words.tobytes()


def headers(form, numbers, samples, step):
    image = bytearray(1024)
    texts = {0: (12, "UDS-1992"), 16: (10, form), 26: (5, numbers.upper()), 31: (3, "MET"), 512: (12, "CURVE HDR"),
             600: (20, "FORCE"), 620: (20, "NEWTONS"), 640: (20, "TIME"), 660: (20, "SECONDS"),
             680: (20, "AS MEASURED")}
    for offset, (width, text) in texts.items():
        image[offset:offset + width] = text.ljust(width).encode()
    struct.pack_into(">ii" if numbers == "sun" else "<ii", image, 790, 0, samples - 1)
    image[798:802] = encoded(numpy.array([step], dtype=numpy.float32), numbers).tobytes()
    return bytes(image)


def uds_file(form, numbers, samples, seed):
    step = STEPS[form](samples)
    parts = [headers("X-Y" if form == "xy" else "Y", numbers, samples, step),
             blocks("Y DATA", ordinates(samples, seed), numbers)]
    if form == "xy":
        x = numpy.arange(samples, dtype=numpy.float32) * numpy.float32(step)
        parts.append(blocks("X DATA", x, numbers))
    return b"".join(parts)


def lines(samples):
    """Lines beyond a million repeat the first ones."""
    count = min(samples, LINES_AT_A_TIME)
    text = "".join("%.6f\t%.9f\n" % point for point in zip(numpy.arange(count) * 1e-5, ordinates(count, 1).tolist()))
    if samples % count:
        raise ValueError("more than a million lines: only whole millions")
    return text.encode() * (samples // count)


def content(name):
    uds = re.fullmatch(r"(y|xy|slow|exact|lag)-(sun|vax|ieee)-(\d+)-(\d+)\.uds", name)
    if uds:
        return uds_file(uds[1], uds[2], int(uds[3]), int(uds[4]))
    return lines(int(re.fullmatch(r"lines-(\d+)\.txt", name)[1]))


def main(folder, names):
    folder = Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    for name in names:
        if (folder / name).exists():
            continue
        whole = folder / (name + ".part")
        whole.write_bytes(content(name))
        os.replace(whole, folder / name)


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2:])
