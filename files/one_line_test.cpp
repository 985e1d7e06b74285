#include "files/one_line.h"

#include <gtest/gtest.h>

namespace {

TEST(OneLine, PutsABlankInPlaceOfEveryTabAndLineEnd) {
    EXPECT_EQ(ks::OneLine("a\tb\r\nc\nd\re"), "a b  c d e");
    EXPECT_EQ(ks::OneLine("\t"), " ");
}

TEST(OneLine, LeavesEverythingElseAsItIs) {
    EXPECT_EQ(ks::OneLine(""), "");
    EXPECT_EQ(ks::OneLine("  v01 234\xC3\xA4 0.001 "), "  v01 234\xC3\xA4 0.001 ");
    EXPECT_EQ(ks::OneLine(std::string_view("a\0\v\f\x1F", 5)), std::string("a\0\v\f\x1F", 5));
}

}  // namespace
