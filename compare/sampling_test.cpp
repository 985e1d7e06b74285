#include "compare/sampling.h"

#include "tests/support/test_signals.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

TEST(SamplingOf, TellsPointsRangeAndStep) {
    const CSampling sampling = SamplingOf(MakeTimeSignal(std::vector<double>{7.0, 8.0, 9.0}, 0.5, 2));

    EXPECT_EQ(sampling.points, 3U);
    EXPECT_EQ(sampling.first, 1.0);
    EXPECT_EQ(sampling.last, 2.0);
    EXPECT_EQ(sampling.step, 0.5);
}

TEST(SamplingOf, AnEmptyRecordIsZero) {
    const CSampling sampling = SamplingOf(ks::CNSignal());

    EXPECT_EQ(sampling.points, 0U);
    EXPECT_EQ(sampling.first, 0.0);
    EXPECT_EQ(sampling.last, 0.0);
}

CSampling Range(double first, double last) {
    return {2, first, last, 0.5};
}

TEST(HaveNoCommonTime, IsTrueForRangesApartAndForRangesThatOnlyTouch) {
    EXPECT_TRUE(HaveNoCommonTime(Range(0.0, 1.0), Range(2.0, 3.0)));
    EXPECT_TRUE(HaveNoCommonTime(Range(2.0, 3.0), Range(0.0, 1.0)));
    EXPECT_TRUE(HaveNoCommonTime(Range(0.0, 1.0), Range(1.0, 2.0)));
}

TEST(HaveNoCommonTime, IsFalseForRangesThatOverlap) {
    EXPECT_FALSE(HaveNoCommonTime(Range(0.0, 1.0), Range(0.5, 2.0)));
    EXPECT_FALSE(HaveNoCommonTime(Range(0.0, 3.0), Range(1.0, 2.0)));
}

TEST(HaveNoCommonTime, IsFalseForTwoCurvesOfOneInstant) {
    EXPECT_FALSE(HaveNoCommonTime({1, 1.0, 1.0, 0.0}, {1, 1.0, 1.0, 0.0}));
}

TEST(HaveNoCommonTime, AsksASingleInstantOnlyWhetherItLiesWithinTheOther) {
    const CSampling instant{1, 0.5, 0.5, 0.0};
    EXPECT_FALSE(HaveNoCommonTime(instant, Range(0.0, 1.0)));
    EXPECT_FALSE(HaveNoCommonTime(Range(0.5, 1.0), instant));
    EXPECT_TRUE(HaveNoCommonTime(instant, Range(0.6, 1.0)));
    EXPECT_TRUE(HaveNoCommonTime(Range(0.0, 0.4), instant));
}

TEST(HaveNoCommonTime, IsFalseWithoutPoints) {
    EXPECT_FALSE(HaveNoCommonTime({}, Range(1.0, 2.0)));
    EXPECT_FALSE(HaveNoCommonTime(Range(1.0, 2.0), {}));
}

}  // namespace
