#include "compare/plots/page_table.h"

#include "compare/plots/corridor_plots.h"
#include "compare/plots/cross_correlation_plot.h"
#include "compare/plots/cumulative_density_plot.h"
#include "compare/plots/input_plots.h"
#include "compare/plots/page_ids.h"
#include "compare/plots/plot.h"
#include "compare/plots/residual_plot.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace {

template <class Page>
std::unique_ptr<CPlot> Make() {
    return std::make_unique<Page>();
}

constexpr bool kHasChart = true;

/// The row of a chart page; its class knows its id.
template <class Page>
constexpr CPage ChartPage(std::string_view name, CPageLists lists, std::string_view remark = {}) {
    return {Page::kId, name, Make<Page>, lists, kHasChart, remark};
}

constexpr std::array kPages = {
    CPage{page::kSummary, "Summary", Make<CPlot>, CPageLists::Every, !kHasChart},
    ChartPage<CPlotInput>("Input Data", CPageLists::OfOtherQuantities),
    ChartPage<CPlotAcc>("Acceleration", CPageLists::OfAccelerations),
    ChartPage<CPlotVel>("Velocity", CPageLists::OfAccelerations),
    ChartPage<CPlotDisp>("Displacement", CPageLists::OfAccelerations,
                         "Displacement shows the same single integral as the Velocity page."),
    ChartPage<CPlot4GCorridor>("Corridor", CPageLists::Every),
    ChartPage<CPlotStdDeviation>("Standard Deviation", CPageLists::Every),
    ChartPage<CPlot90Percent>("90 Percentile Corridor", CPageLists::Every),
    ChartPage<CPlotResidual>("Residuals", CPageLists::Every),
    // Spelled so in older reports.
    ChartPage<CPlotCumulativeDensity>("Cummulative Density", CPageLists::Every),
    ChartPage<CPlotCrossCorrelation>("Cross Correlation", CPageLists::Every),
};

constexpr bool HasEveryIdOnce() {
    for (const CPage& row : kPages) {
        if (std::ranges::count(kPages, row.id, &CPage::id) != 1) return false;
    }
    return true;
}
static_assert(HasEveryIdOnce(), "Each page needs an id of its own.");

bool IsOffered(const CPage& row, bool isAcceleration) {
    switch (row.lists) {
        case CPageLists::Every:
            return true;
        case CPageLists::OfAccelerations:
            return isAcceleration;
        case CPageLists::OfOtherQuantities:
            return !isAcceleration;
        case CPageLists::None:
            break;
    }
    return false;
}

}  // namespace

std::span<const CPage> PageTable() {
    return kPages;
}

const CPage* FindPage(std::int32_t pageId) {
    const auto* const found = std::ranges::find(kPages, pageId, &CPage::id);
    return found == kPages.end() ? nullptr : found;
}

std::string_view PageName(std::int32_t pageId) {
    const CPage* const row = FindPage(pageId);
    return row == nullptr ? std::string_view() : row->name;
}

std::string_view PageRemark(std::int32_t pageId) {
    const CPage* const row = FindPage(pageId);
    return row == nullptr ? std::string_view() : row->remark;
}

bool HasChart(std::int32_t pageId) {
    const CPage* const row = FindPage(pageId);
    return row != nullptr && row->hasChart;
}

std::unique_ptr<CPlot> MakePage(std::int32_t pageId) {
    const CPage* const row = FindPage(pageId);
    return row == nullptr ? std::make_unique<CPlot>() : row->make();
}

std::vector<std::int32_t> PageIds() {
    std::vector<std::int32_t> ids;
    ids.reserve(kPages.size());
    for (const CPage& row : kPages) ids.push_back(row.id);
    std::ranges::sort(ids);
    return ids;
}

std::vector<std::int32_t> OfferedPages(bool isAcceleration) {
    std::vector<std::int32_t> ids;
    for (const CPage& row : kPages) {
        if (IsOffered(row, isAcceleration)) ids.push_back(row.id);
    }
    return ids;
}
