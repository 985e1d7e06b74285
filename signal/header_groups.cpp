#include "signal/header_groups.h"

#include "files/number_text.h"
#include "files/uds_field_table.h"
#include "files/uds_fields.h"
#include "signal/data.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace ks {
namespace {

constexpr double kMillisecondsPerSecond = 1000.0;

/// Decimals of "%f".
constexpr int kDecimals = 6;

std::string RealText(double value) {
    return FixedText(value, kDecimals);
}

std::string FieldText(std::string_view name, const CUDSFields& fields) {
    return std::visit(
        [&fields](const auto& access) -> std::string {
            const auto& value = (fields.*access.get)();
            using CValue = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<CValue, std::string>) {
                return WithoutPadding(value);
            } else if constexpr (std::is_same_v<CValue, std::int32_t>) {
                return std::to_string(value);
            } else {
                return RealText(static_cast<double>(value));
            }
        },
        FindUdsField(name)->access);
}

// Values that are more than a field.

std::string CurveText(const CData& record) {
    return FieldText("CURNO", record) + " " + FieldText("CURNAM", record);
}

std::string TimeStepText(const CData& record) {
    return RealText(record.Getdelt() * kMillisecondsPerSecond);
}

/// Samples without a regular step have their times in X only.
std::string TimeRangeText(const CData& record) {
    const bool isIrregular = record.Getdelt() == 0.0 && !record.GetX().empty();
    const double first = isIrregular ? record.GetX().front() : record.GetStartTime();
    const double last = isIrregular ? record.GetX().back() : record.GetEndTime();
    return RealText(first * kMillisecondsPerSecond) + " to " + RealText(last * kMillisecondsPerSecond);
}

std::string PointCountText(const CData& record) {
    return std::to_string(record.GetPointCount());
}

template <double (CData::*get)() const>
std::string ExtremumText(const CData& record) {
    return RealText((record.*get)());
}

// One entry per line.
// clang-format off

constexpr CHeaderEntry Plain(std::string_view label, std::string_view field, std::string_view unit = {}) {
    return {label, unit, {field, {}}, nullptr};
}

constexpr CHeaderEntry Made(std::string_view label, std::string (*make)(const CData&), std::string_view unit = {},
                            std::array<std::string_view, 2> fields = {}) {
    return {label, unit, fields, make};
}

constexpr auto kFile = std::array{
    Plain("Version:", "FILEVER"),
    Plain("Form:", "FILEFORM"),
    Plain("Number Format:", "NUMFORM"),
    Plain("Unit System:", "DIMSYS"),
};

constexpr auto kTest = std::array{
    Plain("Source:", "TSTSRC"),
    Plain("Test Number:", "TSTNO"),
    Plain("Ref Number:", "TSTREF"),
    Plain("Configuration:", "TSTCFN"),
    Plain("Closing Speed:", "CLSSPD", "(kph)"),
    Plain("Performer:", "TSTPRF"),
    Plain("Title:", "TITLE"),
};

#define QUORVEL_VEHICLE_ENTRIES(N)                 \
    std::array {                                   \
        Plain("Make:", "MAKE" #N),                 \
        Plain("Year:", "YEAR" #N),                 \
        Plain("Model:", "MODEL" #N),               \
        Plain("Engine Type:", "ENGINE" #N),        \
        Plain("Body:", "BODY" #N),                 \
        Plain("Weight:", "VEHWGT" #N, "(kgs)"),    \
        Plain("Speed:", "VEHSPD" #N, "(kph)"),     \
    }
constexpr auto kVehicleOne = QUORVEL_VEHICLE_ENTRIES(1);
constexpr auto kVehicleTwo = QUORVEL_VEHICLE_ENTRIES(2);
#undef QUORVEL_VEHICLE_ENTRIES

#define QUORVEL_OCCUPANT_ENTRIES(N)                \
    std::array {                                   \
        Plain("Type:", "OCCTYP" #N),               \
        Plain("Sex:", "OCCSEX" #N),                \
        Plain("Weight:", "OCCWGT" #N, "(kgs)"),    \
        Plain("Age:", "OCCAGE" #N),                \
        Plain("Dummy Size:", "OCCSIZ" #N),         \
        Plain("Primary Restraint:", "RSTPRI" #N),  \
        Plain("Secondary Restraint:", "RSTSEC" #N),\
    }
constexpr auto kOccupantOne = QUORVEL_OCCUPANT_ENTRIES(1);
constexpr auto kOccupantTwo = QUORVEL_OCCUPANT_ENTRIES(2);
#undef QUORVEL_OCCUPANT_ENTRIES

constexpr auto kOccupantInjury = std::array{
    Plain("HIC:", "INJ1"),
    Plain("T1:", "INJ2", "(msec)"),
    Plain("T2:", "INJ3", "(msec)"),
    Plain("AIS:", "AIS"),
};

constexpr auto kCurve = std::array{
    Made("Curve:", CurveText, {}, {"CURNO", "CURNAM"}),
    Plain("Status:", "STATUS"),
    Plain("Data Type:", "YTYPE"),
    Made("Time Step:", TimeStepText, "(msec)", {"delt", {}}),
    Made("Time Range:", TimeRangeText, "(msec)"),
    Plain("Units:", "YUNITS"),
    Plain("SenAtt:", "SENATT"),
    Plain("Type:", "CURTYP"),
    Plain("InitVel:", "INIVEL", "(kph)"),
    Plain("Filter Cutoff:", "FCUT", "(Hz)"),
    Made("Number of Points:", PointCountText),
};

constexpr auto kCurveData = std::array{
    Plain("Curve Description:", "DESC"),
    Plain("CD1:", "CD1"),
    Plain("CD2:", "CD2"),
    Plain("First Point:", "NFP"),
    Plain("Last Point:", "NLP"),
    Made("Data Max:", ExtremumText<&CData::GetYMax>),
    Made("Data min:", ExtremumText<&CData::GetYMin>),
    Plain("Scale Factor:", "SCLFAC"),
};

constexpr auto kSensor = std::array{
    Plain("Axis:", "AXIS"),
    Plain("Location:", "SENLOC"),
};

constexpr auto kCurveUserData = std::array{
    Plain("ID1:", "ID1"), Plain("ID2:", "ID2"), Plain("ID3:", "ID3"), Plain("ID4:", "ID4"), Plain("ID5:", "ID5"),
    Plain("RD1:", "RD1"), Plain("RD2:", "RD2"), Plain("RD3:", "RD3"), Plain("RD4:", "RD4"), Plain("RD5:", "RD5"),
};

// Fields without a label are shown by their names.
#define QUORVEL_NAMED(NAME) Plain(#NAME ":", #NAME)

constexpr auto kOtherFile = std::array{QUORVEL_NAMED(FILEID)};
constexpr auto kOtherTest = std::array{QUORVEL_NAMED(TSTNAM), QUORVEL_NAMED(IMPANG)};
constexpr auto kOtherVehicleOne = std::array{QUORVEL_NAMED(CMPNO1), QUORVEL_NAMED(CMPTYP1), QUORVEL_NAMED(CMPDSC1)};
constexpr auto kOtherVehicleTwo = std::array{QUORVEL_NAMED(CMPNO2), QUORVEL_NAMED(CMPTYP2), QUORVEL_NAMED(CMPDSC2)};
constexpr auto kOtherInjury = std::array{QUORVEL_NAMED(INJ4), QUORVEL_NAMED(INJ5), QUORVEL_NAMED(INJ6)};
constexpr auto kOtherCurve = std::array{
    QUORVEL_NAMED(ICHAN), QUORVEL_NAMED(CHANFORM), QUORVEL_NAMED(XTYPE), QUORVEL_NAMED(XUNITS),
    QUORVEL_NAMED(PREFIL), QUORVEL_NAMED(FCOR), QUORVEL_NAMED(FSTP),
};
constexpr auto kOtherSensor = std::array{QUORVEL_NAMED(SENNUM), QUORVEL_NAMED(BANDNO), QUORVEL_NAMED(GAGNO)};
#undef QUORVEL_NAMED

constexpr auto kExtrema = std::array{
    Made("XMax:", ExtremumText<&CData::GetXMax>), Made("XMin:", ExtremumText<&CData::GetXMin>),
    Made("YMax:", ExtremumText<&CData::GetYMax>), Made("YMin:", ExtremumText<&CData::GetYMin>),
};

constexpr auto kLabeled = CHeaderPart::Labeled;
constexpr auto kFullOnly = CHeaderPart::FullOnly;
using enum CHeaderGroupId;

// In the order of the ids.
constexpr auto kGroups = std::array{
    CHeaderGroup{File, "File", kLabeled, false, kFile},
    CHeaderGroup{Test, "Test", kLabeled, false, kTest},
    CHeaderGroup{VehicleOne, "Vehicle One", kLabeled, false, kVehicleOne},
    CHeaderGroup{VehicleTwo, "Vehicle Two", kLabeled, true, kVehicleTwo},
    CHeaderGroup{OccupantOne, "Occupant One", kLabeled, false, kOccupantOne},
    CHeaderGroup{OccupantTwo, "Occupant Two", kLabeled, true, kOccupantTwo},
    CHeaderGroup{OccupantInjury, "Occupant InJury", kLabeled, false, kOccupantInjury},
    CHeaderGroup{Curve, "Curve", kLabeled, false, kCurve},
    CHeaderGroup{CurveData, "Curve data and sensor", kLabeled, false, kCurveData},
    CHeaderGroup{Sensor, "Curve data and sensor", kLabeled, false, kSensor},
    CHeaderGroup{CurveUserData, "Curve User Data", kLabeled, false, kCurveUserData},
    CHeaderGroup{OtherFile, "Other File Fields", kFullOnly, false, kOtherFile},
    CHeaderGroup{OtherTest, "Other Test Fields", kFullOnly, false, kOtherTest},
    CHeaderGroup{OtherVehicleOne, "Other Vehicle One Fields", kFullOnly, false, kOtherVehicleOne},
    CHeaderGroup{OtherVehicleTwo, "Other Vehicle Two Fields", kFullOnly, true, kOtherVehicleTwo},
    CHeaderGroup{OtherInjury, "Other Occupant InJury Fields", kFullOnly, false, kOtherInjury},
    CHeaderGroup{OtherCurve, "Other Curve Fields", kFullOnly, false, kOtherCurve},
    CHeaderGroup{OtherSensor, "Other Sensor Fields", kFullOnly, false, kOtherSensor},
    CHeaderGroup{Extrema, "Extrema", kFullOnly, false, kExtrema},
};

// clang-format on

static_assert(std::ranges::is_sorted(kGroups, {}, &CHeaderGroup::id));
static_assert(kGroups.size() == static_cast<std::size_t>(Extrema) + 1);

}  // namespace

std::span<const CHeaderGroup> HeaderGroups() {
    return kGroups;
}

const CHeaderGroup& HeaderGroup(CHeaderGroupId id) {
    return kGroups.at(static_cast<std::size_t>(id));
}

bool HasHeaderGroup(const CData& record, const CHeaderGroup& group) {
    return !group.isOfSecondComponent || record.HasSecondComponent();
}

std::string WithoutPadding(const std::string& text) {
    const std::size_t last = text.find_last_not_of(std::string_view("\0 ", 2));
    return last == std::string::npos ? std::string() : text.substr(0, last + 1);
}

std::string HeaderText(const CHeaderEntry& entry, const CData& record) {
    return entry.make != nullptr ? entry.make(record) : FieldText(entry.fields.front(), record);
}

std::vector<CHeaderValue> HeaderValues(const CHeaderGroup& group, const CData& record) {
    std::vector<CHeaderValue> values;
    values.reserve(group.entries.size());
    for (const CHeaderEntry& entry : group.entries) {
        values.push_back({entry.label, HeaderText(entry, record), entry.unit});
    }
    return values;
}

std::string HeaderLine(const CHeaderValue& value) {
    std::string line(value.label);
    line.append(" ").append(value.value);
    if (!value.unit.empty()) line.append(" ").append(value.unit);
    return line;
}

}  // namespace ks
