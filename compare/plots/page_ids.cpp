#include "compare/plots/page_ids.h"

#include "compare/plots/corridor_plots.h"
#include "compare/plots/cross_correlation_plot.h"
#include "compare/plots/cumulative_density_plot.h"
#include "compare/plots/input_plots.h"
#include "compare/plots/residual_plot.h"

std::string_view PageName(std::int32_t pageId) {
    switch (pageId) {
        case page::kSummary:
            return "Summary";
        case page::kInputData:
            return "Input Data";
        case page::kStandardDeviation:
            return "Standard Deviation";
        case page::kCorridor:
            return "Corridor";
        case page::k90Percentile:
            return "90 Percentile Corridor";
        case page::kResiduals:
            return "Residuals";
        case page::kAcceleration:
            return "Acceleration";
        case page::kVelocity:
            return "Velocity";
        case page::kDisplacement:
            return "Displacement";
        case page::kCumulativeDensity:
            return "Cummulative Density";  // spelled so in older reports
        case page::kCrossCorrelation:
            return "Cross Correlation";
        default:
            return {};
    }
}

bool IsPageId(std::int32_t pageId) {
    return pageId >= page::kSummary && pageId <= page::kCrossCorrelation;
}

std::unique_ptr<CPlot> MakePage(std::int32_t pageId) {
    switch (pageId) {
        case page::kInputData:
            return std::make_unique<CPlotInput>();
        case page::kStandardDeviation:
            return std::make_unique<CPlotStdDeviation>();
        case page::kCorridor:
            return std::make_unique<CPlot4GCorridor>();
        case page::k90Percentile:
            return std::make_unique<CPlot90Percent>();
        case page::kResiduals:
            return std::make_unique<CPlotResidual>();
        case page::kAcceleration:
            return std::make_unique<CPlotAcc>();
        case page::kVelocity:
            return std::make_unique<CPlotVel>();
        case page::kDisplacement:
            return std::make_unique<CPlotDisp>();
        case page::kCumulativeDensity:
            return std::make_unique<CPlotCumulativeDensity>();
        case page::kCrossCorrelation:
            return std::make_unique<CPlotCrossCorrelation>();
        default:
            return std::make_unique<CPlot>();
    }
}
