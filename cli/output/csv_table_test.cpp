#include "cli/output/csv_table.h"

#include <gmock/gmock.h>

#include <numeric>

namespace {

CSummaryTable TableOf(std::vector<CSummaryRow> rows) {
    CSummaryTable table;
    table.rows = std::move(rows);
    table.order.resize(kSummaryColumnCount);
    std::iota(table.order.begin(), table.order.end(), 0);
    return table;
}

constexpr const char* kHeaderLine =
    "Filename,Peak Value,Avg Residual,Std Dev of Residual,% in Corridor,Correlation Factor,T Statistic,"
    "0 Moment Difference,1st Moment Difference,2nd Moment Difference,3rd Moment Difference,4th Moment Difference,"
    "5th Moment Difference,Ref Filename,Min Time,Max Time\r\n";

TEST(CsvField, StandsAsItIsWithoutSpecialCharacters) {
    EXPECT_EQ(CsvField("1.0 (2.00 %)"), "1.0 (2.00 %)");
    EXPECT_EQ(CsvField(""), "");
    EXPECT_EQ(CsvField("'\t; \xFF"), "'\t; \xFF");
}

TEST(CsvField, IsQuotedWhereItHoldsACommaAQuoteOrALineEnd) {
    EXPECT_EQ(CsvField("a,b"), "\"a,b\"");
    EXPECT_EQ(CsvField("\"a\""), "\"\"\"a\"\"\"");
    EXPECT_EQ(CsvField("a\nb"), "\"a\nb\"");
    EXPECT_EQ(CsvField("a\rb"), "\"a\rb\"");
}

TEST(CsvTable, IsTheHeaderLineAloneWithoutSignals) {
    EXPECT_EQ(CsvTable(TableOf({})), kHeaderLine);
}

TEST(CsvTable, HasOneLinePerSignal) {
    CSummaryRow row;
    for (std::size_t i = 0; i < row.texts.size(); ++i) row.texts[i] = std::to_string(i);
    CSummaryRow quoted = row;
    quoted.texts[0] = std::string("a,b.uds");
    EXPECT_EQ(CsvTable(TableOf({row, quoted})), std::string(kHeaderLine) +
                                                    "0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15\r\n"
                                                    "\"a,b.uds\",1,2,3,4,5,6,7,8,9,10,11,12,13,14,"
                                                    "15\r\n");
}

TEST(CsvTable, FollowsTheDisplayedOrder) {
    CSummaryRow row;
    row.texts[0] = std::string("a");
    row.texts[15] = std::string("z");
    CSummaryTable table = TableOf({row});
    table.order = {15, 0};
    EXPECT_EQ(CsvTable(table), "Max Time,Filename\r\nz,a\r\n");
}

}  // namespace
