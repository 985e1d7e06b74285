#include "cli/number_option.h"

#include <fast_float/fast_float.h>
#include <cmath>
#include <system_error>

std::optional<double> ParseNumber(std::string_view text) {
    // fast_float takes no plus sign; "+-1" must not become a number when the plus is dropped.
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    double value = 0.0;
    const char* const end = text.data() + text.size();
    const auto result = fast_float::from_chars(text.data(), end, value);
    // A number too small for a double is zero, whichever way the library reports it.
    const bool whole = result.ec != std::errc::invalid_argument && result.ptr == end;
    if (!whole || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}
