#pragma once

#include <string>

namespace ks {

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
