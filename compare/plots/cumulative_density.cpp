#include "compare/plots/cumulative_density.h"

#include "compare/chart_block.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace {

/// The thresholds, filled up with infinity to one less than a power of two, so that the bisection has a fixed number
/// of steps.
constexpr std::size_t kLadderBits = 7;
constexpr std::size_t kLadderSize = (std::size_t{1} << kLadderBits) - 1;
static_assert(kLadderSize >= kDensityPointCount);
using CLadder = std::array<double, kLadderSize>;

CLadder MakeLadder(std::span<const double> thresholds) {
    CLadder ladder;
    ladder.fill(std::numeric_limits<double>::infinity());
    std::ranges::copy(thresholds, ladder.begin());
    return ladder;
}

/// Index of the first threshold above `residual`; kLadderSize when there is none, as for a not-a-number residual.
std::size_t FirstAbove(const CLadder& ladder, double residual) {
    std::size_t position = 0;
    for (std::size_t bit = kLadderBits; bit-- > 0;) {
        const std::size_t step = std::size_t{1} << bit;
        // A shifted truth value instead of a branch, which the processor would mispredict every other time.
        const bool isNotBelow = !(residual < ladder[position + step - 1]);
        position += static_cast<std::size_t>(isNotBelow) << bit;
    }
    return position;
}

}  // namespace

std::vector<double> DensityThresholds(double sigma) {
    const double step = sigma * 4.0 / 99.0;
    std::vector<double> thresholds;
    for (double x = -2.0 * sigma; 2.0 * sigma > x && thresholds.size() < kDensityPointCount; x = x + step) {
        thresholds.push_back(x);
    }
    return thresholds;
}

CCumulativeDensity CumulativeDensity(std::span<const double> computed, std::span<const double> reference,
                                     double sigma) {
    const std::vector<double> thresholds = DensityThresholds(sigma);
    const CLadder ladder = MakeLadder(thresholds);
    const std::size_t count = std::min(computed.size(), reference.size());

    std::array<std::int64_t, kLadderSize + 1> counts{};
    for (std::size_t i = 0; i < count; ++i) ++counts[FirstAbove(ladder, computed[i] - reference[i])];

    CCumulativeDensity density{std::vector<double>(kDensityPointCount, kNoDataValue),
                               std::vector<double>(kDensityPointCount, kNoDataValue)};
    std::int64_t below = 0;
    for (std::size_t k = 0; k < thresholds.size(); ++k) {
        below += counts[k];
        density.x[k] = thresholds[k];
        density.y[k] = static_cast<double>(below) * 100.0 / static_cast<double>(count);
    }
    return density;
}
