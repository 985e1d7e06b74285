#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace ks {

/// Smallest and largest value of an array.
struct CExtrema {
    double minimum = 0.0;
    double maximum = 0.0;
};

/// The extrema of `values`, which must not be empty. The first of equal extremes wins. What is not a number is
/// passed over, except in first place: then both extrema are not a number.
CExtrema ExtremaOf(std::span<const double> values);

/// Number of samples by the point numbers of the first and the last point: 0 when both are 0 or `first` > `last`,
/// else last - first + 1, saturated to 32 bits.
std::int32_t CountOf(std::int32_t first, std::int32_t last);

/// The abscissas timeStep * (first + i) for i = 0 ... count - 1; empty for a count below 1.
std::vector<double> RegularAxis(std::int32_t first, std::int32_t count, double timeStep);

}  // namespace ks
