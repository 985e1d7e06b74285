#pragma once

#include "compare/ratings/verification/reference_case.h"

#include <vector>

namespace ratings {

/// Pairs whose ratings follow by hand, for every family.
std::vector<CReferenceCase> ClosedFormCases();

}  // namespace ratings
