#include "compare/ratings/verification/reference_case.h"

#include "compare/ratings/value.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace ratings {
namespace {

constexpr std::array<CCaseSourceText, 5> kSources = {{
    {CCaseSource::PublicScorer, "scorer",
     "Printed to seven digits by a public scorer of ISO/TS 18571 that reproduces the 42 scores of the annex of the "
     "2024 "
     "edition within 0.001. Tolerance: half a unit of the seventh digit."},
    {CCaseSource::ClosedForm, "closed form",
     "Follows by hand from the definitions in docs/ratings.md. Tolerance: 1e-9 for the rounding of sums; half a unit "
     "of the seventh digit where a long window stands for an endless one."},
    {CCaseSource::Definition, "definition",
     "Worked out from the definitions with other code and rounded to four digits; not published numbers. Tolerance: "
     "half a unit of the fourth digit."},
    {CCaseSource::PublishedSums, "publication",
     "A vendor's page, which prints the sums Scc, Smm, Smc and M, P, 1 - C, and states no tolerance. Tolerance: one "
     "unit of the sixth digit; 2e-6 for P of sums B, which the six digits of the printed sums determine only to 7e-6."},
    {CCaseSource::Annex, "annex",
     "Scores of the annex of ISO/TS 18571:2024, as the tests of the public scorer list them. Tolerance: 0.001, which "
     "the annex is said to recommend."},
}};

}  // namespace

std::span<const CCaseSourceText> CaseSources() {
    return kSources;
}

std::string_view NameOf(CCaseSource source) {
    const auto* const found = std::find_if(kSources.begin(), kSources.end(),
                                           [source](const CCaseSourceText& text) { return text.source == source; });
    return found == kSources.end() ? std::string_view() : found->name;
}

std::optional<double> CCheck::Deviation() const {
    if (!got.IsNumber()) return std::nullopt;
    return std::abs(got.Number() - expected);
}

bool CCheck::Passes() const {
    const std::optional<double> deviation = Deviation();
    return deviation && *deviation <= precision.tolerance;
}

void CReferenceCase::Expect(std::string_view metric, double expected, const CValue& got, const CPrecision& precision) {
    checks.push_back({std::string(metric), expected, got, precision});
}

void CReferenceCase::Expect(std::string_view metric, double expected, double got, const CPrecision& precision) {
    Expect(metric, expected, CValue::Of(got), precision);
}

CCheckCount CountChecks(std::span<const CReferenceCase> cases) {
    CCheckCount count;
    for (const CReferenceCase& referenceCase : cases) {
        count.all += referenceCase.checks.size();
        count.failed += static_cast<std::size_t>(std::count_if(referenceCase.checks.begin(), referenceCase.checks.end(),
                                                               [](const CCheck& check) { return !check.Passes(); }));
    }
    return count;
}

}  // namespace ratings
