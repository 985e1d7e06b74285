#include "chart/chart_sequences.h"

#include "chart/testing/recording_chart_control.h"
#include "compare/chart_block.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;

using Calls = std::vector<std::string>;

/// A chart that exists and whose creation is not of interest.
class ChartSequences : public testing::Test {
protected:
    void Fill(const CChartBlock& block, const Calls& names = {}) {
        FillChart(m_chart, Shared(block), names, m_lineStyles);
    }

    static std::shared_ptr<const CChartBlock> Shared(const CChartBlock& block) {
        return std::make_shared<const CChartBlock>(block);
    }

    static CChartBlock Block(std::int32_t seriesCount, std::int32_t pointCount) {
        CChartBlock block;
        block.seriesCount = seriesCount;
        block.pointCount = pointCount;
        const auto cells = static_cast<std::size_t>(seriesCount) * static_cast<std::size_t>(pointCount);
        block.capacity = static_cast<std::int64_t>(cells);
        block.x.resize(cells);
        block.y.resize(cells);
        return block;
    }

    CRecordingChartControl m_chart;
    CLineStyles m_lineStyles;
};

TEST_F(ChartSequences, CreatingSetsSeventeenIntegersAndTheNoDataValueTwice) {
    CreateChart(m_chart, nullptr, {640, 480}, 0.5);
    EXPECT_THAT(
        m_chart.calls,
        ElementsAre("create 304 style 0 area 640 x 480 id 1", "set 3610 = 1", "set 3045 = 1", "set 3282 = 3",
                    "set 3254 = 0", "set 3022 = 0", "set 3281 = 0", "set 3200 = 1", "set 2621 = 1", "set 3640 = 0",
                    "set 3401 = 0", "set 3416 = 0", "set 3642 = 0", "set 2928 = 1", "set 3290 = 1", "set 3223 = 1",
                    "set 3208 = 1", "set 2620 = 3", "array 3268 = 0.5", "array 3656 = 0.5"));
}

TEST_F(ChartSequences, CreatingDestroysAnOldChartFirst) {
    CreateChart(m_chart, nullptr, {1, 1}, 0.5);
    m_chart.calls.clear();
    CreateChart(m_chart, nullptr, {2, 2}, 0.5);
    ASSERT_GE(m_chart.calls.size(), 2U);
    EXPECT_EQ(m_chart.calls[0], "destroy");
    EXPECT_EQ(m_chart.calls[1], "create 304 style 0 area 2 x 2 id 1");
}

TEST_F(ChartSequences, FillingHandsTheWholeBlockOverAndResets) {
    CChartBlock block = Block(2, 3);
    block.x = {0.0, 1.0, 2.0, 0.0, 1.0, 9.5};
    block.y = {3.0, 4.0, 5.0, -1.0, 0.25, 9.5};
    block.xTitle = "Time (seconds)";
    block.yTitle = "Acceleration (G's)";
    Fill(block, {"Reference", "v01234aa0.001"});
    EXPECT_THAT(m_chart.calls,
                ElementsAre("set 2115 = 2", "set 2120 = 3", "set 3104 = 3", "set 3016 = 1",
                            "array 3013 = 0 1 2 0 1 9.5", "set 3017 = 1", "array 3014 = 3 4 5 -1 0.25 9.5",
                            "text 3005 = \"Acceleration (G's)\"", "text 3000 = \"Time (seconds)\"", "text 2105 = \"\"",
                            "text 2110 = \"\"", "array 2125 = \"Reference\tv01234aa0.001\t\" (2)", "array 3271 = 0 1",
                            "set 3040 = 0", "set 3605 = 0", "apply", "set 3290 = 0", "set 3223 = 0", "set 2623 = 0",
                            "array 3246 empty", "array 3291 empty", "array 3292 empty"));
}

TEST_F(ChartSequences, OnlyTheUsedPartOfMatricesThatOnceWereLargerIsHandedOver) {
    CChartBlock block = Block(1, 2);
    block.x = {1.0, 2.0, 3.0, 4.0};
    block.y = {5.0, 6.0, 7.0, 8.0};
    Fill(block, {"a"});
    EXPECT_THAT(m_chart.calls, Contains("array 3013 = 1 2"));
    EXPECT_THAT(m_chart.calls, Contains("array 3014 = 5 6"));
}

TEST_F(ChartSequences, FillingSetsNothingWhileTheCountsAreThoseOfARun) {
    CChartBlock block = Block(1, 2);
    block.seriesCount = 3;
    Fill(block);
    EXPECT_TRUE(m_chart.calls.empty());
}

TEST_F(ChartSequences, ShowingCreatesFillsAndDraws) {
    CChartBlock block = Block(1, 1);
    block.paddingValue = 0.125;
    ShowChart(m_chart, nullptr, {10, 20}, Shared(block), Calls{"a"}, m_lineStyles);
    CRecordingChartControl expected;
    CreateChart(expected, nullptr, {10, 20}, 0.125);
    FillChart(expected, Shared(block), Calls{"a"}, m_lineStyles);
    expected.calls.emplace_back("draw 0 0");
    EXPECT_THAT(m_chart.calls, ElementsAreArray(expected.calls));
}

TEST_F(ChartSequences, ResizingSetsBothSizesAndTheAreaAndTellsTheControl) {
    ResizeChart(m_chart, {300, 200});
    EXPECT_THAT(m_chart.calls,
                ElementsAre("set 2200 = 300", "set 2205 = 200", "array 2210 = 0 0 300 200", "resized 300 x 200"));
}

TEST_F(ChartSequences, MoreThanTenThousandPointsSet3104ToTen) {
    Fill(Block(101, 100));
    EXPECT_THAT(m_chart.calls, Contains("set 3104 = 10"));
}

TEST_F(ChartSequences, TenThousandPointsSet3104ToThree) {
    Fill(Block(100, 100));
    EXPECT_THAT(m_chart.calls, Contains("set 3104 = 3"));
}

TEST_F(ChartSequences, AnEmptyBlockIsHandedOverAsEmptyArrays) {
    Fill(Block(0, 0));
    EXPECT_THAT(m_chart.calls, Contains("set 2115 = 0"));
    EXPECT_THAT(m_chart.calls, Contains("array 3013 ="));
    EXPECT_THAT(m_chart.calls, Contains("array 2125 = \"\" (0)"));
    EXPECT_THAT(m_chart.calls, Contains("array 3271 ="));
}

TEST_F(ChartSequences, AllFourTitlesAreCutToFortySevenCharacters) {
    const std::string kept(47, 'k');
    CChartBlock block = Block(1, 1);
    block.xTitle = block.yTitle = block.titleOne = block.titleTwo = kept + "cut";
    Fill(block);
    for (const char* property : {"3005", "3000", "2105", "2110"})
        EXPECT_THAT(m_chart.calls, Contains("text " + std::string(property) + " = \"" + kept + "\""));
}

TEST_F(ChartSequences, TabsAndLineEndsInANameBecomeBlanks) {
    Fill(Block(2, 1), {"odd\tlong\r\nname", "b"});
    EXPECT_THAT(m_chart.calls, Contains("array 2125 = \"odd long  name\tb\t\" (2)"));
}

TEST(CutChartText, CountsCharactersNotBytes) {
    std::string text;
    for (int i = 0; i < 47; ++i) text += "\u00e4";
    EXPECT_EQ(CutChartText(text), text);
    EXPECT_EQ(CutChartText(text + "\u00e4x"), text);
}

TEST(CutChartText, KeepsAShorterText) {
    EXPECT_EQ(CutChartText(""), "");
    EXPECT_EQ(CutChartText("Residual"), "Residual");
}

TEST(LineStyles, ModeZeroRunsThroughTenStylesAndRepeats) {
    CLineStyles styles;
    EXPECT_THAT(styles.Set(0, 12), ElementsAre(0, 1, 2, 3, 4, 5, 6, 9, 10, 11, 0, 1));
}

TEST(LineStyles, TheOtherModesGiveEverySeriesTheSameStyle) {
    CLineStyles styles;
    EXPECT_THAT(styles.Set(1, 3), ElementsAre(0, 0, 0));
    EXPECT_THAT(styles.Set(2, 3), ElementsAre(5, 5, 5));
    EXPECT_THAT(styles.Set(3, 3), ElementsAre(6, 6, 6));
}

TEST(LineStyles, AnUnknownModeLeavesTheValues) {
    CLineStyles styles;
    styles.Set(3, 2);
    EXPECT_THAT(styles.Set(4, 3), ElementsAre(6, 6, 0));
}

TEST(LineStyles, TheArrayGrowsAndNeverShrinks) {
    CLineStyles styles;
    styles.Set(3, 5);
    EXPECT_THAT(styles.Set(2, 2), ElementsAre(5, 5));
    EXPECT_THAT(styles.Set(4, 7), ElementsAre(5, 5, 6, 6, 6, 0, 0));
}

}  // namespace
