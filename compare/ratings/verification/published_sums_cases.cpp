#include "compare/ratings/verification/published_sums_cases.h"

#include "compare/ratings/magnitude_phase.h"
#include "compare/ratings/value.h"
#include "compare/ratings/verification/reference_case.h"

#include <string>
#include <utility>
#include <vector>

namespace ratings {
namespace {

constexpr CPrecision kSixDigits{1e-6, 6};
// The printed sums of the second case have six digits, so r is known to 2.7e-6. For an angle of 0.12 that leaves P
// uncertain by 2.7e-6 / (pi sin 0.12) = 7e-6; the sums as printed give 0.0370239.
constexpr CPrecision kPhaseOfSixDigits{2e-6, 6};

CValue OneMinus(const CValue& value) {
    return value.IsNumber() ? CValue::Of(1.0 - value.Number()) : value;
}

struct CExpectedErrors {
    double magnitude, phase, oneMinusCombined;
};

CReferenceCase Sums(std::string name, std::string text, const CProductSums& sums, const CExpectedErrors& expected,
                    const CPrecision& phasePrecision) {
    CReferenceCase referenceCase{std::move(name), std::move(text), CCaseSource::PublishedSums};
    const CMagnitudePhase errors = SpragueGeers(sums);
    referenceCase.Expect("Sprague-Geers M", expected.magnitude, errors.magnitude, kSixDigits);
    referenceCase.Expect("Sprague-Geers P", expected.phase, errors.phase, phasePrecision);
    referenceCase.Expect("Sprague-Geers 1 - C", expected.oneMinusCombined, OneMinus(errors.combined), kSixDigits);
    return referenceCase;
}

}  // namespace

std::vector<CReferenceCase> PublishedSumsCases() {
    return {Sums("sums A", "Scc = 143.50, Smm = 143.50, Smc = 77.00", {143.50, 143.50, 77.00}, {0.0, .319714, .680286},
                 kSixDigits),
            Sums("sums B", "Scc = 13.9628, Smm = 6.67958, Smc = 9.59216", {6.67958, 13.9628, 9.59216},
                 {.445811, .037025, .552654}, kPhaseOfSixDigits)};
}

}  // namespace ratings
