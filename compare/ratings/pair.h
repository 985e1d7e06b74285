#pragma once

#include "compare/comparison.h"
#include "compare/ratings/cora.h"
#include "compare/ratings/iso18571.h"
#include "compare/ratings/knowles_gear.h"
#include "compare/ratings/samples.h"
#include "signal/nsignal.h"

#include <string_view>
#include <vector>

namespace ratings {

/// The two signals that are rated, and their time base. It views the records' values, so both records must stay as
/// they are for as long as it is used.
struct CRatedPair {
    CSamples samples;  ///< n values of each, n that of the shorter
    /// Start: the first common X; step: the reference's. In units of X, which are seconds where time is known.
    CTimeBase time;
    /// Why no rating that needs time is available; empty when they are.
    std::string_view timeReason;

    /// X of the last sample, as the time base has it; meaningless without samples.
    [[nodiscard]] double End() const {
        return time.startS + time.stepS * (static_cast<double>(samples.reference.size()) - 1.0);
    }
};

/// The pair of a computed record as it was compared and the reference cut to the same range. Values are paired one by
/// one from the first on, as the comparison's own measures pair them.
///
/// Sample i is at the later of both first X plus i times the reference's step; the records' own X only decide
/// whether time can be used at all. It cannot where X is not in seconds in either record, where the reference has no
/// step above 0, or where a step of either record departs from the reference's by more than 1e-3 of it. What single
/// precision does to an X of a file is not counted as a departure.
CRatedPair MakeRatedPair(const ks::CNSignal& computed, const ks::CNSignal& cutReference);

/// The same from the whole reference: it is cut as `comparison` cut it when it compared these two.
CRatedPair MakeRatedPair(const ks::CNSignal& computed, const ks::CNSignal& reference, const CComparison& comparison);

/// Values of both signals at another step.
struct CResampledSamples {
    std::vector<double> reference;
    std::vector<double> computed;

    [[nodiscard]] CSamples View() const { return {reference, computed}; }
};

/// Number of samples that a step gives: k * stepS for k = 0 ... floor(length / stepS + 1e-9).
double CountAtStep(const CRatedPair& pair, double stepS);

/// Both signals on straight lines between their samples, at the pair's start + k * stepS.
/// @param stepS  > 0, few enough samples for memory
/// @throws std::bad_alloc
CResampledSamples AtStep(const CRatedPair& pair, double stepS);

// The ratings that need time. Each is not available with the pair's reason where it has one.

/// ISO/TS 18571 at 0.0001 s: a pair whose step differs from it by more than 1e-6 of it is interpolated, and the rating
/// says so.
CIso18571Rating RateIso18571(const CRatedPair& pair, const CIso18571Options& options = {});
CKnowlesGear RateKnowlesGear(const CRatedPair& pair, const CKnowlesGearOptions& options = {});
CCora RateCora(const CRatedPair& pair, const CCoraOptions& options = {});

}  // namespace ratings
