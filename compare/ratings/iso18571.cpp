#include "compare/ratings/iso18571.h"

#include "compare/ratings/correlation.h"
#include "compare/ratings/lag_search.h"
#include "compare/ratings/messages.h"
#include "compare/ratings/samples.h"
#include "compare/ratings/value.h"
#include "compare/ratings/warping.h"
#include "files/error.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace ratings {
namespace {

/// What a share times a count may be off by when it should be a whole number.
constexpr double kRounding = 1e-9;

double Power(double base, int exponent) {
    double power = 1.0;
    for (int i = 0; i < exponent; ++i) power *= base;
    return power;
}

/// A ratio whose divisor may be zero.
struct CRelativeError {
    double value = 0.0;
    bool isByRule = false;
};

CRelativeError Relate(double difference, double divisor, double worst) {
    if (divisor > 0.0) return {difference / divisor, false};
    return {difference == 0.0 ? 0.0 : worst, true};
}

double ErrorScore(double error, double largest, int exponent) {
    if (error == 0.0) return 1.0;
    if (error >= largest) return 0.0;
    return Power((largest - error) / largest, exponent);
}

double CorridorScore(const CSamples& samples, const CIso18571Options& options) {
    const double peak = LargestMagnitude(samples.reference);
    const double inner = options.corridorInner, outer = options.corridorOuter;
    const auto score = [&](double reference, double computed) {
        if (peak == 0.0) return reference == computed ? 1.0 : 0.0;
        const double distance = std::abs(reference - computed) / peak;
        if (distance < inner) return 1.0;
        if (distance > outer) return 0.0;
        return Power((outer - distance) / (outer - inner), options.corridorExponent);
    };
    double sum = 0.0;
    for (std::size_t i = 0; i < samples.reference.size(); ++i) sum += score(samples.reference[i], samples.computed[i]);
    return sum / static_cast<double>(samples.reference.size());
}

CLagCorrelation BestLag(const CSamples& samples, const CIso18571Options& options) {
    const std::size_t count = samples.reference.size();
    const double largest = options.largestShiftShare * static_cast<double>(count);
    const auto maxLag = static_cast<std::size_t>(std::floor(largest + kRounding));
    const CLagCorrelation best = FindBestLag(samples, std::min(maxLag, count - 1), CCentering::Mean);
    const std::size_t left = count - static_cast<std::size_t>(std::abs(best.lag));
    return left < kIsoLeastSamples ? CorrelationAtLag(samples, 0, CCentering::Mean) : best;
}

double PhaseScore(std::int64_t lag, std::size_t count, const CIso18571Options& options) {
    const double largest = options.largestShiftShare * static_cast<double>(count);
    const double shift = static_cast<double>(std::abs(lag));
    if (shift >= largest - kRounding) return lag == 0 ? 1.0 : 0.0;
    return Power((largest - shift) / largest, options.phaseExponent);
}

CRelativeError MagnitudeError(const CSamples& overlap, const CIso18571Options& options) {
    const double count = static_cast<double>(overlap.reference.size());
    const double width = std::ceil(options.warpingShare * count - kRounding);
    const CPathSums sums = WarpingPathSums(overlap, static_cast<std::size_t>(std::max(width, 1.0)));
    return Relate(sums.difference, sums.reference, options.largestMagnitudeError);
}

/// Differences per sample; the step cancels in what follows.
std::vector<double> Gradient(std::span<const double> y) {
    std::vector<double> gradient(y.size());
    const std::size_t last = y.size() - 1;
    gradient[0] = y[1] - y[0];
    for (std::size_t i = 1; i < last; ++i) gradient[i] = (y[i + 1] - y[i - 1]) / 2.0;
    gradient[last] = y[last] - y[last - 1];
    return gradient;
}

/// Mean over up to four neighbors on either side, equally many.
std::vector<double> Smooth(std::span<const double> values) {
    constexpr std::size_t kReach = 4;
    std::vector<double> means(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::size_t reach = std::min({kReach, i, values.size() - 1 - i});
        double sum = 0.0;
        for (std::size_t k = i - reach; k <= i + reach; ++k) sum += values[k];
        means[i] = sum / static_cast<double>(2 * reach + 1);
    }
    return means;
}

CRelativeError SlopeError(const CSamples& overlap, const CIso18571Options& options) {
    const std::vector<double> reference = Smooth(Gradient(overlap.reference));
    const std::vector<double> computed = Smooth(Gradient(overlap.computed));
    double difference = 0.0, divisor = 0.0;
    for (std::size_t i = 0; i < reference.size(); ++i) {
        difference += std::abs(computed[i] - reference[i]);
        divisor += std::abs(reference[i]);
    }
    return Relate(difference, divisor, options.largestSlopeError);
}

std::optional<std::string_view> WhyNotScored(const CSamples& samples) {
    if (const auto reason = WhyNotRated(samples)) return reason;
    if (samples.reference.size() < kIsoLeastSamples) return rating_message::kTooFewForIso;
    if (samples.reference.size() > kIsoMostSamples) return rating_message::kTooManyForIso;
    return {};
}

bool IsFromOneToThree(int exponent) {
    return exponent >= 1 && exponent <= 3;
}

}  // namespace

std::optional<std::string_view> FaultOf(const CIso18571Options& options) {
    const std::array weights{options.corridorWeight, options.phaseWeight, options.magnitudeWeight, options.slopeWeight};
    const double weightSum = weights[0] + weights[1] + weights[2] + weights[3];
    if (!(0.0 <= options.corridorInner && options.corridorInner < options.corridorOuter &&
          options.corridorOuter <= 1.0)) {
        return rating_message::kCorridorWidths;
    }
    if (options.corridorExponent < 1) return rating_message::kCorridorExponent;
    if (!IsFromOneToThree(options.phaseExponent) || !IsFromOneToThree(options.magnitudeExponent) ||
        !IsFromOneToThree(options.slopeExponent)) {
        return rating_message::kIsoExponents;
    }
    if (!(options.largestShiftShare > 0.0 && options.largestShiftShare < 1.0)) return rating_message::kIsoShiftShare;
    if (!(options.largestMagnitudeError > 0.0 && options.largestSlopeError > 0.0)) {
        return rating_message::kIsoLargestErrors;
    }
    if (!(options.warpingShare > 0.0 && options.warpingShare <= 1.0)) return rating_message::kIsoWarpingShare;
    const bool areNotNegative = std::ranges::all_of(weights, [](double weight) { return weight >= 0.0; });
    if (!areNotNegative || !(std::abs(weightSum - 1.0) <= kRounding)) return rating_message::kWeights;
    return {};
}

CIsoGrade GradeOf(double r) {
    if (r > 0.94) return CIsoGrade::Excellent;
    if (r > 0.80) return CIsoGrade::Good;
    if (r > 0.58) return CIsoGrade::Fair;
    return CIsoGrade::Poor;
}

std::string_view NameOf(CIsoGrade grade) {
    constexpr std::array<std::string_view, 4> kNames{"excellent", "good", "fair", "poor"};
    return kNames.at(static_cast<std::size_t>(grade));
}

CIso18571Scores ScoreIso18571(const CSamples& samples, const CIso18571Options& options) {
    if (const auto fault = FaultOf(options)) throw ks::CError(*fault);
    if (const auto reason = WhyNotScored(samples)) throw ks::CError(*reason);
    const CScaledSamples scaled = ScaleTogether(samples);
    const CSamples view = scaled.View();

    CIso18571Scores scores;
    scores.z = CorridorScore(view, options);
    const CLagCorrelation best = BestLag(view, options);
    scores.lag = best.lag;
    scores.correlation = best.correlation;
    scores.isCorrelationByRule = best.isByRule;
    scores.ep = PhaseScore(best.lag, view.reference.size(), options);

    const CSamples overlap = OverlapAt(view, best.lag);
    const CRelativeError magnitude = MagnitudeError(overlap, options);
    scores.em = ErrorScore(magnitude.value, options.largestMagnitudeError, options.magnitudeExponent);
    scores.isMagnitudeByRule = magnitude.isByRule;
    const CRelativeError slope = SlopeError(overlap, options);
    scores.es = ErrorScore(slope.value, options.largestSlopeError, options.slopeExponent);
    scores.isSlopeByRule = slope.isByRule;

    scores.r = options.corridorWeight * scores.z + options.phaseWeight * scores.ep +
               options.magnitudeWeight * scores.em + options.slopeWeight * scores.es;
    return scores;
}

CIso18571Rating UnavailableIso18571(std::string_view reason, const CIso18571Options& options) {
    CIso18571Rating rating;
    rating.isModified = options != CIso18571Options{};
    for (CValue* value : {&rating.r, &rating.z, &rating.ep, &rating.em, &rating.es, &rating.lag, &rating.correlation}) {
        *value = CValue::Unavailable(reason);
    }
    return rating;
}

CIso18571Rating Iso18571(const CSamples& samples, const CIso18571Options& options) {
    if (const auto fault = FaultOf(options)) throw ks::CError(*fault);
    CIso18571Rating rating;
    if (const auto reason = WhyNotScored(samples)) {
        rating = UnavailableIso18571(*reason, options);
    } else if (LargestMagnitude(samples.reference) == 0.0) {
        rating = UnavailableIso18571(rating_message::kReferenceZero, options);
    } else {
        const CIso18571Scores scores = ScoreIso18571(samples, options);
        rating.r = CValue::Of(scores.r);
        rating.z = CValue::Of(scores.z);
        rating.ep = CValue::Of(scores.ep);
        rating.em = CValue::Of(scores.em);
        rating.es = CValue::Of(scores.es);
        rating.lag = CValue::Of(static_cast<double>(scores.lag));
        rating.correlation = scores.isCorrelationByRule ? CValue::Unavailable(rating_message::kConstantAtLag)
                                                        : CValue::Of(scores.correlation);
        rating.grade = GradeOf(scores.r);
        rating.isMagnitudeByRule = scores.isMagnitudeByRule;
        rating.isSlopeByRule = scores.isSlopeByRule;
    }
    rating.pointCount = samples.reference.size();
    rating.isModified = options != CIso18571Options{};
    return rating;
}

}  // namespace ratings
