"""Arithmetic as the processor does it: single precision, and division and roots that give infinities and
not-a-number values where Python would raise."""

import math
import struct

INT_MAX = 2147483647
INT_MIN = -2147483648


class Fault(Exception):
    """What stops an operation; its text is the sentence that the user reads."""


def single(value):
    """A real rounded to single precision and widened again."""
    try:
        return struct.unpack("<f", struct.pack("<f", value))[0]
    except OverflowError:
        return math.copysign(math.inf, value)


def divide(a, b):
    if b != 0.0:
        return a / b
    if a == 0.0 or math.isnan(a) or math.isnan(b):
        return math.nan
    return math.copysign(math.inf, a) * math.copysign(1.0, b)


def root(value):
    return math.sqrt(value) if value >= 0.0 else math.nan


def exact_sum(values):
    """The sum, rounded once; infinities add up as the processor adds them."""
    values = list(values)
    try:
        return math.fsum(values)
    except (OverflowError, ValueError):
        return sum(values)


def largest(values):
    """The largest value by a scan with ">", so that a not-a-number value never wins."""
    best = values[0]
    for value in values:
        if value > best:
            best = value
    return best


def smallest(values):
    best = values[0]
    for value in values:
        if value < best:
            best = value
    return best


def saturated(value):
    """A real cut toward zero to a 32-bit integer; the nearest limit where it does not fit."""
    if math.isnan(value):
        return 0
    return int(max(float(INT_MIN), min(float(INT_MAX), value)))


def short_number(value):
    """A double as a C++ stream writes it by default."""
    return "%g" % value
