#include "compare/ratings/knowles_gear.h"

#include "compare/ratings/messages.h"
#include "compare/ratings/samples.h"
#include "compare/ratings/value.h"
#include "files/error.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>

namespace ratings {
namespace {

/// Positions are differences of times, so a whole number of samples may be off by this much.
constexpr double kPositionRounding = 1e-9;

/// Index, with its fraction, at which the magnitude of the signal's straight lines first reaches the level.
double ArrivalPosition(std::span<const double> values, double level) {
    std::size_t i = 0;
    while (std::abs(values[i]) < level) ++i;
    if (i == 0) return 0.0;
    const double before = values[i - 1];
    return static_cast<double>(i - 1) + (std::copysign(level, values[i]) - before) / (values[i] - before);
}

/// The signal's straight lines at a position; no value outside.
std::optional<double> At(std::span<const double> values, double position) {
    const double last = static_cast<double>(values.size() - 1);
    if (position < -kPositionRounding || position > last + kPositionRounding) return {};
    const double inside = std::clamp(position, 0.0, last);
    const auto index = static_cast<std::size_t>(inside);
    if (index + 1 == values.size()) return values[index];
    return values[index] + (inside - static_cast<double>(index)) * (values[index + 1] - values[index]);
}

/// @param shift  the computed signal's delay in samples
CValue MagnitudeError(const CSamples& samples, double shift, double exponent) {
    const double peak = LargestMagnitude(samples.reference);
    double errors = 0.0, squares = 0.0;
    for (std::size_t i = 0; i < samples.reference.size(); ++i) {
        const std::optional<double> moved = At(samples.computed, static_cast<double>(i) + shift);
        if (!moved) continue;
        const double m = samples.reference[i];
        const double weight = std::pow(std::abs(m) / peak, exponent) * TrapezoidWeight(i, samples.reference.size());
        errors += weight * (*moved - m) * (*moved - m);
        squares += weight * m * m;
    }
    if (squares == 0.0) return CValue::Unavailable(rating_message::kNoWeightedOverlap);
    return CValue::Of(std::sqrt(errors / squares));
}

CValue Combined(const CValue& magnitude, const CValue& arrival) {
    if (!magnitude.IsNumber()) return magnitude;
    if (!arrival.IsNumber()) return arrival;
    const double m = magnitude.Number(), t = arrival.Number();
    return CValue::Of(std::sqrt((10.0 * m * m + 2.0 * t * t) / 12.0));
}

}  // namespace

std::optional<std::string_view> FaultOf(const CKnowlesGearOptions& options) {
    if (!(options.arrivalShare > 0.0 && options.arrivalShare <= 1.0)) return rating_message::kArrivalShare;
    if (!(options.weightExponent >= 0.0)) return rating_message::kWeightExponent;
    return {};
}

CKnowlesGear UnavailableKnowlesGear(std::string_view reason) {
    const CValue value = CValue::Unavailable(reason);
    return {value, value, value, value, value};
}

CKnowlesGear KnowlesGear(const CSamples& samples, const CTimeBase& time, const CKnowlesGearOptions& options) {
    if (const auto fault = FaultOf(options)) throw ks::CError(*fault);
    if (const auto reason = WhyNotRated(samples)) return UnavailableKnowlesGear(*reason);
    const CScaledSamples scaled = ScaleTogether(samples);
    const CSamples view = scaled.View();
    const double referencePeak = LargestMagnitude(view.reference), computedPeak = LargestMagnitude(view.computed);
    if (referencePeak == 0.0) return UnavailableKnowlesGear(rating_message::kReferenceZero);
    if (computedPeak == 0.0) return UnavailableKnowlesGear(rating_message::kComputedZero);

    const double referenceAt = ArrivalPosition(view.reference, options.arrivalShare * referencePeak);
    const double computedAt = ArrivalPosition(view.computed, options.arrivalShare * computedPeak);
    const double start = time.startS / time.stepS;
    const double sinceZero = std::abs(start + referenceAt);

    CKnowlesGear errors;
    errors.referenceArrivalS = CValue::Of(time.startS + referenceAt * time.stepS);
    errors.computedArrivalS = CValue::Of(time.startS + computedAt * time.stepS);
    errors.magnitude = MagnitudeError(view, computedAt - referenceAt, options.weightExponent);
    errors.arrival = sinceZero <= kPositionRounding ? CValue::Unavailable(rating_message::kArrivalAtZero)
                                                    : CValue::Of(std::abs(computedAt - referenceAt) / sinceZero);
    errors.combined = Combined(errors.magnitude, errors.arrival);
    return errors;
}

}  // namespace ratings
