#include "compare/ratings/samples.h"

#include "compare/ratings/messages.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace ratings {
namespace {

bool IsFinite(std::span<const double> values) {
    return std::ranges::all_of(values, [](double value) { return std::isfinite(value); });
}

/// Within +-1000, so that the reverse power is a number too.
int ExponentOf(double largest) {
    return largest == 0.0 ? 0 : std::clamp(std::ilogb(largest), -1000, 1000);
}

std::vector<double> Times(std::span<const double> values, double factor) {
    std::vector<double> products(values.size());
    std::ranges::transform(values, products.begin(), [factor](double value) { return value * factor; });
    return products;
}

}  // namespace

std::optional<std::string_view> WhyNotRated(const CSamples& samples) {
    if (samples.reference.size() != samples.computed.size()) return rating_message::kLengthsDiffer;
    if (samples.reference.empty()) return rating_message::kNoSamples;
    if (!IsFinite(samples.reference)) return rating_message::kReferenceNotFinite;
    if (!IsFinite(samples.computed)) return rating_message::kComputedNotFinite;
    return {};
}

double LargestMagnitude(std::span<const double> values) {
    double largest = 0.0;
    for (const double value : values) largest = std::max(largest, std::abs(value));
    return largest;
}

bool IsConstant(std::span<const double> values) {
    return std::ranges::all_of(values, [&](double value) { return value == values.front(); });
}

CScaled Scale(std::span<const double> values) {
    const int exponent = ExponentOf(LargestMagnitude(values));
    return {Times(values, std::ldexp(1.0, -exponent)), exponent};
}

CScaledSamples ScaleTogether(const CSamples& samples) {
    const double largest = std::max(LargestMagnitude(samples.reference), LargestMagnitude(samples.computed));
    const int exponent = ExponentOf(largest);
    const double factor = std::ldexp(1.0, -exponent);
    return {Times(samples.reference, factor), Times(samples.computed, factor), exponent};
}

}  // namespace ratings
