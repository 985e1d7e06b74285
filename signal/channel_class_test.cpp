#include "signal/channel_class.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <limits>
#include <string>

namespace ks {
namespace {

TEST(IsChannelClass, KnowsTheFourOfTheStandard) {
    EXPECT_TRUE(IsChannelClass(60));
    EXPECT_TRUE(IsChannelClass(180));
    EXPECT_TRUE(IsChannelClass(600));
    EXPECT_TRUE(IsChannelClass(1000));
    EXPECT_FALSE(IsChannelClass(100));
    EXPECT_FALSE(IsChannelClass(0));
    EXPECT_FALSE(IsChannelClass(-60));
    EXPECT_FALSE(IsChannelClass(kUnknownChannelClass));
}

TEST(ChannelClassList, NamesTheClassesAscending) {
    EXPECT_EQ(ChannelClassList(", ", " or "), "60, 180, 600 or 1000");
    EXPECT_EQ(ChannelClassList("|", "|"), "60|180|600|1000");
}

TEST(FilterFrequencyOf, IsFiveThirdsOfTheClassToElevenDecimals) {
    EXPECT_EQ(FilterFrequencyOf(60), 60.0 * 1.66666666667);
    EXPECT_EQ(FilterFrequencyOf(1000), 1666.66666667);
    EXPECT_NEAR(FilterFrequencyOf(180), 300.0, 1e-8);
}

struct Row {
    std::string name;
    double cutoffHz, prefilterHz;
    std::int32_t cfc;
};

class RecordedFrequencies : public testing::TestWithParam<Row> {};

TEST_P(RecordedFrequencies, TellTheClass) {
    EXPECT_EQ(ClassifyRecordedFrequencies(GetParam().cutoffHz, GetParam().prefilterHz), GetParam().cfc);
}

INSTANTIATE_TEST_SUITE_P(Windows, RecordedFrequencies,
                         testing::Values(Row{"Low60", 90.001, 0.0, 60}, Row{"High60", 109.999, 0.0, 60},
                                         Row{"Below60", 90.0, 0.0, 1001}, Row{"Above60", 110.0, 0.0, 1001},
                                         Row{"Low180", 280.001, 0.0, 180}, Row{"High180", 319.999, 0.0, 180},
                                         Row{"Below180", 280.0, 0.0, 1001}, Row{"Above180", 320.0, 0.0, 1001},
                                         Row{"Middle600", 1000.0, 0.0, 600}, Row{"Below600", 980.0, 0.0, 1001},
                                         Row{"Above600", 1020.0, 0.0, 1001}, Row{"Middle1000", 1650.0, 0.0, 1000},
                                         Row{"Below1000", 1630.0, 0.0, 1001}, Row{"Above1000", 1700.0, 0.0, 1001},
                                         Row{"PrefilterWithoutCutoff", 0.0, 300.0, 180},
                                         Row{"CutoffBeforePrefilter", 100.0, 300.0, 60},
                                         Row{"OddCutoffHidesPrefilter", 50.0, 300.0, 1001},
                                         Row{"Nothing", 0.0, 0.0, 1001},
                                         Row{"NotANumber", std::numeric_limits<double>::quiet_NaN(), 300.0, 1001}),
                         [](const auto& row) { return row.param.name; });

TEST(ClassOfFilter, IsTheClassOfItsOwnFrequency) {
    for (const std::int32_t cfc : {60, 180, 600, 1000}) EXPECT_EQ(ClassOfFilter(FilterFrequencyOf(cfc), 7), cfc);
}

TEST(ClassOfFilter, IncludesTheEndsOfItsWindows) {
    const auto atClassNumber = [](double c) { return ClassOfFilter((c + 0.5) / 0.6, 7); };
    EXPECT_EQ(atClassNumber(54), 7);
    EXPECT_EQ(atClassNumber(55), 60);
    EXPECT_EQ(atClassNumber(65), 60);
    EXPECT_EQ(atClassNumber(66), 7);
    EXPECT_EQ(atClassNumber(169), 7);
    EXPECT_EQ(atClassNumber(170), 180);
    EXPECT_EQ(atClassNumber(190), 180);
    EXPECT_EQ(atClassNumber(191), 7);
    EXPECT_EQ(atClassNumber(579), 7);
    EXPECT_EQ(atClassNumber(580), 600);
    EXPECT_EQ(atClassNumber(610), 600);
    EXPECT_EQ(atClassNumber(611), 7);
    EXPECT_EQ(atClassNumber(979), 7);
    EXPECT_EQ(atClassNumber(980), 1000);
    EXPECT_EQ(atClassNumber(1020), 1000);
    EXPECT_EQ(atClassNumber(1021), 7);
}

TEST(ClassOfFilter, LeavesTheClassForAnyOtherFrequency) {
    EXPECT_EQ(ClassOfFilter(50.0, 600), 600);
    EXPECT_EQ(ClassOfFilter(1e300, 600), 600);
    EXPECT_EQ(ClassOfFilter(std::numeric_limits<double>::quiet_NaN(), 600), 600);
}

}  // namespace
}  // namespace ks
