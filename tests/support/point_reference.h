#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// What the plain reader below makes of a text.
struct ReferencePoints {
    bool isAccepted = false;
    std::vector<std::array<double, 3>> points;  ///< those before the failure, too
};

/// The language of ASCII point files, read by a plain recursive descent that shares nothing with the product: one
/// function per rule, numbers by the C library.
ReferencePoints ReadPointsPlainly(std::string_view text);

/// The cuts at the end of the data, one after the other, each on the result of the one before.
std::string CutStepByStep(std::string text);
