#include "compare/summary_table.h"

#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "compare/verdict.h"
#include "tests/support/summary_samples.h"
#include "tests/support/test_signals.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <stdexcept>
#include <vector>

namespace {

using testing::ElementsAre;

TEST(SummaryTable, OfNoSignalHasNoRowsAndAllColumnsInOrder) {
    const std::vector<CSummaryColumn> columns = FixedColumns();
    const CSummaryTable table = MakeSummaryTable({}, columns);

    EXPECT_TRUE(table.rows.empty());
    EXPECT_THAT(table.order, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
}

TEST(SummaryTable, HasARowOfTextsAndVerdictsPerSignal) {
    CSignal reference("ref.uds"), close("close.uds"), distant("distant.uds");
    reference.Record() = MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0, 4.0}, 0.001);
    close.Record() = MakeTimeSignal(std::vector<double>{1.0, 2.01, 3.0, 4.0}, 0.001);
    distant.Record() = MakeTimeSignal(std::vector<double>{-1.0, 9.0, -3.0, 4.0}, 0.001);
    close.Compare(reference);
    distant.Compare(reference);
    const CSummaryTable table = MakeSummaryTable({close, distant});

    ASSERT_EQ(table.rows.size(), 2U);
    EXPECT_EQ(table.rows[0][At(kFilenameColumn)].text, "close.uds");
    EXPECT_EQ(table.rows[0][At(kCorridorColumn)].verdict, CVerdict::Good);
    EXPECT_EQ(table.rows[1][At(kReferenceColumn)].text, "ref.uds");
    EXPECT_EQ(table.rows[1][At(kCorridorColumn)].verdict, CVerdict::Bad);
    EXPECT_EQ(table.rows[1][At(kReferenceColumn)].verdict, CVerdict::None);
    for (int column = 0; column < static_cast<int>(ColumnCount()); ++column) {
        const CSummaryCell& cell = table.rows[1][At(column)];
        EXPECT_EQ(cell.text, distant.GetColumnText(column));
        EXPECT_EQ(ColorOf(cell.verdict), distant.GetColumnColor(column));
    }
}

TEST(SummaryTable, TakesTheColumnsGiven) {
    const std::vector<CSummaryColumn> columns = ColumnsWithExtra();
    CSignal signal("a.uds");
    signal.Record() = MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0}, 0.001);
    const CSummaryTable table = MakeSummaryTable({signal}, columns);
    const std::size_t extra = columns.size() - 2;

    ASSERT_EQ(table.rows[0].size(), columns.size());
    EXPECT_EQ(table.order.size(), columns.size());
    EXPECT_EQ(table.rows[0][extra].text, "3 points");
    EXPECT_EQ(table.rows[0][extra].verdict, CVerdict::Good);  // 3 is above 2.58
}

TEST(FixedOrder, LeavesOutWhatIsNotFixed) {
    const std::vector<CSummaryColumn> columns = {
        {.header = "a", .isFixed = true}, {.header = "b"}, {.header = "c", .isFixed = true}};

    EXPECT_THAT(FixedOrder(columns, {2, 1, 0}), ElementsAre(2, 0));
    EXPECT_THAT(FixedOrder(columns, {1}), ElementsAre());
    EXPECT_THROW(FixedOrder(columns, {3}), std::out_of_range);
    EXPECT_THROW(FixedOrder(columns, {-1}), std::out_of_range);
}

}  // namespace
