#pragma once

#include "compare/ratings/iso18571.h"
#include "compare/ratings/verification/reference_case.h"

#include <vector>

namespace ratings {

/// What the five scores of ISO/TS 18571 must be.
struct CExpectedScores {
    double r, z, ep, em, es;
};

/// Expects the five scores.
void ExpectScores(CReferenceCase& referenceCase, const CExpectedScores& expected, const CIso18571Scores& scores,
                  const CPrecision& precision);

/// Eleven pairs whose scores a public scorer prints, degenerate ones included.
/// @param options  the expected scores are those of the defaults
std::vector<CReferenceCase> IsoFormulaCases(const CIso18571Options& options = {});

}  // namespace ratings
