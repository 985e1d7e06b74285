#include "compare/plots/page_table.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "compare/plots/corridor_plots.h"
#include "compare/plots/cross_correlation_plot.h"
#include "compare/plots/cumulative_density_plot.h"
#include "compare/plots/input_plots.h"
#include "compare/plots/page_ids.h"
#include "compare/plots/plot.h"
#include "compare/plots/residual_plot.h"

namespace {

template <class Page>
std::unique_ptr<CPlot> Make() {
    return std::make_unique<Page>();
}

constexpr bool kHasChart = true;

constexpr std::array kPages = {
    CPage{page::kSummary, "Summary", Make<CPlot>, CPageLists::Every, !kHasChart},
    CPage{page::kInputData, "Input Data", Make<CPlotInput>, CPageLists::OfOtherQuantities},
    CPage{page::kAcceleration, "Acceleration", Make<CPlotAcc>, CPageLists::OfAccelerations},
    CPage{page::kVelocity, "Velocity", Make<CPlotVel>, CPageLists::OfAccelerations},
    CPage{page::kDisplacement, "Displacement", Make<CPlotDisp>, CPageLists::OfAccelerations, kHasChart,
          "Displacement shows the same single integral as the Velocity page."},
    CPage{page::kCorridor, "Corridor", Make<CPlot4GCorridor>, CPageLists::Every},
    CPage{page::kStandardDeviation, "Standard Deviation", Make<CPlotStdDeviation>, CPageLists::Every},
    CPage{page::k90Percentile, "90 Percentile Corridor", Make<CPlot90Percent>, CPageLists::Every},
    CPage{page::kResiduals, "Residuals", Make<CPlotResidual>, CPageLists::Every},
    // Spelled so in older reports.
    CPage{page::kCumulativeDensity, "Cummulative Density", Make<CPlotCumulativeDensity>, CPageLists::Every},
    CPage{page::kCrossCorrelation, "Cross Correlation", Make<CPlotCrossCorrelation>, CPageLists::Every},
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
