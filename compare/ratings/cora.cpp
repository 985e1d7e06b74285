#include "compare/ratings/cora.h"

#include "compare/ratings/correlation.h"
#include "compare/ratings/lag_search.h"
#include "compare/ratings/messages.h"
#include "compare/ratings/samples.h"
#include "files/error.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>

namespace ratings {
namespace {

/// What a number of samples may be off by when it should be whole.
constexpr double kRounding = 1e-9;

/// Sample numbers, both included; empty when last < first.
struct CInterval {
    double first;
    double last;
};

double LastAway(std::span<const double> values, double start, double distance, double otherwise) {
    for (std::size_t i = values.size(); i-- > 0 && static_cast<double>(i) > start;) {
        if (std::abs(values[i] - values.back()) > distance) return static_cast<double>(i);
    }
    return otherwise;
}

/// What the thresholds give, not yet widened. The peak reaches both, so there is always a sample.
CInterval Thresholds(std::span<const double> reference, const CCoraOptions& options) {
    const double peak = LargestMagnitude(reference);
    std::size_t first = 0, last = reference.size() - 1;
    while (std::abs(reference[first]) < options.startThreshold * peak) ++first;
    while (std::abs(reference[last]) < options.endThreshold * peak) --last;
    const double start = static_cast<double>(first), end = static_cast<double>(last);
    if (last + 1 < reference.size() || options.endPlateau == 0.0) return {start, end};
    return {start, LastAway(reference, start, options.endPlateau * peak, end)};
}

CInterval Widen(const CInterval& interval, double share) {
    const double more = share * (interval.last - interval.first);
    return {interval.first - more, interval.last + more};
}

/// The whole samples of the interval, within the record.
CInterval Evaluation(std::span<const double> reference, const CTimeBase& time, const CCoraOptions& options) {
    CInterval interval = Widen(Thresholds(reference, options), options.widening);
    if (options.startS) interval.first = (*options.startS - time.startS) / time.stepS;
    if (options.endS) interval.last = (*options.endS - time.startS) / time.stepS;
    const double end = static_cast<double>(reference.size() - 1);
    return {std::max(std::ceil(interval.first - kRounding), 0.0), std::min(std::floor(interval.last + kRounding), end)};
}

CSamples Cut(const CSamples& samples, const CInterval& interval) {
    const auto first = static_cast<std::size_t>(interval.first);
    const auto count = static_cast<std::size_t>(interval.last - interval.first) + 1;
    return {samples.reference.subspan(first, count), samples.computed.subspan(first, count)};
}

double CorridorScore(const CSamples& samples, const CCoraOptions& options) {
    const double peak = LargestMagnitude(samples.reference);
    const double inner = options.corridorInner * peak, outer = options.corridorOuter * peak;
    double sum = 0.0;
    for (std::size_t i = 0; i < samples.reference.size(); ++i) {
        const double distance = std::abs(samples.reference[i] - samples.computed[i]);
        if (distance < inner) {
            sum += 1.0;
        } else if (distance <= outer) {
            sum += std::pow((outer - distance) / (outer - inner), options.corridorExponent);
        }
    }
    return sum / static_cast<double>(samples.reference.size());
}

double SumOfSquares(std::span<const double> values) {
    double sum = 0.0;
    for (const double value : values) sum += value * value;
    return sum;
}

double SizeScore(const CSamples& overlap, double exponent) {
    const double reference = SumOfSquares(overlap.reference), computed = SumOfSquares(overlap.computed);
    return std::pow(std::min(reference / computed, computed / reference), exponent);
}

/// @param length  of the interval, in samples like the lag
double PhaseScore(double lag, double length, const CCoraOptions& options) {
    const double least = options.leastDelay * length, largest = options.largestDelay * length;
    if (lag < least) return 1.0;
    if (lag > largest) return 0.0;
    return std::pow((largest - lag) / (largest - least), options.phaseExponent);
}

void RateCrossCorrelation(const CSamples& interval, const CCoraOptions& options, CCora& cora) {
    const std::size_t count = interval.reference.size();
    const double least = std::ceil(options.leastOverlap * static_cast<double>(count) - kRounding);
    const auto overlapCount = static_cast<std::size_t>(std::max(least, 1.0));
    const CLagCorrelation best = FindBestLag(interval, count - overlapCount, CCentering::None);
    if (best.isByRule) return;
    const double lag = static_cast<double>(best.lag);
    const double shape = std::pow((best.correlation + 1.0) / 2.0, options.shapeExponent);
    const double size = SizeScore(OverlapAt(interval, best.lag), options.sizeExponent);
    const double phase = PhaseScore(std::abs(lag), static_cast<double>(count - 1), options);
    const double all = options.shapeWeight * shape + options.sizeWeight * size + options.phaseWeight * phase;
    cora.lag = CValue::Of(lag);
    cora.shape = CValue::Of(shape);
    cora.size = CValue::Of(size);
    cora.phase = CValue::Of(phase);
    cora.crossCorrelation = CValue::Of(all);
    cora.total = CValue::Of(options.corridorWeight * cora.corridor.Number() + options.crossCorrelationWeight * all);
}

CCora Rate(const CSamples& samples, const CTimeBase& time, const CCoraOptions& options) {
    if (const auto reason = WhyNotRated(samples)) return UnavailableCora(*reason, options);
    const CScaledSamples scaled = ScaleTogether(samples);
    if (LargestMagnitude(scaled.reference) == 0.0) return UnavailableCora(rating_message::kReferenceZero, options);
    const CInterval interval = Evaluation(scaled.reference, time, options);
    if (interval.last < interval.first + 1.0) return UnavailableCora(rating_message::kShortInterval, options);
    const CSamples cut = Cut(scaled.View(), interval);
    const bool isZero = LargestMagnitude(cut.reference) == 0.0;

    CCora cora = UnavailableCora(
        isZero ? rating_message::kReferenceZeroInInterval : rating_message::kNoCrossCorrelation, options);
    cora.startS = CValue::Of(time.startS + interval.first * time.stepS);
    cora.endS = CValue::Of(time.startS + interval.last * time.stepS);
    if (isZero) return cora;
    cora.corridor = CValue::Of(CorridorScore(cut, options));
    RateCrossCorrelation(cut, options, cora);
    return cora;
}

bool AreWeights(std::span<const double> weights) {
    double sum = 0.0;
    for (const double weight : weights) sum += weight;
    const bool areNotNegative = std::ranges::all_of(weights, [](double weight) { return weight >= 0.0; });
    return areNotNegative && std::abs(sum - 1.0) <= kRounding;
}

bool IsShare(double value) {
    return value >= 0.0 && value <= 1.0;
}

bool AreInOrder(double least, double below, double largest) {
    return least >= 0.0 && least < below && below <= largest;
}

std::optional<std::string_view> FaultOfScores(const CCoraOptions& options) {
    const std::array exponents{options.corridorExponent, options.shapeExponent, options.sizeExponent,
                               options.phaseExponent};
    const std::array parts{options.shapeWeight, options.sizeWeight, options.phaseWeight};
    const std::array methods{options.corridorWeight, options.crossCorrelationWeight};
    if (!AreInOrder(options.corridorInner, options.corridorOuter, 1.0)) return rating_message::kCorridorWidths;
    if (!std::ranges::all_of(exponents, [](double exponent) { return exponent > 0.0; })) {
        return rating_message::kCoraExponents;
    }
    if (!AreInOrder(options.leastDelay, options.largestDelay, 1.0)) return rating_message::kCoraDelays;
    if (!(options.leastOverlap > 0.0 && options.leastOverlap <= 1.0)) return rating_message::kCoraOverlap;
    if (!AreWeights(parts) || !AreWeights(methods)) return rating_message::kWeights;
    return {};
}

}  // namespace

std::optional<std::string_view> FaultOf(const CCoraOptions& options) {
    if (!IsShare(options.startThreshold) || !IsShare(options.endThreshold) || !(options.widening >= 0.0) ||
        !(options.endPlateau >= 0.0)) {
        return rating_message::kCoraThresholds;
    }
    if (options.startS && options.endS && !(*options.startS < *options.endS)) return rating_message::kCoraTimes;
    return FaultOfScores(options);
}

CCora UnavailableCora(std::string_view reason, const CCoraOptions& options) {
    const CValue value = CValue::Unavailable(reason);
    return {value, value, value, value, value, value, value, value, value, options != CCoraOptions{}};
}

CCora Cora(const CSamples& samples, const CTimeBase& time, const CCoraOptions& options) {
    if (const auto fault = FaultOf(options)) throw ks::CError(*fault);
    return Rate(samples, time, options);
}

}  // namespace ratings
