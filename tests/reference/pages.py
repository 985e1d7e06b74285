"""The series of every chart page, by the plain definitions."""

import math
import re
from bisect import bisect_left
from operator import mul

from ieee import INT_MAX, Fault, divide, exact_sum, root, short_number

NO_DATA = 2.220446049250313e-16
DENSITY_POINTS = 100
NAMES = {1: "Summary", 2: "Input Data", 3: "Standard Deviation", 4: "Corridor", 5: "90 Percentile Corridor",
         6: "Residuals", 7: "Acceleration", 8: "Velocity", 9: "Displacement", 10: "Cummulative Density",
         11: "Cross Correlation"}
TITLES = {1: ("", ""), 2: ("Time (seconds)", "Unknown Units"), 3: ("Time (seconds)", "Acceleration (G's)"),
          5: ("Time (seconds)", "Acceleration (G's)"), 6: ("Time (seconds)", "Residual"),
          7: ("Time (seconds)", "Acceleration (G's)"), 8: ("Time (seconds)", "Velocity (kmph)"),
          9: ("Time (seconds)", "Displacement (mm)"), 10: ("Residual", "Percent Less than X (%)"),
          11: ("Time Offset", "Cross Correlation")}


class Series:
    """One curve. `scale` is the size that errors of y are measured against."""

    def __init__(self, name, x, y, scale=None):
        self.name, self.x, self.y = name, x, y
        self.scale = scale if scale is not None else max((abs(v) for v in y if math.isfinite(v)), default=0.0)


def legend(path):
    return re.sub(r"^[A-Za-z]:", "", re.split(r"[/\\]", path)[-1])


def of_record(name, record):
    return Series(name, list(record.x), list(record.y))


def common_range(a, b):
    """Cuts both records to the range that both cover; nothing happens when it is the same already."""
    if not a.x or not b.x or (a.x[0] == b.x[0] and a.x[-1] == b.x[-1]):
        return
    start, stop = max(a.x[0], b.x[0]), min(a.x[-1], b.x[-1])
    a.truncate_by_time(start, stop)
    b.truncate_by_time(start, stop)


def build(document, page):
    """The series of a page in order. Pages 6, 10 and 11 cut the document's records, and they stay cut."""
    return BUILDERS[page](document)


def titles(document, page):
    if page != 4:
        return TITLES[page]
    record = document.reference.record
    return (record.x_type + " " + record.x_units + ")", record.y_type + " " + record.y_units + ")")


def computed_series(document):
    return [of_record(legend(signal.path), signal.record) for signal in document.computed]


def summary(_):
    return []


def plain(document):
    return [of_record("Reference", document.reference.record)] + computed_series(document)


def integrated(document):
    series = []
    for name, record in [("Reference", document.reference.record)] \
            + [(legend(signal.path), signal.record) for signal in document.computed]:
        record = record.copy()
        record.integrate()
        series.append(of_record(name, record))
    return series


def band(document, upper, lower, add, take):
    """The reference raised by `add`, and that curve lowered by `take`."""
    record = document.reference.record
    high = [value + add for value in record.y]
    low = [value - take for value in high]
    return [Series(upper, list(record.x), high), Series(lower, list(record.x), low)] + computed_series(document)


def corridor(document):
    record, size = document.reference.record, document.computed[0].measures["corridorSize"]
    text = short_number(size)
    return [Series("Plus " + text, list(record.x), [value + size for value in record.y]),
            Series("Minus " + text, list(record.x), [value - size for value in record.y])] \
        + computed_series(document)


def mean_deviation(document):
    total = 0.0
    for signal in document.computed:
        total += signal.measures["residualStandardDeviation"]
    return total / len(document.computed)


def deviation_band(document):
    h = mean_deviation(document)
    return band(document, "Plus 1 Std Dev", "Minus 1 Std Dev", h, 2.0 * h)


def percentile_band(document):
    h = 1.6449 * mean_deviation(document)
    return band(document, "Plus 90%", "Minus 90%", h, 2.0 * h)


def residuals_of(document, signal):
    """The abscissas and computed minus reference over the range that both cover."""
    reference = document.reference.record.copy()
    common_range(reference, signal.record)
    residuals = [c - r for c, r in zip(signal.record.y, reference.y)]
    return reference.x[:len(residuals)], residuals


def residuals(document):
    return [Series(legend(signal.path), *residuals_of(document, signal)) for signal in document.computed]


def density(document):
    series = []
    for signal in document.computed:
        _, values = residuals_of(document, signal)
        rising = sorted(value for value in values if not math.isnan(value))
        deviation = signal.measures["residualStandardDeviation"]
        step, x = deviation * 4.0 / 99.0, -2.0 * deviation
        xs, ys = [], []
        while 2.0 * deviation > x and len(xs) < DENSITY_POINTS:
            xs.append(x)
            ys.append(divide(bisect_left(rising, x) * 100.0, float(len(values))))
            x = x + step
        rest = [NO_DATA] * (DENSITY_POINTS - len(xs))
        series.append(Series(legend(signal.path), xs + rest, ys + rest))
    return series


def centered(values):
    if not values:
        return []
    mean = divide(exact_sum(values), float(len(values)))
    return [value - mean for value in values]


def root_mean_square(values):
    return root(divide(exact_sum(value * value for value in values), float(len(values))))


def deviation_size(centered_values, values):
    """The standard deviation; for a signal that is all but constant, a size that the rounding of its mean stays far
    below, so that the noise it leaves is not taken for a result."""
    return max(root_mean_square(centered_values), 1e-5 * root_mean_square(values))


def covariances(a, b, most):
    """The mean products of two records at the lags -most ... most, and the size of their values."""
    count = min(len(a), len(b))
    raw_a, raw_b = a[:count], b[:count]
    a, b = centered(raw_a), centered(raw_b)
    values = []
    for lag in range(-most, most + 1):
        low, high = (0, count + lag) if lag < 1 else (lag, count)
        if high > low:
            total = exact_sum(map(mul, a[low:high], b[low - lag:high - lag]))
        else:
            total = 0.0
        values.append(divide(total, float(high - low)))
    return values, deviation_size(a, raw_a) * deviation_size(b, raw_b)


def cross_correlation(document):
    reference = document.reference.record
    lags = divide(0.01, reference.step)
    if not lags < INT_MAX / 2.0:
        raise Fault("Unable to provide requested stop/start indices")
    most = int(lags)
    reference.copy().truncate_by_index(0, 2 * most)
    x = [float(lag) * reference.step for lag in range(-most, most + 1)]
    series = [Series("Reference", x, *covariances(reference.y, reference.y, most))]
    for signal in document.computed:
        cut = reference.copy()
        common_range(cut, signal.record)
        series.append(Series(legend(signal.path), x, *covariances(cut.y, signal.record.y, most)))
    return series


BUILDERS = {1: summary, 2: plain, 3: deviation_band, 4: corridor, 5: percentile_band, 6: residuals, 7: plain,
            8: integrated, 9: integrated, 10: density, 11: cross_correlation}
