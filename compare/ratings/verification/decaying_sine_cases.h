#pragma once

#include "compare/ratings/verification/reference_case.h"

#include <vector>

namespace ratings {

/// The classic analytic pair e^-(t - start) sin 2 pi (t - start), m starting at 0.14 s: late, early and scaled on 0 to
/// 2 s, and in a window so long that the closed form of an endless one holds.
std::vector<CReferenceCase> DecayingSineCases();

}  // namespace ratings
