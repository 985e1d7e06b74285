#pragma once

#include "compare/ratings/verification/reference_case.h"

#include <vector>

namespace ratings {

/// Runs every reference case that needs no file.
/// @throws std::bad_alloc
std::vector<CReferenceCase> RunReferenceCases();

}  // namespace ratings
