#include "files/number_format.h"

#include <gmock/gmock.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <limits>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace ks {
namespace {

CFourBytes Bytes(int b0, int b1, int b2, int b3) {
    return {static_cast<std::byte>(b0), static_cast<std::byte>(b1), static_cast<std::byte>(b2),
            static_cast<std::byte>(b3)};
}

struct RealRow {
    std::string name;
    CNumberFormat from, to;
    CFourBytes value, expected;
};
std::ostream& operator<<(std::ostream& out, const RealRow& row) {
    return out << row.name;
}

class ConvertRealRule : public testing::TestWithParam<RealRow> {};

TEST_P(ConvertRealRule, GivesTheBytes) {
    const RealRow& row = GetParam();
    EXPECT_EQ(ConvertReal(row.value, row.from, row.to), row.expected);
}

TEST_P(ConvertRealRule, HoldsInABlock) {
    const RealRow& row = GetParam();
    std::vector<std::byte> block;
    for (int i = 0; i < 3; ++i) block.insert(block.end(), row.value.begin(), row.value.end());

    ConvertReals(block, row.from, row.to);

    for (std::size_t i = 0; i < block.size(); ++i) EXPECT_EQ(block[i], row.expected[i % 4]) << i;
}

constexpr auto kIeee = CNumberFormat::Ieee;
constexpr auto kSun = CNumberFormat::Sun;
constexpr auto kVax = CNumberFormat::Vax;
constexpr auto kUnknown = CNumberFormat::Unknown;
const CFourBytes kZeros = Bytes(0, 0, 0, 0);

const std::vector<RealRow> kRealRows = {
    {"SameIeee", kIeee, kIeee, Bytes(1, 2, 3, 4), Bytes(1, 2, 3, 4)},
    {"SameSun", kSun, kSun, Bytes(1, 2, 3, 4), Bytes(1, 2, 3, 4)},
    {"SameVax", kVax, kVax, Bytes(1, 0, 3, 4), Bytes(1, 0, 3, 4)},
    {"SameUnknown", kUnknown, kUnknown, Bytes(1, 2, 3, 4), Bytes(1, 2, 3, 4)},
    {"IeeeToSun", kIeee, kSun, Bytes(1, 2, 3, 4), Bytes(4, 3, 2, 1)},
    {"SunToIeee", kSun, kIeee, Bytes(1, 2, 3, 4), Bytes(4, 3, 2, 1)},
    {"IeeeToVax", kIeee, kVax, Bytes(1, 2, 3, 4), Bytes(3, 5, 1, 2)},
    {"IeeeToVaxExponent0", kIeee, kVax, Bytes(1, 2, 3, 0), kZeros},
    {"IeeeToVaxExponent128", kIeee, kVax, Bytes(1, 2, 3, 128), kZeros},
    {"IeeeToVaxExponent126", kIeee, kVax, Bytes(1, 2, 3, 126), Bytes(3, 127, 1, 2)},
    {"IeeeToVaxExponent127", kIeee, kVax, Bytes(1, 2, 3, 127), Bytes(255, 127, 255, 255)},
    {"IeeeToVaxExponent129", kIeee, kVax, Bytes(1, 2, 3, 129), Bytes(3, 130, 1, 2)},
    {"IeeeToVaxExponent254", kIeee, kVax, Bytes(1, 2, 3, 254), Bytes(3, 255, 1, 2)},
    {"IeeeToVaxExponent255", kIeee, kVax, Bytes(1, 2, 3, 255), Bytes(255, 255, 255, 255)},
    {"SunToVax", kSun, kVax, Bytes(4, 3, 2, 1), Bytes(3, 5, 1, 2)},
    {"SunToVaxExponent0", kSun, kVax, Bytes(0, 3, 2, 1), kZeros},
    {"SunToVaxExponent128", kSun, kVax, Bytes(128, 3, 2, 1), kZeros},
    {"SunToVaxExponent127", kSun, kVax, Bytes(127, 3, 2, 1), Bytes(3, 128, 1, 2)},
    {"SunToVaxExponent129", kSun, kVax, Bytes(129, 3, 2, 1), Bytes(255, 129, 255, 255)},
    {"SunToVaxExponent254", kSun, kVax, Bytes(254, 3, 2, 1), Bytes(3, 255, 1, 2)},
    {"SunToVaxExponent255", kSun, kVax, Bytes(255, 3, 2, 1), Bytes(255, 255, 255, 255)},
    {"VaxToIeee", kVax, kIeee, Bytes(3, 5, 1, 2), Bytes(1, 2, 3, 4)},
    {"VaxToIeeeExponent0", kVax, kIeee, Bytes(3, 0, 1, 2), kZeros},
    {"VaxToIeeeExponent128", kVax, kIeee, Bytes(3, 128, 1, 2), kZeros},
    {"VaxToIeeeExponent1", kVax, kIeee, Bytes(3, 1, 1, 2), Bytes(1, 2, 3, 0)},
    {"VaxToIeeeExponent129", kVax, kIeee, Bytes(3, 129, 1, 2), Bytes(1, 2, 3, 128)},
    {"VaxToIeeeExponent255", kVax, kIeee, Bytes(3, 255, 1, 2), Bytes(1, 2, 3, 254)},
    {"VaxToSun", kVax, kSun, Bytes(3, 5, 1, 2), Bytes(4, 3, 2, 1)},
    {"VaxToSunExponent0", kVax, kSun, Bytes(3, 0, 1, 2), kZeros},
    {"VaxToSunExponent128", kVax, kSun, Bytes(3, 128, 1, 2), kZeros},
    {"VaxToSunExponent255", kVax, kSun, Bytes(3, 255, 1, 2), Bytes(254, 3, 2, 1)},
    {"UnknownToIeee", kUnknown, kIeee, Bytes(1, 2, 3, 4), kZeros},
    {"UnknownToVax", kUnknown, kVax, Bytes(1, 2, 3, 4), kZeros},
    {"SunToUnknown", kSun, kUnknown, Bytes(1, 2, 3, 4), kZeros},
    {"CodeBelowOne", static_cast<CNumberFormat>(0), kSun, Bytes(1, 2, 3, 4), kZeros},
};
INSTANTIATE_TEST_SUITE_P(Bytes, ConvertRealRule, testing::ValuesIn(kRealRows),
                         [](const auto& row) { return row.param.name; });

// One VAX F-floating value by its definition: 1.5 = 0.75 * 2^1 has exponent 129, fraction 0.5 and the words 40C0 0000.
TEST(ConvertReal, ReadsAVaxValueByItsDefinition) {
    EXPECT_EQ(ConvertReal(Bytes(0xC0, 0x40, 0, 0), kVax, kIeee), std::bit_cast<CFourBytes>(1.5F));
}

TEST(ConvertReal, VaxAndBackKeepsEveryValueThatFits) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> mantissa(1.0F, 2.0F);
    std::uniform_int_distribution<int> exponent(-120, 120);
    for (int i = 0; i < 10000; ++i) {
        const auto value =
            std::bit_cast<CFourBytes>(std::ldexp(i % 2 == 0 ? mantissa(random) : -mantissa(random), exponent(random)));
        EXPECT_EQ(ConvertReal(ConvertReal(value, kIeee, kVax), kVax, kIeee), value);
    }
}

TEST(ConvertInteger, ReversesBetweenTheOrders) {
    const CFourBytes value = Bytes(1, 2, 3, 4);
    const CFourBytes reversed = Bytes(4, 3, 2, 1);
    EXPECT_EQ(ConvertInteger(value, CByteOrder::BigEndian, CByteOrder::LittleEndian), reversed);
    EXPECT_EQ(ConvertInteger(value, CByteOrder::LittleEndian, CByteOrder::BigEndian), reversed);
}

TEST(ConvertInteger, LeavesEqualOrdersAlone) {
    const CFourBytes value = Bytes(1, 2, 3, 4);
    for (const auto order : {CByteOrder::BigEndian, CByteOrder::LittleEndian, CByteOrder::Unknown}) {
        EXPECT_EQ(ConvertInteger(value, order, order), value);
    }
}

TEST(ConvertInteger, GivesZeroForAnUnknownOrder) {
    EXPECT_EQ(ConvertInteger(Bytes(1, 2, 3, 4), CByteOrder::Unknown, CByteOrder::LittleEndian), kZeros);
    EXPECT_EQ(ConvertInteger(Bytes(1, 2, 3, 4), CByteOrder::BigEndian, CByteOrder::Unknown), kZeros);
}

TEST(FormatsOf, KnowsTheThreeNames) {
    EXPECT_EQ(FormatsOf("IEEE").byteOrder, CByteOrder::LittleEndian);
    EXPECT_EQ(FormatsOf("VAX").byteOrder, CByteOrder::LittleEndian);
    EXPECT_EQ(FormatsOf("SUN").byteOrder, CByteOrder::BigEndian);
    EXPECT_EQ(FormatsOf("IEEE").numberFormat, CNumberFormat::Ieee);
    EXPECT_EQ(FormatsOf("VAX").numberFormat, CNumberFormat::Vax);
    EXPECT_EQ(FormatsOf("SUN").numberFormat, CNumberFormat::Sun);
}

TEST(FormatsOf, KnowsNoOtherName) {
    for (const char* const name : {"", "ieee", "IEEE ", "CRAY", "SUNN"}) {
        EXPECT_EQ(FormatsOf(name).byteOrder, CByteOrder::Unknown) << name;
        EXPECT_EQ(FormatsOf(name).numberFormat, CNumberFormat::Unknown) << name;
    }
}

TEST(NumberFormatName, NamesEveryCode) {
    EXPECT_EQ(NumberFormatName(CNumberFormat::Ieee), "IEEE");
    EXPECT_EQ(NumberFormatName(CNumberFormat::Sun), "SUN");
    EXPECT_EQ(NumberFormatName(CNumberFormat::Vax), "VAX");
    EXPECT_EQ(NumberFormatName(CNumberFormat::Unknown), "UKNOWN");
    EXPECT_EQ(NumberFormatName(static_cast<CNumberFormat>(17)), "UKNOWN");
}

TEST(FormatCodes, AreThoseOfTheFormat) {
    EXPECT_EQ(static_cast<int>(CNumberFormat::Ieee), 1);
    EXPECT_EQ(static_cast<int>(CNumberFormat::Sun), 2);
    EXPECT_EQ(static_cast<int>(CNumberFormat::Vax), 3);
    EXPECT_EQ(static_cast<int>(CNumberFormat::Unknown), 4);
    EXPECT_EQ(static_cast<int>(CByteOrder::BigEndian), 1);
    EXPECT_EQ(static_cast<int>(CByteOrder::LittleEndian), 2);
    EXPECT_EQ(static_cast<int>(CByteOrder::Unknown), 3);
}

TEST(FormatsFromProbe, RecognisesIntegersAndReals) {
    const CFourBytes little = Bytes(134, 99, 0, 0);
    const CFourBytes big = Bytes(0, 0, 99, 134);
    EXPECT_EQ(FormatsFromProbe(little, Bytes(199, 192, 154, 53)).byteOrder, CByteOrder::LittleEndian);
    EXPECT_EQ(FormatsFromProbe(big, Bytes(53, 154, 192, 199)).byteOrder, CByteOrder::BigEndian);
    EXPECT_EQ(FormatsFromProbe(little, Bytes(199, 192, 154, 53)).numberFormat, CNumberFormat::Ieee);
    EXPECT_EQ(FormatsFromProbe(big, Bytes(53, 154, 192, 199)).numberFormat, CNumberFormat::Sun);
    EXPECT_EQ(FormatsFromProbe(little, Bytes(154, 54, 199, 192)).numberFormat, CNumberFormat::Vax);
}

TEST(FormatsFromProbe, AnUnknownIntegerLeavesTheByteOrderUnknown) {
    const CNumberFormats formats = FormatsFromProbe(Bytes(99, 134, 0, 0), Bytes(199, 192, 154, 53));
    EXPECT_EQ(formats.byteOrder, CByteOrder::Unknown);
    EXPECT_EQ(formats.numberFormat, CNumberFormat::Ieee);
}

TEST(FormatsFromProbe, AnUnknownRealMakesTheByteOrderUnknown) {
    EXPECT_EQ(FormatsFromProbe(Bytes(134, 99, 0, 0), Bytes(1, 2, 3, 4)).byteOrder, CByteOrder::Unknown);
}

TEST(ProbeMachineFormats, AgreesWithTheCompiler) {
    const bool isLittle = std::endian::native == std::endian::little;
    const CNumberFormats machine = ProbeMachineFormats();
    EXPECT_EQ(machine.byteOrder, isLittle ? CByteOrder::LittleEndian : CByteOrder::BigEndian);
    ASSERT_TRUE(std::numeric_limits<float>::is_iec559);
    EXPECT_EQ(machine.numberFormat, isLittle ? CNumberFormat::Ieee : CNumberFormat::Sun);
}

}  // namespace
}  // namespace ks
