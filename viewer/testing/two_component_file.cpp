#include "viewer/testing/two_component_file.h"

#include "tests/support/uds_bytes.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

/// Writes texts, or fields filled with the widest letter.
class CFields {
public:
    CFields(CUDSBytes& file, bool isWide) : m_file(file), m_isWide(isWide) {}

    void Text(std::size_t offset, std::size_t width, const std::string& text) {
        m_file.PutText(offset, width, m_isWide ? std::string(width, 'W') : text);
    }
    void Integer(std::size_t offset, std::int32_t value) { m_file.PutInteger(offset, value); }
    void Real(std::size_t offset, double value) { m_file.PutReal(offset, value); }

private:
    CUDSBytes& m_file;
    bool m_isWide;
};

void PutTest(CFields& fields) {
    fields.Text(34, 15, "NCAP DATA");
    fields.Integer(49, 1234);
    fields.Text(53, 12, "TEST NAME");
    fields.Text(65, 70, "OFFSET FRONTAL IMPACT OF TWO VEHICLES");
    fields.Text(135, 25, "TEST LABORATORY");
    fields.Text(160, 10, "REF-77");
    fields.Text(170, 3, "VTV");
    fields.Integer(173, 30);
    fields.Real(177, 112.5);
}

/// `record` is where the seventeen fields begin.
void PutComponent(CFields& fields, std::size_t record, const std::string& which, std::int32_t number) {
    fields.Integer(record, 40 + number);
    fields.Text(record + 4, 2, "C" + which);
    fields.Text(record + 6, 30, "DESCRIPTION " + which);
    fields.Text(record + 36, 15, "MAKE " + which);
    fields.Text(record + 51, 25, "MODEL " + which);
    fields.Integer(record + 76, 1990 + number);
    fields.Text(record + 80, 25, "BODY " + which);
    fields.Text(record + 105, 4, "ENG" + which);
    fields.Real(record + 109, 1500.5 + number);
    fields.Real(record + 113, 56.25 + number);
    fields.Text(record + 117, 6, "DUMMY" + which);
    fields.Integer(record + 123, 50 + number);
    fields.Text(record + 127, 1, which == "A" ? "M" : "F");
    fields.Real(record + 128, 78.125 + number);
    fields.Text(record + 132, 2, "P" + which);
    fields.Text(record + 134, 20, "BELT " + which);
    fields.Text(record + 154, 20, "AIRBAG " + which);
}

void PutInjury(CFields& fields) {
    const std::size_t first = 355;
    for (std::size_t value = 0; value < 6; ++value) fields.Real(first + 4 * value, 810.25 + static_cast<double>(value));
    fields.Text(379, 1, "3");
}

void PutCurve(CFields& fields) {
    const std::size_t curve = 1024;
    fields.Integer(curve + 12, 61);
    fields.Integer(curve + 26, 17);
    fields.Text(curve + 30, 12, "HEAD ACCEL X");
    fields.Text(curve + 42, 30, "HEAD CENTER OF GRAVITY");
    fields.Text(curve + 72, 2, "HD");
    fields.Integer(curve + 74, 71);
    fields.Integer(curve + 78, 72);
    fields.Integer(curve + 82, 73);
    fields.Text(curve + 86, 2, "XL");
    fields.Text(curve + 88, 20, "ACCELERATION");
    fields.Text(curve + 108, 20, "G'S");
    fields.Text(curve + 128, 20, "TIME");
    fields.Text(curve + 148, 20, "SECONDS");
    fields.Text(curve + 188, 20, "TIME SERIES");
    fields.Text(curve + 208, 70, "HEAD ACCELERATION IN THE DRIVING DIRECTION");
    for (std::size_t value = 0; value < 6; ++value)
        fields.Real(curve + 290 + 4 * value, 1000.5 + static_cast<double>(value));
    for (std::size_t value = 0; value < 5; ++value)
        fields.Integer(curve + 314 + 4 * value, -101 - static_cast<std::int32_t>(value));
    for (std::size_t value = 0; value < 5; ++value)
        fields.Real(curve + 334 + 4 * value, 3.125 + static_cast<double>(value));
    fields.Text(curve + 354, 20, "FIRST USER TEXT");
    fields.Text(curve + 374, 70, "SECOND USER TEXT");
}

std::string File(bool isWide) {
    CUDSRecipe recipe;
    recipe.hasSecondComponent = true;
    recipe.firstPoint = -1;
    recipe.lastPoint = 2;
    recipe.x = {-0.5, 0.0, 0.5, 1.0};
    recipe.y = {1.0, -2.0, 4.0, 0.5};
    CUDSBytes file = UdsFile(recipe);
    CFields fields(file, isWide);
    PutTest(fields);
    PutComponent(fields, 181, "A", 1);
    PutInjury(fields);
    PutComponent(fields, 512 + 12, "B", 2);
    PutCurve(fields);
    return file.Text();
}

}  // namespace

std::string TwoComponentFile() {
    return File(false);
}

std::string WideTextFile() {
    return File(true);
}

QList<CExpectedGroup> ExpectedGroups() {
    return {
        {"File", {"Version: 1", "Form: X-Y", "Number Format: IEEE", "Unit System: MET"}},
        {"Test",
         {"Source: NCAP DATA", "Test Number: 1234", "Ref Number: REF-77", "Configuration: VTV",
          "Closing Speed: 112.500000 (kph)", "Performer: TEST LABORATORY",
          "Title: OFFSET FRONTAL IMPACT OF TWO VEHICLES"}},
        {"Vehicle One",
         {"Make: MAKE A", "Year: 1991", "Model: MODEL A", "Engine Type: ENGA", "Body: BODY A",
          "Weight: 1501.500000 (kgs)", "Speed: 57.250000 (kph)"}},
        {"Vehicle Two",
         {"Make: MAKE B", "Year: 1992", "Model: MODEL B", "Engine Type: ENGB", "Body: BODY B",
          "Weight: 1502.500000 (kgs)", "Speed: 58.250000 (kph)"}},
        {"Occupant One",
         {"Type: DUMMYA", "Sex: M", "Weight: 79.125000 (kgs)", "Age: PA", "Dummy Size: 51", "Primary Restraint: BELT A",
          "Secondary Restraint: AIRBAG A"}},
        {"Occupant Two",
         {"Type: DUMMYB", "Sex: F", "Weight: 80.125000 (kgs)", "Age: PB", "Dummy Size: 52", "Primary Restraint: BELT B",
          "Secondary Restraint: AIRBAG B"}},
        {"Occupant InJury", {"HIC: 810.250000", "T1: 811.250000 (msec)", "T2: 812.250000 (msec)", "AIS: 3"}},
        {"Curve",
         {"Curve: 17 HEAD ACCEL X", "Status: AS MEASURED", "Data Type: ACCELERATION", "Time Step: 500.000000 (msec)",
          "Time Range: -500.000000 to 1000.000000 (msec)", "Units: G'S", "SenAtt: HEAD CENTER OF GRAVITY",
          "Type: TIME SERIES", "InitVel: 1000.500000 (kph)", "Filter Cutoff: 1002.500000 (Hz)", "Number of Points: 4"}},
        {"Curve data and sensor",
         {"Curve Description: HEAD ACCELERATION IN THE DRIVING DIRECTION", "CD1: FIRST USER TEXT",
          "CD2: SECOND USER TEXT", "First Point: -1", "Last Point: 2", "Data Max: 4.000000", "Data min: -2.000000",
          "Scale Factor: 1005.500000", "Axis: XL", "Location: HD"}},
        // The reader gives all five reals the first one's value.
        {"Curve User Data",
         {"ID1: -101", "ID2: -102", "ID3: -103", "ID4: -104", "ID5: -105", "RD1: 3.125000", "RD2: 3.125000",
          "RD3: 3.125000", "RD4: 3.125000", "RD5: 3.125000"}},
    };
}

QStringList ExpectedFurtherLines() {
    return {"FILEID: UDS-1992",  "TSTNAM: TEST NAME",   "IMPANG: 30",
            "CMPNO1: 41",        "CMPTYP1: CA",         "CMPDSC1: DESCRIPTION A",
            "CMPNO2: 42",        "CMPTYP2: CB",         "CMPDSC2: DESCRIPTION B",
            "INJ4: 813.250000",  "INJ5: 814.250000",    "INJ6: 815.250000",
            "ICHAN: 61",         "CHANFORM: X-Y",       "XTYPE: TIME",
            "XUNITS: SECONDS",   "PREFIL: 1001.500000", "FCOR: 1003.500000",
            "FSTP: 1004.500000", "SENNUM: 71",          "BANDNO: 72",
            "GAGNO: 73",         "XMax: 1.000000",      "XMin: -0.500000",
            "YMax: 4.000000",    "YMin: -2.000000"};
}
