"""One signal: its samples, the header fields that matter to a comparison, and the operations on it."""

import copy
import math

from channel_filter import filter_in_place
from ieee import INT_MAX, INT_MIN, Fault, divide, largest, saturated, short_number, smallest

CLASS_WINDOWS = ((90.0, 110.0, 60), (280.0, 320.0, 180), (980.0, 1020.0, 600), (1630.0, 1700.0, 1000))
FILTERED_CLASSES = ((55, 65, 60), (170, 190, 180), (580, 610, 600), (980, 1020, 1000))
UNCLASSED = 1001
MOST_POINTS = 100000000

# X units, then what Y units become: (k, and whether the integral starts at the initial velocity).
ENERGY = {("METERS", "NEWTONS"): 1.0, ("MILLIMETERS", "NEWTONS"): 0.001, ("FEET", "POUNDS"): 1.0,
          ("INCHES", "POUNDS"): 1.0 / 12.0}
OVER_TIME = {"KILOMETERS/HOUR": 277.77778, "METERS/SEC": 1000.0, "MILES/HOUR": 17.6, "FEET/SEC": 12.0}


class Record:
    def __init__(self):
        self.x, self.y = [], []
        self.first = self.last = 0
        self.step = self.initial_velocity = self.prefilter = self.cutoff = self.stop_frequency = 0.0
        self.x_type, self.x_units, self.y_type, self.y_units, self.system = "TIME", "SECONDS", "", "", "MET"
        self.filter_class = UNCLASSED
        self.warnings = []

    def copy(self):
        return copy.deepcopy(self)

    def count(self):
        """The number of samples by the point numbers; both zero means none."""
        if self.first == 0 and self.last == 0:
            return 0
        return max(self.last - self.first + 1, 0)

    def x_min(self):
        return smallest(self.x) if self.x else 0.0

    def x_max(self):
        return largest(self.x) if self.x else 0.0

    def take(self, x, y):
        if not x and not y:
            raise Fault("No X or Y Signal Data")
        self.x, self.y = x, y

    # --- operations ---

    def resample(self, step):
        if step <= 0.0:
            raise Fault("Requested Time step <= 0")
        if not self.y or not self.x:
            raise Fault("Not enough data points")
        if any(self.x[i - 1] > self.x[i] for i in range(1, len(self.x))):
            raise Fault("X axis data is not monotonically increasing")
        first, last = self.resampled_range(step)
        count = 0 if first == 0 and last == 0 else max(last - first + 1, 0)
        if count > MOST_POINTS:
            raise Fault("Error Interpolating Data")
        if count == 0:
            raise Fault("No Y Signal Data")
        values = self.interpolated(first, count, step)
        self.first, self.last, self.step = first, last, step
        self.x = [step * float(first + i) for i in range(count)]
        self.y = values

    def resampled_range(self, step):
        """The first and last point number on the new step; raises Fault where there are none."""
        spans = divide(self.x_max() - self.x_min(), step) + 0.99
        if self.count() == 0 or not spans >= 1.0 or not spans < INT_MAX + 1.0:
            raise Fault("Error Interpolating Data")
        first = divide(self.x[0], step) + 0.01
        last = divide(self.x[self.count() - 1], step) + 0.01
        for number in (first, last):
            if not INT_MIN - 1.0 < number < INT_MAX + 1.0:
                raise Fault("Error Interpolating Data")
        return min(int(first), self.last - 1), max(int(last), self.first + 1)

    def interpolated(self, first, count, step):
        x, y, end = self.x, self.y, self.count() - 1
        values, high = [], 1
        for j in range(count):
            target = float(first + j) * step
            while target > x[high] and high < end:
                high += 1
            low = high - 1
            while x[low] > target and low > 0:
                low -= 1
            values.append(y[low] + divide(target - x[low], x[high] - x[low]) * (y[high] - y[low]))
        return values

    def truncate_by_time(self, start, stop):
        if start >= stop:
            raise Fault("Stop time (" + short_number(stop) + ") is before or equals Start Time ("
                        + short_number(start) + ")")
        i = 0
        while i < len(self.x) and not self.x[i] >= start:
            i += 1
        x, y, end = [], [], self.count() - 1
        while i < end and self.x[i] < stop:
            x.append(self.x[i])
            y.append(self.y[i])
            i += 1
        first = saturated(start / self.step) if self.step > 0.0 else 0
        self.take(x, y)
        self.first, self.last = first, first + len(x) - 1

    def truncate_by_index(self, start, stop):
        if start >= stop:
            raise Fault("Start Index (%d)is >= Stop Index (%d)" % (start, stop))
        low, high = start - self.first, stop - self.first
        if low < 0 or high >= self.count() or high >= len(self.y):
            raise Fault("Unable to provide requested stop/start indices")
        self.take(self.x[low:high + 1], self.y[low:high + 1])
        self.first, self.last = start, stop

    def integral_scale(self):
        """The factor of the integral and its value at time zero."""
        if self.x_units not in ("SECONDS", "SECOND", "SEC"):
            return ENERGY.get((self.x_units, self.y_units), 1.0), 0.0
        if self.y_units == "G'S":
            return (21.93675 if self.system in ("ENGLISH", "ENG") else 35.30394), self.initial_velocity
        return OVER_TIME.get(self.y_units, 1.0), 0.0

    def integrate(self):
        if self.count() <= 3:
            raise Fault("Too few data points to compute an Integral")
        if not self.x or not self.y:
            raise Fault("X or Y data is empty.")
        x, y = self.x, self.y
        k, c = self.integral_scale()
        anchor = min(-self.first if self.first < 1 else 0, len(y) - 1)
        integral = [0.0] * len(y)
        integral[anchor] = c
        for i in range(anchor + 1, len(y)):
            integral[i] = integral[i - 1] + 0.5 * k * (x[i] - x[i - 1]) * (y[i - 1] + y[i])
        for i in range(anchor - 1, -1, -1):
            integral[i] = integral[i + 1] - 0.5 * k * (x[i + 1] - x[i]) * (y[i] + y[i + 1])
        self.y = integral

    def filter_class_if_lower(self, channel_class):
        if channel_class < self.filter_class:
            self.filter(channel_class * 1.66666666667)

    def filter(self, frequency):
        if self.x_type != "TIME":
            self.warnings.append("Data must have X Type TIME")
        if self.x_units not in ("SECONDS", "SEC"):
            self.warnings.append("Time must be in seconds")
        filter_in_place(self.y, self.step, frequency, self.warnings)
        self.cutoff, self.stop_frequency = frequency, 2.5 * frequency
        number = int(frequency * 0.6)
        for low, high, channel_class in FILTERED_CLASSES:
            if low <= number <= high:
                self.filter_class = channel_class
        if self.filter_class not in (600, 1000) and self.prefilter > 0.0 \
                and self.stop_frequency > 0.5 * self.prefilter:
            self.warnings.append("WARNING - Filter causes overlap distortion with previous filtering")


def channel_class_of(cutoff, prefilter):
    frequency = cutoff if cutoff != 0.0 else prefilter
    for low, high, channel_class in CLASS_WINDOWS:
        if low < frequency < high:
            return channel_class
    return UNCLASSED


def record_of_uds(fields, abscissas, ordinates):
    record = Record()
    record.x, record.y = abscissas, ordinates
    record.first, record.last, record.step = fields["NFP"], fields["NLP"], fields["delt"]
    record.initial_velocity, record.prefilter = fields["INIVEL"], fields["PREFIL"]
    record.cutoff, record.stop_frequency = fields["FCUT"], fields["FSTP"]
    record.x_type, record.x_units = fields["XTYPE"], fields["XUNITS"]
    record.y_type, record.y_units, record.system = fields["YTYPE"], fields["YUNITS"], fields["DIMSYS"]
    record.filter_class = channel_class_of(record.cutoff, record.prefilter)
    return record


def record_of_points(points):
    if not points:
        raise Fault("No Information.")
    record = Record()
    record.x, record.y = [point[0] for point in points], [point[1] for point in points]
    record.first, record.last = 0, len(points) - 1
    return record
