#include "chart/chart_model.h"

#include "chart/chart_control.h"
#include "chart/curve_points.h"

#include <gmock/gmock.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace {

using testing::ElementsAre;

std::vector<double> XOf(const CChartModel& model, std::size_t series) {
    const CCurvePoints points = model.Curve(series);
    return {points.X().begin(), points.X().end()};
}

std::vector<double> YOf(const CChartModel& model, std::size_t series) {
    const CCurvePoints points = model.Curve(series);
    return {points.Y().begin(), points.Y().end()};
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
    EXPECT_THAT(XOf(model, 1), ElementsAre(3.0, 4.0));
    EXPECT_THAT(YOf(model, 0), ElementsAre(5.0, 6.0));
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

TEST(ChartModel, DrawsNoPointWithANoDataValue) {
    CChartModel model;
    model.SetInteger(CChartProperty::SeriesCount, 1);
    model.SetInteger(CChartProperty::PointCount, 3);
    model.SetArray(CChartProperty::XData, std::array{1.0, 2.0, 3.0});
    model.SetArray(CChartProperty::YData, std::array{0.0, 0.0, 0.0});
    EXPECT_THAT(model.Curve(0).Runs(), ElementsAre(CPointRun{0, 3}));
    model.SetArray(CChartProperty::NoDataValue, std::array{1.0});
    EXPECT_THAT(model.Curve(0).Runs(), ElementsAre(CPointRun{1, 3}));
    model.SetArray(CChartProperty::SecondNoDataValue, std::array{3.0});
    EXPECT_THAT(model.Curve(0).Runs(), ElementsAre(CPointRun{1, 2}));
}

TEST(ChartModel, SharesWhatMayBeKeptAndCopiesTheRest) {
    const auto shared = std::make_shared<const std::vector<double>>(4, 1.0);
    std::vector<double> lent(4, 2.0);
    CChartModel model;
    model.SetInteger(CChartProperty::SeriesCount, 2);
    model.SetInteger(CChartProperty::PointCount, 2);
    model.ShareArray(CChartProperty::XData, {shared, *shared});
    model.SetArray(CChartProperty::YData, lent);
    lent.assign(4, 3.0);
    EXPECT_EQ(model.Curve(1).X().data(), shared->data() + 2);
    EXPECT_THAT(YOf(model, 1), ElementsAre(2.0, 2.0));
}

TEST(ChartModel, KeepsSharedValuesInMemoryAsLongAsACurveNeedsThem) {
    auto shared = std::make_shared<const std::vector<double>>(2, 1.0);
    const std::weak_ptr<const std::vector<double>> watched = shared;
    auto model = std::make_unique<CChartModel>();
    model->SetInteger(CChartProperty::SeriesCount, 1);
    model->SetInteger(CChartProperty::PointCount, 2);
    model->ShareArray(CChartProperty::XData, {shared, *shared});
    model->ShareArray(CChartProperty::YData, {shared, *shared});
    shared.reset();
    {
        const CCurvePoints curve = model->Curve(0);
        model.reset();
        EXPECT_FALSE(watched.expired());
    }
    EXPECT_TRUE(watched.expired());
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
