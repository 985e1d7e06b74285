#include "signal/whole_number.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace ks {
namespace {

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

}  // namespace

std::optional<std::int32_t> WholeNumber(double value) {
    const double whole = std::trunc(value);
    if (!(whole >= kLeast && whole <= kMost)) return std::nullopt;
    return static_cast<std::int32_t>(whole);
}

std::int32_t SaturatedWholeNumber(double value) {
    if (std::isnan(value)) return 0;
    return WholeNumber(value).value_or(value < 0.0 ? kLeast : kMost);
}

std::int32_t Saturated(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, kLeast, kMost));
}

}  // namespace ks
