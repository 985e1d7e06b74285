#include "compare/ratings/single_values.h"

#include "compare/ratings/correlation.h"
#include "compare/ratings/messages.h"
#include "compare/ratings/samples.h"
#include "compare/ratings/value.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace ratings {
namespace {

/// What 1 less a quotient of sums may be off by when it should be 0; its root would show half of the digits only.
constexpr double kRounding = 1e-12;

struct CSums {
    double errors = 0.0, errorSquares = 0.0;  ///< of |e| and e^2
    double reference = 0.0, referenceSquares = 0.0;
    double computed = 0.0, computedSquares = 0.0;
    double variation = 0.0;  ///< of (m - mean m)^2
};

CSums Sum(const CSamples& samples) {
    CSums sums;
    double total = 0.0;
    for (std::size_t i = 0; i < samples.reference.size(); ++i) {
        const double m = samples.reference[i], c = samples.computed[i];
        sums.errors += std::abs(c - m);
        sums.errorSquares += (c - m) * (c - m);
        sums.reference += std::abs(m);
        sums.referenceSquares += m * m;
        sums.computed += std::abs(c);
        sums.computedSquares += c * c;
        total += m;
    }
    const double mean = total / static_cast<double>(samples.reference.size());
    for (const double m : samples.reference) sums.variation += (m - mean) * (m - mean);
    return sums;
}

/// Quotients whose divisor is known to be zero or not by what the signals are, not by a sum's rounding.
struct CDivisor {
    bool isZero;
    std::string_view reason;

    [[nodiscard]] CValue Under(double dividend, double divisor) const {
        return isZero ? CValue::Unavailable(reason) : CValue::Of(dividend / divisor);
    }
};

CValue Correlate(const CSamples& samples, CCentering centering, std::string_view referenceReason,
                 std::string_view computedReason) {
    if (IsFlat(samples.reference, centering)) return CValue::Unavailable(referenceReason);
    if (IsFlat(samples.computed, centering)) return CValue::Unavailable(computedReason);
    return CValue::Of(Correlation(samples, centering).value());
}

CValue Regression(const CSums& sums, double count, const CDivisor& constant) {
    CValue share = constant.Under(sums.errorSquares, sums.variation);
    if (!share.IsNumber()) return share;
    const double square = 1.0 - (count - 1.0) / count * share.Number();
    if (std::abs(square) <= kRounding) return CValue::Of(0.0);
    return square < 0.0 ? CValue::Unavailable(rating_message::kNegativeRoot) : CValue::Of(std::sqrt(square));
}

CValue Wifac(const CSamples& samples) {
    double sum = 0.0, divisor = 0.0;
    for (std::size_t i = 0; i < samples.reference.size(); ++i) {
        const double m = samples.reference[i], c = samples.computed[i];
        const double larger = std::max(m * m, c * c);
        if (larger == 0.0) continue;
        const double weighted = TrapezoidWeight(i, samples.reference.size()) * larger;
        const double missing = 1.0 - std::max(0.0, m * c) / larger;
        sum += weighted * missing * missing;
        divisor += weighted;
    }
    return CValue::Of(divisor == 0.0 ? 1.0 : 1.0 - std::sqrt(sum / divisor));
}

CSingleValues Unavailable(std::string_view reason) {
    CSingleValues values;
    for (CValue* value : {&values.rms, &values.nrmsePeak, &values.nrmseRange, &values.nrmseRms, &values.pearson,
                          &values.nard, &values.r2, &values.regression, &values.theil, &values.whang, &values.zilliacus,
                          &values.rss, &values.wifac}) {
        *value = CValue::Unavailable(reason);
    }
    return values;
}

}  // namespace

CSingleValues SingleValues(const CSamples& samples) {
    if (const auto reason = WhyNotRated(samples)) return Unavailable(*reason);
    const CScaledSamples scaled = ScaleTogether(samples);
    const CSamples view = scaled.View();
    const CSums sums = Sum(view);
    const double count = static_cast<double>(view.reference.size());
    const double peak = LargestMagnitude(view.reference);
    const auto [least, most] = std::ranges::minmax(view.reference);
    const double error = std::sqrt(sums.errorSquares), reference = std::sqrt(sums.referenceSquares);
    const double rms = error / std::sqrt(count);

    const CDivisor zero{peak == 0.0, rating_message::kReferenceZero};
    const CDivisor constant{most == least, rating_message::kReferenceConstant};
    const CDivisor bothZero{peak == 0.0 && LargestMagnitude(view.computed) == 0.0, rating_message::kBothZero};

    CSingleValues values;
    values.rms = CValue::Of(std::ldexp(rms, scaled.exponent));
    values.nrmsePeak = zero.Under(rms, peak);
    values.nrmseRange = constant.Under(rms, most - least);
    values.nrmseRms = zero.Under(error, reference);
    values.pearson =
        Correlate(samples, CCentering::Mean, rating_message::kReferenceConstant, rating_message::kComputedConstant);
    values.nard = Correlate(samples, CCentering::None, rating_message::kReferenceZero, rating_message::kComputedZero);
    values.r2 = constant.Under(sums.variation - sums.errorSquares, sums.variation);
    values.regression = Regression(sums, count, constant);
    values.theil = bothZero.Under(error, reference + std::sqrt(sums.computedSquares));
    values.whang = bothZero.Under(sums.errors, sums.reference + sums.computed);
    values.zilliacus = zero.Under(sums.errors, sums.reference);
    values.rss = zero.Under(error, reference);
    values.wifac = Wifac(view);
    return values;
}

}  // namespace ratings
