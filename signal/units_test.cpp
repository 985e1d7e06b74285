#include "signal/units.h"

#include <gmock/gmock.h>

#include <string>

namespace ks {
namespace {

struct Row {
    std::string name, xUnits, yUnits, dimensionSystem;
    double factor, initialValue;
    std::string units, type;
};

constexpr double kInitialVelocity = 48.5;

class IntegralOf : public testing::TestWithParam<Row> {};

TEST_P(IntegralOf, HasFactorInitialValueUnitsAndType) {
    const Row& row = GetParam();
    const CIntegralUnits result = IntegralUnits(row.xUnits, row.yUnits, kInitialVelocity, row.dimensionSystem);

    EXPECT_EQ(result.factor, row.factor);
    EXPECT_EQ(result.initialValue, row.initialValue);
    EXPECT_EQ(result.units, row.units);
    EXPECT_EQ(result.type, row.type);
}

std::string RowName(const testing::TestParamInfo<Row>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    OverWay, IntegralOf,
    testing::Values(Row{"MetersNewtons", "METERS", "NEWTONS", "MET", 1.0, 0.0, "JOULES", "ENERGY"},
                    Row{"MillimetersNewtons", "MILLIMETERS", "NEWTONS", "MET", 0.001, 0.0, "JOULES", "ENERGY"},
                    Row{"FeetPounds", "FEET", "POUNDS", "ENG", 1.0, 0.0, "FOOT-POUNDS", "ENERGY"},
                    Row{"InchesPounds", "INCHES", "POUNDS", "ENG", 0.083333333333333333, 0.0, "FOOT-POUNDS", "ENERGY"},
                    Row{"MetersPounds", "METERS", "POUNDS", "MET", 1.0, 0.0, "UNKNOWN", "UNKNOWN"},
                    Row{"MillimetersPounds", "MILLIMETERS", "POUNDS", "MET", 1.0, 0.0, "UNKNOWN", "UNKNOWN"},
                    Row{"FeetNewtons", "FEET", "NEWTONS", "ENG", 1.0, 0.0, "UNKNOWN", "UNKNOWN"},
                    Row{"InchesNewtons", "INCHES", "NEWTONS", "ENG", 1.0, 0.0, "UNKNOWN", "UNKNOWN"},
                    Row{"MetersGravities", "METERS", "G'S", "MET", 1.0, 0.0, "UNKNOWN", "UNKNOWN"},
                    Row{"OtherX", "VOLTS", "NEWTONS", "MET", 1.0, 0.0, "UNKNOWN - ", "UNKNOWN"},
                    Row{"NoXUnits", "", "G'S", "MET", 1.0, 0.0, "UNKNOWN - ", "UNKNOWN"},
                    Row{"LowerCaseSeconds", "seconds", "G'S", "MET", 1.0, 0.0, "UNKNOWN - ", "UNKNOWN"}),
    RowName);

INSTANTIATE_TEST_SUITE_P(
    OverTime, IntegralOf,
    testing::Values(
        Row{"GravitiesEnglish", "SECONDS", "G'S", "ENGLISH", 21.93675, kInitialVelocity, "MILES/HOUR", "VELOCITY"},
        Row{"GravitiesEng", "SECONDS", "G'S", "ENG", 21.93675, kInitialVelocity, "MILES/HOUR", "VELOCITY"},
        Row{"GravitiesMetric", "SECONDS", "G'S", "MET", 35.30394, kInitialVelocity, "KILOMETERS/HOUR", "VELOCITY"},
        Row{"GravitiesNoSystem", "SECONDS", "G'S", "", 35.30394, kInitialVelocity, "KILOMETERS/HOUR", "VELOCITY"},
        Row{"GravitiesLowerCaseEnglish", "SECONDS", "G'S", "eng", 35.30394, kInitialVelocity, "KILOMETERS/HOUR",
            "VELOCITY"},
        Row{"GravitiesOverSecond", "SECOND", "G'S", "MET", 35.30394, kInitialVelocity, "KILOMETERS/HOUR", "VELOCITY"},
        Row{"GravitiesOverSec", "SEC", "G'S", "MET", 35.30394, kInitialVelocity, "KILOMETERS/HOUR", "VELOCITY"},
        Row{"KilometersPerHour", "SECONDS", "KILOMETERS/HOUR", "MET", 277.77778, 0.0, "MILLIMETERS", "DISPLACEMENT"},
        Row{"MetersPerSecond", "SECONDS", "METERS/SEC", "MET", 1000.0, 0.0, "MILLIMETERS", "DISPLACEMENT"},
        Row{"MilesPerHour", "SECONDS", "MILES/HOUR", "ENG", 17.6, 0.0, "INCHES", "DISPLACEMENT"},
        Row{"FeetPerSecond", "SECONDS", "FEET/SEC", "ENG", 12.0, 0.0, "INCHES", "DISPLACEMENT"},
        Row{"InchesPerSecond", "SECONDS", "INCHES/SEC", "ENG", 1.0, 0.0, "INCHES", "DISPLACEMENT"},
        Row{"Newtons", "SECONDS", "NEWTONS", "MET", 1.0, 0.0, "NEWTON-SECONDS", "IMPULSE"},
        Row{"Pounds", "SECONDS", "POUNDS", "ENG", 1.0, 0.0, "POUND-SECONDS", "IMPULSE"},
        Row{"NewtonMeters", "SECONDS", "NEWTON-METERS", "MET", 1.0, 0.0, "NEWTON-METER-SECONDS", "ANGULAR IMPULSE"},
        Row{"PoundFeet", "SECONDS", "POUND-FEET", "ENG", 1.0, 0.0, "POUND-FOOT-SECONDS", "ANGULAR IMPULSE"},
        Row{"DegreesPerSecond2", "SECONDS", "DEGREES/SEC**2", "MET", 1.0, 0.0, "DEGREES/SEC", "ANGULAR VELOCITY"},
        Row{"RadiansPerSecond2", "SECONDS", "RADIANS/SEC**2", "MET", 1.0, 0.0, "RADIANS/SEC", "ANGULAR VELOCITY"},
        Row{"DegreesPerSecond", "SECONDS", "DEGREES/SEC", "MET", 1.0, 0.0, "DEGREES", "ANGULAR DISPLACEMENT"},
        Row{"RadiansPerSecond", "SECONDS", "RADIANS/SEC", "MET", 1.0, 0.0, "RADIANS", "ANGULAR DISPLACEMENT"},
        Row{"OtherY", "SECONDS", "VOLTS", "MET", 1.0, 0.0, "UNKNOWN x SECONDS", "UNKNOWN x TIME"},
        Row{"OtherYOverSec", "SEC", "", "MET", 1.0, 0.0, "UNKNOWN x SECONDS", "UNKNOWN x TIME"}),
    RowName);

TEST(IsTimeUnit, KnowsThreeWordsExactly) {
    EXPECT_TRUE(IsTimeUnit("SECONDS"));
    EXPECT_TRUE(IsTimeUnit("SECOND"));
    EXPECT_TRUE(IsTimeUnit("SEC"));
    EXPECT_FALSE(IsTimeUnit("S"));
    EXPECT_FALSE(IsTimeUnit("sec"));
    EXPECT_FALSE(IsTimeUnit("SECONDS "));
    EXPECT_FALSE(IsTimeUnit("MILLISECONDS"));
}

TEST(IsEnglish, KnowsTwoWordsExactly) {
    EXPECT_TRUE(IsEnglish("ENGLISH"));
    EXPECT_TRUE(IsEnglish("ENG"));
    EXPECT_FALSE(IsEnglish("English"));
    EXPECT_FALSE(IsEnglish("MET"));
    EXPECT_FALSE(IsEnglish(""));
}

}  // namespace
}  // namespace ks
