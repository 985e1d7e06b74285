#pragma once

#include "compare/ratings/verification/reference_case.h"

#include <vector>

namespace ratings {

/// Sprague-Geers from sums of squares and products that were published with their errors.
std::vector<CReferenceCase> PublishedSumsCases();

}  // namespace ratings
