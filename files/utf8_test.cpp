#include "files/utf8.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace {

struct CCase {
    const char* name;
    std::string text;
    char32_t codePoint;
    std::size_t byteCount;
    bool isWellFormed;
};

class Utf8 : public testing::TestWithParam<CCase> {};

TEST_P(Utf8, FirstCharacter) {
    const ks::CUtf8Character character = ks::FirstUtf8Character(GetParam().text);
    EXPECT_EQ(character.codePoint, GetParam().codePoint);
    EXPECT_EQ(character.byteCount, GetParam().byteCount);
    EXPECT_EQ(character.isWellFormed, GetParam().isWellFormed);
}

// The bounds are those of the Unicode standard: 7, 11, 16 and 21 bits in 1, 2, 3 and 4 bytes.
INSTANTIATE_TEST_SUITE_P(
    Sequences, Utf8,
    testing::Values(
        CCase{"Nul", std::string(1, '\0'), 0, 1, true}, CCase{"LastOfOneByte", "\x7F", 0x7F, 1, true},
        CCase{"FirstOfTwoBytes", "\xC2\x80", 0x80, 2, true}, CCase{"LastOfTwoBytes", "\xDF\xBF", 0x7FF, 2, true},
        CCase{"FirstOfThreeBytes", "\xE0\xA0\x80", 0x800, 3, true},
        CCase{"LastBeforeSurrogates", "\xED\x9F\xBF", 0xD7FF, 3, true},
        CCase{"FirstAfterSurrogates", "\xEE\x80\x80", 0xE000, 3, true},
        CCase{"LastOfThreeBytes", "\xEF\xBF\xBF", 0xFFFF, 3, true},
        CCase{"FirstOfFourBytes", "\xF0\x90\x80\x80", 0x10000, 4, true},
        CCase{"Last", "\xF4\x8F\xBF\xBF", 0x10FFFF, 4, true}, CCase{"OnlyTheFirst", "\xC3\xA4z", 0xE4, 2, true},
        CCase{"LoneContinuation", "\x80", 0xFFFD, 1, false}, CCase{"OverlongInTwoBytes", "\xC1\xBF", 0xFFFD, 1, false},
        CCase{"OverlongInThreeBytes", "\xE0\x9F\xBF", 0xFFFD, 1, false},
        CCase{"OverlongInFourBytes", "\xF0\x8F\xBF\xBF", 0xFFFD, 1, false},
        CCase{"Surrogate", "\xED\xA0\x80", 0xFFFD, 1, false},
        CCase{"BeyondTheLast", "\xF4\x90\x80\x80", 0xFFFD, 1, false}, CCase{"NoLeadByte", "\xFF", 0xFFFD, 1, false},
        CCase{"CutInTwoBytes", "\xC3", 0xFFFD, 1, false}, CCase{"CutInFourBytes", "\xF0\x9F\x98", 0xFFFD, 3, false},
        CCase{"WrongThirdByte", "\xE2\x82z", 0xFFFD, 2, false}),
    [](const testing::TestParamInfo<CCase>& row) { return row.param.name; });

}  // namespace
