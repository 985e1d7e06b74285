#include "signal/resample.h"

#include "signal/limits.h"
#include "signal/whole_number.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace ks {
namespace {

/// Added before cutting to a whole number, so that a sample that lies a rounding error before a multiple counts.
constexpr double kMultipleTolerance = 0.01;

/// The samples that arrays and point numbers have in common.
std::size_t KnownSamples(const CNumberedCurve& curve) {
    const std::size_t stored = std::min(curve.x.size(), curve.y.size());
    return std::min(stored, static_cast<std::size_t>(std::max(curve.count, 0)));
}

std::optional<std::int32_t> MultipleBelow(double x, double timeStep) {
    return WholeNumber(x / timeStep + kMultipleTolerance);
}

}  // namespace

bool IsAscending(std::span<const double> x) {
    for (std::size_t i = 1; i < x.size(); ++i) {
        if (x[i - 1] > x[i]) return false;
    }
    return true;
}

std::optional<CPointRange> ResampledRange(const CNumberedCurve& curve, double timeStep) {
    if (curve.x.size() < 2 || curve.y.size() < 2 || curve.count == 0) return std::nullopt;
    const CExtrema limits = ExtremaOf(curve.x);
    const std::optional<std::int32_t> steps = WholeNumber((limits.maximum - limits.minimum) / timeStep + 0.99);
    if (!steps || *steps < 1) return std::nullopt;

    const std::optional<std::int32_t> start = MultipleBelow(curve.x.front(), timeStep);
    const std::optional<std::int32_t> stop = MultipleBelow(curve.x[KnownSamples(curve) - 1], timeStep);
    if (!start || !stop) return std::nullopt;

    // The old point numbers bound the new ones; kept, since a signal with points before time zero that is resampled
    // to its own step must keep losing its first sample.
    const std::int64_t first = std::min<std::int64_t>(*start, std::int64_t{curve.lastPoint} - 1);
    const std::int64_t last = std::max<std::int64_t>(*stop, std::int64_t{curve.firstPoint} + 1);
    if (Saturated(first) != first || Saturated(last) != last) return std::nullopt;
    if (last - first + 1 > kMostResampledPoints) return std::nullopt;
    return CPointRange{static_cast<std::int32_t>(first), static_cast<std::int32_t>(last)};
}

std::vector<double> Interpolate(const CNumberedCurve& curve, const CPointRange& range, double timeStep) {
    const auto& [x, y, firstPoint, lastPoint, count] = curve;
    std::vector<double> values(static_cast<std::size_t>(CountOf(range.first, range.last)));
    const std::size_t last = KnownSamples(curve) - 1;
    std::size_t high = 1;
    for (std::size_t j = 0; j < values.size(); ++j) {
        const double t = static_cast<double>(range.first + static_cast<std::int64_t>(j)) * timeStep;
        while (high < last && t > x[high]) ++high;
        std::size_t low = high - 1;
        while (low > 0 && x[low] > t) --low;
        values[j] = y[low] + (t - x[low]) / (x[high] - x[low]) * (y[high] - y[low]);
    }
    return values;
}

}  // namespace ks
