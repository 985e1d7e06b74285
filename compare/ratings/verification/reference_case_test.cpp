#include "compare/ratings/verification/reference_case.h"

#include "compare/ratings/value.h"

#include <gtest/gtest.h>

#include <limits>
#include <string_view>
#include <vector>

namespace ratings {
namespace {

bool Passes(double expected, const CValue& got, const CPrecision& precision) {
    CReferenceCase referenceCase;
    referenceCase.Expect("metric", expected, got, precision);
    return referenceCase.checks.front().Passes();
}

TEST(Check, PassesWithinItsToleranceOnly) {
    EXPECT_TRUE(Passes(0.5, CValue::Of(0.5 + 0.4e-7), kSevenDigits));
    EXPECT_TRUE(Passes(0.5, CValue::Of(0.5 - 0.4e-7), kSevenDigits));
    EXPECT_FALSE(Passes(0.5, CValue::Of(0.5 + 0.6e-7), kSevenDigits));
    EXPECT_FALSE(Passes(0.5, CValue::Of(0.5 - 0.6e-7), kSevenDigits));
    EXPECT_TRUE(Passes(30.0, CValue::Of(30.0), kWholeNumber));
    EXPECT_FALSE(Passes(30.0, CValue::Of(29.0), kWholeNumber));
}

TEST(Check, FailsWithoutANumber) {
    EXPECT_FALSE(Passes(0.0, CValue::Unavailable("There is none."), kFourDigits));
    EXPECT_FALSE(Passes(0.0, CValue::Of(std::numeric_limits<double>::quiet_NaN()), kFourDigits));
    EXPECT_FALSE(Passes(0.0, CValue::Of(std::numeric_limits<double>::infinity()), kFourDigits));
    EXPECT_FALSE(Passes(std::numeric_limits<double>::quiet_NaN(), CValue::Of(0.0), kFourDigits));
}

TEST(Check, FailuresAreCounted) {
    CReferenceCase good, bad;
    good.Expect("a", 1.0, 1.0, kWholeNumber);
    bad.Expect("b", 1.0, 1.0, kWholeNumber);
    bad.Expect("c", 1.0, 2.0, kWholeNumber);
    const CCheckCount count = CountChecks(std::vector{good, bad});
    EXPECT_EQ(count.all, 3U);
    EXPECT_EQ(count.failed, 1U);
}

TEST(CaseSources, AllHaveANameOfTheirOwn) {
    std::vector<std::string_view> names;
    for (const CCaseSource source : {CCaseSource::PublicScorer, CCaseSource::ClosedForm, CCaseSource::Definition,
                                     CCaseSource::PublishedSums, CCaseSource::Annex}) {
        EXPECT_FALSE(NameOf(source).empty());
        for (const std::string_view name : names) EXPECT_NE(name, NameOf(source));
        names.push_back(NameOf(source));
    }
    EXPECT_EQ(CaseSources().size(), names.size());
}

}  // namespace
}  // namespace ratings
