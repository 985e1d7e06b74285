#pragma once

#include "compare/ratings/samples.h"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <utility>
#include <vector>

// Pairs of signals given by formulas.

namespace ratings {

/// A reference and a computed signal that own their values.
struct CPairOfSignals {
    std::vector<double> reference;
    std::vector<double> computed;

    [[nodiscard]] CSamples View() const { return {reference, computed}; }
};

/// curve(0) ... curve(count - 1), the index as a double.
template <class Curve>
std::vector<double> Sampled(std::size_t count, Curve curve) {
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i) values[i] = curve(static_cast<double>(i));
    return values;
}

template <class Reference, class Computed>
CPairOfSignals MakePair(std::size_t count, Reference reference, Computed computed) {
    return {Sampled(count, reference), Sampled(count, computed)};
}

/// The reference times `gain`, plus `offset`.
inline CPairOfSignals WithGain(std::vector<double> reference, double gain, double offset = 0.0) {
    std::vector<double> computed = reference;
    for (double& value : computed) value = gain * value + offset;
    return {std::move(reference), std::move(computed)};
}

/// A pulse with quiet ends: half a sine over a fifth of the samples, its start at a share of them, `delay` in samples.
inline std::vector<double> Pulse(std::size_t count, double startShare, double delay = 0.0) {
    const double n = static_cast<double>(count);
    return Sampled(count, [=](double i) {
        const double x = (i - delay - startShare * n) / (0.2 * n);
        return x > 0.0 && x < 1.0 ? 50.0 * std::sin(std::numbers::pi * x) : 0.0;
    });
}

/// A wave that is neither flat nor periodic in the window.
inline std::vector<double> Wave(std::size_t count) {
    return Sampled(count, [](double i) { return 10.0 * std::sin(0.05 * i) * std::exp(-0.004 * i); });
}

/// gain e^-t sin 2 pi t for the time t since the start, 0 before it.
inline double DecayingSineAt(double t, double gain = 1.0) {
    return t > 0.0 ? gain * std::exp(-t) * std::sin(2.0 * std::numbers::pi * t) : 0.0;
}

/// The classic analytic signal, t = 0 ... 2 s in steps of 0.02 s.
inline std::vector<double> DecayingSine(double startS, double gain = 1.0) {
    return Sampled(101, [=](double i) { return DecayingSineAt(0.02 * i - startS, gain); });
}

}  // namespace ratings
