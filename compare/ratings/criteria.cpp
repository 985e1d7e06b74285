#include "compare/ratings/criteria.h"

#include <array>
#include <span>
#include <string_view>

namespace ratings {
namespace {

constexpr std::string_view kRoadsideGuideline = "roadside guideline W179, to be confirmed";

constexpr std::array kCriteria = {
    CRatingCriterion{"iso", CRatingRule::Above, &CRatingLimits::iso, "ISO R above %1",
                     "where a public note has the grade fair begin, to be confirmed"},
    CRatingCriterion{"roadside", CRatingRule::Pass, nullptr,
                     "Roadside verdict pass: |M| and P up to 0.4, |mean| up to 0.05, deviation up to 0.35",
                     kRoadsideGuideline},
    CRatingCriterion{"sprague-geers", CRatingRule::MagnitudeAtMost, &CRatingLimits::spragueGeers,
                     "Sprague-Geers |M| and P up to %1", kRoadsideGuideline},
    CRatingCriterion{"anova-mean", CRatingRule::MagnitudeAtMost, &CRatingLimits::anovaMean, "ANOVA |mean| up to %1",
                     kRoadsideGuideline},
    CRatingCriterion{"anova-deviation", CRatingRule::MagnitudeAtMost, &CRatingLimits::anovaDeviation,
                     "ANOVA deviation up to %1", kRoadsideGuideline},
};

}  // namespace

std::span<const CRatingCriterion> RatingCriteria() {
    return kCriteria;
}

const CRatingCriterion* FindRatingCriterion(std::string_view name) {
    for (const CRatingCriterion& criterion : kCriteria) {
        if (criterion.name == name) return &criterion;
    }
    return nullptr;
}

}  // namespace ratings
