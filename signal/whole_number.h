#pragma once

#include <cstdint>
#include <optional>

namespace ks {

/// `value` cut toward zero; no value when it is not a number or the result lies outside 32 bits. Every conversion of
/// a real to a whole number goes through this function or the next: the plain cast is undefined outside the range.
std::optional<std::int32_t> WholeNumber(double value);

/// The same with the nearest end of the 32-bit range for what lies outside, and 0 for not-a-number.
std::int32_t SaturatedWholeNumber(double value);

/// The nearest 32-bit number.
std::int32_t Saturated(std::int64_t value);

}  // namespace ks
