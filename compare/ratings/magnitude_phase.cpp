#include "compare/ratings/magnitude_phase.h"

#include "compare/ratings/messages.h"
#include "compare/ratings/samples.h"
#include "compare/ratings/value.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <span>
#include <string_view>

namespace ratings {
namespace {

using std::numbers::pi;

/// How two signals that both have a norm differ: by length and by direction.
struct CRelation {
    double gain = 1.0;        ///< sqrt(Scc / Smm)
    double angle = 0.0;       ///< acos(r), 0 to pi
    bool isOpposite = false;  ///< Smc < 0
};

/// Square root of the trapezoid sum of squares.
double Norm(std::span<const double> values) {
    double sum = 0.0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        sum += TrapezoidWeight(i, values.size()) * values[i] * values[i];
    }
    return std::sqrt(sum);
}

/// From the lengths of sum and difference of the unit vectors. The arc cosine would lose half the digits of a small
/// angle, and nearly proportional signals are the common case.
CRelation Relate(std::span<const double> reference, double referenceNorm, std::span<const double> computed,
                 double computedNorm) {
    double sumSquares = 0.0, differenceSquares = 0.0, products = 0.0;
    for (std::size_t i = 0; i < reference.size(); ++i) {
        const double weight = TrapezoidWeight(i, reference.size());
        const double u = reference[i] / referenceNorm, v = computed[i] / computedNorm;
        sumSquares += weight * (u + v) * (u + v);
        differenceSquares += weight * (u - v) * (u - v);
        products += weight * reference[i] * computed[i];
    }
    return {computedNorm / referenceNorm, 2.0 * std::atan2(std::sqrt(differenceSquares), std::sqrt(sumSquares)),
            products < 0.0};
}

CMagnitudePhase Unavailable(std::string_view reason) {
    const CValue value = CValue::Unavailable(reason);
    return {value, value, value};
}

/// For Sprague-Geers, Geers and Geers CSA: the computed signal vanishes, so its magnitude is all that is known.
CMagnitudePhase WithoutComputed() {
    CMagnitudePhase errors = Unavailable(rating_message::kComputedZero);
    errors.magnitude = CValue::Of(-1.0);
    return errors;
}

CMagnitudePhase Combine(double magnitude, double phase) {
    return {CValue::Of(magnitude), CValue::Of(phase), CValue::Of(std::hypot(magnitude, phase))};
}

CMagnitudePhase SpragueGeersOf(const CRelation& relation) {
    return Combine(relation.gain - 1.0, relation.angle / pi);
}

CMagnitudePhase GeersOf(const CRelation& relation) {
    const double half = std::sin(relation.angle / 2.0);
    return Combine(relation.gain - 1.0, 2.0 * half * half);
}

CMagnitudePhase GeersCsaOf(const CRelation& relation) {
    const double half = std::sin(std::min(relation.angle, pi - relation.angle) / 2.0);
    CMagnitudePhase errors = Combine(relation.gain - 1.0, 2.0 * half * half);
    if (relation.isOpposite && errors.combined.IsNumber()) errors.combined = CValue::Of(-errors.combined.Number());
    return errors;
}

CMagnitudePhase RussellOf(const CRelation& relation) {
    const double difference = relation.gain - 1.0 / relation.gain;
    const double magnitude = std::copysign(std::log10(1.0 + std::abs(difference)), difference);
    const double phase = relation.angle / pi;
    return {CValue::Of(magnitude), CValue::Of(phase), CValue::Of(std::sqrt(pi / 4.0) * std::hypot(magnitude, phase))};
}

template <class Errors>
CMagnitudePhase Rate(const CSamples& samples, const CMagnitudePhase& withoutComputed, Errors errors) {
    if (const auto reason = WhyNotRated(samples)) return Unavailable(*reason);
    const CScaled reference = Scale(samples.reference), computed = Scale(samples.computed);
    const double referenceNorm = Norm(reference.values), computedNorm = Norm(computed.values);
    if (referenceNorm == 0.0) return Unavailable(rating_message::kReferenceZero);
    if (computedNorm == 0.0) return withoutComputed;
    CRelation relation = Relate(reference.values, referenceNorm, computed.values, computedNorm);
    relation.gain = std::ldexp(relation.gain, computed.exponent - reference.exponent);
    return errors(relation);
}

}  // namespace

CMagnitudePhase SpragueGeers(const CSamples& samples) {
    return Rate(samples, WithoutComputed(), SpragueGeersOf);
}

CMagnitudePhase SpragueGeers(const CProductSums& sums) {
    if (!(sums.referenceSquares > 0.0)) return Unavailable(rating_message::kReferenceZero);
    if (!(sums.computedSquares > 0.0)) return WithoutComputed();
    const double cosine = sums.products / (std::sqrt(sums.referenceSquares) * std::sqrt(sums.computedSquares));
    return SpragueGeersOf({std::sqrt(sums.computedSquares / sums.referenceSquares),
                           std::acos(std::clamp(cosine, -1.0, 1.0)), sums.products < 0.0});
}

CMagnitudePhase Geers(const CSamples& samples) {
    return Rate(samples, WithoutComputed(), GeersOf);
}

CMagnitudePhase GeersCsa(const CSamples& samples) {
    return Rate(samples, WithoutComputed(), GeersCsaOf);
}

CMagnitudePhase Russell(const CSamples& samples) {
    return Rate(samples, Unavailable(rating_message::kComputedZero), RussellOf);
}

}  // namespace ratings
