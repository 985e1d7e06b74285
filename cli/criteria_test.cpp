#include "cli/criteria.h"

#include <gmock/gmock.h>

namespace {

CSummaryTable TableWithBadColumn(int column) {
    CSummaryTable table;
    CSummaryRow good;
    good.colors.fill(CVerdictColor::Green);
    CSummaryRow bad = good;
    bad.colors.at(static_cast<std::size_t>(column)) = CVerdictColor::Red;
    table.rows = {good, bad};
    return table;
}

struct Row {
    std::string name;
    int firstColumn, lastColumn;
};

class Criterion : public testing::TestWithParam<Row> {};

TEST_P(Criterion, IsBadByItsOwnColumnsOnly) {
    const CCriterion* const criterion = FindCriterion(GetParam().name);
    ASSERT_NE(criterion, nullptr);
    for (int column = 0; column < kSummaryColumnCount; ++column) {
        const bool own = column >= GetParam().firstColumn && column <= GetParam().lastColumn;
        EXPECT_EQ(AnyBad(TableWithBadColumn(column), {criterion}), own) << column;
    }
}

INSTANTIATE_TEST_SUITE_P(Names, Criterion,
                         testing::Values(Row{"residual", 2, 2}, Row{"stddev", 3, 3}, Row{"corridor", 4, 4},
                                         Row{"correlation", 5, 5}, Row{"t", 6, 6}, Row{"moment", 7, 12}),
                         [](const auto& row) { return row.param.name; });

TEST(Criteria, KnowNoOtherName) {
    EXPECT_EQ(FindCriterion("peak"), nullptr);
    EXPECT_EQ(FindCriterion(""), nullptr);
    EXPECT_EQ(CriterionNames(), "residual, stddev, corridor, correlation, t and moment");
}

TEST(Criteria, FindNothingBadWithoutCriteriaOrSignals) {
    EXPECT_FALSE(AnyBad(TableWithBadColumn(2), {}));
    EXPECT_FALSE(AnyBad(CSummaryTable(), {FindCriterion("residual")}));
}

}  // namespace
