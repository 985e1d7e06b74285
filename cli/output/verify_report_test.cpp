#include "cli/output/verify_report.h"

#include "compare/ratings/value.h"
#include "compare/ratings/verification/reference_case.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using ratings::CCaseSource;
using ratings::CReferenceCase;
using ratings::CValue;
using testing::HasSubstr;
using testing::Not;

CReferenceCase Bell() {
    CReferenceCase bell{"bell", "m = 1, c = 2", CCaseSource::PublicScorer};
    bell.Expect("ISO R", 0.8752410, 0.87524098, ratings::kSevenDigits);
    bell.Expect("ISO lag", -30.0, -30.0, ratings::kWholeNumber);
    return bell;
}

TEST(VerifyReport, ShowsEveryCheckAndSumsUp) {
    const std::string text = VerifyReport(std::vector{Bell()});
    EXPECT_THAT(text, HasSubstr("Case  Metric    Expected        Got  Deviation  Tolerance  Source  Verdict\n"
                                "----  -------  ---------  ---------  ---------  ---------  ------  -------\n"
                                "bell  ISO R    0.8752410  0.8752410      2e-08      5e-08  scorer  pass\n"
                                "bell  ISO lag        -30        -30          0          0  scorer  pass\n\n"));
    EXPECT_THAT(text, HasSubstr("  bell\n      m = 1, c = 2\n"));
    EXPECT_THAT(text, HasSubstr("\n\nAll 2 checks of 1 cases pass.\n"));
    EXPECT_THAT(text, HasSubstr("  scorer\n"));
    EXPECT_THAT(text, Not(HasSubstr("  annex\n")));
    EXPECT_THAT(text, Not(HasSubstr("Not available")));
}

TEST(VerifyReport, NamesFailuresAndReasons) {
    CReferenceCase ring{"ring", "", CCaseSource::ClosedForm};
    ring.Expect("EP", 0.5, 0.500000002, ratings::kClosedForm);
    ring.Expect("ES", 0.5, CValue::Unavailable("There is none."), ratings::kClosedForm);
    const std::string text = VerifyReport(std::vector{Bell(), ring});
    EXPECT_THAT(text,
                HasSubstr("\nring  EP       0.500000000  0.500000002      2e-09      1e-09  closed form  FAIL\n"));
    EXPECT_THAT(text,
                HasSubstr("\nring  ES       0.500000000            -          -      1e-09  closed form  FAIL\n"));
    EXPECT_THAT(text, HasSubstr("\nNot available:\n  ring, ES: There is none.\n"));
    EXPECT_THAT(text, HasSubstr("\n2 of 4 checks of 2 cases FAIL.\n"));
}

TEST(VerifyReport, HidesWhatDiffersBetweenProcessors) {
    CReferenceCase zero{"zero", "", CCaseSource::ClosedForm};
    zero.Expect("M", 0.0, -1e-16, ratings::kClosedForm);
    zero.Expect("P", -0.25, -0.25 - 1e-16, ratings::kClosedForm);
    const std::string text = VerifyReport(std::vector{zero});
    EXPECT_THAT(text, HasSubstr("zero  M        0.000000000   0.000000000    < 1e-12"));
    EXPECT_THAT(text, HasSubstr("zero  P       -0.250000000  -0.250000000    < 1e-12"));
}

TEST(VerifyReport, KeepsTerminalCommandsInPathsFromTheTerminal) {
    EXPECT_THAT(VerifyReport(std::vector<CReferenceCase>{{"a", "of \x1b[31m.csv"}}), HasSubstr("of ?[31m.csv"));
}

}  // namespace
