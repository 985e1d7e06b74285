#pragma once

#include "signal/column.h"

#include <cstdint>
#include <optional>

namespace ks {

/// The largest number of points that a resampling may give; more would mean a mistaken time step.
inline constexpr std::int64_t kMostResampledPoints = 100'000'000;

/// A sampled curve and its point numbers. `x` ascends, equal neighbors are allowed. `count` is what the point numbers
/// say; if it differs from the lengths, only the samples that both include are used.
struct CNumberedCurve {
    CColumn x;
    CColumn y;
    std::int32_t firstPoint = 0;
    std::int32_t lastPoint = 0;
    std::int32_t count = 0;
};

/// Point numbers of the first and last multiple of a time step.
struct CPointRange {
    std::int32_t first = 0;
    std::int32_t last = 0;
};

/// Whether no value is followed by a smaller one. Not-a-number never counts as smaller.
bool IsAscending(const CColumn& x);

/// The multiples of `timeStep` (> 0, in units of X) that a resampling of `curve` covers.
/// @return no value when `count` is 0, when either array has fewer than two values, when the step is more than 100
///         times as long as the sampled range, or when a number leaves 32 bits or the points exceed
///         kMostResampledPoints
std::optional<CPointRange> ResampledRange(const CNumberedCurve& curve, double timeStep);

/// The curve at the abscissas (range.first + j) * timeStep, by straight lines between neighboring samples; before the
/// first and after the last sample the line through the two nearest continues. Two equal abscissas at a bracket divide
/// by zero: the result is what IEEE arithmetic makes of it. Takes time linear in samples plus points.
/// @param curve  at least two samples
/// @return       one value for each point number of `range`; none when both ends are 0 or they are crossed
CColumn Interpolate(const CNumberedCurve& curve, const CPointRange& range, double timeStep);

}  // namespace ks
