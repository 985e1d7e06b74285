#include "compare/ratings/anova.h"

#include "compare/ratings/magnitude_phase.h"
#include "compare/ratings/messages.h"
#include "compare/ratings/samples.h"
#include "compare/ratings/value.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace ratings {
namespace {

/// Share of the mean below which a deviation is rounding.
constexpr double kConstantShare = 1e-12;

CAnova Unavailable(std::string_view reason) {
    const CValue value = CValue::Unavailable(reason);
    return {value, value, value};
}

std::vector<double> RelativeResiduals(const CSamples& samples) {
    const double peak = LargestMagnitude(samples.reference);
    std::vector<double> residuals(samples.reference.size());
    for (std::size_t i = 0; i < residuals.size(); ++i) {
        residuals[i] = (samples.reference[i] - samples.computed[i]) / peak;
    }
    return residuals;
}

double Sum(std::span<const double> values) {
    double sum = 0.0;
    for (const double value : values) sum += value;
    return sum;
}

CValue TStatistic(double mean, double deviation, double count) {
    if (deviation <= kConstantShare * std::abs(mean)) return CValue::Unavailable(rating_message::kConstantResidual);
    return CValue::Of(mean / (deviation / std::sqrt(count)));
}

}  // namespace

CAnova Anova(const CSamples& samples) {
    if (const auto reason = WhyNotRated(samples)) return Unavailable(*reason);
    if (LargestMagnitude(samples.reference) == 0.0) return Unavailable(rating_message::kReferenceZero);
    std::vector<double> residuals = RelativeResiduals(ScaleTogether(samples).View());
    const double count = static_cast<double>(residuals.size());
    const double mean = Sum(residuals) / count;
    CAnova anova = Unavailable(rating_message::kTooFewForDeviation);
    anova.mean = CValue::Of(mean);
    if (residuals.size() < 2) return anova;

    for (double& residual : residuals) residual = (residual - mean) * (residual - mean);
    const double deviation = std::sqrt(Sum(residuals) / (count - 1.0));
    anova.standardDeviation = CValue::Of(deviation);
    anova.t = TStatistic(mean, deviation, count);
    return anova;
}

CRoadside RoadsideAcceptance(const CSamples& samples, const CRoadsideLimits& limits) {
    const CMagnitudePhase errors = SpragueGeers(samples);
    const CAnova anova = Anova(samples);
    struct CLimited {
        const CValue& value;
        double limit;
    };
    const std::array rows{CLimited{errors.magnitude, limits.magnitude}, CLimited{errors.phase, limits.phase},
                          CLimited{anova.mean, limits.mean},
                          CLimited{anova.standardDeviation, limits.standardDeviation}};
    bool isWithin = true;
    for (const CLimited& row : rows) {
        if (!row.value.IsNumber()) return {{}, row.value.Reason()};
        isWithin = isWithin && std::abs(row.value.Number()) <= row.limit;
    }
    return {isWithin ? CRoadsideVerdict::Pass : CRoadsideVerdict::Fail, {}};
}

}  // namespace ratings
