#pragma once

#include <span>
#include <string_view>

namespace ratings {

/// The limits against which ratings are judged; those of RoadsideAcceptance are its own.
struct CRatingLimits {
    double iso = 0.58;             ///< R of ISO/TS 18571, good above it
    double spragueGeers = 0.40;    ///< |M| and P of Sprague-Geers, good up to it
    double anovaMean = 0.05;       ///< |mean| of the residual, good up to it
    double anovaDeviation = 0.35;  ///< standard deviation of the residual, good up to it

    bool operator==(const CRatingLimits&) const = default;
};

/// When a value is good.
enum class CRatingRule {
    Above,            ///< it is larger than the limit
    MagnitudeAtMost,  ///< its magnitude is not larger than the limit
    Pass,             ///< it is the word "pass"
};

/// A criterion, as CCriterion is one of the summary table.
struct CRatingCriterion {
    std::string_view name;  ///< in options; frozen
    CRatingRule rule;
    double CRatingLimits::*limit;  ///< null for CRatingRule::Pass
    /// What is good, %1 the limit; without a period.
    std::string_view demand;
    std::string_view source;  ///< of the limit; without a period
};

/// All criteria, in the order in which they are shown.
std::span<const CRatingCriterion> RatingCriteria();

/// The criterion of that name, or null.
const CRatingCriterion* FindRatingCriterion(std::string_view name);

}  // namespace ratings
