#include "compare/ratings/verification/reference_cases.h"

#include "compare/ratings/iso18571.h"
#include "compare/ratings/verification/iso_formula_cases.h"
#include "compare/ratings/verification/reference_case.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace ratings {
namespace {

TEST(ReferenceCases, AllPass) {
    for (const CReferenceCase& referenceCase : RunReferenceCases()) {
        for (const CCheck& check : referenceCase.checks) {
            EXPECT_TRUE(check.Passes()) << referenceCase.name << ", " << check.metric << ": "
                                        << (check.got.IsNumber() ? std::to_string(check.got.Number())
                                                                 : check.got.Reason())
                                        << ", deviation " << check.Deviation().value_or(-1.0);
        }
    }
}

TEST(ReferenceCases, CoverEveryFamilyAndHaveNamesOfTheirOwn) {
    std::set<std::string> names;
    std::string metrics;
    for (const CReferenceCase& referenceCase : RunReferenceCases()) {
        EXPECT_TRUE(names.insert(referenceCase.name).second) << referenceCase.name;
        EXPECT_FALSE(referenceCase.signals.empty()) << referenceCase.name;
        EXPECT_FALSE(referenceCase.checks.empty()) << referenceCase.name;
        for (const CCheck& check : referenceCase.checks) metrics += check.metric + "\n";
    }
    for (const std::string_view family :
         {"ISO R", "ISO Z", "ISO EP", "ISO EM", "ISO ES", "ISO lag", "Sprague-Geers C", "Geers C", "Geers CSA C",
          "Russell C", "Knowles-Gear C", "ANOVA t", "CORA C2", "RMS", "NRMSE (range)", "R2", "regression", "WIFac"}) {
        EXPECT_NE(metrics.find(std::string(family) + "\n"), std::string::npos) << family;
    }
}

/// Names of the cases in which a check fails.
std::vector<std::string> Failing(const CIso18571Options& options) {
    std::vector<std::string> names;
    for (const CReferenceCase& referenceCase : IsoFormulaCases(options)) {
        if (std::any_of(referenceCase.checks.begin(), referenceCase.checks.end(),
                        [](const CCheck& check) { return !check.Passes(); })) {
            names.push_back(referenceCase.name);
        }
    }
    return names;
}

TEST(ReferenceCases, NoticeEveryParameterOfIsoThatIsOff) {
    EXPECT_TRUE(Failing({}).empty());
    const std::vector<CIso18571Options> changed = {{.corridorInner = 0.051},
                                                   {.corridorOuter = 0.51},
                                                   {.corridorExponent = 1},
                                                   {.largestShiftShare = 0.19},
                                                   {.phaseExponent = 2},
                                                   {.largestMagnitudeError = 0.51},
                                                   {.magnitudeExponent = 2},
                                                   {.warpingShare = 0.09},
                                                   {.largestSlopeError = 2.01},
                                                   {.slopeExponent = 2},
                                                   {.corridorWeight = 0.39, .phaseWeight = 0.21},
                                                   {.magnitudeWeight = 0.19, .slopeWeight = 0.21}};
    for (std::size_t i = 0; i < changed.size(); ++i) EXPECT_FALSE(Failing(changed[i]).empty()) << i;
}

}  // namespace
}  // namespace ratings
