#include "files/number_text.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

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

TEST(AppendGeneralText, KeepsWhatStands) {
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

TEST(AppendShortestText, KeepsWhatStands) {
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
