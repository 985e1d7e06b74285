#include "compare/ratings/pair.h"

#include "compare/comparison.h"
#include "compare/ratings/cora.h"
#include "compare/ratings/iso18571.h"
#include "compare/ratings/knowles_gear.h"
#include "compare/ratings/messages.h"
#include "compare/ratings/samples.h"
#include "files/error.h"
#include "signal/column.h"
#include "signal/nsignal.h"
#include "signal/truncate.h"
#include "signal/units.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>
#include <vector>

namespace ratings {
namespace {

constexpr double kLargestDeparture = 1e-3;
constexpr double kSameStep = 1e-6;
constexpr double kPositionRounding = 1e-9;

/// The values of one record that are paired.
struct CPart {
    ks::CColumn x;
    std::span<const double> y;
};

CPart Part(const ks::CNSignal& record, std::size_t first, std::size_t end) {
    return {record.GetX().Part(first, end - first), record.GetY().Values().subspan(first, end - first)};
}

CPart Whole(const ks::CNSignal& record) {
    return Part(record, 0, std::min(record.GetX().size(), record.GetY().size()));
}

/// The samples of the reference that were compared. A comparison cuts both records or neither, and a cut record ends
/// before the range does.
CPart ComparedPart(const ks::CNSignal& computed, const ks::CNSignal& reference, const CComparison& comparison) {
    const double start = comparison.GetMinimumTime(), stop = comparison.GetMaximumTime();
    const bool isUncut = computed.GetXMin() == start && computed.GetXMax() == stop;
    if (isUncut) return Whole(reference);
    const CPart whole = Whole(reference);
    const ks::CIndexRange range = ks::SamplesInWindow(whole.x, start, stop, reference.GetCount());
    return Part(reference, range.begin, range.end);
}

/// Two neighbors in single precision may each be half a unit of their last place off.
bool IsEven(const ks::CColumn& values, std::size_t count, double step) {
    constexpr auto kSinglePlace = static_cast<double>(std::numeric_limits<float>::epsilon());
    return ks::VisitAxis(values, [&](const auto& x) {
        for (std::size_t i = 1; i < count; ++i) {
            const double rounding = kSinglePlace * std::max(std::abs(x[i - 1]), std::abs(x[i]));
            if (!(std::abs((x[i] - x[i - 1]) - step) <= kLargestDeparture * step + rounding)) return false;
        }
        return true;
    });
}

CRatedPair Join(const ks::CNSignal& computed, const ks::CNSignal& reference, const CPart& referencePart) {
    const CPart computedPart = Whole(computed);
    const std::size_t count = std::min(computedPart.y.size(), referencePart.y.size());
    CRatedPair pair;
    pair.samples = {referencePart.y.first(count), computedPart.y.first(count)};
    pair.time.stepS = reference.Getdelt();
    if (count > 0) pair.time.startS = std::max(referencePart.x.front(), computedPart.x.front());

    if (!ks::IsTimeUnit(reference.GetXUNITS()) || !ks::IsTimeUnit(computed.GetXUNITS())) {
        pair.timeReason = rating_message::kNotInSeconds;
    } else if (!(pair.time.stepS > 0.0) || !std::isfinite(pair.time.stepS)) {
        pair.timeReason = rating_message::kNoTimeStep;
    } else if (!IsEven(referencePart.x, count, pair.time.stepS) || !IsEven(computedPart.x, count, pair.time.stepS)) {
        pair.timeReason = rating_message::kUnevenSteps;
    }
    return pair;
}

double LineAt(std::span<const double> values, double position) {
    const std::size_t last = values.size() - 1;
    const std::size_t index = std::min(static_cast<std::size_t>(position), last);
    if (index == last) return values[last];
    // Weighted so that a value in between cannot overflow where its neighbors do not.
    const double share = position - static_cast<double>(index);
    return (1.0 - share) * values[index] + share * values[index + 1];
}

}  // namespace

CRatedPair MakeRatedPair(const ks::CNSignal& computed, const ks::CNSignal& cutReference) {
    return Join(computed, cutReference, Whole(cutReference));
}

CRatedPair MakeRatedPair(const ks::CNSignal& computed, const ks::CNSignal& reference, const CComparison& comparison) {
    return Join(computed, reference, ComparedPart(computed, reference, comparison));
}

double CountAtStep(const CRatedPair& pair, double stepS) {
    if (pair.samples.reference.empty()) return 0.0;
    return std::floor((pair.End() - pair.time.startS) / stepS + kPositionRounding) + 1.0;
}

CResampledSamples AtStep(const CRatedPair& pair, double stepS) {
    const auto count = static_cast<std::size_t>(CountAtStep(pair, stepS));
    CResampledSamples resampled{std::vector<double>(count), std::vector<double>(count)};
    for (std::size_t k = 0; k < count; ++k) {
        const double position = static_cast<double>(k) * stepS / pair.time.stepS;
        resampled.reference[k] = LineAt(pair.samples.reference, position);
        resampled.computed[k] = LineAt(pair.samples.computed, position);
    }
    return resampled;
}

CIso18571Rating RateIso18571(const CRatedPair& pair, const CIso18571Options& options) {
    if (const auto fault = FaultOf(options)) throw ks::CError(*fault);
    if (!pair.timeReason.empty()) return UnavailableIso18571(pair.timeReason, options);
    if (WhyNotRated(pair.samples) || std::abs(pair.time.stepS - kIsoStepS) <= kSameStep * kIsoStepS) {
        return Iso18571(pair.samples, options);
    }
    const bool areTooMany = CountAtStep(pair, kIsoStepS) > static_cast<double>(kIsoMostSamples);
    CIso18571Rating rating = areTooMany ? UnavailableIso18571(rating_message::kTooManyForIso, options)
                                        : Iso18571(AtStep(pair, kIsoStepS).View(), options);
    rating.isResampled = true;
    return rating;
}

CKnowlesGear RateKnowlesGear(const CRatedPair& pair, const CKnowlesGearOptions& options) {
    if (!pair.timeReason.empty()) return UnavailableKnowlesGear(pair.timeReason);
    return KnowlesGear(pair.samples, pair.time, options);
}

CCora RateCora(const CRatedPair& pair, const CCoraOptions& options) {
    if (!pair.timeReason.empty()) return UnavailableCora(pair.timeReason, options);
    return Cora(pair.samples, pair.time, options);
}

}  // namespace ratings
