#pragma once

#include "cli/output/text_table.h"
#include "compare/document.h"
#include "compare/ratings/criteria.h"

#include <string>

/// What a completed run with ratings prints after the table: what the ratings were computed on, a second table with a
/// line per signal, the limits with their sources, and why values are not available. Empty for a run without ratings.
std::string RatingReport(const CQuorvelDoc& document, const ratings::CRatingLimits& limits,
                         const CTextTableStyle& style);
