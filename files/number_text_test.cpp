#include "files/number_text.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <string_view>

namespace ks {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kNan = std::numeric_limits<double>::quiet_NaN();

std::string Printed(const char* form, int digits, double value) {
    std::array<char, 512> buffer{};
    std::snprintf(buffer.data(), buffer.size(), form, digits, value);
    return buffer.data();
}

/// Values of every magnitude, seeded; bit patterns, so that all exponents occur.
template <class Check>
void ForManyValues(Check check) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 20000; ++i) {
        const auto value = std::bit_cast<double>(random());
        if (std::isfinite(value)) check(value);
        check(std::ldexp(static_cast<double>(random() % 2000001) - 1e6, -static_cast<int>(random() % 24)));
    }
}

struct LeadingRow {
    std::string name;
    std::string text;
    double value;
    std::size_t length;
};
class LeadingNumber : public testing::TestWithParam<LeadingRow> {};

TEST_P(LeadingNumber, EndsWhereTheTextIsNoNumberAnyMore) {
    const CLeadingNumber number = ReadLeadingNumber(GetParam().text);
    EXPECT_EQ(number.length, GetParam().length);
    EXPECT_EQ(number.value, GetParam().value);
}

const LeadingRow kLeadingRows[] = {
    {"Whole", "42", 42.0, 2},
    {"TextAfter", "1.5mm", 1.5, 3},
    {"CommaAfter", "1,5", 1.0, 1},
    {"SecondPoint", "1.2.3", 1.2, 3},
    {"BarePoint", ".5x", 0.5, 2},
    {"TrailingPoint", "5. ", 5.0, 2},
    {"PlusSign", "+2.5,", 2.5, 4},
    {"MinusSign", "-2.5,", -2.5, 4},
    {"Exponent", "1e-3 ", 0.001, 4},
    {"UpperExponentWithPlus", "2E+3;", 2000.0, 4},
    {"OpenExponent", "4e", 4.0, 1},
    {"OpenSignedExponent", "4e-x", 4.0, 1},
    {"TooLarge", "1e400 ", kInfinity, 5},
    {"TooLargeNegative", "-1e400", -kInfinity, 6},
    {"TooLargeInDigits", std::string(400, '9') + "x", kInfinity, 400},
    {"Largest", "1.7976931348623157e308", std::numeric_limits<double>::max(), 22},
    {"TooSmall", "1e-400", 0.0, 6},
    {"Smallest", "5e-324", std::numeric_limits<double>::denorm_min(), 6},
    {"HalfwayBetweenTwoDoubles", "9007199254740993", 9007199254740992.0, 16},
    {"Hexadecimal", "0x10", 0.0, 1},
    {"Empty", "", 0.0, 0},
    {"Blank", " 1", 0.0, 0},
    {"PlusAlone", "+", 0.0, 0},
    {"MinusAlone", "-", 0.0, 0},
    {"PointAlone", ".", 0.0, 0},
    {"SignedPointAlone", "-.", 0.0, 0},
    {"PlusMinus", "+-1", 0.0, 0},
    {"TwoPluses", "++1", 0.0, 0},
    {"ExponentAlone", "e5", 0.0, 0},
    {"Infinity", "inf", 0.0, 0},
    {"MinusInfinity", "-infinity", 0.0, 0},
    {"NotANumber", "nan", 0.0, 0},
    {"SignedNotANumber", "+nan", 0.0, 0},
};
INSTANTIATE_TEST_SUITE_P(Texts, LeadingNumber, testing::ValuesIn(kLeadingRows),
                         [](const auto& row) { return row.param.name; });

TEST(ReadLeadingNumber, KeepsTheSignOfZero) {
    EXPECT_TRUE(std::signbit(ReadLeadingNumber("-0").value));
    EXPECT_TRUE(std::signbit(ReadLeadingNumber("-1e-400").value));
    EXPECT_FALSE(std::signbit(ReadLeadingNumber("+0").value));
}

TEST(ReadLeadingNumber, DoesNotReadPastTheText) {
    EXPECT_EQ(ReadLeadingNumber(std::string_view("1234", 2)).value, 12.0);
    EXPECT_EQ(ReadLeadingNumber(std::string_view("1e5", 2)).length, 1U);
    EXPECT_EQ(ReadLeadingNumber(std::string_view("-5", 1)).length, 0U);
    EXPECT_EQ(ReadLeadingNumber(std::string_view()).length, 0U);
}

TEST(ReadLeadingNumber, GivesBackWhatPrintfWrote) {
    ForManyValues([](double value) {
        const std::string text = Printed("%.*e", 16, value) + "/";
        const CLeadingNumber number = ReadLeadingNumber(text);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(number.value), std::bit_cast<std::uint64_t>(value)) << text;
        ASSERT_EQ(number.length, text.size() - 1) << text;
    });
}

struct WholeRow {
    std::string name;
    std::string text;
    std::optional<double> value;
};
class WholeNumber : public testing::TestWithParam<WholeRow> {};

TEST_P(WholeNumber, IsAFiniteNumberOrNothing) {
    EXPECT_EQ(ReadWholeNumber(GetParam().text), GetParam().value);
}

const WholeRow kWholeRows[] = {
    {"Integer", "4", 4.0},
    {"Fraction", "0.15", 0.15},
    {"Negative", "-0.01", -0.01},
    {"PlusSign", "+2.5", 2.5},
    {"BarePoint", ".5", 0.5},
    {"TrailingPoint", "5.", 5.0},
    {"Exponent", "1e-3", 0.001},
    {"SmallestOfAll", "5e-324", 5e-324},
    {"UnderflowIsZero", "1e-400", 0.0},
    {"OverflowIsNothing", "1e400", std::nullopt},
    {"Infinity", "inf", std::nullopt},
    {"NotANumber", "nan", std::nullopt},
    {"Empty", "", std::nullopt},
    {"PlusAlone", "+", std::nullopt},
    {"TwoSigns", "+-1", std::nullopt},
    {"TwoPluses", "++1", std::nullopt},
    {"DecimalComma", "0,15", std::nullopt},
    {"TrailingText", "1s", std::nullopt},
    {"LeadingBlank", " 1", std::nullopt},
    {"TrailingBlank", "1 ", std::nullopt},
    {"Hexadecimal", "0x10", std::nullopt},
    {"ExponentWithoutDigits", "1e", std::nullopt},
};
INSTANTIATE_TEST_SUITE_P(Texts, WholeNumber, testing::ValuesIn(kWholeRows),
                         [](const auto& row) { return row.param.name; });

TEST(FixedText, RoundsToTheDigits) {
    EXPECT_EQ(FixedText(3.14159, 2), "3.14");
    EXPECT_EQ(FixedText(-0.5, 0), "-0");
    EXPECT_EQ(FixedText(2.5, 0), "2");
    EXPECT_EQ(FixedText(0.0, 4), "0.0000");
    EXPECT_EQ(FixedText(999.9999, 3), "1000.000");
}

TEST(FixedText, WritesTheLargestDoubleWhole) {
    EXPECT_EQ(FixedText(std::numeric_limits<double>::max(), 6).size(), 309U + 1U + 6U);
}

TEST(FixedText, NeverSignsNotANumber) {
    EXPECT_EQ(FixedText(kNan, 2), "nan");
    EXPECT_EQ(FixedText(-kNan, 2), "nan");
    EXPECT_EQ(FixedText(kInfinity, 2), "inf");
    EXPECT_EQ(FixedText(-kInfinity, 2), "-inf");
}

TEST(FixedText, IsWhatPrintfWrites) {
    ForManyValues([](double value) {
        for (const int digits : {0, 1, 4, 17}) ASSERT_EQ(FixedText(value, digits), Printed("%.*f", digits, value));
    });
}

TEST(GeneralText, WritesTheShorterForm) {
    EXPECT_EQ(GeneralText(0.0001), "0.0001");
    EXPECT_EQ(GeneralText(0.00001), "1e-05");
    EXPECT_EQ(GeneralText(123456.0), "123456");
    EXPECT_EQ(GeneralText(1234567.0), "1.23457e+06");
    EXPECT_EQ(GeneralText(1.5), "1.5");
    EXPECT_EQ(GeneralText(-0.0), "-0");
}

TEST(GeneralText, NeverSignsNotANumber) {
    EXPECT_EQ(GeneralText(kNan), "nan");
    EXPECT_EQ(GeneralText(-kNan), "nan");
    EXPECT_EQ(GeneralText(kInfinity), "inf");
    EXPECT_EQ(GeneralText(-kInfinity), "-inf");
}

TEST(GeneralText, IsWhatPrintfWrites) {
    ForManyValues([](double value) { ASSERT_EQ(GeneralText(value), Printed("%.*g", 6, value)); });
}

TEST(AppendGeneralText, KeepsTheTextBefore) {
    std::string text = "a";
    AppendGeneralText(text, 2.5);
    AppendGeneralText(text, kNan);
    EXPECT_EQ(text, "a2.5nan");
}

TEST(ShortestText, IsShort) {
    EXPECT_EQ(ShortestText(0.1), "0.1");
    EXPECT_EQ(ShortestText(4.0), "4");
    EXPECT_EQ(ShortestText(kNan), "nan");
    EXPECT_EQ(ShortestText(-kNan), "nan");
    EXPECT_EQ(ShortestText(-kInfinity), "-inf");
}

TEST(AppendShortestText, KeepsTheTextBefore) {
    std::string text = "a";
    AppendShortestText(text, 0.1);
    AppendShortestText(text, kNan);
    EXPECT_EQ(text, "a0.1nan");
}

TEST(ShortestSingleText, IsShorterThanThatOfTheWidenedNumber) {
    EXPECT_EQ(ShortestSingleText(0.1F), "0.1");
    EXPECT_EQ(ShortestSingleText(-0.0F), "-0");
    EXPECT_EQ(ShortestSingleText(16777216.0F), "16777216");
    EXPECT_EQ(ShortestSingleText(static_cast<float>(kNan)), "nan");
    EXPECT_EQ(ShortestSingleText(static_cast<float>(-kInfinity)), "-inf");
}

TEST(ShortestText, ReadsBackToTheSameBits) {
    ForManyValues([](double value) {
        const double back = std::strtod(ShortestText(value).c_str(), nullptr);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(value)) << value;
    });
}

}  // namespace
}  // namespace ks
