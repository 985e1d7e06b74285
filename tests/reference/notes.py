"""The notes that a run and its pages leave on what they do without being asked, as (kind, text) pairs."""

from ieee import short_number, single

NOT_FILTERED = ("not-filtered", "Not filtered: computed signals from ASCII points never are.")
NO_REFERENCE = ("no-common-time", "The signals have no time in common, so no reference was made. Nothing was compared; "
                                  "every result is 0.")
BEYOND = " Beyond its own points, the curve continues as a straight line."


class Sampling:
    """A record's points, range and step at one moment."""

    def __init__(self, record):
        self.count, self.step = len(record.y), record.step
        self.first, self.last = record.x_min(), record.x_max()

    def run(self):
        return "from %s to %s" % (short_number(self.first), short_number(self.last))

    def points(self):
        return "%d %s %s" % (self.count, "point" if self.count == 1 else "points", self.run())

    def grid(self):
        step = "at a step of " + short_number(self.step) if self.step > 0.0 else "without a time step"
        return self.points() + " " + step


def first_signal(path):
    return ("average-is-first", "The reference is the first signal, %s, not the mean of all signals." % path)


def resampled(is_reference, before, after):
    """A list of one note; an empty one where neither the step of files nor the number of points has changed."""
    if before.count == after.count and single(before.step) == single(after.step):
        return []
    far = 1.5 * after.step
    beyond = BEYOND if before.first - after.first > far or after.last - before.last > far else ""
    kind, words = ("reference-resampled", "The reference has no time step and was resampled") if is_reference \
        else ("resampled", "Resampled for the comparison")
    return [(kind, "%s: %s became %s.%s" % (words, before.grid(), after.grid(), beyond))]


def cut(kind, words, before, after):
    if before.count == after.count:
        return []
    return [(kind, "%s: %s became %s." % (words, before.points(), after.points()))]


def cut_to_common_range(before, after):
    return cut("cut-to-common-range", "Cut to the common time range", before, after)


def cut_by_page(name, before, after):
    return cut("cut-by-page", "Cut by the page " + name, before, after)


def no_common_time(signal, path, reference):
    same = signal.first == reference.first and signal.last == reference.last
    common = min(signal.last, reference.last) - max(signal.first, reference.first)
    instant = signal.first == signal.last or reference.first == reference.last
    if same or not signal.count or not reference.count or common > 0 or (instant and common == 0):
        return []
    return [("no-common-time", "No time in common with %s, which runs %s; this signal runs %s. A comparison of the two "
                               "means nothing." % (path, reference.run(), signal.run()))]


def as_json(notes):
    return [{"kind": kind, "text": text} for kind, text in notes]


def complaints(document):
    """What standard error always reports."""
    return [text for kind, text in document.notes if kind == "no-common-time"] \
        + [signal.path + ": " + text for signal in document.computed for kind, text in signal.notes
           if kind == "no-common-time"]
