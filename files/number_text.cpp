#include "files/number_text.h"

#include <fast_float/fast_float.h>
#include <fast_float/parse_number.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace ks {
namespace {

/// The largest double has 309 digits before the point.
constexpr int kLongestWhole = 320;
constexpr int kGeneralDigits = 6;
constexpr std::size_t kShortBuffer = 32;

constexpr const char* kNotANumber = "nan";

}  // namespace

CLeadingNumber ReadLeadingNumber(std::string_view text) {
    const char* const first = text.data();
    const char* const last = first + text.size();
    const char* digits = first;
    if (digits != last && (*digits == '+' || *digits == '-')) ++digits;
    // fast_float also knows "nan" and "inf", which are no numbers here, and does not know a leading plus.
    const bool isNumber = digits != last && (*digits == '.' || (*digits >= '0' && *digits <= '9'));
    if (!isNumber) return {};
    CLeadingNumber number;
    const auto result = fast_float::from_chars(*first == '+' ? digits : first, last, number.value);
    if (result.ec == std::errc::invalid_argument) return {};
    number.length = static_cast<std::size_t>(result.ptr - first);
    return number;
}

std::optional<double> ReadWholeNumber(std::string_view text) {
    const CLeadingNumber number = ReadLeadingNumber(text);
    if (number.length == 0 || number.length != text.size() || !std::isfinite(number.value)) return std::nullopt;
    return number.value;
}

std::string FixedText(double value, int digits) {
    if (std::isnan(value)) return kNotANumber;
    std::string text(static_cast<std::size_t>(kLongestWhole + digits), '\0');
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, digits);
    text.resize(static_cast<std::size_t>(result.ptr - text.data()));
    return text;
}

void AppendGeneralText(std::string& text, double value) {
    if (std::isnan(value)) {
        text += kNotANumber;
        return;
    }
    std::array<char, kShortBuffer> buffer{};
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, kGeneralDigits);
    text.append(buffer.data(), result.ptr);
}

std::string GeneralText(double value) {
    std::string text;
    AppendGeneralText(text, value);
    return text;
}

void AppendShortestText(std::string& text, double value) {
    if (std::isnan(value)) {
        text += kNotANumber;
        return;
    }
    std::array<char, kShortBuffer> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    text.append(buffer.data(), result.ptr);
}

std::string ShortestText(double value) {
    std::string text;
    AppendShortestText(text, value);
    return text;
}

std::string ShortestSingleText(float value) {
    if (std::isnan(value)) return kNotANumber;
    std::array<char, kShortBuffer> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), result.ptr};
}

}  // namespace ks
