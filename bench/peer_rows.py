#!/usr/bin/python3
"""The peers' side of the speed table: NumPy, SciPy and pandas doing each work item, timed inside the process.

    peer_rows.py ITEM FILE...

Each line of standard input is a command: "run" prints the milliseconds of user and system time that one run took,
"digest" prints some numbers of the last result, by which the table sees that both sides did the same work.
Needs Debian's python3-numpy, python3-scipy and python3-pandas.
"""
import ctypes
import json
import struct
import sys
import time

import numpy

import peer_run

LIBRARY = ctypes.CDLL(None)


def digest_of(values):
    """Number of values; of their middle half, the sums of the magnitudes and of the squares."""
    middle = values[len(values) // 4:len(values) // 4 + len(values) // 2]
    return [len(values), numpy.abs(middle).sum(), numpy.dot(middle, middle)]


class ReadUds:
    """A file with both columns, or with ordinates only and the axis made from three numbers."""

    def __init__(self, path):
        self.path = path
        with open(path, "rb") as file:
            image = file.read(1024)
        self.decode = {b"SUN": self.swapped, b"VAX": self.shuffled, b"IEE": numpy.asarray}[image[26:29]]
        self.has_abscissas = image[16:17] == b"X"
        first, last = struct.unpack_from(">ii" if image[26:29] == b"SUN" else "<ii", image, 790)
        self.count = last - first + 1

    @staticmethod
    def swapped(words):
        return words.byteswap()

    @staticmethod
    def shuffled(words):
        bits = numpy.ascontiguousarray(words).view(numpy.uint32)
        turned = (bits << 16 | bits >> 16) - numpy.uint32(0x01000000)
        turned[bits >> 8 & 0x7F == 0] = 0
        return turned.view(numpy.float32)

    def header(self):
        """Only the SUN files here have ordinates alone."""
        return peer_run.read_header(self.path)

    def run(self):
        words = self.decode(peer_run.read_words(self.path)).astype(numpy.float64)
        if self.has_abscissas:
            y, x = words.reshape(2, -1)
        else:
            y, x = words.reshape(-1), peer_run.abscissas(*self.header())
        self.result = x, y

    def digest(self):
        x, y = (column[:self.count] for column in self.result)
        return digest_of(x) + digest_of(y)


class ReadAscii:
    def __init__(self, path):
        import pandas
        self.read_csv, self.path = pandas.read_csv, path

    def run(self):
        self.result = self.read_csv(self.path, sep="\t", header=None, names=("x", "y"), dtype=numpy.float64, engine="c")

    def digest(self):
        return digest_of(self.result["x"].to_numpy()) + digest_of(self.result["y"].to_numpy())


class Operation:
    def __init__(self, path):
        self.x, self.y, self.step = peer_run.read_uds(path)

    def digest(self):
        return digest_of(self.result)


class Filter(Operation):
    def run(self):
        self.result = peer_run.filtered(self.y, self.step, 60)


class Resample(Operation):
    def run(self):
        step = 0.7 * self.step
        last = int(self.x[-1] / step + 0.01)
        self.result = numpy.interp(numpy.arange(last + 1) * step, self.x, self.y)


class Integrate(Operation):
    def __init__(self, path):
        import scipy.integrate
        self.integral = scipy.integrate.cumulative_trapezoid
        super().__init__(path)

    def run(self):
        self.result = self.integral(self.y, self.x, initial=0.0)


class Pair:
    def __init__(self, computed, reference):
        self.x, self.computed, self.step = peer_run.read_uds(computed)
        self.reference_x, self.reference, _ = peer_run.read_uds(reference)


class Measures(Pair):
    def run(self):
        computed, reference = self.computed, self.reference
        if self.x[0] != self.reference_x[0] or self.x[-1] != self.reference_x[-1]:
            start = max(self.x[0], self.reference_x[0])
            stop = min(self.x[-1], self.reference_x[-1])
            _, computed = peer_run.window(self.x, computed, start, stop)
            _, reference = peer_run.window(self.reference_x, reference, start, stop)
        self.result = peer_run.measures(computed, reference, self.step)

    def digest(self):
        moments = self.result["moment differences"]
        names = ("points", "computed peak", "reference peak", "computed maximum", "reference minimum", "residual sum",
                 "residual sum of squares", "percent outside")
        return [*(self.result[name] for name in names), moments[0], moments[-1], self.result["correlation"],
                self.result["C"]]


class CrossCorrelation(Pair):
    """Both correlations of the page: the reference with itself and with the computed signal."""

    def __init__(self, computed, reference):
        import scipy.signal
        self.signal = scipy.signal
        super().__init__(computed, reference)

    def run(self):
        self.signal.correlate(self.reference, self.reference, method="fft")
        self.signal.correlate(self.reference, self.computed, method="fft")

    def digest(self):
        """Of the page's values: means subtracted, the lags of 10 ms, each divided by its overlap."""
        a, b = (values - values.mean() for values in (self.reference, self.computed))
        lags = self.signal.correlation_lags(len(a), len(b))
        wanted = numpy.abs(lags) <= int(0.01 / self.step)
        return digest_of(self.signal.correlate(a, b, method="fft")[wanted] / (len(a) - numpy.abs(lags[wanted])))


class CumulativeDensity(Pair):
    def __init__(self, computed, reference):
        super().__init__(computed, reference)
        sigma = peer_run.measures(self.computed, self.reference, self.step)["residual deviation"]
        self.thresholds = -2.0 * sigma + sigma * 4.0 / 99.0 * numpy.arange(100)

    def run(self):
        residual = numpy.sort(self.computed - self.reference)
        self.result = numpy.searchsorted(residual, self.thresholds) * 100.0 / len(residual)

    def digest(self):
        return digest_of(self.result)


class JsonDump:
    """Writes the pages that another program's JSON holds; reading them is not in the time."""

    def __init__(self, source, target):
        with open(source, "rb") as file:
            self.pages = json.load(file)["pages"]
        self.target = target

    def run(self):
        with open(self.target, "w", encoding="utf-8") as file:
            json.dump(self.pages, file)

    def digest(self):
        return [len(self.pages)]


ITEMS = {"read-uds": ReadUds, "read-ascii": ReadAscii, "filter": Filter, "resample": Resample, "integrate": Integrate,
         "measures": Measures, "cross-correlation": CrossCorrelation, "cumulative-density": CumulativeDensity,
         "json-dump": JsonDump}


def timed_run(item):
    item.result = None
    LIBRARY.malloc_trim(0)  # as our side does: every run needs fresh pages
    start = time.process_time()
    item.run()
    return (time.process_time() - start) * 1e3


def main(name, *paths):
    item = ITEMS[name](*paths)
    for command in sys.stdin:
        if command.strip() == "run":
            print(timed_run(item), flush=True)
        else:
            print(*(repr(float(value)) for value in item.digest()), flush=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
