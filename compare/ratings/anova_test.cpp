#include "compare/ratings/anova.h"

#include "compare/ratings/messages.h"
#include "compare/ratings/samples.h"
#include "compare/ratings/testing/pairs.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace ratings {
namespace {

TEST(Anova, AnAlternatingResidualHasItsClosedForm) {
    CPairOfSignals pair{std::vector<double>(100, 0.0), std::vector<double>(100, 0.0)};
    pair.reference[50] = pair.computed[50] = -4.0;
    for (std::size_t i = 0; i < 100; ++i) pair.computed[i] += i % 2 == 0 ? 0.4 : -0.4;
    const CAnova anova = Anova(pair.View());
    EXPECT_NEAR(anova.mean.Number(), 0.0, 1e-15);
    EXPECT_NEAR(anova.standardDeviation.Number(), 0.1 * std::sqrt(100.0 / 99.0), 1e-14);
}

TEST(Anova, AWorkedExample) {
    // Residuals 0.5, 0, -0.25 of the peak 4: mean 1/12, squares 25/144 + 1/144 + 16/144 = 42/144, halved.
    const CAnova anova = Anova({std::array{4.0, 2.0, 1.0}, std::array{2.0, 2.0, 2.0}});
    EXPECT_NEAR(anova.mean.Number(), 1.0 / 12.0, 1e-15);
    EXPECT_NEAR(anova.standardDeviation.Number(), std::sqrt(21.0 / 144.0), 1e-15);
    EXPECT_NEAR(anova.t.Number(), 1.0 / 12.0 / std::sqrt(21.0 / 144.0) * std::sqrt(3.0), 1e-14);
}

TEST(Anova, AQuietTailDividesTheResidual) {
    const auto deviation = [](std::size_t count) {
        const auto sine = [](double start) {
            return [start](double i) {
                const double t = 0.02 * i - start;
                return t > 0.0 ? std::exp(-t) * std::sin(2.0 * 3.14159265358979 * t) : 0.0;
            };
        };
        return Anova(MakePair(count, sine(.14), sine(.24)).View()).standardDeviation.Number();
    };
    // Known as 0.263 and 0.095 where N is the divisor.
    EXPECT_NEAR(deviation(101) * std::sqrt(100.0 / 101.0), .263, 0.5e-3);
    EXPECT_NEAR(deviation(801) * std::sqrt(800.0 / 801.0), .095, 0.5e-3);
}

TEST(Anova, AConstantResidualHasNoT) {
    const CPairOfSignals pair = WithGain(Wave(400), 1.0, 3.0);
    const CAnova anova = Anova(pair.View());
    EXPECT_NEAR(anova.mean.Number(), -3.0 / LargestMagnitude(pair.reference), 1e-14);
    EXPECT_NEAR(anova.standardDeviation.Number(), 0.0, 1e-14);
    EXPECT_EQ(anova.t.Reason(), rating_message::kConstantResidual);
    EXPECT_EQ(Anova(WithGain(Wave(400), 1.0).View()).t.Reason(), rating_message::kConstantResidual);
}

TEST(Anova, WithoutEnoughToDivideItSaysWhy) {
    const CAnova zero = Anova({std::array{0.0, 0.0}, std::array{1.0, 2.0}});
    EXPECT_EQ(zero.mean.Reason(), rating_message::kReferenceZero);
    const CAnova single = Anova({std::array{4.0}, std::array{1.0}});
    EXPECT_EQ(single.mean.Number(), 0.75);
    EXPECT_EQ(single.standardDeviation.Reason(), rating_message::kTooFewForDeviation);
    EXPECT_EQ(single.t.Reason(), rating_message::kTooFewForDeviation);
    EXPECT_EQ(Anova({}).mean.Reason(), rating_message::kNoSamples);
}

TEST(Roadside, EveryOneOfTheFourLimitsDecides) {
    const CPairOfSignals good{Pulse(500, 0.3), Pulse(500, 0.3, 5)};
    EXPECT_EQ(RoadsideAcceptance(good.View()).verdict, CRoadsideVerdict::Pass);
    EXPECT_EQ(RoadsideAcceptance(good.View()).reason, "");
    EXPECT_EQ(RoadsideAcceptance(good.View(), {.magnitude = -1.0}).verdict, CRoadsideVerdict::Fail);
    EXPECT_EQ(RoadsideAcceptance(good.View(), {.phase = 0.01}).verdict, CRoadsideVerdict::Fail);
    EXPECT_EQ(RoadsideAcceptance(good.View(), {.mean = -1.0}).verdict, CRoadsideVerdict::Fail);
    EXPECT_EQ(RoadsideAcceptance(good.View(), {.standardDeviation = 0.001}).verdict, CRoadsideVerdict::Fail);
}

TEST(Roadside, MagnitudesOfEitherSignAreLimited) {
    EXPECT_EQ(RoadsideAcceptance(WithGain(Wave(800), 0.5).View()).verdict, CRoadsideVerdict::Fail);
    EXPECT_EQ(RoadsideAcceptance(WithGain(Wave(800), 1.5).View()).verdict, CRoadsideVerdict::Fail);
    EXPECT_EQ(RoadsideAcceptance(WithGain(Wave(800), 0.7).View()).verdict, CRoadsideVerdict::Pass);
    EXPECT_EQ(RoadsideAcceptance(WithGain(Wave(800), 1.0, 1.0).View()).verdict, CRoadsideVerdict::Fail);
    EXPECT_EQ(RoadsideAcceptance(WithGain(Wave(800), 1.0, -1.0).View()).verdict, CRoadsideVerdict::Fail);
}

TEST(Roadside, WithoutAValueThereIsNoVerdict) {
    const std::array zero{0.0, 0.0, 0.0}, some{1.0, 2.0, 3.0};
    EXPECT_FALSE(RoadsideAcceptance({zero, some}).verdict);
    EXPECT_EQ(RoadsideAcceptance({zero, some}).reason, rating_message::kReferenceZero);
    EXPECT_EQ(RoadsideAcceptance({some, zero}).reason, rating_message::kComputedZero);
    EXPECT_EQ(RoadsideAcceptance({std::array{1.0}, std::array{1.0}}).reason, rating_message::kTooFewForDeviation);
}

}  // namespace
}  // namespace ratings
