#pragma once

#include "compare/ratings/correlation.h"
#include "compare/ratings/samples.h"

#include <cstddef>
#include <cstdint>

namespace ratings {

/// The samples that overlap when the computed signal is taken as `lag` samples late: reference[i] meets
/// computed[i + lag], equally many of both. A negative lag takes the computed signal as early.
/// @param lag  its magnitude below the number of samples
CSamples OverlapAt(const CSamples& samples, std::int64_t lag);

/// What the overlap at a lag correlates by.
struct CLagCorrelation {
    std::int64_t lag = 0;      ///< in samples, positive when the computed signal comes late
    double correlation = 0.0;  ///< Correlation() of the overlap, or by rule
    /// True where an overlap is flat, so that the correlation is not defined. With CCentering::Mean a rule applies: 1
    /// for equal parts, else 0. With CCentering::None such a lag is skipped; true then means that all were.
    bool isByRule = false;
};

CLagCorrelation CorrelationAtLag(const CSamples& samples, std::int64_t lag, CCentering centering);

/// The lag of -maxLag ... maxLag whose overlap correlates best.
///
/// Lags are tried in the order 0, 1, -1, 2, -2 ..., and one is taken only when it correlates by more than 1e-12 better
/// than the best so far: the smallest lag wins ties, at equal magnitude the late one. Ramps and periodic signals tie up
/// to rounding, which the margin keeps out.
///
/// One Fourier transform gives the product sums of all lags, prefix sums the rest; only lags whose rounding could
/// change the choice are summed again, so the result does not depend on the transform's rounding. O(n log n), except
/// where very many lags tie.
///
/// @param samples  equally many finite values of each, at least one
/// @param maxLag   below the number of samples
/// @throws         std::bad_alloc
CLagCorrelation FindBestLag(const CSamples& samples, std::size_t maxLag, CCentering centering);

}  // namespace ratings
