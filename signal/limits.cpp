#include "signal/limits.h"

#include "signal/whole_number.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace ks {
namespace {

/// Independent running extrema: one alone would make each comparison wait for the one before it.
constexpr std::size_t kLanes = 8;

/// Positive and negative zero are equal, so the lanes may have met them in any order.
double FirstOfEquals(double extreme, std::span<const double> values) {
    return extreme == 0.0 ? *std::find(values.begin(), values.end(), 0.0) : extreme;
}

}  // namespace

CExtrema ExtremaOf(std::span<const double> values) {
    std::array<double, kLanes> least{};
    std::array<double, kLanes> most{};
    least.fill(values.front());
    most.fill(values.front());
    const auto take = [&](std::size_t lane, double value) {
        least[lane] = value < least[lane] ? value : least[lane];
        most[lane] = value > most[lane] ? value : most[lane];
    };
    std::size_t i = 0;
    for (; i + kLanes <= values.size(); i += kLanes) {
        for (std::size_t lane = 0; lane < kLanes; ++lane) take(lane, values[i + lane]);
    }
    for (; i < values.size(); ++i) take(0, values[i]);
    for (std::size_t lane = 1; lane < kLanes; ++lane) {
        take(0, least[lane]);
        take(0, most[lane]);
    }
    return {FirstOfEquals(least[0], values), FirstOfEquals(most[0], values)};
}

std::int32_t CountOf(std::int32_t first, std::int32_t last) {
    if (first == 0 && last == 0) return 0;
    if (first > last) return 0;
    return Saturated(std::int64_t{last} - first + 1);
}

std::vector<double> RegularAxis(std::int32_t first, std::int32_t count, double timeStep) {
    std::vector<double> axis(static_cast<std::size_t>(std::max(count, 0)));
    for (std::size_t i = 0; i < axis.size(); ++i) {
        axis[i] = timeStep * static_cast<double>(first + static_cast<std::int64_t>(i));
    }
    return axis;
}

}  // namespace ks
