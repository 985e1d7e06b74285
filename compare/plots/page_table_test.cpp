#include "compare/plots/page_table.h"

#include "compare/plots/corridor_plots.h"
#include "compare/plots/cross_correlation_plot.h"
#include "compare/plots/cumulative_density_plot.h"
#include "compare/plots/input_plots.h"
#include "compare/plots/plot.h"
#include "compare/plots/residual_plot.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

namespace {

using testing::Contains;
using testing::ElementsAre;

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
    ASSERT_NE(FindPage(row.id), nullptr);
    EXPECT_EQ(PageName(row.id), row.name);
    EXPECT_EQ(HasChart(row.id), row.id != 1);
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
    PageTable, Pages,
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

TEST(PageTable, GivesAnyOtherIdNoNameAndThePlainPage) {
    using Limits = std::numeric_limits<std::int32_t>;
    for (const std::int32_t id : {0, -1, PageIds().back() + 1, Limits::min(), Limits::max()}) {
        EXPECT_EQ(FindPage(id), nullptr) << id;
        EXPECT_EQ(PageName(id), "") << id;
        EXPECT_EQ(PageRemark(id), "") << id;
        EXPECT_FALSE(HasChart(id)) << id;
        const std::unique_ptr<CPlot> plot = MakePage(id);
        const CPlot& page = *plot;
        EXPECT_EQ(typeid(page), typeid(CPlot)) << id;
    }
}

TEST(PageTable, OffersThePagesOfAnAccelerationInTheirOrder) {
    EXPECT_THAT(OfferedPages(true), ElementsAre(1, 7, 8, 9, 4, 3, 5, 6, 10, 11));
}

TEST(PageTable, OffersThePagesOfAnyOtherQuantityInTheirOrder) {
    EXPECT_THAT(OfferedPages(false), ElementsAre(1, 2, 4, 3, 5, 6, 10, 11));
}

TEST(PageTable, ListsEveryIdAscending) {
    const std::vector<std::int32_t> ids = PageIds();
    EXPECT_EQ(ids.size(), PageTable().size());
    EXPECT_TRUE(std::ranges::is_sorted(ids));
    for (std::int32_t id = 1; id <= 11; ++id) EXPECT_THAT(ids, Contains(id));
}

TEST(PageTable, SaysOfDisplacementAloneWhatItShows) {
    EXPECT_EQ(PageRemark(9), "Displacement shows the same single integral as the Velocity page.");
    for (const std::int32_t id : {1, 2, 3, 4, 5, 6, 7, 8, 10, 11}) EXPECT_EQ(PageRemark(id), "") << id;
}

}  // namespace
