#include "compare/export.h"
#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"
#include "compare/verdict.h"
#include "files/replacing_file.h"
#include "tests/support/summary_samples.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

const std::string kTop =
    "<html>\r\n"
    "<head><title> Quorvel</title></head>\r\n"
    "<body>\r\n"
    "<h1>Quorvel</h1> <CENTER>\r\n"
    "<TABLE BORDER=3 CELLPADDING=3 WIDTH=\"90%\" >\r\n";

const std::string kRow = "<TR ALIGN=CENTER VALIGN=CENTER>\r\n";

const std::string kBottom = "</TABLE> </CENTER> </body> </html> ";

/// A table whose cells say their row and column, without verdicts.
CSummaryTable TableOf(int rowCount) {
    CSummaryTable table = MakeSummaryTable({});
    for (int i = 0; i < rowCount; ++i) {
        CSummaryRow row(table.columns.size());
        for (std::size_t j = 0; j < row.size(); ++j)
            row[j].text = std::to_string(i).append(":").append(std::to_string(j));
        table.rows.push_back(row);
    }
    return table;
}

TEST(HtmlReport, OfAWholeTableIsByteForByte) {
    CSummaryTable table = TableOf(1);
    CSummaryRow& row = table.rows[0];
    const std::vector<std::string> texts = {"a.uds",
                                            "3.0",
                                            "0.000000 (0.00 %)",
                                            "0.707107 (35.36 %)",
                                            "0.00",
                                            "0.934",
                                            "nan",
                                            "0.200",
                                            "0.302",
                                            "0.363",
                                            "0.401",
                                            "0.427",
                                            "0.446",
                                            "ref.uds",
                                            "0.0000",
                                            "0.0030"};
    for (std::size_t j = 0; j < texts.size(); ++j) row[j].text = texts[j];
    for (std::size_t j = 2; j <= 12; ++j) row[j].verdict = j % 2 == 0 ? CVerdict::Good : CVerdict::Bad;

    EXPECT_EQ(HtmlReport(table), kTop + kRow +
                                     "\t<TD><B>Filename</B></TD>\r\n"
                                     "\t<TD><B>Peak Value</B></TD>\r\n"
                                     "\t<TD><B>Avg Residual</B></TD>\r\n"
                                     "\t<TD><B>Std Dev of Residual</B></TD>\r\n"
                                     "\t<TD><B>% in Corridor</B></TD>\r\n"
                                     "\t<TD><B>Correlation Factor</B></TD>\r\n"
                                     "\t<TD><B>T Statistic</B></TD>\r\n"
                                     "\t<TD><B>0 Moment Difference</B></TD>\r\n"
                                     "\t<TD><B>1st Moment Difference</B></TD>\r\n"
                                     "\t<TD><B>2nd Moment Difference</B></TD>\r\n"
                                     "\t<TD><B>3rd Moment Difference</B></TD>\r\n"
                                     "\t<TD><B>4th Moment Difference</B></TD>\r\n"
                                     "\t<TD><B>5th Moment Difference</B></TD>\r\n"
                                     "\t<TD><B>Ref Filename</B></TD>\r\n"
                                     "\t<TD><B>Min Time</B></TD>\r\n"
                                     "\t<TD><B>Max Time</B></TD>\r\n"
                                     "</TR>\r\n" +
                                     kRow +
                                     "\t<TD >a.uds</TD>\r\n"
                                     "\t<TD >3.0</TD>\r\n"
                                     "\t<TD bgcolor=\"#00E000\" >0.000000 (0.00 %)</TD>\r\n"
                                     "\t<TD bgcolor=\"#E00000\" >0.707107 (35.36 %)</TD>\r\n"
                                     "\t<TD bgcolor=\"#00E000\" >0.00</TD>\r\n"
                                     "\t<TD bgcolor=\"#E00000\" >0.934</TD>\r\n"
                                     "\t<TD bgcolor=\"#00E000\" >nan</TD>\r\n"
                                     "\t<TD bgcolor=\"#E00000\" >0.200</TD>\r\n"
                                     "\t<TD bgcolor=\"#00E000\" >0.302</TD>\r\n"
                                     "\t<TD bgcolor=\"#E00000\" >0.363</TD>\r\n"
                                     "\t<TD bgcolor=\"#00E000\" >0.401</TD>\r\n"
                                     "\t<TD bgcolor=\"#E00000\" >0.427</TD>\r\n"
                                     "\t<TD bgcolor=\"#00E000\" >0.446</TD>\r\n"
                                     "\t<TD >ref.uds</TD>\r\n"
                                     "\t<TD >0.0000</TD>\r\n"
                                     "\t<TD >0.0030</TD>\r\n"
                                     "</TR>\r\n" +
                                     kBottom);
}

TEST(HtmlReport, FollowsTheDisplayedOrderAndColorsEachCellByItsOwnColumn) {
    CSummaryTable table = TableOf(2);
    table.order = {5, 0, 4};
    table.rows[0][5].verdict = CVerdict::Bad;
    table.rows[1][4].verdict = CVerdict::Good;

    EXPECT_EQ(HtmlReport(table), kTop + kRow +
                                     "\t<TD><B>Correlation Factor</B></TD>\r\n"
                                     "\t<TD><B>Filename</B></TD>\r\n"
                                     "\t<TD><B>% in Corridor</B></TD>\r\n"
                                     "</TR>\r\n" +
                                     kRow +
                                     "\t<TD bgcolor=\"#E00000\" >0:5</TD>\r\n"
                                     "\t<TD >0:0</TD>\r\n"
                                     "\t<TD >0:4</TD>\r\n"
                                     "</TR>\r\n" +
                                     kRow +
                                     "\t<TD >1:5</TD>\r\n"
                                     "\t<TD >1:0</TD>\r\n"
                                     "\t<TD bgcolor=\"#00E000\" >1:4</TD>\r\n"
                                     "</TR>\r\n" +
                                     kBottom);
}

TEST(HtmlReport, WithoutSignalsHasItsHeaderRow) {
    CSummaryTable table = MakeSummaryTable({});
    table.order = {14};

    EXPECT_EQ(HtmlReport(table), kTop + kRow + "\t<TD><B>Min Time</B></TD>\r\n</TR>\r\n" + kBottom);
}

TEST(HtmlReport, KeepsMarkupInAFileNameInert) {
    CSummaryTable table = TableOf(1);
    table.order = {0};
    table.rows[0][0].text = "<script>\xC3\xA9.uds";

    EXPECT_THAT(HtmlReport(table), testing::HasSubstr("\t<TD >&lt;script&gt;&#233;.uds</TD>\r\n"));
}

TEST(HtmlReport, LeavesOutColumnsThatAreNotFixed) {
    CSignal signal("a.uds");
    signal.Compare(signal);
    const std::vector<CSummaryColumn> columns = ColumnsWithExtra(), fixed = FixedColumns();

    EXPECT_EQ(HtmlReport(MakeSummaryTable({signal}, columns)), HtmlReport(MakeSummaryTable({signal}, fixed)));
}

TEST(HtmlReport, RefusesAColumnThatDoesNotExist) {
    CSummaryTable table = TableOf(1);
    table.order = {static_cast<int>(table.columns.size())};
    EXPECT_THROW(HtmlReport(table), std::out_of_range);
    table.order = {-1};
    EXPECT_THROW(HtmlReport(table), std::out_of_range);
}

TEST(HtmlReport, ReachesTheFileAsItIs) {
    const CTempFolder folder;
    const std::string path = folder.Write("report.html", std::string(100000, 'x'));
    const CSummaryTable table = TableOf(3);

    ASSERT_EQ(WriteHtmlReport(path, table), ks::CWriteResult::Written);
    EXPECT_EQ(ReadAll(path), HtmlReport(table));
    EXPECT_EQ(folder.Listing(), "report.html\n");
}

TEST(HtmlReport, TellsWhenTheFileCannotBeOpened) {
    const CTempFolder folder;

    EXPECT_EQ(WriteHtmlReport(folder.Path("missing/report.html"), TableOf(1)), ks::CWriteResult::NotOpened);
    EXPECT_EQ(folder.Listing(), "");
}

}  // namespace
