#pragma once

#include "compare/ratings/samples.h"
#include "compare/ratings/value.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace ratings {

/// Step that ISO/TS 18571 is rated at: its slope score averages a count of samples, so scores of other steps differ.
inline constexpr double kIsoStepS = 0.0001;
/// The slope score's running mean needs as many samples, before and after the shift.
inline constexpr std::size_t kIsoLeastSamples = 9;
/// The warping takes time with the square of this: 200 000 samples are 8e9 cells.
inline constexpr std::size_t kIsoMostSamples = 200'000;

/// Parameters of ISO/TS 18571. The defaults are those of public scorers that reproduce the 42 annex scores of the
/// 2024 edition; to be confirmed against the standard. A score with any other value must be shown as "modified".
struct CIso18571Options {
    double corridorInner = 0.05;         ///< half-width within which the corridor score is 1, as share of the peak
    double corridorOuter = 0.50;         ///< half-width beyond which it is 0; 0 <= inner < outer <= 1
    int corridorExponent = 2;            ///< from 1 on
    double largestShiftShare = 0.2;      ///< of the samples; the phase score is 0 from there on; above 0, below 1
    int phaseExponent = 1;               ///< 1, 2 or 3
    double largestMagnitudeError = 0.5;  ///< beyond it the magnitude score is 0; above 0
    int magnitudeExponent = 1;           ///< 1, 2 or 3
    double warpingShare = 0.1;           ///< half-width of the warping band as share of the samples; above 0, at most 1
    double largestSlopeError = 2.0;      ///< from it on the slope score is 0; above 0
    int slopeExponent = 1;               ///< 1, 2 or 3
    double corridorWeight = 0.4;         ///< weights are not negative and add up to 1
    double phaseWeight = 0.2;
    double magnitudeWeight = 0.2;
    double slopeWeight = 0.2;

    bool operator==(const CIso18571Options&) const = default;
};

/// What is wrong with the options, as a sentence; no value when nothing is.
std::optional<std::string_view> FaultOf(const CIso18571Options& options);

enum class CIsoGrade { Excellent, Good, Fair, Poor };

/// R > 0.94 excellent, > 0.80 good, > 0.58 fair, else poor; from a public note on the grades of ISO/TS 18571, to be
/// confirmed against the standard.
CIsoGrade GradeOf(double r);
/// "excellent", "good", "fair", "poor".
std::string_view NameOf(CIsoGrade grade);

/// The scores as the algorithm gives them, degenerate signals included. All from 0 to 1, 1 is perfect.
struct CIso18571Scores {
    double r = 0.0;            ///< weighted sum of the four
    double z = 0.0;            ///< corridor
    double ep = 0.0;           ///< phase
    double em = 0.0;           ///< magnitude
    double es = 0.0;           ///< slope
    std::int64_t lag = 0;      ///< in samples, positive when the computed signal comes late
    double correlation = 0.0;  ///< of the overlapping parts at the lag, -1 to 1
    /// Set where a divisor is zero and a rule applies: 1 when there is no difference either, else 0.
    bool isCorrelationByRule = false, isMagnitudeByRule = false, isSlopeByRule = false;
};

/// Scores two signals by the algorithm of ISO/TS 18571. With m the reference, c the computed signal, N samples each:
///
/// - Corridor Z, unshifted: T = max |m|, d = |m - c| / T; z = 1 where d < inner, 0 where d > outer, else
///   ((outer - d) / (outer - inner))^k; Z is the mean of z. With T = 0, z is 1 where m = c, else 0.
/// - Phase EP: the lag of at most floor(share N) samples whose overlapping parts have the largest Pearson correlation
///   (FindBestLag); a lag that would leave fewer than 9 samples counts as 0. EP = ((share N - |lag|) / (share N))^k, 0
///   from |lag| = share N on.
/// - Magnitude EM, on the overlapping parts: e = path sum of |c - m| / path sum of |m| along the cheapest warping path
///   (WarpingPathSums, width ceil(0.1 L)); EM = ((eM - e) / eM)^k, 0 beyond eM.
/// - Slope ES, on the overlapping parts: gradients by central differences (one-sided at the ends), smoothed by a
///   running mean of 9 samples (1, 3, 5, 7 toward the ends); e = sum |sc - sm| / sum |sm|; ES = ((eS - e) / eS)^k, 0
///   from eS on.
///
/// The algorithm is taken from public scorers; to be confirmed against the standard, whose text was not available.
/// Meant for signals at kIsoStepS and filtered alike.
///
/// @param samples  9 to 200 000 finite values of each
/// @throws ks::CError with the sentence where samples or options are refused; std::bad_alloc
CIso18571Scores ScoreIso18571(const CSamples& samples, const CIso18571Options& options = {});

/// The rating as it is shown. Beyond the algorithm it is not available for a reference that is zero throughout, where
/// the rules would give a score that says nothing. The correlation is not available where a rule replaces it.
struct CIso18571Rating {
    CValue r, z, ep, em, es;
    CValue lag;  ///< whole number of samples
    CValue correlation;
    std::optional<CIsoGrade> grade;  ///< of R; no value where R is not available
    std::size_t pointCount = 0;      ///< samples rated
    bool isModified = false;         ///< a parameter is not at its default
    bool isResampled = false;        ///< rated at kIsoStepS instead of the signals' own step; set by RateIso18571
    bool isMagnitudeByRule = false;  ///< EM has no divisor: 1 when there is no difference, else 0
    bool isSlopeByRule = false;      ///< the same for ES
};

/// @throws ks::CError for options that are refused
CIso18571Rating Iso18571(const CSamples& samples, const CIso18571Options& options = {});

/// All values not available for that reason, without samples.
CIso18571Rating UnavailableIso18571(std::string_view reason, const CIso18571Options& options);

}  // namespace ratings
