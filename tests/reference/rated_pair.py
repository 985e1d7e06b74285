"""What a run rates, from what its JSON shows: the pair of a signal and the reference, and all families of it."""

import math

import ratings as rating
from record import Record

TIME_UNITS = ("SECONDS", "SECOND", "SEC")
STEP_OF_ISO = 0.0001
SINGLE_PLACE = 2.0**-23
GRADES = ("excellent", "good", "fair", "poor")


class Pair:
    """Reference and computed values one by one, and the times of the first and the last."""

    def __init__(self, reference, computed, window, step, units):
        """`reference` and `computed` are (x, y) as the run left them, `window` is the common range."""
        if window[0] != min(computed[0]) or window[1] != max(computed[0]):
            reference = cut(reference, step, window)
        count = min(len(reference[1]), len(computed[1]))
        self.m, self.c = reference[1][:count], computed[1][:count]
        self.step, self.start = step, max(reference[0][0], computed[0][0]) if count else 0.0
        self.end = self.start + step * (count - 1.0)
        self.has_time = all(unit in TIME_UNITS for unit in units) and step > 0.0 \
            and all(even(x[:count], step) for x in (reference[0], computed[0]))

    def at_iso_step(self):
        """Both signals as ISO/TS 18571 takes them, and whether they were interpolated."""
        if abs(self.step - STEP_OF_ISO) <= 1e-6 * STEP_OF_ISO or not self.m:
            return self.m, self.c, False
        count = math.floor((self.end - self.start) / STEP_OF_ISO + 1e-9) + 1
        places = [k * STEP_OF_ISO / self.step for k in range(count)]
        return [line(self.m, place) for place in places], [line(self.c, place) for place in places], True

    def iso_count(self):
        return math.floor((self.end - self.start) / STEP_OF_ISO + 1e-9) + 1 if self.m and self.has_time else 0


def cut(points, step, window):
    record = Record()
    record.x, record.y = points
    record.first, record.last, record.step = 1, len(record.x), step
    record.truncate_by_time(*window)
    return record.x, record.y


def even(x, step):
    return all(abs(b - a - step) <= 1e-3 * step + SINGLE_PLACE * max(abs(a), abs(b)) for a, b in zip(x, x[1:]))


def line(values, place):
    low = min(int(place), len(values) - 1)
    if low == len(values) - 1:
        return values[low]
    return (1.0 - (place - low)) * values[low] + (place - low) * values[low + 1]


def without_values(families):
    return {name: None if not isinstance(value, dict) else without_values(value) for name, value in families.items()}


def expected_ratings(pair, with_iso):
    """{family: {member: number, word or None}} under the names of the results."""
    m, c = (pair.m, pair.c) if pair else ([], [])
    families = dict(rating.magnitude_phase_families(m, c), anova=rating.anova(m, c), values=rating.single_values(m, c))
    passes = rating.roadside(families["spragueGeers"], families["anova"])["passes"]
    families["roadside"] = {"verdict": None if passes is None else "pass" if passes else "fail"}
    timed = (m, c) if pair and pair.has_time else ([], [])
    start, step = (pair.start, pair.step) if pair else (0.0, 1.0)
    families["knowlesGear"] = rating.knowles_gear(*timed, start, step)
    cora = rating.cora(*timed, start, step)
    first, last = cora.pop("start"), cora.pop("end")
    families["cora"] = dict(cora, interval=None if first is None else [first, last])
    if with_iso:
        iso = rating.iso(*(pair.at_iso_step()[:2] if pair and pair.has_time else ([], [])))
        iso["grade"] = None if iso["grade"] is None else GRADES[iso["grade"]]
        families["iso18571"] = {name: value for name, value in iso.items() if not name.endswith("ByRule")}
    return families
