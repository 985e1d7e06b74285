"""Random signal files and run options from a seed: all number formats, both arrangements and text, broken files too."""

import math
import random
import struct

from document import Options

STEPS = (0.0001, 0.0001, 0.0001, 0.0002, 0.00005, 0.0005, 0.001, 0.00025, 0.02)
EDGE_COUNTS = (2, 3, 4, 5, 6, 20, 124, 125, 126, 202, 250, 251)
Y_UNITS = ("G'S", "G'S", "G'S", "G'S", "NEWTONS", "NEWTONS", "KILOMETERS/HOUR", "METERS/SEC", "MILES/HOUR",
           "FEET/SEC", "INCHES/SEC", "POUNDS", "POUND-FEET", "DEGREES/SEC**2", "RADIANS/SEC", "G'S OF HEAD", "")
X_UNITS = ("SECONDS", "SECONDS", "SECONDS", "SECONDS", "SEC", "SECOND", "METERS", "MILLIMETERS", "FEET", "INCHES",
           "DEGREES")
SYSTEMS = ("MET", "MET", "MET", "ENG", "")
FREQUENCIES = (0.0, 0.0, 0.0, 100.0, 300.0, 400.0, 1000.0, 1650.0, 110.0, 4000.0)
# A not-a-number value in either byte order, a tiny one, and minus zero.
ODD_BYTES = (b"\x00\x00\xc0\x7f", b"\x7f\xc0\x00\x00", b"\x01\x00\x00\x00", b"\x00\x00\x00\x80")
BREAKS = ("missing", "short", "empty", "headers only", "odd size", "file tag", "curve tag", "data tag", "number format",
          "file form", "crossed", "one point", "too few", "text header", "falling x")


def real_bytes(value, number_format):
    b0, b1, b2, b3 = struct.pack("<f", value)
    if number_format == "VAX":
        if b3 in (127, 255):
            return bytes((255, b3, 255, 255))
        return bytes(4) if b3 in (0, 128) else bytes((b2, b3 + 1, b0, b1))
    return bytes((b3, b2, b1, b0) if number_format == "SUN" else (b0, b1, b2, b3))


def integer_bytes(value, number_format):
    return struct.pack(">i" if number_format == "SUN" else "<i", value)


def put_text(image, offset, width, text):
    image[offset:offset + width] = text.encode("latin-1")[:width].ljust(width)


class Dice:
    """Choices drawn from one seed. Only random() is used, whose values are the same in every Python."""

    def __init__(self, seed):
        self.generator = random.Random(seed)

    def part(self):
        """A number from 0 up to 1."""
        return self.generator.random()

    def chance(self, share):
        return self.part() < share

    def between(self, low, high):
        return low + int(self.part() * (high - low + 1))

    def one_of(self, choices):
        return choices[int(self.part() * len(choices))]


class RandomFile:
    """One signal: its numbers and how they lie in the file."""

    def __init__(self, dice, shape, step, units):
        self.dice = dice
        self.step = step if dice.chance(0.75) else dice.one_of(STEPS)
        self.count = dice.one_of(EDGE_COUNTS) if dice.chance(0.1) else dice.between(30, 520)
        self.first = 0 if dice.chance(0.6) else dice.between(-40, 6)
        self.form = dice.one_of(("Y", "X-Y"))
        self.number_format = dice.one_of(("IEEE", "SUN", "VAX"))
        self.second_component = dice.chance(0.2)
        self.y_units = units if dice.chance(0.9) else dice.one_of(Y_UNITS)
        self.x_units = dice.one_of(X_UNITS) if dice.chance(0.3) else "SECONDS"
        self.values = [shape((self.first + i) * self.step) for i in range(self.count)]
        self.times = [(self.first + i) * self.step for i in range(self.count)]
        self.header_step = self.step
        if self.form == "X-Y" and dice.chance(0.1):
            self.header_step = 0.0
            self.stretch_times()
        if dice.chance(0.02):
            self.make_strange()

    def make_strange(self):
        """Point numbers far from zero, a negative step, or values without an end."""
        kind = self.dice.one_of(("far", "far back", "backward", "infinite"))
        if kind == "far":
            self.first = 9000
        elif kind == "far back":
            self.first = -9500
        elif kind == "backward":
            self.header_step = -self.step
        else:
            self.values[self.dice.between(0, self.count - 1)] = self.dice.one_of((math.inf, -math.inf))

    def stretch_times(self):
        """Uneven steps, now and then of length zero."""
        time, times = self.times[0], []
        for _ in self.times:
            times.append(time)
            time += 0.0 if self.dice.chance(0.01) else self.step * (0.5 + self.dice.part())
        self.times = times

    # --- binary ---

    def header(self):
        image = bytearray(512)
        put_text(image, 0, 12, "UDS-1992")
        put_text(image, 16, 10, self.form)
        put_text(image, 26, 5, self.number_format)
        put_text(image, 31, 3, self.dice.one_of(SYSTEMS))
        put_text(image, 65, 70, " RANDOM \u00c4 ")
        return image

    def curve_header(self):
        image = bytearray(512)
        put_text(image, 0, 12, "CURVE HDR")
        put_text(image, 88, 20, " ACCELERATION")
        put_text(image, 108, 20, self.y_units)
        put_text(image, 128, 20, "TIME" if self.dice.chance(0.9) else "ANGLE")
        put_text(image, 148, 20, self.x_units)
        put_text(image, 168, 20, "AM")
        for offset, number in ((278, self.first), (282, self.first + self.count - 1)):
            image[offset:offset + 4] = integer_bytes(number, self.number_format)
        reals = (self.header_step, 50.0 * self.dice.part(), self.dice.one_of(FREQUENCIES),
                 self.dice.one_of(FREQUENCIES) if self.dice.chance(0.3) else 0.0, 7.0, 11.0)
        for i, value in enumerate(reals):
            image[286 + 4 * i:290 + 4 * i] = real_bytes(value, self.number_format)
        return image

    def data_records(self, tag, values):
        records = []
        for start in range(0, len(values), 125):
            record = bytearray(tag.encode("ascii").ljust(12))
            for value in values[start:start + 125]:
                record += self.value_bytes(value)
            # Bytes after the last point have no meaning.
            records.append(record.ljust(512, b"\0" if self.dice.chance(0.5) else b"\x41"))
        return records

    def value_bytes(self, value):
        if self.dice.chance(0.0005):
            return self.dice.one_of(ODD_BYTES)
        return real_bytes(value, self.number_format)

    def blocks(self):
        """The data records, the two kinds in one of the orders that files come in."""
        y_records = self.data_records("Y DATA", self.values)
        if self.form == "Y":
            return y_records
        # Written without odd bytes: the abscissas have to keep rising.
        x_records = [bytearray(b"X DATA".ljust(12)) for _ in range(0, self.count, 125)]
        for i, value in enumerate(self.times):
            x_records[i // 125] += real_bytes(value, self.number_format)
        x_records = [record.ljust(512, b"\0") for record in x_records]
        order = self.dice.one_of(("y x", "y x", "x y", "mixed"))
        if order == "mixed":
            return [record for pair in zip(y_records, x_records) for record in pair]
        return y_records + x_records if order == "y x" else x_records + y_records

    def binary(self):
        image = self.header()
        if self.second_component:
            image += bytearray(b"CMP-2 HDR".ljust(12)).ljust(512, b"\x20")
        image += self.curve_header() + b"".join(self.blocks())
        if self.dice.chance(0.1):
            image += bytearray(b"Y DATA".ljust(12)).ljust(512, b"\x42")
        return image

    # --- text ---

    def text(self):
        end = self.dice.one_of(("\n", "\r\n", "\r"))
        separator = self.dice.one_of((",", ", ", " ", "\t"))
        style = self.dice.one_of(("%.5f", "%.7g", "%e", "%+.4f"))
        width = self.dice.one_of((2, 2, 2, 3))
        lines = []
        for time, value in zip(self.times, self.values):
            words = ["%.6f" % time, style % value] + (["0"] if width == 3 else [])
            lines.append(separator.join(words) + end)
        if self.dice.chance(0.2):
            lines.insert(0, style % self.values[0] + "\n")
        if self.dice.chance(0.2):
            lines.append("\n\nwords after an empty line")
        elif self.dice.chance(0.2):
            lines[-1] = lines[-1].rstrip("\r\n")
        return "".join(lines).encode("ascii")


def broken(image, how, file):
    """The bytes of a file with one fault; None for a file that is not there."""
    image = bytearray(image)
    curve = 1024 if image[512:521] == b"CMP-2 HDR" else 512
    if how == "missing":
        return None
    if how in ("short", "odd size", "headers only", "empty", "too few"):
        sizes = {"short": 512, "odd size": len(image) - 100, "headers only": curve + 512, "empty": 0,
                 "too few": len(image) - 512}
        return bytes(image[:sizes[how]])
    texts = {"file tag": (0, 12, "UDS-1993"), "curve tag": (curve, 12, "CURVE"),
             "data tag": (curve + 512, 12, "Z DATA"), "number format": (26, 5, "CRAY"), "file form": (16, 10, "X-Y-Z"),
             "text header": (0, 12, "\n\nplain text")}
    if how in texts:
        put_text(image, *texts[how])
    elif how == "crossed":
        image[curve + 282:curve + 286] = integer_bytes(file.first - 5, file.number_format)
    elif how == "one point":
        image[curve + 282:curve + 286] = integer_bytes(file.first, file.number_format)
    elif how == "falling x" and file.form == "X-Y":
        image[-508:-496] = bytes(12)
        file.times[-1] = -1.0
    return bytes(image)


class RandomRun:
    """Writes the files of one run into a folder, named relative to it, and holds the options and the file words."""

    def __init__(self, seed, folder):
        self.dice = Dice(seed)
        self.folder = folder
        self.step = self.dice.one_of(STEPS)
        self.units = self.dice.one_of(Y_UNITS)
        self.size = self.dice.one_of((0.001, 1.0, 10.0, 30.0, 100000.0))
        self.parts = [(self.dice.part(), 5.0 + 60.0 * self.dice.part(), 6.28 * self.dice.part())
                      for _ in range(4)]
        self.is_broken = self.dice.chance(0.12)
        files = [self.write_file("c%03d.%d" % (seed, i)) for i in range(self.dice.between(1, 5))]
        reference = self.write_file("r%03d.001" % seed) if self.dice.chance(0.65) else None
        self.options = Options(files, reference, channel_class=self.dice.one_of((None, None, 60, 180, 600, 1000)),
                               filter_reference=self.dice.chance(0.7), window=self.window(),
                               corridor=self.dice.one_of((4.0, 4.0, 0.5, 2.25, self.size * 0.1, 1e-7, 12345678.0)),
                               critical=self.critical())
        self.words = self.file_words(files)

    def shape(self):
        """The curve of one file: the run's own curve, scaled, moved, noisy or flat."""
        kind = self.dice.part()
        if kind < 0.05:
            level = self.dice.one_of((0.0, 2.5, -7.0))
            return lambda time: level
        scale = self.size * (0.6 + 0.8 * self.dice.part())
        late, noise = 0.004 * self.dice.part(), self.dice.one_of((0.0, 0.0, 0.05, 0.3)) * scale

        def curve(time):
            value = sum(height * math.sin(speed * (time - late) + phase) for height, speed, phase in self.parts)
            return scale * value + noise * (2.0 * self.dice.part() - 1.0)
        return curve

    def write_file(self, name):
        name = self.dice.one_of(("", "sub/", "./", "p\u00fcls/")) + name
        file = RandomFile(self.dice, self.shape(), self.step, self.units)
        content = file.text() if self.dice.chance(0.15) else file.binary()
        if self.is_broken and self.dice.chance(0.4):
            content = broken(file.binary(), self.dice.one_of(BREAKS), file)
        if content is not None:
            path = self.folder / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content)
        return name

    def window(self):
        if self.dice.chance(0.55):
            return None
        start = self.dice.one_of((0.0, 0.0, 0.0, -0.01, -0.01, self.step * self.dice.between(1, 20)))
        return start, start + self.step * (self.dice.between(150, 500) + self.dice.one_of((0.0, 0.5)))

    def critical(self):
        if self.dice.chance(0.6):
            return {}
        return {self.dice.one_of(("residual", "stddev", "corridor", "correlation", "t", "moment")):
                self.dice.one_of((0.0, 0.01, 0.2, 1.0, 33.0))}

    def file_words(self, files):
        """Some of the files named one by one, the rest in a hit list."""
        if self.dice.chance(0.6):
            return files
        named = self.dice.between(0, len(files) - 1)
        end = self.dice.one_of(("\r\n", "\n"))
        text = self.dice.one_of(("", end)).join(path + end for path in files[named:])
        if self.dice.chance(0.3):
            text = text[:-len(end)]
        (self.folder / "list.hit").write_bytes(text.encode("utf-8"))
        return files[:named] + ["--hit-list", "list.hit"]
