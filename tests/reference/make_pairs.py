"""Random pairs of signals from a seed: noise, pulses and waves late or early up to the limits of the lag search,
ties, constants, zeros, single samples and values that are not numbers."""

import math

from make_random import Dice

KINDS = ("noise", "pulse", "pulse", "wave", "steps", "ramp", "periodic", "mirrored", "constant", "zero reference",
         "zero computed", "both zero", "same", "gain", "offset", "opposite", "lag at limit", "part constant", "few",
         "not a number", "one spike", "large and small")


def wave(dice):
    parts = [(dice.part(), 2.0 + 30.0 * dice.part(), 6.28 * dice.part()) for _ in range(3)]
    return lambda t: sum(height * math.sin(speed * t + phase) for height, speed, phase in parts)


def pulse(dice):
    middle, width = 0.3 + 0.3 * dice.part(), 0.03 + 0.1 * dice.part()
    return lambda t: math.exp(-((t - middle) / width) ** 2)


class RandomPair:
    """`m` the reference, `c` the computed signal, their start and step."""

    def __init__(self, seed):
        self.dice = Dice(seed)
        self.kind = KINDS[seed % len(KINDS)]
        self.size = self.dice.between(9, 40) if self.dice.chance(0.3) else self.dice.between(41, 160)
        self.step = self.dice.one_of((0.0001, 0.0001, 0.001, 0.02))
        self.start = self.dice.one_of((0.0, 0.0, -0.01, 0.5, 0.0137))
        self.m, self.c = getattr(self, self.kind.replace(" ", "_"))()

    def sampled(self, curve, late=0.0):
        return [curve((i - late) / self.size) for i in range(self.size)]

    def noise_values(self, level=1.0):
        return [level * (2.0 * self.dice.part() - 1.0) for _ in range(self.size)]

    def noise(self):
        return self.noise_values(), self.noise_values(3.0)

    def shifted(self, curve, late):
        gain, level = 0.5 + self.dice.part(), self.dice.one_of((0.0, 0.0, 0.02))
        noise = self.noise_values(level)
        return self.sampled(curve), [gain * value + add for value, add in zip(self.sampled(curve, late), noise)]

    def pulse(self):
        return self.shifted(pulse(self.dice), (self.dice.part() - 0.5) * 0.5 * self.size)

    def wave(self):
        return self.shifted(wave(self.dice), (self.dice.part() - 0.5) * 0.3 * self.size)

    def lag_at_limit(self):
        """Whole samples around the largest shift, either way."""
        late = self.size // 5 + self.dice.between(-1, 1)
        return self.shifted(pulse(self.dice), late if self.dice.chance(0.5) else -late)

    def steps(self):
        """Small whole numbers, whose warping paths tie everywhere."""
        curve, late = wave(self.dice), self.dice.between(-8, 8)
        return ([float(round(2 * value)) for value in self.sampled(curve)],
                [float(round(2 * value)) for value in self.sampled(curve, late)])

    def ramp(self):
        gain = self.dice.one_of((0.5, 1.5, 2.0, -1.0))
        return [float(i) for i in range(self.size)], [gain * i for i in range(self.size)]

    def periodic(self):
        period, late = self.dice.between(4, 12), self.dice.between(0, 6)
        pattern = [float(self.dice.between(-3, 3)) for _ in range(period)]
        return ([pattern[i % period] for i in range(self.size)],
                [pattern[(i - late) % period] for i in range(self.size)])

    def mirrored(self):
        """Alike in both directions of time, so that late and early tie."""
        half = [float(self.dice.between(-4, 4)) for _ in range(self.size // 2)]
        other = [float(self.dice.between(-4, 4)) for _ in range(self.size // 2)]
        middle = [1.0] * (self.size % 2)
        return half + middle + half[::-1], other + middle + other[::-1]

    def constant(self):
        level = self.dice.one_of((10.0, -2.5, 0.1))
        return [level] * self.size, [level * self.dice.one_of((1.0, 1.02, 1.3, -1.0))] * self.size

    def zero_reference(self):
        return [0.0] * self.size, self.sampled(wave(self.dice))

    def zero_computed(self):
        return self.sampled(wave(self.dice)), [0.0] * self.size

    def both_zero(self):
        return [0.0] * self.size, [-0.0] * self.size

    def same(self):
        values = self.sampled(wave(self.dice))
        return values, list(values)

    def gain(self):
        values, gain = self.sampled(wave(self.dice)), 0.25 + 2.0 * self.dice.part()
        return values, [gain * value for value in values]

    def offset(self):
        values = self.sampled(wave(self.dice))
        add = 0.6 * self.dice.part() * max(map(abs, values))
        return values, [value + add for value in values]

    def opposite(self):
        values = self.sampled(pulse(self.dice))
        return values, [-value for value in values]

    def part_constant(self):
        """Level except for a few samples at an end, so that shifted parts are constant."""
        level, few = self.dice.one_of((0.0, 2.0)), self.dice.between(1, max(1, self.size // 8))
        peaks = self.noise_values()[:few]
        m = peaks + [level] * (self.size - few)
        return m, self.dice.one_of((m[::-1], [2.0 * value for value in m], [level] * self.size))

    def few(self):
        self.size = self.dice.between(0, 11)
        return self.noise_values(), self.noise_values()

    def not_a_number(self):
        m, c = self.noise_values(), self.noise_values()
        self.dice.one_of((m, c))[self.dice.between(0, self.size - 1)] = self.dice.one_of((math.nan, math.inf, -math.inf))
        return m, c

    def one_spike(self):
        m, c = [0.0] * self.size, [0.0] * self.size
        m[self.dice.between(0, self.size - 1)] = 1.0
        c[self.dice.between(0, self.size - 1)] = self.dice.one_of((1.0, -1.0, 0.3))
        return m, c

    def large_and_small(self):
        """Far from one, where squares would leave the range of numbers."""
        m, c = self.shifted(wave(self.dice), 0.0)
        scale = self.dice.one_of((2.0 ** 700, 2.0 ** -700))
        return [scale * value for value in m], [scale * value for value in c]
