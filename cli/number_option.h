#pragma once

#include <optional>
#include <string_view>

/// The finite number that the whole of `text` is: optional sign, decimal digits with an optional point, optional
/// exponent. Blanks, hexadecimal digits, "inf", "nan" and numbers beyond a double give no value. The user's locale has
/// no say.
std::optional<double> ParseNumber(std::string_view text);
