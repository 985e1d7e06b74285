#pragma once

#include "cli/arguments.h"
#include "compare/critical_values.h"
#include "compare/ratings/choice.h"
#include "compare/ratings/criteria.h"

#include <vector>

/// What --ratings, --iso-parameter and --cora-parameter choose.
/// @throws CUsageError for unknown names, refused values, and parameters of ratings that are not chosen
ratings::CRatingChoice ReadRatings(const CArguments& arguments);

/// What --critical and --fail-on-bad say about the table and about its ratings.
struct CJudging {
    CCriticalValues critical;
    ratings::CRatingLimits ratingLimits;
    /// Criteria whose bad verdicts make the command fail.
    std::vector<const CCriterion*> failOnBad;
    std::vector<const ratings::CRatingCriterion*> failOnBadRating;  ///< each once
};

/// --fail-on-bad without names stands for every criterion of the table and those of the chosen ratings.
/// @throws CUsageError for unknown names, and for criteria of ratings that are not chosen
CJudging ReadJudging(const CArguments& arguments, const ratings::CRatingChoice& choice);
