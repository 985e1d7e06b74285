#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ks {

/// A number at the start of a text.
struct CLeadingNumber {
    double value = 0.0;      ///< correctly rounded; too large a number is an infinity, too small a one a zero
    std::size_t length = 0;  ///< how many characters it takes; 0: the text does not start with a number
};

/// The longest number at the start of `text`: optional sign, then digits with an optional point and optional further
/// digits, or a point and digits, then an optional exponent. Blanks, hexadecimal digits, "inf" and "nan" are not
/// numbers. The user's locale does not matter.
CLeadingNumber ReadLeadingNumber(std::string_view text);

/// The finite number that the whole of `text` is, spelled as ReadLeadingNumber reads it; no value for anything else,
/// a number beyond the range of a double included.
std::optional<double> ReadWholeNumber(std::string_view text);

// Numbers as text, never in the user's locale. Not-a-number is always "nan", without a sign; infinities are "inf" and
// "-inf".

/// `digits` decimals after the point, as "%.*f" writes it.
std::string FixedText(double value, int digits);

/// Six significant digits, fixed or exponent form, whichever is shorter, no trailing zeros: as "%g" writes it.
std::string GeneralText(double value);

/// Appends GeneralText(value) without a temporary.
void AppendGeneralText(std::string& text, double value);

/// The shortest text that reads back to the same double.
std::string ShortestText(double value);

/// The shortest text that reads back to the same single-precision number: "0.1", not "0.10000000149011612".
std::string ShortestSingleText(float value);

/// Appends ShortestText(value) without a temporary.
void AppendShortestText(std::string& text, double value);

}  // namespace ks
