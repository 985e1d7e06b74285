#include "compare/html_text.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>

namespace {

std::string Escaped(std::string_view text) {
    std::string html;
    AppendEscaped(html, text);
    return html;
}

TEST(HtmlText, KeepsPlainTextAsItIs) {
    EXPECT_EQ(Escaped("C:\\a b'\t%.uds~"), "C:\\a b'\t%.uds~");
}

TEST(HtmlText, EscapesMarkup) {
    EXPECT_EQ(Escaped("<b a=\"1\">&amp;"), "&lt;b a=&quot;1&quot;&gt;&amp;amp;");
}

TEST(HtmlText, AppendsAfterTheTextThere) {
    std::string html = "<TD>";
    AppendEscaped(html, "<");
    EXPECT_EQ(html, "<TD>&lt;");
}

TEST(HtmlText, WritesCharactersBeyondAsciiAsDecimalReferences) {
    EXPECT_EQ(Escaped("\xC2\x80"), "&#128;");
    EXPECT_EQ(Escaped("M\xC3\xBCller"), "M&#252;ller");
    EXPECT_EQ(Escaped("\xDF\xBF"), "&#2047;");
    EXPECT_EQ(Escaped("\xE0\xA0\x80"), "&#2048;");
    EXPECT_EQ(Escaped("\xE2\x82\xAC"), "&#8364;");
    EXPECT_EQ(Escaped("\xED\x9F\xBF\xEE\x80\x80"), "&#55295;&#57344;");
    EXPECT_EQ(Escaped("\xEF\xBF\xBF"), "&#65535;");
    EXPECT_EQ(Escaped("\xF0\x90\x80\x80"), "&#65536;");
    EXPECT_EQ(Escaped("\xF0\x9F\x9A\x97!"), "&#128663;!");
    EXPECT_EQ(Escaped("\xF3\xBF\xBF\xBF"), "&#1048575;");
    EXPECT_EQ(Escaped("\xF4\x8F\xBF\xBF"), "&#1114111;");
}

struct Malformed {
    const char* name;
    std::string_view bytes;
    const char* shown;
};

class MalformedText : public testing::TestWithParam<Malformed> {};

TEST_P(MalformedText, BecomesTheReplacementCharacter) {
    EXPECT_EQ(Escaped(GetParam().bytes), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, MalformedText,
    testing::Values(
        Malformed{"LoneContinuation", "\x80", "&#65533;"}, Malformed{"Latin1", "M\xFCller", "M&#65533;ller"},
        Malformed{"CutShort", "a\xC3", "a&#65533;"}, Malformed{"CutShortOfThree", "\xE2\x82", "&#65533;"},
        Malformed{"CutShortOfFour", "\xF0\x9F\x9A", "&#65533;"}, Malformed{"BrokenByAscii", "\xE2\x82x", "&#65533;x"},
        Malformed{"BrokenByMarkup", "\xC3<", "&#65533;&lt;"}, Malformed{"Overlong", "\xC0\xAF", "&#65533;&#65533;"},
        Malformed{"OverlongOfThree", "\xE0\x9F\xBF", "&#65533;&#65533;&#65533;"},
        Malformed{"Surrogate", "\xED\xA0\x80", "&#65533;&#65533;&#65533;"},
        Malformed{"BeyondUnicode", "\xF4\x90\x80\x80", "&#65533;&#65533;&#65533;&#65533;"},
        Malformed{"NoLeadByte", "\xFE\xFF", "&#65533;&#65533;"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(HtmlText, KeepsAZeroByte) {
    EXPECT_EQ(Escaped(std::string_view("a\0b", 3)), std::string("a\0b", 3));
}

}  // namespace
