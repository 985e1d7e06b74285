#pragma once

#include "compare/ratings/samples.h"

#include <cstddef>

namespace ratings {

/// Sums over the cells of a warping path, in the signals' own units.
struct CPathSums {
    double difference = 0.0;  ///< of |computed[i] - reference[j]|
    double reference = 0.0;   ///< of |reference[j]|
};

/// Sums along the cheapest path of dynamic time warping from (0, 0) to (n - 1, n - 1).
///
/// Cell (i, j) pairs computed[i] with reference[j] and costs the square of their difference. Steps are (1, 0), (0, 1)
/// and (1, 1), each of weight 1; only cells with |i - j| < `width` are allowed. Of equally cheap predecessors
/// (i - 1, j) is taken before (i, j - 1) and that before (i - 1, j - 1).
///
/// Every cell carries the sums of its path along, so no matrix is kept and nothing is traced back: memory is O(n),
/// time O(n width).
///
/// @param samples  equally many finite values of each, at least one, so scaled that no square overflows
/// @param width    at least 1, which allows the diagonal alone
CPathSums WarpingPathSums(const CSamples& samples, std::size_t width);

}  // namespace ratings
