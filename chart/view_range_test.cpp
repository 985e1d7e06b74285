#include "chart/view_range.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace {

CDataRange Data(std::initializer_list<double> values) {
    CDataRange range;
    for (const double value : values) range.Add(value);
    return range;
}

void ExpectNear(const CViewRange& actual, const CViewRange& expected) {
    EXPECT_NEAR(actual.lower, expected.lower, 1e-12);
    EXPECT_NEAR(actual.upper, expected.upper, 1e-12);
}

TEST(DataRange, HoldsAllValues) {
    EXPECT_FALSE(Data({}).HasValues());
    EXPECT_EQ(Data({3.0}).Range(), (CViewRange{3.0, 3.0}));
    EXPECT_EQ(Data({3.0, -1.0, 2.0}).Range(), (CViewRange{-1.0, 3.0}));
}

TEST(RangeToShow, AddsTheMarginOnBothSides) {
    ExpectNear(RangeToShow(Data({10.0, 20.0}), 0.05), {9.5, 20.5});
}

TEST(RangeToShow, ShowsABandAroundASingleValue) {
    ExpectNear(RangeToShow(Data({0.0, 0.0}), 0.05), {-1.0, 1.0});
    ExpectNear(RangeToShow(Data({-40.0}), 0.05), {-42.0, -38.0});
}

TEST(RangeToShow, TakesNoiseBelowADoublesResolutionForASingleValue) {
    ExpectNear(RangeToShow(Data({1.0, 1.0 + 4e-16}), 0.05), {0.95, 1.05});
}

TEST(RangeToShow, ShowsZeroToOneWithoutData) {
    EXPECT_EQ(RangeToShow(Data({}), 0.05), (CViewRange{0.0, 1.0}));
}

TEST(Zoomed, KeepsTheCenterInItsPlace) {
    ExpectNear(Zoomed({0.0, 10.0}, 2.0, 0.5), {1.0, 6.0});
    ExpectNear(Zoomed({1.0, 6.0}, 2.0, 2.0), {0.0, 10.0});
}

TEST(Panned, MovesByAShareOfItsSize) {
    ExpectNear(Panned({2.0, 6.0}, -0.25), {1.0, 5.0});
}

TEST(Limited, LeavesAnOrdinaryRangeExactlyAsItIs) {
    EXPECT_EQ(Limited({0.1, 0.3}, {0.0, 1.0}), (CViewRange{0.1, 0.3}));
}

TEST(Limited, ShowsAtMostTwentyTimesTheData) {
    ExpectNear(Limited({-50.0, 51.0}, {0.0, 1.0}), {-9.5, 10.5});
}

TEST(Limited, KeepsTheDataInTouch) {
    ExpectNear(Limited({5.0, 6.0}, {0.0, 1.0}), {1.0, 2.0});
    ExpectNear(Limited({-7.0, -6.0}, {0.0, 1.0}), {-1.0, 0.0});
}

TEST(Limited, StaysCoarserThanTheStepsOfADouble) {
    const CViewRange range = Limited({1e6, 1e6 + 1e-9}, {0.0, 1e6});
    EXPECT_NEAR(range.Size(), 1e-6, 1e-9);
}

TEST(LabelDigits, AreSixForOrdinaryRanges) {
    EXPECT_EQ(LabelDigits({0.0, 1.0}), 6);
    EXPECT_EQ(LabelDigits({-40.0, 20.0}), 6);
}

TEST(LabelDigits, GrowWithTheZoom) {
    // A thousandth of the range is the ninth digit of its numbers.
    EXPECT_EQ(LabelDigits({1.0, 1.00001}), 9);
    EXPECT_EQ(LabelDigits({1.0, 1.0 + 1e-12}), 15);
}

}  // namespace
