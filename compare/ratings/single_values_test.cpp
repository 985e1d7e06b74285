#include "compare/ratings/single_values.h"

#include "compare/ratings/messages.h"
#include "compare/ratings/testing/pairs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace ratings {
namespace {

TEST(SingleValues, AGainHasClosedForms) {
    for (const double gain : {0.25, 0.8, 1.2, 3.0}) {
        const CSingleValues values = SingleValues(WithGain(Wave(300), gain).View());
        const double off = std::abs(gain - 1.0);
        EXPECT_NEAR(values.theil.Number(), off / (gain + 1.0), 1e-13) << gain;
        EXPECT_NEAR(values.whang.Number(), off / (gain + 1.0), 1e-13);
        EXPECT_NEAR(values.rss.Number(), off, 1e-13);
        EXPECT_NEAR(values.zilliacus.Number(), off, 1e-13);
        EXPECT_NEAR(values.nrmseRms.Number(), off, 1e-13);
        EXPECT_NEAR(values.wifac.Number(), std::min(gain, 1.0 / gain), 1e-13);
        EXPECT_NEAR(values.pearson.Number(), 1.0, 1e-13);
        EXPECT_NEAR(values.nard.Number(), 1.0, 1e-13);
    }
}

TEST(SingleValues, AnOppositeSignalIsAsWrongAsCanBe) {
    const CSingleValues values = SingleValues(WithGain(Wave(300), -1.0).View());
    EXPECT_NEAR(values.theil.Number(), 1.0, 1e-13);
    EXPECT_NEAR(values.whang.Number(), 1.0, 1e-13);
    EXPECT_NEAR(values.wifac.Number(), 0.0, 1e-13);
    EXPECT_NEAR(values.pearson.Number(), -1.0, 1e-13);
    EXPECT_NEAR(values.nard.Number(), -1.0, 1e-13);
}

TEST(SingleValues, AWorkedExample) {
    // m = 0 2 4, c = 1 2 2: e = 1 0 -2, sum e^2 = 5, sum m^2 = 20, sum c^2 = 9, m about its mean -2 0 2: 8.
    const CSingleValues values = SingleValues({std::array{0.0, 2.0, 4.0}, std::array{1.0, 2.0, 2.0}});
    const double rms = std::sqrt(5.0 / 3.0);
    EXPECT_NEAR(values.rms.Number(), rms, 1e-15);
    EXPECT_NEAR(values.nrmsePeak.Number(), rms / 4.0, 1e-15);
    EXPECT_NEAR(values.nrmseRange.Number(), rms / 4.0, 1e-15);
    EXPECT_NEAR(values.nrmseRms.Number(), 0.5, 1e-15);
    EXPECT_NEAR(values.nard.Number(), 12.0 / std::sqrt(180.0), 1e-15);
    // c about its mean 5/3: -2/3 1/3 1/3; products 4/3 + 2/3 = 2, squares 6/9.
    EXPECT_NEAR(values.pearson.Number(), 2.0 / std::sqrt(8.0 * 6.0 / 9.0), 1e-15);
    EXPECT_NEAR(values.r2.Number(), 3.0 / 8.0, 1e-15);
    EXPECT_NEAR(values.regression.Number(), std::sqrt(1.0 - 2.0 / 3.0 * 5.0 / 8.0), 1e-15);
    EXPECT_NEAR(values.theil.Number(), std::sqrt(5.0) / (std::sqrt(20.0) + 3.0), 1e-15);
    EXPECT_NEAR(values.whang.Number(), 3.0 / 11.0, 1e-15);
    EXPECT_NEAR(values.zilliacus.Number(), 0.5, 1e-15);
    EXPECT_NEAR(values.rss.Number(), 0.5, 1e-15);
    // u = 1 4 16 with weights 1/2 1 1/2; missing 1, 0, 1/2: (1/2 + 8/4) / (1/2 + 4 + 8).
    EXPECT_NEAR(values.wifac.Number(), 1.0 - std::sqrt(2.5 / 12.5), 1e-15);
}

TEST(SingleValues, TheUnitChangesTheRmsErrorAlone) {
    const CPairOfSignals pair{Wave(100), Pulse(100, 0.2)};
    CPairOfSignals large = pair;
    for (auto* values : {&large.reference, &large.computed}) {
        for (double& value : *values) value = std::ldexp(value, 1000);
    }
    const CSingleValues expected = SingleValues(pair.View()), values = SingleValues(large.View());
    EXPECT_EQ(values.rms.Number(), std::ldexp(expected.rms.Number(), 1000));
    EXPECT_EQ(values.theil.Number(), expected.theil.Number());
    EXPECT_EQ(values.r2.Number(), expected.r2.Number());
    EXPECT_EQ(values.wifac.Number(), expected.wifac.Number());
}

TEST(SingleValues, AReferenceOfZeroLeavesWhatItDoesNotDivide) {
    const CSingleValues values = SingleValues({std::array{0.0, 0.0, 0.0}, std::array{3.0, 0.0, 4.0}});
    EXPECT_NEAR(values.rms.Number(), std::sqrt(25.0 / 3.0), 1e-15);
    for (const CValue* value : {&values.nrmsePeak, &values.nrmseRms, &values.nard, &values.zilliacus, &values.rss}) {
        EXPECT_EQ(value->Reason(), rating_message::kReferenceZero);
    }
    for (const CValue* value : {&values.nrmseRange, &values.pearson, &values.r2, &values.regression}) {
        EXPECT_EQ(value->Reason(), rating_message::kReferenceConstant);
    }
    EXPECT_EQ(values.theil.Number(), 1.0);
    EXPECT_EQ(values.whang.Number(), 1.0);
    EXPECT_EQ(values.wifac.Number(), 0.0);
}

TEST(SingleValues, AConstantComputedSignalHasNoCorrelation) {
    const CSingleValues values = SingleValues({std::array{1.0, 2.0, 3.0}, std::array{0.0, 0.0, 0.0}});
    EXPECT_EQ(values.pearson.Reason(), rating_message::kComputedConstant);
    EXPECT_EQ(values.nard.Reason(), rating_message::kComputedZero);
    EXPECT_EQ(values.rss.Number(), 1.0);
}

TEST(SingleValues, AnErrorLargerThanTheVariationHasNoRegressionCoefficient) {
    const CSingleValues values = SingleValues({std::array{1.0, 2.0, 3.0}, std::array{3.0, 2.0, 1.0}});
    EXPECT_EQ(values.r2.Number(), -3.0);
    EXPECT_EQ(values.regression.Reason(), rating_message::kNegativeRoot);
}

TEST(SingleValues, ARegressionCoefficientOfZeroIsZeroWhateverTheRounding) {
    // Sum e^2 = n / (n - 1) times the variation: a constant c at the distance sqrt(variation / (n (n - 1))) of the
    // mean.
    const std::vector<double> reference = Wave(37);
    double mean = 0.0, variation = 0.0;
    for (const double value : reference) mean += value / 37.0;
    for (const double value : reference) variation += (value - mean) * (value - mean);
    const std::vector<double> computed(37, mean + std::sqrt(variation / (37.0 * 36.0)));
    EXPECT_EQ(SingleValues({reference, computed}).regression.Number(), 0.0);
}

TEST(SingleValues, TwoSignalsOfZeroAreEqualButHaveNothingToDivideBy) {
    const CSingleValues values = SingleValues({std::array{0.0, 0.0}, std::array{0.0, 0.0}});
    EXPECT_EQ(values.rms.Number(), 0.0);
    EXPECT_EQ(values.wifac.Number(), 1.0);
    EXPECT_EQ(values.theil.Reason(), rating_message::kBothZero);
    EXPECT_EQ(values.whang.Reason(), rating_message::kBothZero);
}

TEST(SingleValues, WhatCannotBeRatedSaysWhy) {
    EXPECT_EQ(SingleValues({}).rms.Reason(), rating_message::kNoSamples);
    EXPECT_EQ(SingleValues({std::array{1.0, HUGE_VAL}, std::array{1.0, 1.0}}).wifac.Reason(),
              rating_message::kReferenceNotFinite);
}

}  // namespace
}  // namespace ratings
