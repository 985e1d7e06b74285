#include "files/text_encoding.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace ks {
namespace {

using namespace std::string_literals;

TEST(Utf8FromLatin1, KeepsAscii) {
    EXPECT_EQ(Utf8FromLatin1("G'S 100%\t\x7F"), "G'S 100%\t\x7F");
}

TEST(Utf8FromLatin1, EncodesTheUpperHalf) {
    EXPECT_EQ(Utf8FromLatin1("\x80\xB0\xE4\xFF"), "\xC2\x80\xC2\xB0\xC3\xA4\xC3\xBF");
}

TEST(Utf8FromLatin1, KeepsZeroBytes) {
    EXPECT_EQ(Utf8FromLatin1("a\0b"s), "a\0b"s);
}

TEST(Latin1FromUtf8, UndoesTheEncodingOfEveryByte) {
    std::string latin1;
    for (int i = 0; i < 256; ++i) latin1.push_back(static_cast<char>(i));

    EXPECT_EQ(Latin1FromUtf8(Utf8FromLatin1(latin1)), latin1);
}

struct Row {
    std::string name, utf8, latin1;
};
std::ostream& operator<<(std::ostream& out, const Row& row) {
    return out << row.name;
}

class Latin1FromUtf8Doubtful : public testing::TestWithParam<Row> {};

TEST_P(Latin1FromUtf8Doubtful, BecomesQuestionMarks) {
    EXPECT_EQ(Latin1FromUtf8(GetParam().utf8), GetParam().latin1);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Latin1FromUtf8Doubtful,
    testing::Values(Row{"FirstBeyondLatin1", "a\xC4\x80z", "a?z"}, Row{"ThreeBytes", "a\xE2\x82\xACz", "a?z"},
                    Row{"FourBytes", "a\xF0\x9F\x98\x80z", "a?z"}, Row{"LoneContinuation", "a\xA4z", "a?z"},
                    Row{"LeadWithoutContinuation", "a\xC3z", "a?z"}, Row{"CutAtTheEnd", "a\xE2\x82", "a??"},
                    Row{"Overlong", "a\xC1\x81z", "a??z"}, Row{"OverlongThreeBytes", "a\xE0\x82\xA4z", "a???z"},
                    Row{"Surrogate", "a\xED\xA0\x80z", "a???z"}, Row{"BeyondUnicode", "a\xF4\x90\x80\x80z", "a????z"},
                    Row{"ByteFF", "a\xFFz", "a?z"}, Row{"Latin1Itself", "\xE4\xF6\xFC", "???"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace ks
