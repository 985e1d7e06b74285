#include "chart/view_range.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kBandAroundOneValue = 0.05;
constexpr double kWidest = 20.0;
constexpr double kFinest = 1e-12;  // of the largest number on the axis: a thousand steps of a double stay visible

double LargestNumber(const CViewRange& range) {
    return std::max(std::abs(range.lower), std::abs(range.upper));
}

}  // namespace

CViewRange RangeToShow(const CDataRange& data, double margin) {
    if (!data.HasValues()) return {0.0, 1.0};
    const CViewRange range = data.Range();
    const double finest = LargestNumber(range) * kFinest;
    if (range.Size() > finest) return {range.lower - margin * range.Size(), range.upper + margin * range.Size()};
    const double band = range.lower == 0.0 ? 1.0 : std::abs(range.lower) * kBandAroundOneValue;
    return {range.lower - band, range.upper + band};
}

CViewRange Zoomed(const CViewRange& range, double center, double factor) {
    return {center + (range.lower - center) * factor, center + (range.upper - center) * factor};
}

CViewRange Panned(const CViewRange& range, double share) {
    const double step = range.Size() * share;
    return {range.lower + step, range.upper + step};
}

CViewRange Limited(const CViewRange& range, const CViewRange& home) {
    const double finest = std::max(LargestNumber(home) * kFinest, home.Size() * kFinest);
    const double size = std::clamp(range.Size(), finest, home.Size() * kWidest);
    double center = range.lower + 0.5 * range.Size();
    center = std::clamp(center, home.lower - 0.5 * size, home.upper + 0.5 * size);
    const bool isUnchanged = size == range.Size() && center == range.lower + 0.5 * range.Size();
    return isUnchanged ? range : CViewRange{center - 0.5 * size, center + 0.5 * size};
}

int LabelDigits(const CViewRange& range) {
    constexpr double kSteps = 1000.0;
    const double digits = std::ceil(std::log10(LargestNumber(range) / range.Size() * kSteps));
    if (!(digits > 6.0)) return 6;
    return static_cast<int>(std::min(digits, 15.0));
}
