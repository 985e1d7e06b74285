#include "compare/chart_block.h"
#include "compare/export.h"
#include "files/replacing_file.h"
#include "tests/support/memory_limit.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr double kEmpty = 2.220446049250313e-16;

CChartBlock MakeBlock(std::int32_t pointCount, std::vector<double> x, std::vector<double> y) {
    CChartBlock block;
    block.pointCount = pointCount;
    block.seriesCount = static_cast<std::int32_t>(x.size()) / pointCount;
    block.capacity = static_cast<std::int64_t>(x.size());
    block.x = std::move(x);
    block.y = std::move(y);
    return block;
}

/// The bytes that a table puts into a file.
std::string AsciiTable(const CChartBlock& block) {
    const CTempFolder folder;
    const std::string path = folder.Path("page.txt");
    EXPECT_EQ(WriteAsciiTable(path, block, 2), ks::CWriteResult::Written);
    return ReadAll(path);
}

TEST(AsciiTable, OfOneSeriesAndTwoPointsHasTwoLinesOfXAndY) {
    EXPECT_EQ(AsciiTable(MakeBlock(2, {0.0, 0.5}, {1.5, -2.0})), "0 1.5 \r\n0.5 -2 \r\n");
}

TEST(AsciiTable, PutsZerosIntoTheMissingRowsOfAShorterSeries) {
    const CChartBlock block = MakeBlock(5, {0.0, 1.0, 2.0, kEmpty, kEmpty, 0.0, 1.0, 2.0, 3.0, 4.0},
                                        {10.0, 11.0, 12.0, kEmpty, kEmpty, 20.0, 21.0, 22.0, 23.0, 24.0});

    EXPECT_EQ(AsciiTable(block),
              "0 10 0 20 \r\n"
              "1 11 1 21 \r\n"
              "2 12 2 22 \r\n"
              "0.0 0.0 3 23 \r\n"
              "0.0 0.0 4 24 \r\n");
}

TEST(AsciiTable, LetsTheXCellAloneDecideAboutPadding) {
    EXPECT_EQ(AsciiTable(MakeBlock(2, {kEmpty, 1.0}, {7.0, kEmpty})), "0.0 0.0 \r\n1 2.22045e-16 \r\n");
}

TEST(AsciiTable, WritesSixSignificantDigits) {
    EXPECT_EQ(AsciiTable(MakeBlock(3, {0.0001, 0.00001, 123456.7}, {1234567.0, 1.0 / 3.0, -1e-300})),
              "0.0001 1.23457e+06 \r\n1e-05 0.333333 \r\n123457 -1e-300 \r\n");
}

TEST(AsciiTable, WritesNumbersThatAreNone) {
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();

    EXPECT_EQ(AsciiTable(MakeBlock(2, {0.0, 1.0}, {-nan, -infinity})), "0 nan \r\n1 -inf \r\n");
}

TEST(AsciiTable, OfAnEmptyBlockIsEmpty) {
    EXPECT_EQ(AsciiTable(CChartBlock()), "");
}

TEST(AsciiTable, IsEmptyWhileTheCountsAreThoseOfARunWithoutMatrices) {
    CChartBlock block;
    block.pointCount = 1000;
    block.seriesCount = 3;

    EXPECT_EQ(AsciiTable(block), "");
}

TEST(AsciiTable, IgnoresTheRestOfALargerPage) {
    CChartBlock block = MakeBlock(1, {1.0}, {2.0});
    block.x.push_back(77.0);
    block.y.push_back(88.0);

    EXPECT_EQ(AsciiTable(block), "1 2 \r\n");
}

TEST(AsciiTable, OfManyPiecesHasEveryRowOnce) {
    constexpr std::int32_t kRows = 40000;
    std::vector<double> x(kRows), y(kRows);
    std::string expected;
    for (std::int32_t i = 0; i < kRows; ++i) {
        x[static_cast<std::size_t>(i)] = i;
        y[static_cast<std::size_t>(i)] = 2 * i;
        expected += std::to_string(i) + " " + std::to_string(2 * i) + " \r\n";
    }
    EXPECT_TRUE(AsciiTable(MakeBlock(kRows, std::move(x), std::move(y))) == expected);
}

// The table was made as one text, and a long one was not written at all.
TEST(AsciiTable, IsWrittenWithLessMemoryThanItIsLong) {
    if (!CMemoryLimit::IsUsable()) GTEST_SKIP() << "a sanitizer takes the memory";
    constexpr std::size_t kRows = 500000;
    const CTempFolder folder;
    const CChartBlock block =
        MakeBlock(kRows, std::vector<double>(kRows, 0.123456), std::vector<double>(kRows, 1e-300));
    {
        const CMemoryLimit limit(1024 * 1024);
        EXPECT_EQ(WriteAsciiTable(folder.Path("page.txt"), block, 2), ks::CWriteResult::Written);
    }
    EXPECT_EQ(std::filesystem::file_size(folder.Path("page.txt")), kRows * 18);
}

TEST(AsciiTable, ReachesTheFileOfAChartPage) {
    const CTempFolder folder;
    const std::string path = folder.Path("page.txt");

    ASSERT_EQ(WriteAsciiTable(path, MakeBlock(1, {1.0}, {2.0}), 2), ks::CWriteResult::Written);
    EXPECT_EQ(ReadAll(path), "1 2 \r\n");
}

TEST(AsciiTable, WritesNoRowsForTheSummaryAndBeforeTheFirstRun) {
    const CTempFolder folder;
    const std::string path = folder.Write("page.txt", "old");

    ASSERT_EQ(WriteAsciiTable(path, MakeBlock(1, {1.0}, {2.0}), 1), ks::CWriteResult::Written);
    EXPECT_EQ(ReadAll(path), "");
    ASSERT_EQ(WriteAsciiTable(path, MakeBlock(1, {1.0}, {2.0}), 0), ks::CWriteResult::Written);
    EXPECT_EQ(ReadAll(path), "");
}

TEST(AsciiTable, TellsWhenTheFileCannotBeOpened) {
    const CTempFolder folder;

    EXPECT_EQ(WriteAsciiTable(folder.Path("missing/page.txt"), MakeBlock(1, {1.0}, {2.0}), 2),
              ks::CWriteResult::NotOpened);
}

}  // namespace
