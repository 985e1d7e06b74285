"""One comparison run: reading, preparing, the reference, the measures of every computed signal, the page list."""

import measures as measure
import notes as note
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
        self.messages, self.notes = [], []

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


def resample(signal, step, is_reference=False):
    before = note.Sampling(signal.record)
    signal.record.resample(step)
    signal.notes += note.resampled(is_reference, before, note.Sampling(signal.record))


def cut_to_common_range(signal, start, stop):
    before = note.Sampling(signal.record)
    signal.record.truncate_by_time(start, stop)
    signal.notes += note.cut_to_common_range(before, note.Sampling(signal.record))


class Stopped(Exception):
    """The run ends before its page list."""


class Document:
    def __init__(self, options):
        self.options = options
        self.errors, self.reference_errors, self.notes = [], [], []
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
            for signal in self.computed:
                signal.notes += [note.NOT_FILTERED] if signal.is_ascii else []
        if options.window:
            self.try_each(self.computed, lambda signal: signal.record.truncate_by_time(*options.window))

    def read_reference(self):
        if not self.reference.read():
            self.reference_errors += self.reference.messages
            raise Stopped
        self.note_no_common_time(self.reference)
        step, signals = self.reference.record.step, self.computed
        if not step > 0.0:
            step, signals = SMALLEST_STEP, [self.reference] + self.computed
        self.try_each(signals, lambda signal: resample(signal, step, signal is self.reference))

    def note_no_common_time(self, reference):
        """Told by the times as read: a resampling may reach far beyond them."""
        other = note.Sampling(reference.record)
        for signal in self.computed:
            signal.notes += note.no_common_time(note.Sampling(signal.record), reference.path, other)

    def prepare_reference(self):
        options, both = self.options, [self.reference]
        if options.channel_class is not None and options.filter_reference:
            self.try_each(both, lambda signal: signal.record.filter_class_if_lower(options.channel_class))
        if options.window:
            self.try_each(both, lambda signal: signal.record.truncate_by_time(*options.window))

    def average_reference(self):
        step = max([single(SMALLEST_STEP)] + [signal.record.step for signal in self.computed])
        self.note_no_common_time(self.computed[0])
        self.try_each(self.computed, lambda signal: resample(signal, step))
        start = max(signal.record.x_min() for signal in self.computed)
        stop = min(signal.record.x_max() for signal in self.computed)
        if not start < stop:
            self.errors.append("Error Computing the time range for evaluation")
            self.notes.append(note.NO_REFERENCE)
            return
        self.try_each(self.computed, lambda signal: cut_to_common_range(signal, start, stop))
        # The values stay those of the first signal: the mean of all is formed and dropped.
        self.reference.record = self.computed[0].record.copy()
        self.reference.path = self.computed[0].path
        self.reference.notes = list(self.computed[0].notes)
        self.notes.append(note.first_signal(self.reference.path))

    def compare(self):
        def one(signal):
            before = note.Sampling(signal.record)
            signal.measures = measure.compute(signal.record, self.reference.record, self.options.corridor)
            signal.reference_name = self.reference.path
            signal.notes += note.cut_to_common_range(before, note.Sampling(signal.record))
        self.try_each(self.computed, one)

    def page_list(self):
        first = [7, 8, 9] if "G'S" in self.reference.record.y_units else [2]
        return [1] + first + [4, 3, 5, 6, 10, 11]
