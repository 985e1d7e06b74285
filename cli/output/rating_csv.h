#pragma once

#include "cli/output/csv_table.h"
#include "compare/ratings/choice.h"
#include "compare/signal.h"

#include <vector>

/// The columns of the ratings, for after those of the table: what they were computed on, then every value with its
/// direction in the header; a value that is not available is its reason. No columns for an empty choice.
CCsvColumns RatingColumns(const std::vector<CSignal>& signalList, const ratings::CRatingChoice& choice);
