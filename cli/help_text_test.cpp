#include "cli/help_text.h"

#include <gmock/gmock.h>

#include <string>

namespace {

using testing::HasSubstr;
using testing::Not;

CHelpPage Page() {
    return {"tool run",
            "Run it",
            {"tool run [OPTION]... FILE..."},
            {{"Options", {{"", "A paragraph of its own."}, {"--size N", "How large it is, in words that wrap."}}}}};
}

TEST(PlainHelp, ShowsUsageThenSectionsWrapped) {
    EXPECT_EQ(PlainHelp(Page(), 30),
              "Run it.\n"
              "\n"
              "Usage:\n"
              "  tool run [OPTION]... FILE...\n"
              "\n"
              "Options:\n"
              "  A paragraph of its own.\n"
              "  --size N\n"
              "      How large it is, in\n"
              "      words that wrap.\n");
}

TEST(PlainHelp, FillsALineToItsLastColumn) {
    // Six columns of indent and 23 of text are 29.
    EXPECT_THAT(PlainHelp(Page(), 29), HasSubstr("      How large it is, in\n"));
    EXPECT_THAT(PlainHelp({"t", "One two", {}, {}}, 8), HasSubstr("One two.\n"));
    EXPECT_THAT(PlainHelp({"t", "One two", {}, {}}, 7), HasSubstr("One\ntwo.\n"));
}

TEST(ManPage, HoldsTheSameTexts) {
    const CHelpPage program{"tool", "Does things", {"tool COMMAND"}, {{"Exit status", {{"0", "Good."}}}}};
    EXPECT_EQ(ManPage(program, {Page()}, "1.2"),
              ".TH TOOL 1 \"\" \"Quorvel 1.2\" \"User Commands\"\n"
              ".SH NAME\n"
              "tool \\- does things\n"
              ".SH SYNOPSIS\n"
              ".PP\n"
              "tool COMMAND\n"
              ".SH \"TOOL RUN\"\n"
              "Run it.\n"
              ".PP\n"
              "tool run [OPTION]... FILE...\n"
              ".SS \"Options\"\n"
              ".PP\n"
              "A paragraph of its own.\n"
              ".TP\n"
              ".B \\-\\-size N\n"
              "How large it is, in words that wrap.\n"
              ".SH \"EXIT STATUS\"\n"
              ".TP\n"
              ".B 0\n"
              "Good.\n");
}

TEST(ManPage, LetsNoTextBecomeACommand) {
    const CHelpPage program{"tool", "Does", {}, {{"Notes", {{"", ".so /etc/passwd"}, {"", "'quoted' \\fB"}}}}};
    const std::string man = ManPage(program, {}, "1");
    EXPECT_THAT(man, HasSubstr("\n\\&.so /etc/passwd\n"));
    EXPECT_THAT(man, HasSubstr("\n\\&'quoted' \\efB\n"));
    EXPECT_THAT(man, Not(HasSubstr("\n.so")));
}

}  // namespace
