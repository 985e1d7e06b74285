#include "cli/number_option.h"

#include <gmock/gmock.h>

#include <cmath>
#include <string>

namespace {

struct Row {
    std::string name;
    std::string text;
    std::optional<double> value;
};

class NumberOption : public testing::TestWithParam<Row> {};

TEST_P(NumberOption, IsAFiniteNumberOrNothing) {
    EXPECT_EQ(ParseNumber(GetParam().text), GetParam().value);
}

const Row kRows[] = {
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

INSTANTIATE_TEST_SUITE_P(Texts, NumberOption, testing::ValuesIn(kRows), [](const auto& row) { return row.param.name; });

}  // namespace
