#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "compare/plots/plot.h"

/// Page ids; frozen, tools that read our JSON depend on them.
namespace page {
inline constexpr std::int32_t kSummary = 1;
inline constexpr std::int32_t kInputData = 2;
inline constexpr std::int32_t kStandardDeviation = 3;
inline constexpr std::int32_t kCorridor = 4;
inline constexpr std::int32_t k90Percentile = 5;
inline constexpr std::int32_t kResiduals = 6;
inline constexpr std::int32_t kAcceleration = 7;
inline constexpr std::int32_t kVelocity = 8;
inline constexpr std::int32_t kDisplacement = 9;
inline constexpr std::int32_t kCumulativeDensity = 10;
inline constexpr std::int32_t kCrossCorrelation = 11;
}  // namespace page

/// Name of a page as the page selector shows it; empty for any other id.
std::string_view PageName(std::int32_t pageId);

/// The page object of an id; a plain CPlot for the summary and for any other id.
std::unique_ptr<CPlot> MakePage(std::int32_t pageId);

/// Whether `pageId` is one of the eleven.
bool IsPageId(std::int32_t pageId);
