#pragma once

#include "signal/column.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace ks {

/// Array indices `begin` ... `end` - 1.
class CIndexRange {
public:
    std::size_t begin = 0;
    std::size_t end = 0;

    [[nodiscard]] std::size_t Count() const { return end - begin; }
};

/// The samples with start <= x < stop among the first `count` - 1: the last sample never counts, even inside the
/// window; kept, since results of many years were cut that way. A `count` beyond the array is taken as its length.
/// @param x  the samples are those from the first x >= start up to, but without, the next x that is not below stop
CIndexRange SamplesInWindow(std::span<const double> x, double start, double stop, std::int32_t count);
/// The same, with a binary search where the values ascend by a rule.
CIndexRange SamplesInWindow(const CColumn& x, double start, double stop, std::int32_t count);

/// Point number of the first sample after a cut at `start`: start / timeStep cut toward zero and saturated; 0
/// unless the time step is > 0. It follows the requested time, not the time of the first kept sample.
std::int32_t FirstPointAt(double start, double timeStep);

/// The array indices of the samples `first` ... `last` (from 0, both included).
/// @param count   number of samples by the point numbers
/// @param length  number of samples held
/// @throws CError "Stop index is <= Start Index" unless first < last, "Unable to provide requested stop/start indices"
///         unless both are samples
CIndexRange SamplesBetween(std::int64_t first, std::int64_t last, std::int64_t count, std::size_t length);

}  // namespace ks
