#include "chart/chart_model.h"

#include "chart/chart_control.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kPadding = 2.220446049250313e-16;

/// One series of the given points, drawn; a gap reads "gap".
std::vector<std::string> Drawn(const std::vector<double>& x, const std::vector<double>& y) {
    CChartModel model;
    model.SetInteger(CChartProperty::SeriesCount, 1);
    model.SetInteger(CChartProperty::PointCount, static_cast<std::int32_t>(x.size()));
    model.SetArray(CChartProperty::XData, x);
    model.SetArray(CChartProperty::YData, y);
    const std::array noData{kPadding};
    model.SetArray(CChartProperty::NoDataValue, noData);
    model.SetArray(CChartProperty::SecondNoDataValue, noData);
    std::vector<std::string> drawn;
    model.ForEachPoint(0, [&](double px, double py) {
        drawn.push_back(std::isnan(py) ? "gap" : std::to_string(static_cast<int>(px)));
    });
    return drawn;
}

TEST(ChartModel, GivesEverySeriesItsRowsNameAndStyle) {
    CChartModel model;
    model.SetInteger(CChartProperty::SeriesCount, 2);
    model.SetInteger(CChartProperty::PointCount, 2);
    const std::array x{1.0, 2.0, 3.0, 4.0};
    const std::array y{5.0, 6.0, 7.0, 8.0};
    model.SetArray(CChartProperty::XData, x);
    model.SetArray(CChartProperty::YData, y);
    model.SetArray(CChartProperty::Legend, "one\ttwo\t", 2);
    const std::array<std::int32_t, 2> styles{9, 11};
    model.SetArray(CChartProperty::LineStyles, styles);
    ASSERT_EQ(model.SeriesCount(), 2U);
    EXPECT_THAT(model.X(1), ElementsAre(3.0, 4.0));
    EXPECT_THAT(model.Y(0), ElementsAre(5.0, 6.0));
    EXPECT_EQ(model.Name(0), "one");
    EXPECT_EQ(model.Name(1), "two");
    EXPECT_EQ(model.LineStyle(0), 9);
    EXPECT_EQ(model.LineStyle(1), 11);
}

TEST(ChartModel, KeepsTheFourTitlesApart) {
    CChartModel model;
    model.SetText(CChartProperty::XTitle, "x");
    model.SetText(CChartProperty::YTitle, "y");
    model.SetText(CChartProperty::MainTitle, "main");
    model.SetText(CChartProperty::SubTitle, "sub");
    EXPECT_EQ(model.XTitle(), "x");
    EXPECT_EQ(model.YTitle(), "y");
    EXPECT_EQ(model.MainTitle(), "main");
    EXPECT_EQ(model.SubTitle(), "sub");
}

TEST(ChartModel, DrawsAllPointsOfASoundSeries) {
    EXPECT_THAT(Drawn({1.0, 2.0, 3.0}, {0.0, 0.0, 0.0}), ElementsAre("1", "2", "3"));
}

TEST(ChartModel, LeavesOutPaddingAtTheEnd) {
    EXPECT_THAT(Drawn({1.0, 2.0, kPadding, kPadding}, {0.0, 0.0, kPadding, kPadding}), ElementsAre("1", "2"));
}

TEST(ChartModel, OneGapReplacesAnyNumberOfMissingPoints) {
    EXPECT_THAT(Drawn({1.0, 2.0, 3.0, 4.0}, {0.0, kPadding, kPadding, 0.0}), ElementsAre("1", "gap", "4"));
}

TEST(ChartModel, StartsWithoutAGap) {
    EXPECT_THAT(Drawn({1.0, 2.0}, {kPadding, 0.0}), ElementsAre("2"));
}

TEST(ChartModel, PointsThatAreNotFiniteOrBeyondDrawingAreGaps) {
    EXPECT_THAT(Drawn({1.0, 2.0, 3.0}, {0.0, kInf, 0.0}), ElementsAre("1", "gap", "3"));
    EXPECT_THAT(Drawn({1.0, 2.0, 3.0}, {0.0, -kInf, 0.0}), ElementsAre("1", "gap", "3"));
    EXPECT_THAT(Drawn({1.0, 2.0, 3.0}, {0.0, kNan, 0.0}), ElementsAre("1", "gap", "3"));
    EXPECT_THAT(Drawn({1.0, 2.0, 3.0}, {0.0, 1e250, 0.0}), ElementsAre("1", "gap", "3"));
    EXPECT_THAT(Drawn({1.0, kNan, 3.0}, {0.0, 0.0, 0.0}), ElementsAre("1", "gap", "3"));
}

TEST(ChartModel, SeriesOfPaddingOnlyHasNoPoint) {
    EXPECT_THAT(Drawn({kPadding, kPadding}, {kPadding, kPadding}), ElementsAre());
}

TEST(ChartModel, WithoutANoDataValueEveryFiniteValueIsDrawn) {
    CChartModel model;
    EXPECT_TRUE(model.IsDrawn(kPadding, kPadding));
    EXPECT_TRUE(model.IsDrawn(0.0, 0.0));
}

TEST(ChartModel, CountsOnlySeriesWhoseValuesAreAllThere) {
    CChartModel model;
    model.SetInteger(CChartProperty::SeriesCount, 3);
    model.SetInteger(CChartProperty::PointCount, 2);
    const std::array x{1.0, 2.0, 3.0, 4.0, 5.0};
    model.SetArray(CChartProperty::XData, x);
    model.SetArray(CChartProperty::YData, x);
    EXPECT_EQ(model.SeriesCount(), 2U);
    model.ClearArray(CChartProperty::YData);
    EXPECT_EQ(model.SeriesCount(), 0U);
}

TEST(ChartModel, NegativeCountsAreNone) {
    CChartModel model;
    model.SetInteger(CChartProperty::SeriesCount, -1);
    model.SetInteger(CChartProperty::PointCount, -1);
    EXPECT_EQ(model.SeriesCount(), 0U);
}

TEST(ChartModel, ALegendWithFewerNamesLeavesTheOthersEmpty) {
    CChartModel model;
    model.SetArray(CChartProperty::Legend, "one\t", 3);
    EXPECT_EQ(model.Name(0), "one");
    EXPECT_EQ(model.Name(1), "");
    EXPECT_EQ(model.LineStyle(5), 0);
}

TEST(ChartModel, ALegendKeepsEmptyNamesInTheirPlace) {
    CChartModel model;
    model.SetArray(CChartProperty::Legend, "\ttwo\t", 2);
    EXPECT_EQ(model.Name(0), "");
    EXPECT_EQ(model.Name(1), "two");
}

TEST(ChartModel, UnknownPropertiesAreAccepted) {
    CChartModel model;
    model.SetInteger(GivenProperty(3610), 1);
    model.SetText(GivenProperty(1), "text");
    model.ClearArray(GivenProperty(3246));
    EXPECT_EQ(model.SeriesCount(), 0U);
}

}  // namespace
