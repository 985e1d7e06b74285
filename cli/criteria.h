#pragma once

#include "compare/critical_values.h"
#include "compare/ratings/criteria.h"
#include "compare/signal.h"
#include "compare/summary_table.h"

#include <string>
#include <vector>

// The criteria are those of the summary table and, after them, those of the ratings.

/// The names of all criteria, as text for sentences: "residual, stddev ... and anova-deviation".
std::string CriterionNames();
/// The names of those that have a critical value.
std::string CriticalValueNames();

/// Whether a row of the table has a bad verdict under one of the criteria.
bool HasBad(const CSummaryTable& table, const std::vector<const CCriterion*>& criteria);

/// Whether a rating of one of the signals is bad under one of the criteria. A rating that is not available is not bad.
bool HasBadRating(const std::vector<CSignal>& signalList, const std::vector<const ratings::CRatingCriterion*>& criteria,
                  const ratings::CRatingLimits& limits);

/// A sentence for each signal and each of the criteria whose ratings are not available, with the reason.
std::vector<std::string> RatingsNotJudged(const std::vector<CSignal>& signalList,
                                          const std::vector<const ratings::CRatingCriterion*>& criteria);
