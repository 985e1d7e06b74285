#include "cli/criteria.h"

#include "compare/critical_values.h"
#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"
#include "compare/verdict.h"
#include "tests/support/summary_samples.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <string>
#include <vector>

namespace {

CSummaryTable TableWithBadColumn(std::size_t column) {
    CSummaryTable table;
    CSummaryRow good(table.columns.size(), {"", CVerdict::Good});
    CSummaryRow bad = good;
    bad.at(column).verdict = CVerdict::Bad;
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
    for (std::size_t column = 0; column < FixedColumns().size(); ++column) {
        const bool isOwn = column >= At(GetParam().firstColumn) && column <= At(GetParam().lastColumn);
        EXPECT_EQ(HasBad(TableWithBadColumn(column), {criterion}), isOwn) << column;
    }
}

INSTANTIATE_TEST_SUITE_P(Names, Criterion,
                         testing::Values(Row{"residual", 2, 2}, Row{"stddev", 3, 3}, Row{"corridor", 4, 4},
                                         Row{"correlation", 5, 5}, Row{"t", 6, 6}, Row{"moment", 7, 12}),
                         [](const auto& row) { return row.param.name; });

TEST(Criteria, AreNamedInSentences) {
    EXPECT_EQ(CriterionNames(), "residual, stddev, corridor, correlation, t and moment");
}

TEST(Criteria, FindNothingBadWithoutCriteriaOrSignals) {
    EXPECT_FALSE(HasBad(TableWithBadColumn(2), {}));
    EXPECT_FALSE(HasBad(CSummaryTable(), {FindCriterion("residual")}));
}

TEST(Criteria, CoverColumnsThatAreNotFixed) {
    const std::vector<CSummaryColumn> columns = ColumnsWithExtra();
    CSignal signal("a.uds");  // no points: below a limit that good values exceed
    CSummaryTable table = MakeSummaryTable({signal}, columns);
    for (CSummaryCell& cell : table.rows[0]) {
        if (&cell != &table.rows[0][columns.size() - 2]) cell.verdict = CVerdict::None;
    }
    EXPECT_TRUE(HasBad(table, {FindCriterion("t")}));
    EXPECT_FALSE(HasBad(table, {FindCriterion("moment")}));
}

}  // namespace
