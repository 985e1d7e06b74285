#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The sentences of the ratings, as the user reads them: why a value is not available, and which parameters are
/// refused.
namespace ratings::rating_message {

// Signals that no rating takes.

/// A value that no rating has set.
inline constexpr std::string_view kNotRated = "This was not rated.";
/// Both signals are empty.
inline constexpr std::string_view kNoSamples = "There are no common samples.";
/// The caller did not cut both signals to the same samples.
inline constexpr std::string_view kLengthsDiffer = "The signals have different numbers of samples.";
/// The reference has an infinite value or not-a-number.
inline constexpr std::string_view kReferenceNotFinite = "The reference has a value that is not a finite number.";
/// The same of the computed signal.
inline constexpr std::string_view kComputedNotFinite = "The computed signal has a value that is not a finite number.";
/// Memory ran out while a family was rated.
inline constexpr std::string_view kNoMemoryForRating =
    "There is not enough memory for this rating. Fewer or shorter signals would need less.";
/// The arithmetic gave infinity or not-a-number.
inline constexpr std::string_view kBeyondNumbers = "The result is beyond the range of numbers.";

// Divisors that are zero.

/// A value is divided by the reference's size.
inline constexpr std::string_view kReferenceZero = "The reference is zero throughout.";
/// A phase or a correlation needs a computed signal that is not zero.
inline constexpr std::string_view kComputedZero = "The computed signal is zero throughout.";
/// A value is divided by the size of both.
inline constexpr std::string_view kBothZero = "Both signals are zero throughout.";
/// A value is divided by the reference's variation.
inline constexpr std::string_view kReferenceConstant = "The reference is constant.";
/// A correlation is divided by the computed signal's variation.
inline constexpr std::string_view kComputedConstant = "The computed signal is constant.";
/// The correlation of ISO/TS 18571 at the best lag has no divisor.
inline constexpr std::string_view kConstantAtLag = "A signal is constant where both overlap at the lag.";
/// The regression coefficient, a root, would be imaginary.
inline constexpr std::string_view kNegativeRoot =
    "The error is larger than the reference's own variation, so the root would be that of a negative number.";

// Time. Ratings that use it are not available for such signals.

/// The unit of X of one of the signals is not seconds.
inline constexpr std::string_view kNotInSeconds = "X is not in seconds.";
/// The reference's time step is 0, negative or not finite.
inline constexpr std::string_view kNoTimeStep = "The reference has no time step above 0.";
/// The X values do not follow the time step.
inline constexpr std::string_view kUnevenSteps = "The time steps differ from the reference's step by more than 0.1 %.";

// ISO/TS 18571.

/// The signals are shorter than the running mean of the slope score.
inline constexpr std::string_view kTooFewForIso = "ISO/TS 18571 needs at least 9 samples.";

/// The signals, or what they become at the standard's time step, are too long for its warping.
inline constexpr std::string_view kTooManyForIso = "ISO/TS 18571 is rated for at most 200 000 samples.";
/// A remark: the signals' step is not the standard's; they were interpolated, to that many points.
std::string ResampledForIso(std::size_t pointCount);
/// A remark: the magnitude score has no divisor.
inline constexpr std::string_view kMagnitudeByRule =
    "The reference is zero where the signals overlap, so EM is 1 for equal signals, else 0.";
/// A remark: the slope score has no divisor.
inline constexpr std::string_view kSlopeByRule =
    "The reference has no slope where the signals overlap, so ES is 1 if the computed signal has none either, else 0.";

// Knowles-Gear.

/// The relative error of the arrival has no divisor.
inline constexpr std::string_view kArrivalAtZero = "The reference arrives at time 0, which divides the arrival error.";
/// The magnitude error has no divisor.
inline constexpr std::string_view kNoWeightedOverlap =
    "Aligned by their arrivals, the signals do not overlap where the reference has a value.";

// ANOVA.

/// One sample has a mean, but no standard deviation.
inline constexpr std::string_view kTooFewForDeviation = "A standard deviation needs at least 2 samples.";
/// The t statistic has no divisor.
inline constexpr std::string_view kConstantResidual = "The residual is constant.";

// CORA-like.

/// A remark: the interval that the scores belong to, from the first time to the last.
std::string EvaluationInterval(std::string_view interval);

/// The thresholds or the fixed times leave no interval to rate.
inline constexpr std::string_view kShortInterval = "The interval of evaluation has fewer than 2 samples.";
/// The corridors and the cross correlation have no divisor.
inline constexpr std::string_view kReferenceZeroInInterval =
    "The reference is zero throughout the interval of evaluation.";
/// The cross correlation has no divisor at any lag; the corridors are still rated.
inline constexpr std::string_view kNoCrossCorrelation = "At every lag one of the signals is zero where both overlap.";

// Parameters.

/// A remark: the parameters that a score belongs to, each with its value.
std::string ParametersUsed(std::string_view parameters);

// Parameters that are refused. Each sentence says what is accepted.

/// Corridors of ISO/TS 18571 and of the CORA-like rating.
inline constexpr std::string_view kCorridorWidths = "The corridor's half-widths must satisfy 0 <= inner < outer <= 1.";
/// Corridor score of ISO/TS 18571.
inline constexpr std::string_view kCorridorExponent = "The corridor's exponent must be a whole number from 1 on.";
/// The other three scores of ISO/TS 18571.
inline constexpr std::string_view kIsoExponents = "The exponents of phase, magnitude and slope must be 1, 2 or 3.";
/// Phase score of ISO/TS 18571.
inline constexpr std::string_view kIsoShiftShare = "The largest share of shift must be above 0 and below 1.";
/// Magnitude and slope scores of ISO/TS 18571.
inline constexpr std::string_view kIsoLargestErrors = "The largest errors of magnitude and slope must be above 0.";
/// Magnitude score of ISO/TS 18571.
inline constexpr std::string_view kIsoWarpingShare = "The warping band's share must be above 0 and at most 1.";
/// Weights of ISO/TS 18571 and of the CORA-like rating.
inline constexpr std::string_view kWeights = "The weights must not be negative and must add up to 1.";
/// Knowles-Gear.
inline constexpr std::string_view kArrivalShare =
    "The share of the peak that tells the arrival must be above 0 and at most 1.";
/// Knowles-Gear.
inline constexpr std::string_view kWeightExponent = "The exponent of the weight must not be negative.";
/// Interval of the CORA-like rating.
inline constexpr std::string_view kCoraThresholds =
    "A_THRES and B_THRES must be from 0 to 1, A_EVAL and B_DELTA_END must not be negative.";
/// Interval of the CORA-like rating, when both its ends are fixed.
inline constexpr std::string_view kCoraTimes = "The fixed start of the interval must be before its end.";
/// Phase of the CORA-like cross correlation.
inline constexpr std::string_view kCoraDelays = "The delays must satisfy 0 <= D_MIN < D_MAX <= 1.";
/// Lags of the CORA-like cross correlation.
inline constexpr std::string_view kCoraOverlap = "INT_MIN must be above 0 and at most 1.";
/// Corridor and cross correlation of the CORA-like rating.
inline constexpr std::string_view kCoraExponents = "The exponents K, K_V, K_G and K_P must be above 0.";

}  // namespace ratings::rating_message
