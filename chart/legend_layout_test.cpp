#include "chart/legend_layout.h"

#include <gtest/gtest.h>

namespace {

/// Rows of 10 and columns of 100 in a room of 100 x 400: ten rows and four columns of full letters.
CLegendLayout For(int entryCount) {
    return LayOutLegend({entryCount, 10.0, 100.0, 100.0, 400.0});
}

TEST(LegendLayout, FewNamesFitInOneColumn) {
    EXPECT_EQ(For(10), (CLegendLayout{1, 10, 10, 1.0, 100.0}));
    EXPECT_EQ(For(1), (CLegendLayout{1, 1, 1, 1.0, 100.0}));
}

TEST(LegendLayout, MoreNamesMakeMoreColumnsOfEvenLength) {
    EXPECT_EQ(For(11), (CLegendLayout{2, 6, 11, 1.0, 100.0}));
    EXPECT_EQ(For(40), (CLegendLayout{4, 10, 40, 1.0, 100.0}));
}

TEST(LegendLayout, LettersShrinkBeforeNamesAreLeftOut) {
    EXPECT_EQ(For(41), (CLegendLayout{4, 11, 41, 0.85, 85.0}));
    EXPECT_EQ(For(70), (CLegendLayout{5, 14, 70, 0.7, 70.0}));
}

TEST(LegendLayout, WhatStillDoesNotFitLeavesTheLastPlaceToANote) {
    EXPECT_EQ(For(71), (CLegendLayout{5, 14, 69, 0.7, 70.0}));
    EXPECT_EQ(For(1000), (CLegendLayout{5, 14, 69, 0.7, 70.0}));
}

TEST(LegendLayout, LettersShrinkBeforeNamesAreCut) {
    EXPECT_EQ(LayOutLegend({2, 10.0, 100.0, 100.0, 90.0}), (CLegendLayout{1, 2, 2, 0.85, 85.0}));
    EXPECT_EQ(LayOutLegend({2, 10.0, 100.0, 100.0, 60.0}), (CLegendLayout{1, 2, 2, 0.7, 60.0}));
}

TEST(LegendLayout, NothingIsLaidOutWithoutNamesOrRoom) {
    EXPECT_EQ(For(0), CLegendLayout());
    EXPECT_EQ(LayOutLegend({3, 10.0, 100.0, 100.0, 0.0}), CLegendLayout());
}

TEST(LegendLayout, OneRowIsThereHoweverLowTheRoom) {
    EXPECT_EQ(LayOutLegend({1, 10.0, 50.0, 0.0, 60.0}).rows, 1);
}

}  // namespace
