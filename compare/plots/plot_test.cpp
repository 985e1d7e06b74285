#include "compare/plots/plot.h"

#include "compare/signal.h"
#include "files/error.h"
#include "signal/nsignal.h"
#include "tests/support/page_samples.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<double> Ramp(std::size_t count) {
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i) values[i] = static_cast<double>(i);
    return values;
}

TEST(Plot, TheBaseEmptiesBothListsAndHasSomethingToShow) {
    std::vector<CSignal> computed{ComputedSignal("a", TimeSignal(0.5, {1, 2, 3}))};
    CSeriesList series(2);
    std::vector<std::string> names{"left over"};
    CPlot plot;
    EXPECT_TRUE(plot.BuildSeries(computed, TimeSignal(0.5, {1, 2, 3}), series, names));
    EXPECT_THAT(series, IsEmpty());
    EXPECT_THAT(names, IsEmpty());
}

TEST(Plot, TheBaseEmptiesBothTitlesAndIsOfKindZero) {
    std::string xTitle = "x", yTitle = "y";
    const CPlot plot;
    plot.GetAxisTitles(xTitle, yTitle);
    EXPECT_EQ(xTitle, "");
    EXPECT_EQ(yTitle, "");
    EXPECT_EQ(plot.GetPageKind(), 0);
}

TEST(CommonRange, EqualRangesCutNothing) {
    ks::CNSignal a = TimeSignal(0.5, Ramp(5));
    ks::CNSignal b = TimeSignal(0.25, Ramp(9));
    EXPECT_TRUE(CommonRange(a, b));
    EXPECT_EQ(a.GetPointCount(), 5U);
    EXPECT_EQ(b.GetPointCount(), 9U);
    EXPECT_FALSE(a.IsModified());
    EXPECT_FALSE(b.IsModified());
}

TEST(CommonRange, DifferentRangesCutBothFromTheLaterStartToBelowTheEarlierEnd) {
    ks::CNSignal a = TimeSignal(0.5, Ramp(9));     // 0 ... 4
    ks::CNSignal b = TimeSignal(0.5, Ramp(9), 3);  // 1.5 ... 5.5
    EXPECT_TRUE(CommonRange(a, b));
    EXPECT_THAT(a.GetX(), ElementsAre(1.5, 2.0, 2.5, 3.0, 3.5));
    EXPECT_THAT(b.GetX(), ElementsAre(1.5, 2.0, 2.5, 3.0, 3.5));
    EXPECT_THAT(a.GetY(), ElementsAre(3, 4, 5, 6, 7));
    EXPECT_THAT(b.GetY(), ElementsAre(0, 1, 2, 3, 4));
    EXPECT_EQ(a.GetNFP(), 3);
    EXPECT_EQ(a.GetNLP(), 7);
    EXPECT_EQ(b.GetDataStatus(), "TRUNCATED");
}

TEST(CommonRange, ADifferenceAtOneEndOnlyIsADifference) {
    ks::CNSignal a = TimeSignal(0.5, Ramp(9));
    ks::CNSignal b = TimeSignal(0.5, Ramp(8));
    CommonRange(a, b);
    EXPECT_EQ(a.GetPointCount(), 7U);  // both end below 3.5
    EXPECT_EQ(b.GetPointCount(), 7U);
}

TEST(CommonRange, ARecordWithoutValuesLeavesBothAsTheyAre) {
    ks::CNSignal a = TimeSignal(0.5, Ramp(9));
    ks::CNSignal empty;
    EXPECT_TRUE(CommonRange(a, empty));
    EXPECT_TRUE(CommonRange(empty, a));
    EXPECT_EQ(a.GetPointCount(), 9U);
    EXPECT_EQ(empty.GetPointCount(), 0U);
}

TEST(CommonRange, RangesThatDoNotMeetFailAndLeaveBothAsTheyAre) {
    ks::CNSignal a = TimeSignal(0.5, Ramp(3));      // 0 ... 1
    ks::CNSignal b = TimeSignal(0.5, Ramp(3), 10);  // 5 ... 6
    try {
        CommonRange(a, b);
        FAIL() << "nothing thrown";
    } catch (const ks::CError& error) {
        EXPECT_STREQ(error.what(), "Stop time (1) is before or equals Start Time (5)");
    }
    EXPECT_EQ(a.GetPointCount(), 3U);
    EXPECT_EQ(b.GetPointCount(), 3U);
}

struct Row {
    std::string name, path, legend;
};
class LegendNames : public testing::TestWithParam<Row> {};

TEST_P(LegendNames, AreTheFileNameWithItsExtension) {
    EXPECT_EQ(LegendName(CSignal(GetParam().path)), GetParam().legend);
}

INSTANTIATE_TEST_SUITE_P(LegendName, LegendNames,
                         testing::Values(Row{"Backslashes", "D:\\tests\\sled\\v01234aa0.001", "v01234aa0.001"},
                                         Row{"Slashes", "/data/sled/v01234aa0.001", "v01234aa0.001"},
                                         Row{"Mixed", "C:\\data/sled\\close.uds", "close.uds"},
                                         Row{"DriveOnly", "C:close.uds", "close.uds"},
                                         Row{"NoFolder", "close.uds", "close.uds"},
                                         Row{"NoExtension", "/data/close", "close"},
                                         Row{"DotInFolder", "/data.d/close", "close"},
                                         Row{"Blanks", "/my data/a b.asc", "a b.asc"}, Row{"Empty", "", ""}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
