#include "compare/summary_table.h"

#include <gmock/gmock.h>

#include "tests/support/test_signals.h"

namespace {

using testing::ElementsAre;

TEST(SummaryTable, OfNoSignalHasNoRowsAndAllColumnsInOrder) {
    const CSummaryTable table = MakeSummaryTable({});

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
    EXPECT_EQ(table.rows[0].texts[kFilenameColumn], "close.uds");
    EXPECT_EQ(table.rows[0].colors[kCorridorColumn], CVerdictColor::Green);
    EXPECT_EQ(table.rows[1].texts[kReferenceColumn], "ref.uds");
    EXPECT_EQ(table.rows[1].colors[kCorridorColumn], CVerdictColor::Red);
    EXPECT_EQ(table.rows[1].colors[kReferenceColumn], CVerdictColor::White);
    for (int column = 0; column < kSummaryColumnCount; ++column) {
        const auto index = static_cast<std::size_t>(column);
        EXPECT_EQ(table.rows[1].texts[index], distant.GetColumnText(column));
        EXPECT_EQ(table.rows[1].colors[index], distant.GetColumnColor(column));
    }
}

}  // namespace
