#!/usr/bin/python3
"""What `quorvel-cli compare --cfc 60 --window START STOP --html REPORT` does, written plainly in NumPy and SciPy.

    peer_run.py REPORT START STOP REFERENCE COMPUTED...

Reads UDS-1992 files with SUN numbers and ordinates only, filters each by the Butterworth of SAE J211 forward and
backward, cuts them to the window, computes every measure against the reference and writes a small report. Prints the
sum and the sum of the squares of each residual. Peer of the speed table, which also takes its functions apart.
"""
import html
import math
import struct
import sys

import numpy
import scipy.signal

CORRIDOR = 4.0
FIRST_POINT_CORRIDOR = 4.0


def read_header(path):
    """Point numbers and time step of a file with SUN numbers."""
    with open(path, "rb") as file:
        image = file.read(1024)
    first, last, step = struct.unpack_from(">iif", image, 790)
    return first, last, step


def read_words(path):
    """The data words, one row for each record; three words in front of each are its tag."""
    return numpy.fromfile(path, dtype=numpy.float32, offset=1024).reshape(-1, 128)[:, 3:]


def abscissas(first, last, step):
    numbers = numpy.arange(first, last + 1, dtype=numpy.float32)
    return (numbers * numpy.float32(step)).astype(numpy.float64)


def read_uds(path):
    first, last, step = read_header(path)
    y = read_words(path).byteswap().astype(numpy.float64).reshape(-1)[:last - first + 1]
    return abscissas(first, last, step), y, step


def filter_section(step, channel_class):
    """The second-order section of SAE J211 whose forward and backward run is the filter of a channel class."""
    angle = 6.2831853 * 1.2465 * channel_class * 1.66666666667 * step / 2.0
    wa = math.tan(angle)
    d = 1.0 + math.sqrt(2.0) * wa + wa * wa
    a0 = wa * wa / d
    return numpy.array([[a0, 2.0 * a0, a0, 1.0, 2.0 * (wa * wa - 1.0) / d, (1.0 - math.sqrt(2.0) * wa + wa * wa) / d]])


def filtered(y, step, channel_class):
    """Both ends are extended by 10 ms of the data's point reflection."""
    tail = min(int(0.01 / step + 0.5), len(y) - 2)
    return scipy.signal.sosfiltfilt(filter_section(step, channel_class), y, padtype="odd", padlen=tail)


def window(x, y, start, stop):
    first, last = numpy.searchsorted(x, [start, stop])
    return x[first:last], y[first:last]


def weighted(terms, factors):
    """Twice the sum of the products, the ends counted once."""
    return 2.0 * numpy.dot(terms, factors) - terms[0] * factors[0] - terms[-1] * factors[-1]


def moment_differences(computed, reference, step):
    time = step * numpy.arange(1, len(computed) + 1)
    power = numpy.ones(len(computed))
    differences = []
    for _ in range(6):
        moment = weighted(power, computed)
        differences.append(abs((moment - weighted(power, reference)) / moment))
        power *= time
    return differences


def peak(values):
    return max(values[0], numpy.abs(values[1:-1]).max())


def measures(computed, reference, step):
    """Every measure of one pair; the residual's sums and the peaks leave the last point out."""
    count = len(computed)
    residual = (computed - reference)[:-1]
    total = residual.sum()
    squares = numpy.dot(residual, residual)
    deviation = math.sqrt((squares - total * total / count) / count)
    outside = numpy.count_nonzero(numpy.abs(residual[1:]) > CORRIDOR) + int(abs(residual[0]) > FIRST_POINT_CORRIDOR)
    computed_squares = numpy.dot(computed, computed)
    reference_squares = numpy.dot(reference, reference)
    cross = numpy.dot(computed, reference)
    magnitude = math.sqrt(reference_squares) / math.sqrt(computed_squares) - 1.0
    phase = 1.0 - math.sqrt(abs(cross)) / (reference_squares * computed_squares) ** 0.25
    return {
        "points": count,
        "computed peak": peak(computed), "reference peak": peak(reference),
        "computed maximum": computed.max(), "computed minimum": computed.min(),
        "reference maximum": reference.max(), "reference minimum": reference.min(),
        "residual sum": total, "residual sum of squares": squares,
        "mean square residual": squares / count, "residual deviation": deviation,
        "T": (total / count) / (deviation / math.sqrt(count)),
        "percent outside": outside * 100.0 / count,
        "moment differences": moment_differences(computed, reference, step),
        "correlation": weighted(computed, reference) / math.sqrt(weighted(computed, computed)) /
                       math.sqrt(weighted(reference, reference)),
        "M": magnitude, "P": phase, "C": math.hypot(magnitude, phase),
    }


def write_report(path, results):
    with open(path, "w", encoding="utf-8") as report:
        report.write("<html><body><table>\n")
        for name, values in results:
            cells = "".join(f"<td>{html.escape(str(value))}</td>" for value in (name, *values.values()))
            report.write(f"<tr>{cells}</tr>\n")
        report.write("</table></body></html>\n")


def prepared(path, start, stop):
    x, y, step = read_uds(path)
    x, y = window(x, filtered(y, step, 60), start, stop)
    return y, step


def main(report, start, stop, reference_path, *computed_paths):
    start, stop = float(start), float(stop)
    reference, step = prepared(reference_path, start, stop)
    results = []
    for path in computed_paths:
        computed, _ = prepared(path, start, stop)
        results.append((path, measures(computed, reference, step)))
        print(results[-1][1]["residual sum"], results[-1][1]["residual sum of squares"])
    write_report(report, results)


if __name__ == "__main__":
    main(*sys.argv[1:])
