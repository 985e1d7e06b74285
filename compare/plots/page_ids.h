#pragma once

#include <cstdint>

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
