#include "cli/output/header_text.h"

#include "signal/data.h"

#include <gmock/gmock.h>

#include <cstddef>

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(HeaderReport, ShowsTheGroupsBelowThePath) {
    ks::CData record;
    record.SetTSTNO(7);
    EXPECT_THAT(HeaderReport("folder/a.uds", record), StartsWith("folder/a.uds\n"
                                                                 "File\n"
                                                                 "  Version: 1\n"
                                                                 "  Form: X-Y\n"
                                                                 "  Number Format: \n"
                                                                 "  Unit System: MET\n"
                                                                 "Test\n"
                                                                 "  Source: USER DATA\n"
                                                                 "  Test Number: 7\n"));
}

TEST(HeaderReport, SaysWhereASecondComponentIsLacking) {
    ks::CData record;
    EXPECT_THAT(HeaderReport("a", record), HasSubstr("\nVehicle Two\n  not in this file\nOccupant One\n"));
    record.SetSecondComponent(true);
    record.SetMAKE2("MAKE");
    EXPECT_THAT(HeaderReport("a", record), HasSubstr("\nVehicle Two\n  Make: MAKE\n"));
    EXPECT_THAT(HeaderReport("a", record), Not(HasSubstr("not in this file")));
}

TEST(HeaderReport, ShowsAdjacentGroupsWithOneTitleAsOneGroup) {
    const std::string report = HeaderReport("a", ks::CData());
    const std::size_t first = report.find("Curve data and sensor\n");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(report.find("Curve data and sensor\n", first + 1), std::string::npos);
    EXPECT_THAT(report, HasSubstr("  Scale Factor: 0.000000\n  Axis: \n  Location: \nCurve User Data\n"));
}

TEST(HeaderReport, LetsNoFileCommandTheTerminal) {
    ks::CData record;
    record.SetMAKE1("\x1b[2J\nx");
    const std::string report = HeaderReport("\x1b[2J", record);
    EXPECT_THAT(report, StartsWith("?[2J\n"));
    EXPECT_THAT(report, HasSubstr("  Make: ?[2J?x\n"));
}

}  // namespace
