#include "chart/metafile/code_page_1252.h"

#include <gtest/gtest.h>

namespace {

TEST(CodePage1252, KeepsPlainLetters) {
    EXPECT_EQ(CodePage1252(u"Time (seconds)"), "Time (seconds)");
}

TEST(CodePage1252, HoldsWesternLettersAndSigns) {
    EXPECT_EQ(CodePage1252(u"\u00e4\u00d7\u00b2"), "\xE4\xD7\xB2");
    EXPECT_EQ(CodePage1252(u"\u20ac\u2026\u2013\u2122\u0178"), "\x80\x85\x96\x99\x9F");
}

TEST(CodePage1252, WritesTheMinusSignAsAHyphen) {
    EXPECT_EQ(CodePage1252(u"\u22125"), "-5");
}

TEST(CodePage1252, RefusesWhatItCannotHold) {
    EXPECT_FALSE(CodePage1252(u"\u03bb").has_value());
    EXPECT_FALSE(CodePage1252(u"a\u4e2d").has_value());
    EXPECT_FALSE(CodePage1252(u"\u0081").has_value());
}

TEST(CodePage1252, AnEmptyTextIsEmpty) {
    EXPECT_EQ(CodePage1252(u""), "");
}

}  // namespace
