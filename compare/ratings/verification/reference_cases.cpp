#include "compare/ratings/verification/reference_cases.h"

#include "compare/ratings/verification/closed_form_cases.h"
#include "compare/ratings/verification/decaying_sine_cases.h"
#include "compare/ratings/verification/iso_formula_cases.h"
#include "compare/ratings/verification/published_sums_cases.h"
#include "compare/ratings/verification/reference_case.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace ratings {

std::vector<CReferenceCase> RunReferenceCases() {
    std::vector<CReferenceCase> cases = IsoFormulaCases();
    for (std::vector<CReferenceCase> more : {ClosedFormCases(), DecayingSineCases(), PublishedSumsCases()}) {
        std::move(more.begin(), more.end(), std::back_inserter(cases));
    }
    return cases;
}

}  // namespace ratings
