#include "signal/header_groups.h"

#include "files/uds_field_table.h"
#include "signal/data.h"
#include "tests/support/temp_folder.h"
#include "tests/support/uds_bytes.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <string>
#include <vector>

namespace ks {
namespace {

using testing::ElementsAre;

using Lines = std::vector<std::string>;

std::vector<CHeaderGroup> Groups(CHeaderPart part) {
    std::vector<CHeaderGroup> groups;
    for (const CHeaderGroup& group : HeaderGroups()) {
        if (group.part == part) groups.push_back(group);
    }
    return groups;
}

Lines LinesOf(CHeaderGroupId id, const CData& record) {
    Lines lines;
    for (const CHeaderValue& value : HeaderValues(HeaderGroup(id), record)) lines.push_back(HeaderLine(value));
    return lines;
}

/// "LABEL UNIT" of every entry.
Lines LabelsOf(CHeaderGroupId id) {
    Lines labels;
    for (const CHeaderEntry& entry : HeaderGroup(id).entries) {
        labels.push_back(std::string(entry.label) + (entry.unit.empty() ? "" : " ") + std::string(entry.unit));
    }
    return labels;
}

TEST(HeaderGroups, ForgetNoFieldOfTheHeaderAndShowNoneTwice) {
    std::map<std::string_view, int> shown;
    for (const CHeaderGroup& group : HeaderGroups()) {
        for (const CHeaderEntry& entry : group.entries) {
            for (const std::string_view field : entry.fields) {
                if (!field.empty()) ++shown[field];
            }
        }
    }
    for (const CUDSField& field : UdsFieldTable()) {
        EXPECT_EQ(shown[field.name], 1) << field.name;
    }
    EXPECT_EQ(shown.size(), UdsFieldTable().size());
}

TEST(HeaderGroups, CanBeFoundByTheirIds) {
    for (const CHeaderGroup& group : HeaderGroups()) EXPECT_EQ(&HeaderGroup(group.id), &group);
}

TEST(HeaderGroups, ListTheLabeledOnesFirst) {
    Lines titles;
    for (const CHeaderGroup& group : HeaderGroups()) titles.emplace_back(group.title);
    EXPECT_THAT(
        titles,
        ElementsAre("File", "Test", "Vehicle One", "Vehicle Two", "Occupant One", "Occupant Two", "Occupant InJury",
                    "Curve", "Curve data and sensor", "Curve data and sensor", "Curve User Data", "Other File Fields",
                    "Other Test Fields", "Other Vehicle One Fields", "Other Vehicle Two Fields",
                    "Other Occupant InJury Fields", "Other Curve Fields", "Other Sensor Fields", "Extrema"));
    EXPECT_EQ(Groups(CHeaderPart::Labeled).size(), 11U);
    EXPECT_EQ(HeaderGroups()[10].part, CHeaderPart::Labeled);
    EXPECT_EQ(HeaderGroups()[11].part, CHeaderPart::FullOnly);
}

TEST(HeaderGroups, HaveTheirLabelsAndUnits) {
    using enum CHeaderGroupId;
    EXPECT_THAT(LabelsOf(File), ElementsAre("Version:", "Form:", "Number Format:", "Unit System:"));
    EXPECT_THAT(LabelsOf(Test), ElementsAre("Source:", "Test Number:", "Ref Number:", "Configuration:",
                                            "Closing Speed: (kph)", "Performer:", "Title:"));
    for (const CHeaderGroupId vehicle : {VehicleOne, VehicleTwo}) {
        EXPECT_THAT(LabelsOf(vehicle),
                    ElementsAre("Make:", "Year:", "Model:", "Engine Type:", "Body:", "Weight: (kgs)", "Speed: (kph)"));
    }
    for (const CHeaderGroupId occupant : {OccupantOne, OccupantTwo}) {
        EXPECT_THAT(LabelsOf(occupant), ElementsAre("Type:", "Sex:", "Weight: (kgs)", "Age:", "Dummy Size:",
                                                    "Primary Restraint:", "Secondary Restraint:"));
    }
    EXPECT_THAT(LabelsOf(OccupantInjury), ElementsAre("HIC:", "T1: (msec)", "T2: (msec)", "AIS:"));
    EXPECT_THAT(LabelsOf(Curve), ElementsAre("Curve:", "Status:", "Data Type:", "Time Step: (msec)",
                                             "Time Range: (msec)", "Units:", "SenAtt:", "Type:", "InitVel: (kph)",
                                             "Filter Cutoff: (Hz)", "Number of Points:"));
    EXPECT_THAT(LabelsOf(CurveData), ElementsAre("Curve Description:", "CD1:", "CD2:", "First Point:", "Last Point:",
                                                 "Data Max:", "Data min:", "Scale Factor:"));
    EXPECT_THAT(LabelsOf(Sensor), ElementsAre("Axis:", "Location:"));
    EXPECT_THAT(LabelsOf(CurveUserData),
                ElementsAre("ID1:", "ID2:", "ID3:", "ID4:", "ID5:", "RD1:", "RD2:", "RD3:", "RD4:", "RD5:"));
}

TEST(HeaderGroups, NameTheFieldsWithoutALabel) {
    for (const CHeaderGroup& group : Groups(CHeaderPart::FullOnly)) {
        if (group.id == CHeaderGroupId::Extrema) continue;
        for (const CHeaderEntry& entry : group.entries) {
            EXPECT_EQ(entry.label, std::string(entry.fields[0]) + ":");
            EXPECT_EQ(entry.unit, "");
        }
    }
}

/// No two values of the two components are the same, so that none can pass for another.
void PutComponent(CUDSBytes& bytes, std::size_t start, const std::string& letter, std::int32_t number) {
    const double real = number;
    bytes.PutInteger(start, 10 + number).PutText(start + 4, 2, "C" + letter).PutText(start + 6, 30, "DESC " + letter);
    bytes.PutText(start + 36, 15, "MAKE " + letter).PutText(start + 51, 25, "MODEL " + letter);
    bytes.PutInteger(start + 76, 1985 + number).PutText(start + 80, 25, "BODY " + letter);
    bytes.PutText(start + 105, 4, "ENG" + letter).PutReal(start + 109, 1200.5 + real).PutReal(start + 113, 0.5 - real);
    bytes.PutText(start + 117, 6, "TYPE " + letter).PutInteger(start + 123, 50 + number);
    bytes.PutText(start + 127, 1, number == 1 ? "M" : "F").PutReal(start + 128, 77.125 + real);
    bytes.PutText(start + 132, 2, "3" + letter).PutText(start + 134, 20, "BELT " + letter);
    bytes.PutText(start + 154, 20, "AIRBAG " + letter);
}

/// A file of two components with every text and number of the header set by hand, at its byte.
std::string TwoComponentFile() {
    CUDSRecipe recipe;
    recipe.hasSecondComponent = true;
    recipe.firstPoint = -1;
    recipe.lastPoint = 1;
    recipe.fileForm = "Y";
    CUDSBytes bytes = UdsFile(recipe);
    bytes.PutText(34, 15, "LABORATORY").PutInteger(49, 4711).PutText(53, 12, "NAME").PutText(65, 70, "A Title");
    bytes.PutText(135, 25, "PERFORMER").PutText(160, 10, "REF 9").PutText(170, 3, "VTB").PutInteger(173, 30);
    bytes.PutReal(177, 56.25);
    PutComponent(bytes, 181, "A", 1);
    PutComponent(bytes, 512 + 12, "B", 2);
    for (int i = 0; i < 6; ++i) bytes.PutReal(static_cast<std::size_t>(355 + 4 * i), 100.0 * (i + 1));
    bytes.PutText(379, 1, "3");
    const std::size_t curve = CurveHeaderOffset(recipe);
    bytes.PutInteger(curve + 12, 17).PutText(curve + 16, 10, "Y").PutInteger(curve + 26, 5);
    bytes.PutText(curve + 30, 12, "CURVE A").PutText(curve + 42, 30, "HEAD").PutText(curve + 72, 2, "LF");
    bytes.PutInteger(curve + 74, 7).PutInteger(curve + 78, 8).PutInteger(curve + 82, 9).PutText(curve + 86, 2, "XL");
    bytes.PutText(curve + 168, 20, "AM").PutText(curve + 188, 20, "TIME SERIES").PutText(curve + 208, 70, "DESC");
    bytes.PutReal(curve + 286, 0.0001).PutReal(curve + 290, 48.0).PutReal(curve + 294, 1650.0);
    bytes.PutReal(curve + 298, 300.0).PutReal(curve + 302, 301.0).PutReal(curve + 306, 302.0).PutReal(curve + 310, 2.5);
    for (int i = 0; i < 5; ++i) bytes.PutInteger(curve + 314 + static_cast<std::size_t>(4 * i), -i);
    bytes.PutReal(curve + 334, 0.1);
    bytes.PutText(curve + 354, 20, "USER 1").PutText(curve + 374, 70, "USER 2");
    return bytes.Text();
}

CData Loaded(const std::string& bytes) {
    const CTempFolder folder;
    CData record;
    record.LoadUDS(folder.Write("a.uds", bytes));
    return record;
}

TEST(HeaderValues, AreThoseOfTheFile) {
    using enum CHeaderGroupId;
    const CData record = Loaded(TwoComponentFile());
    EXPECT_THAT(LinesOf(File, record), ElementsAre("Version: 1", "Form: Y", "Number Format: IEEE", "Unit System: MET"));
    EXPECT_THAT(LinesOf(Test, record),
                ElementsAre("Source: LABORATORY", "Test Number: 4711", "Ref Number: REF 9", "Configuration: VTB",
                            "Closing Speed: 56.250000 (kph)", "Performer: PERFORMER", "Title: A Title"));
    EXPECT_THAT(LinesOf(VehicleOne, record),
                ElementsAre("Make: MAKE A", "Year: 1986", "Model: MODEL A", "Engine Type: ENGA", "Body: BODY A",
                            "Weight: 1201.500000 (kgs)", "Speed: -0.500000 (kph)"));
    EXPECT_THAT(LinesOf(VehicleTwo, record),
                ElementsAre("Make: MAKE B", "Year: 1987", "Model: MODEL B", "Engine Type: ENGB", "Body: BODY B",
                            "Weight: 1202.500000 (kgs)", "Speed: -1.500000 (kph)"));
    EXPECT_THAT(LinesOf(OccupantOne, record),
                ElementsAre("Type: TYPE A", "Sex: M", "Weight: 78.125000 (kgs)", "Age: 3A", "Dummy Size: 51",
                            "Primary Restraint: BELT A", "Secondary Restraint: AIRBAG A"));
    EXPECT_THAT(LinesOf(OccupantTwo, record),
                ElementsAre("Type: TYPE B", "Sex: F", "Weight: 79.125000 (kgs)", "Age: 3B", "Dummy Size: 52",
                            "Primary Restraint: BELT B", "Secondary Restraint: AIRBAG B"));
    EXPECT_THAT(LinesOf(OccupantInjury, record),
                ElementsAre("HIC: 100.000000", "T1: 200.000000 (msec)", "T2: 300.000000 (msec)", "AIS: 3"));
}

TEST(HeaderValues, OfTheCurveAreThoseOfTheFile) {
    using enum CHeaderGroupId;
    const CData record = Loaded(TwoComponentFile());
    // A step of 0.0001 s in single precision is 0.0999999975 ms; the points are numbered from -1 to 1.
    EXPECT_THAT(
        LinesOf(Curve, record),
        ElementsAre("Curve: 5 CURVE A", "Status: AM", "Data Type: ACCELERATION", "Time Step: 0.100000 (msec)",
                    "Time Range: -0.100000 to 0.100000 (msec)", "Units: G'S", "SenAtt: HEAD", "Type: TIME SERIES",
                    "InitVel: 48.000000 (kph)", "Filter Cutoff: 300.000000 (Hz)", "Number of Points: 3"));
    EXPECT_THAT(LinesOf(CurveData, record),
                ElementsAre("Curve Description: DESC", "CD1: USER 1", "CD2: USER 2", "First Point: -1", "Last Point: 1",
                            "Data Max: 4.000000", "Data min: -2.000000", "Scale Factor: 2.500000"));
    EXPECT_THAT(LinesOf(Sensor, record), ElementsAre("Axis: XL", "Location: LF"));
    EXPECT_THAT(LinesOf(CurveUserData, record),
                ElementsAre("ID1: 0", "ID2: -1", "ID3: -2", "ID4: -3", "ID5: -4", "RD1: 0.100000", "RD2: 0.100000",
                            "RD3: 0.100000", "RD4: 0.100000", "RD5: 0.100000"));
}

TEST(HeaderValues, WithoutALabelAreThoseOfTheFile) {
    using enum CHeaderGroupId;
    const CData record = Loaded(TwoComponentFile());
    EXPECT_THAT(LinesOf(OtherFile, record), ElementsAre("FILEID: UDS-1992"));
    EXPECT_THAT(LinesOf(OtherTest, record), ElementsAre("TSTNAM: NAME", "IMPANG: 30"));
    EXPECT_THAT(LinesOf(OtherVehicleOne, record), ElementsAre("CMPNO1: 11", "CMPTYP1: CA", "CMPDSC1: DESC A"));
    EXPECT_THAT(LinesOf(OtherVehicleTwo, record), ElementsAre("CMPNO2: 12", "CMPTYP2: CB", "CMPDSC2: DESC B"));
    EXPECT_THAT(LinesOf(OtherInjury, record), ElementsAre("INJ4: 400.000000", "INJ5: 500.000000", "INJ6: 600.000000"));
    EXPECT_THAT(LinesOf(OtherCurve, record),
                ElementsAre("ICHAN: 17", "CHANFORM: Y", "XTYPE: TIME", "XUNITS: SECONDS", "PREFIL: 1650.000000",
                            "FCOR: 301.000000", "FSTP: 302.000000"));
    EXPECT_THAT(LinesOf(OtherSensor, record), ElementsAre("SENNUM: 7", "BANDNO: 8", "GAGNO: 9"));
    EXPECT_THAT(LinesOf(Extrema, record),
                ElementsAre("XMax: 0.000100", "XMin: -0.000100", "YMax: 4.000000", "YMin: -2.000000"));
}

TEST(HeaderValues, TellOfASecondComponentOnlyWhereThereIsOne) {
    const CData two = Loaded(TwoComponentFile());
    const CData one = Loaded(UdsFile({}).Text());
    Lines lacking;
    for (const CHeaderGroup& group : HeaderGroups()) {
        EXPECT_TRUE(HasHeaderGroup(two, group)) << group.title;
        if (!HasHeaderGroup(one, group)) lacking.emplace_back(group.title);
    }
    EXPECT_THAT(lacking, ElementsAre("Vehicle Two", "Occupant Two", "Other Vehicle Two Fields"));
    EXPECT_THAT(LinesOf(CHeaderGroupId::VehicleTwo, one),
                ElementsAre("Make: ", "Year: 0", "Model: ", "Engine Type: ", "Body: ", "Weight: 0.000000 (kgs)",
                            "Speed: 0.000000 (kph)"));
}

TEST(HeaderValues, OfTimesWithoutAStepComeFromThePoints) {
    CUDSRecipe recipe;
    recipe.timeStep = 0.0;
    recipe.x = {-0.25, 0.5, 1.5};
    const Lines lines = LinesOf(CHeaderGroupId::Curve, Loaded(UdsFile(recipe).Text()));
    EXPECT_EQ(lines[3], "Time Step: 0.000000 (msec)");
    EXPECT_EQ(lines[4], "Time Range: -250.000000 to 1500.000000 (msec)");
}

TEST(HeaderValues, OfAnEmptyRecordAreEmptyTextsAndZeros) {
    const CData record;
    const Lines lines = LinesOf(CHeaderGroupId::Curve, record);
    EXPECT_EQ(lines[4], "Time Range: 0.000000 to 0.000000 (msec)");
    EXPECT_EQ(lines[6], "SenAtt: ");
    EXPECT_EQ(lines[10], "Number of Points: 0");
    EXPECT_EQ(LinesOf(CHeaderGroupId::CurveData, record)[5], "Data Max: 0.000000");
}

TEST(HeaderValues, ShowWhatIsNoFiniteNumber) {
    CData record;
    record.SetVEHWGT1(std::numeric_limits<double>::quiet_NaN());
    record.SetVEHSPD1(-std::numeric_limits<double>::infinity());
    const Lines lines = LinesOf(CHeaderGroupId::VehicleOne, record);
    EXPECT_EQ(lines[5], "Weight: nan (kgs)");
    EXPECT_EQ(lines[6], "Speed: -inf (kph)");
}

TEST(HeaderValues, ShowTheLargestAndTheSmallestReal) {
    CData record;
    record.SetVEHWGT1(static_cast<double>(std::numeric_limits<float>::max()));
    record.SetVEHSPD1(static_cast<double>(std::numeric_limits<float>::denorm_min()));
    const Lines lines = LinesOf(CHeaderGroupId::VehicleOne, record);
    EXPECT_EQ(lines[5], "Weight: 340282346638528859811704183484516925440.000000 (kgs)");  // (2 - 2^-23) * 2^127
    EXPECT_EQ(lines[6], "Speed: 0.000000 (kph)");
}

TEST(HeaderValues, AreShownWithoutTheZeroBytesThatSomeWritersPadWith) {
    CData record;
    record.SetMAKE1(std::string("MAKE \0\0", 7));
    record.SetMODEL1(std::string("\0\0", 2));
    const Lines lines = LinesOf(CHeaderGroupId::VehicleOne, record);
    EXPECT_EQ(lines[0], "Make: MAKE");
    EXPECT_EQ(lines[2], "Model: ");
}

}  // namespace
}  // namespace ks
