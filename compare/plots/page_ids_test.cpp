#include "compare/plots/page_ids.h"

#include <gmock/gmock.h>

#include <limits>
#include <typeinfo>

#include "compare/plots/corridor_plots.h"
#include "compare/plots/cross_correlation_plot.h"
#include "compare/plots/cumulative_density_plot.h"
#include "compare/plots/input_plots.h"
#include "compare/plots/residual_plot.h"

namespace {

struct Row {
    std::int32_t id;
    std::string_view name;
    const std::type_info& type;
    std::int32_t kind;
    std::string_view xTitle, yTitle;
};

class Pages : public testing::TestWithParam<Row> {};

TEST_P(Pages, HaveTheirNameClassKindAndTitles) {
    const Row& row = GetParam();
    EXPECT_TRUE(IsPageId(row.id));
    EXPECT_EQ(PageName(row.id), row.name);
    const std::unique_ptr<CPlot> plot = MakePage(row.id);
    const CPlot& page = *plot;
    EXPECT_EQ(typeid(page), row.type);
    EXPECT_EQ(page.GetPageKind(), row.kind);
    std::string xTitle = "left over", yTitle = "left over";
    page.GetAxisTitles(xTitle, yTitle);
    EXPECT_EQ(xTitle, row.xTitle);
    EXPECT_EQ(yTitle, row.yTitle);
}

INSTANTIATE_TEST_SUITE_P(
    PageIds, Pages,
    testing::Values(
        Row{1, "Summary", typeid(CPlot), 0, "", ""},
        Row{2, "Input Data", typeid(CPlotInput), 2, "Time (seconds)", "Unknown Units"},
        Row{3, "Standard Deviation", typeid(CPlotStdDeviation), 3, "Time (seconds)", "Acceleration (G's)"},
        Row{4, "Corridor", typeid(CPlot4GCorridor), 4, "", ""},  // its titles come with the reference
        Row{5, "90 Percentile Corridor", typeid(CPlot90Percent), 5, "Time (seconds)", "Acceleration (G's)"},
        Row{6, "Residuals", typeid(CPlotResidual), 0, "Time (seconds)", "Residual"},
        Row{7, "Acceleration", typeid(CPlotAcc), 7, "Time (seconds)", "Acceleration (G's)"},
        Row{8, "Velocity", typeid(CPlotVel), 8, "Time (seconds)", "Velocity (kmph)"},
        Row{9, "Displacement", typeid(CPlotDisp), 9, "Time (seconds)", "Displacement (mm)"},
        Row{10, "Cummulative Density", typeid(CPlotCumulativeDensity), 10, "Residual", "Percent Less than X (%)"},
        Row{11, "Cross Correlation", typeid(CPlotCrossCorrelation), 11, "Time Offset", "Cross Correlation"}),
    [](const auto& row) { return "Id" + std::to_string(row.param.id); });

TEST(PageIds, AnyOtherIdHasNoNameAndThePlainPage) {
    using Limits = std::numeric_limits<std::int32_t>;
    for (const std::int32_t id : {0, -1, 12, 100, Limits::min(), Limits::max()}) {
        EXPECT_FALSE(IsPageId(id)) << id;
        EXPECT_EQ(PageName(id), "") << id;
        const std::unique_ptr<CPlot> plot = MakePage(id);
        const CPlot& page = *plot;
        EXPECT_EQ(typeid(page), typeid(CPlot)) << id;
    }
}

}  // namespace
