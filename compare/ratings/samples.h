#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace ratings {

/// The two signals of a rating: sample i of both is at the same time, steps are even. Ratings are not symmetric,
/// so the members are named: `reference` is the measured signal that errors are related to.
struct CSamples {
    std::span<const double> reference;
    std::span<const double> computed;
};

/// The step and start of the samples, in seconds: sample i is at startS + i * stepS.
struct CTimeBase {
    double startS = 0.0;
    double stepS = 0.0001;  ///< > 0
};

/// Why no rating can take these samples: none at all, different numbers of them, or a value that is not finite.
std::optional<std::string_view> WhyNotRated(const CSamples& samples);

/// The largest magnitude; 0 for no values.
double LargestMagnitude(std::span<const double> values);

/// Whether all values are equal; true for no values.
bool IsConstant(std::span<const double> values);

/// Values times 2^-exponent, so that the largest magnitude is in [1, 2): squares and their sums then stay within the
/// range of numbers, and no digit changes. Values that are all zero have exponent 0.
struct CScaled {
    std::vector<double> values;
    int exponent = 0;
};

CScaled Scale(std::span<const double> values);

/// Both signals times the same power of two, chosen for the larger of both.
struct CScaledSamples {
    std::vector<double> reference;
    std::vector<double> computed;
    int exponent = 0;

    [[nodiscard]] CSamples View() const { return {reference, computed}; }
};

CScaledSamples ScaleTogether(const CSamples& samples);

/// Weight of sample `index` of `count` in the trapezoid sum whose step is left out: 1/2 at both ends, else 1. A single
/// sample counts as both ends.
inline double TrapezoidWeight(std::size_t index, std::size_t count) {
    if (count == 1) return 1.0;
    return index == 0 || index + 1 == count ? 0.5 : 1.0;
}

}  // namespace ratings
