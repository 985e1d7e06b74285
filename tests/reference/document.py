"""One comparison run: reading, preparing, the reference, the measures of every computed signal, the page list."""

import measures as measure
from ascii_points import read_ascii
from ieee import Fault, single
from record import Record, record_of_points, record_of_uds
from uds_bytes import read_uds

SMALLEST_STEP = 0.0001


class Options:
    """The answers that a run asks for, as the tool's command line gives them."""

    def __init__(self, files, reference=None, channel_class=None, filter_reference=True, window=None, corridor=4.0,
                 critical=None):
        self.files, self.reference = files, reference
        self.channel_class, self.filter_reference = channel_class, filter_reference
        self.window, self.corridor = window, corridor
        self.critical = dict(measure.DEFAULT_CRITICAL, **(critical or {}))


class Signal:
    def __init__(self, path):
        self.path, self.reference_name = path, ""
        self.record, self.is_ascii = Record(), False
        self.measures = measure.untouched(4.0)
        self.messages = []

    def read(self):
        """Reads the file as signal records, else as text; false, with both messages, where neither works."""
        try:
            self.record = record_of_uds(*read_uds(self.path))
            return True
        except Fault as fault:
            self.messages.append(str(fault))
        try:
            self.record, self.is_ascii = record_of_points(read_ascii(self.path)), True
            return True
        except Fault as fault:
            self.messages.append(str(fault))
        return False


class Stopped(Exception):
    """The run ends before its page list."""


class Document:
    def __init__(self, options):
        self.options = options
        self.errors, self.reference_errors = [], []
        self.computed = [Signal(path) for path in options.files]
        self.reference = Signal(options.reference or "")
        self.pages = []

    def run(self):
        """The whole run; true unless it stopped on the way."""
        try:
            self.read_computed()
            self.prepare_computed()
            if self.options.reference is None:
                self.average_reference()
            else:
                self.read_reference()
                self.prepare_reference()
            self.compare()
        except Stopped:
            return False
        self.pages = self.page_list()
        return True

    def try_each(self, signals, operation):
        """Tries the operation on every signal; the run stops after it when one failed."""
        failed = False
        for signal in signals:
            try:
                operation(signal)
            except Fault as fault:
                self.errors.append(signal.path + ": " + str(fault))
                failed = True
        if failed:
            raise Stopped

    def read_computed(self):
        for signal in self.computed:
            if not signal.read():
                self.errors += signal.messages
        if self.errors:
            raise Stopped

    def prepare_computed(self):
        options = self.options
        if options.channel_class is not None:
            self.try_each([signal for signal in self.computed if not signal.is_ascii],
                          lambda signal: signal.record.filter_class_if_lower(options.channel_class))
        if options.window:
            self.try_each(self.computed, lambda signal: signal.record.truncate_by_time(*options.window))

    def read_reference(self):
        if not self.reference.read():
            self.reference_errors += self.reference.messages
            raise Stopped
        step, signals = self.reference.record.step, self.computed
        if not step > 0.0:
            step, signals = SMALLEST_STEP, [self.reference] + self.computed
        self.try_each(signals, lambda signal: signal.record.resample(step))

    def prepare_reference(self):
        options, both = self.options, [self.reference]
        if options.channel_class is not None and options.filter_reference:
            self.try_each(both, lambda signal: signal.record.filter_class_if_lower(options.channel_class))
        if options.window:
            self.try_each(both, lambda signal: signal.record.truncate_by_time(*options.window))

    def average_reference(self):
        step = max([single(SMALLEST_STEP)] + [signal.record.step for signal in self.computed])
        self.try_each(self.computed, lambda signal: signal.record.resample(step))
        start = max(signal.record.x_min() for signal in self.computed)
        stop = min(signal.record.x_max() for signal in self.computed)
        if not start < stop:
            self.errors.append("Error Computing the time range for evaluation")
            return
        self.try_each(self.computed, lambda signal: signal.record.truncate_by_time(start, stop))
        # The values stay those of the first signal: the mean of all is formed and dropped.
        self.reference.record = self.computed[0].record.copy()
        self.reference.path = self.computed[0].path

    def compare(self):
        def one(signal):
            signal.measures = measure.compute(signal.record, self.reference.record, self.options.corridor)
            signal.reference_name = self.reference.path
        self.try_each(self.computed, one)

    def page_list(self):
        first = [7, 8, 9] if "G'S" in self.reference.record.y_units else [2]
        return [1] + first + [4, 3, 5, 6, 10, 11]
