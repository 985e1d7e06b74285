#include "compare/plots/page_ids.h"

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

std::unique_ptr<CPlot> MakePage(std::int32_t /*pageId*/) {
    return std::make_unique<CPlot>();
}
