#include "compare/ratings/verification/annex_file.h"

#include "compare/ratings/verification/messages.h"
#include "compare/ratings/verification/signals.h"
#include "tests/support/expect_error.h"

#include <gmock/gmock.h>

#include <string>

namespace ratings {
namespace {

using testing::ElementsAre;

constexpr const char* kHeader =
    "Generic_Time,Time,Test,CAE,Outer_Corridor_Upper,Inner_Corridor_Upper,Inner_Corridor_Lower,Outer_Corridor_Lower,"
    "Test_Phase_Shifted,CAE_Phase_Shifted,Test_Slope,CAE_Slope,Test_Warped,CAE_Warped\n";
constexpr const char* kUnits =
    "[-],[s],[m/s2],[m/s2],[m/s2],[m/s2],[m/s2],[m/s2],[m/s2],[m/s2],[m/s2],[m/s2],[m/s2],[m/s2]\n";

void ExpectPair(const std::string& text) {
    const CPairOfSignals pair = ReadAnnexPair(text);
    EXPECT_THAT(pair.reference, ElementsAre(1.5, -2.0, 30.0));
    EXPECT_THAT(pair.computed, ElementsAre(1.0, 0.0, 2e-3));
}

TEST(AnnexFile, ThreeOfTheFourteenColumnsAreTheSignals) {
    ExpectPair(std::string(kHeader) + kUnits +
               "0,0.0000,1.5,1,9,9,9,9,9,9,9,9,9,9\n"
               "1,0.0001,-2,0,9,9,9,9,9,9,9,9,9,9\n"
               "2,0.0002,30,2e-3,9,9,9,9,,,9,9,9,9\n"
               "3,,,,,,,,,,,,9,9\n");
}

TEST(AnnexFile, SpellingOfTheLayoutDoesNotMatter) {
    ExpectPair("\xEF\xBB\xBF\"TIME\" ; \"test\";\"Cae\"\r\n[s];[g];[g]\r\n0;1,5;1\r\n\r\n0,1;-2;0\r\n0,2;30;0,002");
    ExpectPair("CAE\tTest\tTime\n1\t1.5\t0\n0\t-2\t0.1\n2e-3\t30\t0.2\nnan\t7\t0.3\n");
}

TEST(AnnexFile, LinesWithoutAValueOfBothHaveNoSample) {
    ExpectPair("Time,Test,CAE\n0,1.5,1\n0.1,-2,0\n0.2,30,0.002\n0.3,,5\n0.4,5,\n");
}

TEST(AnnexFile, PrintedTimesNeedNotBeExact) {
    ExpectPair("Time,Test,CAE\n0,1.5,1\n0.0003,-2,0\n0.0005,30,0.002\n");
}

struct Row {
    std::string name;
    std::string text;
    std::string sentence;
};

class OddAnnexFile : public testing::TestWithParam<Row> {};

TEST_P(OddAnnexFile, IsRefusedWithASentence) {
    EXPECT_EQ(ErrorOf([] { ReadAnnexPair(GetParam().text); }), GetParam().sentence);
}

const std::string kNoColumns(annex_message::kNoColumns);
const std::string kNoSamples(annex_message::kNoSamples);

const Row kRows[] = {
    {"Empty", "", kNoColumns},
    {"Binary", std::string("\0\x01\xFF,;\n", 6), kNoColumns},
    {"OtherColumns", "Time,Test,Model\n0,1,2\n", kNoColumns},
    {"ColumnTwice", "Time,Test,CAE,cae\n0,1,2,3\n", kNoColumns},
    {"HeaderAlone", kHeader, kNoSamples},
    {"UnitsAlone", std::string(kHeader) + kUnits, kNoSamples},
    {"ShortLine", "Time,Test,CAE\n0,1,2\n1,2\n", "Line 3 ends before the column CAE."},
    {"Word", "Time,Test,CAE\n[s],[g],[g]\n0,1,2\n\n1,2,x\n", "Line 5 has no number in the column CAE: x"},
    {"SecondUnits", "Time,Test,CAE\n[s],[g],[g]\n[s],[g],[g]\n", "Line 3 has no number in the column Time: [s]"},
    {"Infinity", "Time,Test,CAE\n0,inf,2\n", "Line 2 has no number in the column Test: inf"},
    {"Gap", "Time,Test,CAE\n0,1,1\n1,1,1\n2,1,1\n4,1,1\n5,1,1\n",
     "The time step before sample 4 is not above 0, or differs from the mean step by more than half of it."},
    {"Backward", "Time,Test,CAE\n0,1,1\n-1,1,1\n",
     "The time step before sample 2 is not above 0, or differs from the mean step by more than half of it."},
    {"Standstill", "Time,Test,CAE\n0,1,1\n0,1,1\n",
     "The time step before sample 2 is not above 0, or differs from the mean step by more than half of it."},
};

INSTANTIATE_TEST_SUITE_P(Rows, OddAnnexFile, testing::ValuesIn(kRows), [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace ratings
