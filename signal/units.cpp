#include "signal/units.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace ks {
namespace {

/// Energy: a force over a distance.
struct CWayRow {
    std::string_view xUnits, yUnits;
    double factor;
    std::string_view units;
};

constexpr std::array kOverWay{
    CWayRow{"METERS", "NEWTONS", 1.0, "JOULES"},
    CWayRow{"MILLIMETERS", "NEWTONS", 0.001, "JOULES"},
    CWayRow{"FEET", "POUNDS", 1.0, "FOOT-POUNDS"},
    CWayRow{"INCHES", "POUNDS", 1.0 / 12.0, "FOOT-POUNDS"},
};

struct CTimeRow {
    std::string_view yUnits;
    double factor;
    std::string_view units, type;
};

/// The factors are settled decimals, not recomputed from unit definitions; results of many years depend on them.
constexpr CTimeRow kGravitiesEnglish{"G'S", 21.93675, "MILES/HOUR", "VELOCITY"};
constexpr CTimeRow kGravitiesMetric{"G'S", 35.30394, "KILOMETERS/HOUR", "VELOCITY"};

constexpr std::array kOverTime{
    CTimeRow{"KILOMETERS/HOUR", 277.77778, "MILLIMETERS", "DISPLACEMENT"},
    CTimeRow{"METERS/SEC", 1000.0, "MILLIMETERS", "DISPLACEMENT"},
    CTimeRow{"MILES/HOUR", 17.6, "INCHES", "DISPLACEMENT"},
    CTimeRow{"FEET/SEC", 12.0, "INCHES", "DISPLACEMENT"},
    CTimeRow{"INCHES/SEC", 1.0, "INCHES", "DISPLACEMENT"},
    CTimeRow{"NEWTONS", 1.0, "NEWTON-SECONDS", "IMPULSE"},
    CTimeRow{"POUNDS", 1.0, "POUND-SECONDS", "IMPULSE"},
    CTimeRow{"NEWTON-METERS", 1.0, "NEWTON-METER-SECONDS", "ANGULAR IMPULSE"},
    CTimeRow{"POUND-FEET", 1.0, "POUND-FOOT-SECONDS", "ANGULAR IMPULSE"},
    CTimeRow{"DEGREES/SEC**2", 1.0, "DEGREES/SEC", "ANGULAR VELOCITY"},
    CTimeRow{"RADIANS/SEC**2", 1.0, "RADIANS/SEC", "ANGULAR VELOCITY"},
    CTimeRow{"DEGREES/SEC", 1.0, "DEGREES", "ANGULAR DISPLACEMENT"},
    CTimeRow{"RADIANS/SEC", 1.0, "RADIANS", "ANGULAR DISPLACEMENT"},
};

CIntegralUnits OverWay(std::string_view xUnits, std::string_view yUnits) {
    const auto way = [&](const CWayRow& row) { return row.xUnits == xUnits; };
    const auto* row = std::find_if(kOverWay.begin(), kOverWay.end(), way);
    if (row == kOverWay.end()) return {.units = "UNKNOWN - "};
    if (row->yUnits != yUnits) return {};
    return {row->factor, 0.0, std::string(row->units), "ENERGY"};
}

CIntegralUnits OverTime(const CTimeRow& row, double initialValue) {
    return {row.factor, initialValue, std::string(row.units), std::string(row.type)};
}

}  // namespace

bool IsTimeUnit(std::string_view units) {
    return units == "SECONDS" || units == "SECOND" || units == "SEC";
}

bool IsEnglish(std::string_view dimensionSystem) {
    return dimensionSystem == "ENGLISH" || dimensionSystem == "ENG";
}

CIntegralUnits IntegralUnits(std::string_view xUnits, std::string_view yUnits, double initialVelocity,
                             std::string_view dimensionSystem) {
    if (!IsTimeUnit(xUnits)) return OverWay(xUnits, yUnits);
    if (yUnits == "G'S") {
        return OverTime(IsEnglish(dimensionSystem) ? kGravitiesEnglish : kGravitiesMetric, initialVelocity);
    }
    const auto* row =
        std::find_if(kOverTime.begin(), kOverTime.end(), [&](const CTimeRow& r) { return r.yUnits == yUnits; });
    if (row == kOverTime.end()) return {.units = "UNKNOWN x SECONDS", .type = "UNKNOWN x TIME"};
    return OverTime(*row, 0.0);
}

}  // namespace ks
