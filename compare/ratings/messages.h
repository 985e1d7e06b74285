#pragma once

#include <string_view>

/// Sentences of the ratings, as the user reads them: why a value is not available, and which parameters are refused.
namespace rating_message {

// Signals that no rating takes.
inline constexpr std::string_view kNotRated = "This was not rated.";
inline constexpr std::string_view kNoSamples = "There are no common samples.";
inline constexpr std::string_view kLengthsDiffer = "The signals have different numbers of samples.";
inline constexpr std::string_view kReferenceNotFinite = "The reference has a value that is not a finite number.";
inline constexpr std::string_view kComputedNotFinite = "The computed signal has a value that is not a finite number.";
inline constexpr std::string_view kBeyondNumbers = "The result is beyond the range of numbers.";

// Divisors that are zero.
inline constexpr std::string_view kReferenceZero = "The reference is zero throughout.";
inline constexpr std::string_view kComputedZero = "The computed signal is zero throughout.";
inline constexpr std::string_view kBothZero = "Both signals are zero throughout.";
inline constexpr std::string_view kReferenceConstant = "The reference is constant.";
inline constexpr std::string_view kComputedConstant = "The computed signal is constant.";
inline constexpr std::string_view kConstantAtLag = "A signal is constant where both overlap at the lag.";
inline constexpr std::string_view kNegativeRoot =
    "The error is larger than the reference's own variation, so the root would be that of a negative number.";

// Time.
inline constexpr std::string_view kNotInSeconds = "X is not in seconds.";
inline constexpr std::string_view kNoTimeStep = "The reference has no time step above 0.";
inline constexpr std::string_view kUnevenSteps = "The time steps differ from the reference's step by more than 0.1 %.";

// ISO/TS 18571.
inline constexpr std::string_view kTooFewForIso = "ISO/TS 18571 needs at least 9 samples.";
inline constexpr std::string_view kTooManyForIso = "ISO/TS 18571 is rated for at most 200 000 samples.";

// Knowles-Gear.
inline constexpr std::string_view kArrivalAtZero = "The reference arrives at time 0, which divides the arrival error.";
inline constexpr std::string_view kNoWeightedOverlap =
    "Aligned by their arrivals, the signals do not overlap where the reference has a value.";

// ANOVA.
inline constexpr std::string_view kTooFewForDeviation = "A standard deviation needs at least 2 samples.";
inline constexpr std::string_view kConstantResidual = "The residual is constant.";

// CORA-like.
inline constexpr std::string_view kShortInterval = "The interval of evaluation has fewer than 2 samples.";
inline constexpr std::string_view kReferenceZeroInInterval =
    "The reference is zero throughout the interval of evaluation.";
inline constexpr std::string_view kNoCrossCorrelation = "At every lag one of the signals is zero where both overlap.";

// Parameters.
inline constexpr std::string_view kCorridorWidths = "The corridor's half-widths must satisfy 0 <= inner < outer <= 1.";
inline constexpr std::string_view kCorridorExponent = "The corridor's exponent must be a whole number from 1 on.";
inline constexpr std::string_view kIsoExponents = "The exponents of phase, magnitude and slope must be 1, 2 or 3.";
inline constexpr std::string_view kIsoShiftShare = "The largest share of shift must be above 0 and below 1.";
inline constexpr std::string_view kIsoLargestErrors = "The largest errors of magnitude and slope must be above 0.";
inline constexpr std::string_view kIsoWarpingShare = "The warping band's share must be above 0 and at most 1.";
inline constexpr std::string_view kWeights = "The weights must not be negative and must add up to 1.";
inline constexpr std::string_view kArrivalShare =
    "The share of the peak that tells the arrival must be above 0 and at most 1.";
inline constexpr std::string_view kWeightExponent = "The exponent of the weight must not be negative.";
inline constexpr std::string_view kCoraThresholds =
    "A_THRES and B_THRES must be from 0 to 1, A_EVAL and B_DELTA_END must not be negative.";
inline constexpr std::string_view kCoraTimes = "The fixed start of the interval must be before its end.";
inline constexpr std::string_view kCoraDelays = "The delays must satisfy 0 <= D_MIN < D_MAX <= 1.";
inline constexpr std::string_view kCoraOverlap = "INT_MIN must be above 0 and at most 1.";
inline constexpr std::string_view kCoraExponents = "The exponents K, K_V, K_G and K_P must be above 0.";

}  // namespace rating_message
