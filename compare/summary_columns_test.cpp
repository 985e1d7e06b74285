#include "compare/summary_columns.h"

#include "compare/critical_values.h"
#include "compare/signal.h"
#include "compare/verdict.h"
#include "tests/support/summary_samples.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

std::vector<std::string> Headers(const std::vector<CSummaryColumn>& columns) {
    std::vector<std::string> headers;
    for (const CSummaryColumn& column : columns) headers.emplace_back(column.header);
    return headers;
}

TEST(SummaryColumns, HaveSixteenFixedOnesInFront) {
    EXPECT_THAT(Headers(FixedColumns()),
                ElementsAre("Filename", "Peak Value", "Avg Residual", "Std Dev of Residual", "% in Corridor",
                            "Correlation Factor", "T Statistic", "0 Moment Difference", "1st Moment Difference",
                            "2nd Moment Difference", "3rd Moment Difference", "4th Moment Difference",
                            "5th Moment Difference", "Ref Filename", "Min Time", "Max Time"));
    EXPECT_TRUE(std::is_partitioned(SummaryColumns().begin(), SummaryColumns().end(),
                                    [](const CSummaryColumn& column) { return column.isFixed; }));
}

TEST(SummaryColumns, AreComplete) {
    for (const CSummaryColumn& column : SummaryColumns()) {
        SCOPED_TRACE(column.header);
        ASSERT_NE(column.text, nullptr);
        if (!column.judgment) continue;
        ASSERT_NE(column.judgment->value, nullptr);
        EXPECT_TRUE(std::any_of(Criteria().begin(), Criteria().end(), [&](const CCriterion& criterion) {
            return criterion.limit == column.judgment->limit;
        }));
    }
}

TEST(SummaryColumns, HaveDifferentHeaders) {
    std::vector<std::string> headers = Headers({SummaryColumns().begin(), SummaryColumns().end()});
    std::sort(headers.begin(), headers.end());
    EXPECT_EQ(std::adjacent_find(headers.begin(), headers.end()), headers.end());
}

TEST(SummaryColumns, AreNamesWhereTheyShowPaths) {
    std::vector<CSummaryColumn> names;
    std::copy_if(SummaryColumns().begin(), SummaryColumns().end(), std::back_inserter(names),
                 [](const CSummaryColumn& column) { return column.isName; });
    EXPECT_THAT(Headers(names), ElementsAre("Filename", "Ref Filename"));
}

template <class Value>
CSummaryColumn ColumnOfValue(Value value, CGoodSide goodSide) {
    return {.header = "Value", .judgment = CJudgment{value, &CCriticalValues::moment, goodSide}};
}

// The default limit of the moments, 0.2, and its neighbors.
constexpr double kBelow = 0.19999999999999998;
constexpr double kAbove = 0.20000000000000004;

TEST(Judge, IsGoodOnItsSideOfTheLimitOnly) {
    const CCriticalValues limits;
    const auto below = [](const CSignal&) { return kBelow; };
    const auto equal = [](const CSignal&) { return 0.2; };
    const auto above = [](const CSignal&) { return kAbove; };
    ASSERT_LT(kBelow, limits.moment);
    ASSERT_GT(kAbove, limits.moment);

    EXPECT_EQ(Judge(ColumnOfValue(below, CGoodSide::Below), CSignal(), limits), CVerdict::Good);
    EXPECT_EQ(Judge(ColumnOfValue(equal, CGoodSide::Below), CSignal(), limits), CVerdict::Bad);
    EXPECT_EQ(Judge(ColumnOfValue(above, CGoodSide::Below), CSignal(), limits), CVerdict::Bad);
    EXPECT_EQ(Judge(ColumnOfValue(below, CGoodSide::Above), CSignal(), limits), CVerdict::Bad);
    EXPECT_EQ(Judge(ColumnOfValue(equal, CGoodSide::Above), CSignal(), limits), CVerdict::Bad);
    EXPECT_EQ(Judge(ColumnOfValue(above, CGoodSide::Above), CSignal(), limits), CVerdict::Good);
}

TEST(Judge, TakesNotANumberAsBadOnBothSides) {
    const auto value = [](const CSignal&) { return std::numeric_limits<double>::quiet_NaN(); };

    EXPECT_EQ(Judge(ColumnOfValue(value, CGoodSide::Below), CSignal()), CVerdict::Bad);
    EXPECT_EQ(Judge(ColumnOfValue(value, CGoodSide::Above), CSignal()), CVerdict::Bad);
}

TEST(Judge, GivesNoVerdictOnTheMachineEpsilonAlone) {
    const auto epsilon = [](const CSignal&) { return 2.220446049250313e-16; };
    const auto next = [](const CSignal&) { return 2.2204460492503136e-16; };

    EXPECT_EQ(Judge(ColumnOfValue(epsilon, CGoodSide::Below), CSignal()), CVerdict::None);
    EXPECT_EQ(Judge(ColumnOfValue(next, CGoodSide::Below), CSignal()), CVerdict::Good);
}

TEST(Judge, GivesNoVerdictWithoutAJudgement) {
    EXPECT_EQ(Judge({.header = "Value"}, CSignal()), CVerdict::None);
}

TEST(VerdictColors, AreWhiteGreenAndRed) {
    EXPECT_EQ(static_cast<int>(ColorOf(CVerdict::None)), 0xFFFFFF);
    EXPECT_EQ(static_cast<int>(ColorOf(CVerdict::Good)), 0x00E000);
    EXPECT_EQ(static_cast<int>(ColorOf(CVerdict::Bad)), 0xFF0000);
}

}  // namespace
