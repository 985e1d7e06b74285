"""The channel filter: one second-order section run forward and backward, with point-reflected tails."""

import math

from ieee import Fault, saturated

TAIL_WARNING = "BWFILT tail length < 10 ms, does not satisfy SAE J211 reccomendation"


def coefficients(step, frequency):
    wd = 6.2831853 * 1.2465 * frequency
    half = wd * step / 2.0
    wa = math.sin(half) / math.cos(half)
    root2 = math.sqrt(2.0)
    square = wa * wa
    d = 1.0 + root2 * wa + square
    a0 = square / d
    return a0, 2.0 * a0, a0, -2.0 * (square - 1.0) / d, (-1.0 + root2 * wa - square) / d


class Section:
    def __init__(self, numbers, in1, in2, out1, out2):
        self.numbers = numbers
        self.in1, self.in2, self.out1, self.out2 = in1, in2, out1, out2

    def run(self, value):
        a0, a1, a2, b1, b2 = self.numbers
        out = a1 * self.in1 + a0 * value + a2 * self.in2 + b1 * self.out1 + b2 * self.out2
        self.in1, self.in2, self.out1, self.out2 = value, self.in1, out, self.out1
        return out


def tail_mean(values, tail):
    total = 0.0
    for k in range(tail // 2 + 1, tail + 1):
        total += values(k)
    return total / (tail - tail // 2)


def filter_in_place(data, step, frequency, warnings):
    count = len(data)
    if count < 1:
        raise Fault("Nonpositive number of Data Points")
    if not step > 0.0:
        raise Fault("Nonpositive time step")
    if not frequency > 0.0:
        raise Fault("Nonpositive Cutoff Frequency")
    if frequency > 0.775 * (0.5 / step):
        return
    numbers = coefficients(step, frequency)
    tail = max(saturated(0.01 / (step * min(1.0, 0.01 * frequency)) + 0.5), saturated(0.01 / step + 0.5), 1)
    if tail > count - 2:
        warnings.append(TAIL_WARNING)
        tail = count - 2
    if tail < 1:
        return
    twice = 2.0 * data[0]
    start = twice - tail_mean(lambda k: data[k], tail)
    section = Section(numbers, twice - data[tail - 1], twice - data[tail], start, start)
    for k in range(tail - 2, 0, -1):
        section.run(twice - data[k])
    for i in range(count):
        data[i] = section.run(data[i])
    last = count - 1
    twice = 2.0 * data[last]
    start = twice - tail_mean(lambda k: data[last - k], tail)
    section = Section(numbers, twice - data[last - 1 - tail], twice - data[last - tail], start, start)
    for k in range(tail - 4, 0, -1):
        section.run(twice - data[last - k])
    for i in range(last, -1, -1):
        data[i] = section.run(data[i])
