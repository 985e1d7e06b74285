#pragma once

#include <string>
#include <string_view>

namespace ks {

// Unit words are compared exactly: upper case, no blanks around them.

/// "SECONDS", "SECOND" or "SEC".
bool IsTimeUnit(std::string_view units);

/// "ENGLISH" or "ENG"; every other dimension system, the empty one included, counts as metric.
bool IsEnglish(std::string_view dimensionSystem);

/// What integrating over X does to Y.
struct CIntegralUnits {
    double factor = 1.0;        ///< the integral of the numbers times this is in `units`
    double initialValue = 0.0;  ///< value at time zero, in `units`
    std::string units = "UNKNOWN";
    std::string type = "UNKNOWN";  ///< physical quantity
};

/// The result of integrating `yUnits` over `xUnits`: for accelerations in "G'S" a velocity that starts at
/// `initialVelocity`, for velocities a displacement, for forces an impulse or an energy, and so on. Pairs that are not
/// known give units and type "UNKNOWN". Over seconds, " x SECONDS" and " x TIME" follow; over an X that is neither a
/// time nor a length, " - " follows the units.
CIntegralUnits IntegralUnits(std::string_view xUnits, std::string_view yUnits, double initialVelocity,
                             std::string_view dimensionSystem);

}  // namespace ks
