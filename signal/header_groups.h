#pragma once

#include "signal/data.h"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ks {

// The header of a signal as its reader sees it: labeled values in groups. The file viewer, the printed report and
// the command line all show this one table.

/// A group. Pages and sub-pages pick theirs by it. The header has one set of injury values, so they have one group.
enum class CHeaderGroupId {
    File,
    Test,
    VehicleOne,
    VehicleTwo,
    OccupantOne,
    OccupantTwo,
    OccupantInjury,
    Curve,
    CurveData,      ///< description, user texts, points and extrema; has the title of Sensor
    Sensor,         ///< axis and location
    CurveUserData,  ///< user integers and reals
    // What has no label of its own: field names, and the extrema.
    OtherFile,
    OtherTest,
    OtherVehicleOne,
    OtherVehicleTwo,
    OtherInjury,
    OtherCurve,
    OtherSensor,
    Extrema,
};

/// Where a group is shown.
enum class CHeaderPart {
    Labeled,  ///< everywhere
    FullOnly  ///< only where everything is asked for: the full report and the command line
};

/// One labeled value.
class CHeaderEntry {
public:
    std::string_view label;                  ///< as shown, with its colon: "Weight:"
    std::string_view unit;                   ///< as shown after the value: "(kgs)"; empty for most
    std::array<std::string_view, 2> fields;  ///< header fields that it shows; "" for none, second rarely used
    /// Makes the value of an entry that is more than its first field; null for that one.
    std::string (*make)(const CData& record);
};

/// One group. Neighbors in the table that have the same title are one group where all are shown below each other.
struct CHeaderGroup {
    CHeaderGroupId id;
    std::string_view title;
    CHeaderPart part;
    bool isOfSecondComponent;  ///< its fields are in the header of the second component, which few files have
    std::span<const CHeaderEntry> entries;
};

/// Every group in the order of showing, the labeled ones first. Each header field is in exactly one entry.
std::span<const CHeaderGroup> HeaderGroups();

/// The group with this id.
const CHeaderGroup& HeaderGroup(CHeaderGroupId id);

/// Whether the record has what the group shows: false only for groups of a second component that it lacks; their
/// values are then empty texts and zeros.
bool HasHeaderGroup(const CData& record, const CHeaderGroup& group);

/// The value of an entry: texts as they are in the file, codes included, without padding; integers decimal, reals with
/// six decimals ("%f"). Times are in milliseconds. Never by the locale; not-a-number is "nan".
std::string HeaderText(const CHeaderEntry& entry, const CData& record);

/// A text field's value without what writers pad it with: blanks and, with some, zero bytes, which no page can show.
std::string WithoutPadding(const std::string& text);

/// An entry with its value. Label and unit live as long as the program.
class CHeaderValue {
public:
    std::string_view label;
    std::string value;
    std::string_view unit;

    bool operator==(const CHeaderValue&) const = default;
};

/// The values of a group, one per entry.
std::vector<CHeaderValue> HeaderValues(const CHeaderGroup& group, const CData& record);

/// "Weight: 1500.000000 (kgs)": label, value and unit, separated by one blank each. Nothing follows a label without a
/// value but its blank and its unit.
std::string HeaderLine(const CHeaderValue& value);

}  // namespace ks
