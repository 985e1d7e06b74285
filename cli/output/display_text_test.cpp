#include "cli/output/display_text.h"

#include <gmock/gmock.h>

#include <string>

namespace {

TEST(DisplayText, KeepsPlainAndAccentedText) {
    EXPECT_EQ(DisplayText("run 1/t\xC3\xBCr.uds"), "run 1/t\xC3\xBCr.uds");
    EXPECT_EQ(DisplayText(""), "");
}

TEST(DisplayText, DisarmsControlCharacters) {
    EXPECT_EQ(DisplayText("a\x1b[2Jb\x07"), "a?[2Jb?");
    EXPECT_EQ(DisplayText("a\x7F"), "a?");
    EXPECT_EQ(DisplayText("a\xC2\x9B"
                          "2J"),
              "a?2J")
        << "the one-character form of the escape sequence";
    EXPECT_EQ(DisplayText("a\nb\tc"), "a?b?c");
    EXPECT_EQ(DisplayText("a\nb\tc", true), "a\nb?c");
}

TEST(DisplayText, ShowsEachByteThatIsNotUtf8AsTheReplacementCharacter) {
    EXPECT_EQ(DisplayText("a\xFF"), "a\xEF\xBF\xBD");
    EXPECT_EQ(DisplayText("\xC3"), "\xEF\xBF\xBD") << "cut short";
    EXPECT_EQ(DisplayText("\xC3z"), "\xEF\xBF\xBDz") << "not continued";
    EXPECT_EQ(DisplayText("\xC0\xAF"), "\xEF\xBF\xBD\xEF\xBF\xBD") << "longer than needed";
    EXPECT_EQ(DisplayText("\xED\xA0\x80"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD") << "half of a pair";
    EXPECT_EQ(DisplayText("\xF4\x90\x80\x80").size(), 12U) << "beyond the last character";
}

TEST(WrappedText, IsIndentedAndKeepsToTheWidth) {
    std::string text = "before\n";
    AppendWrapped(text, "one two  three incomprehensible four", 2, 9);
    EXPECT_EQ(text, "before\n  one two\n  three\n  incomprehensible\n  four\n");
}

TEST(DisplayWidth, CountsColumns) {
    EXPECT_EQ(DisplayWidth("abc"), 3U);
    EXPECT_EQ(DisplayWidth("t\xC3\xBCr"), 3U);
    EXPECT_EQ(DisplayWidth("u\xCC\x88"), 1U) << "a combining mark takes no column";
    EXPECT_EQ(DisplayWidth("\xE6\xB8\xAC\xE8\xA9\xA6"), 4U) << "wide characters take two";
    EXPECT_EQ(DisplayWidth("\xF0\x9F\x9A\x97"), 2U);
    EXPECT_EQ(DisplayWidth("\xFF"), 1U);
}

TEST(ElideFront, LeavesWhatFits) {
    EXPECT_EQ(ElideFront("abcdef", 6), "abcdef");
    EXPECT_EQ(ElideFront("", 0), "");
}

TEST(ElideFront, CutsTheFrontAndSaysSo) {
    EXPECT_EQ(ElideFront("abcdefgh", 6), "...fgh");
    EXPECT_EQ(ElideFront("abcdefgh", 4), "...h");
    EXPECT_EQ(ElideFront("abcdefgh", 2), "gh");
    EXPECT_EQ(ElideFront("abcdefgh", 0), "");
}

TEST(ElideFront, CutsWholeCharacters) {
    const std::string wide = "\xE6\xB8\xAC\xE8\xA9\xA6\xE6\xB8\xAC";  // three of two columns each
    EXPECT_EQ(ElideFront(wide, 5), "...\xE6\xB8\xAC");
    EXPECT_EQ(ElideFront(wide, 4), "...") << "one column is too little for another one";
}

}  // namespace
