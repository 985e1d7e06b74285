#pragma once

#include "signal/column.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace ks {

/// Index of the sample at time zero in an array of `length` values (at least one) whose first value has point number
/// `firstPoint`: 0 when the numbers begin after zero, the last sample when they end before it.
std::size_t TimeZeroIndex(std::int32_t firstPoint, std::size_t length);

/// Cumulative integral by the trapezoid rule, anchored inside the array: the value at `anchor` is `initialValue`, and
/// the sums run from there to both ends.
///
/// @param x, y    equally long, not empty
/// @param factor  every trapezoid is multiplied by it
/// @return        one value per sample, exact for piecewise linear y up to rounding
CColumn CumulativeIntegral(const CColumn& x, std::span<const double> y, std::size_t anchor, double factor,
                           double initialValue);

}  // namespace ks
