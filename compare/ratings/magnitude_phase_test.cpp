#include "compare/ratings/magnitude_phase.h"

#include "compare/ratings/messages.h"
#include "compare/ratings/samples.h"
#include "compare/ratings/testing/pairs.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace ratings {
namespace {

using std::numbers::pi;

void ExpectErrors(const CMagnitudePhase& errors, double magnitude, double phase, double combined, double tolerance) {
    EXPECT_NEAR(errors.magnitude.Number(), magnitude, tolerance);
    EXPECT_NEAR(errors.phase.Number(), phase, tolerance);
    EXPECT_NEAR(errors.combined.Number(), combined, tolerance);
}

TEST(MagnitudePhase, AGainIsAllMagnitude) {
    for (const double gain : {0.8, 1.2, 3.0}) {
        const CPairOfSignals pair = WithGain(Wave(300), gain);
        const double m = gain - 1.0;
        const double q = (gain * gain - 1.0) / gain;
        const double rm = std::copysign(std::log10(1.0 + std::abs(q)), q);
        ExpectErrors(SpragueGeers(pair.View()), m, 0.0, std::abs(m), 1e-13);
        ExpectErrors(Geers(pair.View()), m, 0.0, std::abs(m), 1e-13);
        ExpectErrors(GeersCsa(pair.View()), m, 0.0, std::abs(m), 1e-13);
        ExpectErrors(Russell(pair.View()), rm, 0.0, std::sqrt(pi / 4.0) * std::abs(rm), 1e-13);
    }
}

TEST(MagnitudePhase, AnOppositeSignalIsAllPhase) {
    const CPairOfSignals pair = WithGain(Wave(300), -1.0);
    ExpectErrors(SpragueGeers(pair.View()), 0.0, 1.0, 1.0, 1e-13);
    ExpectErrors(Russell(pair.View()), 0.0, 1.0, std::sqrt(pi / 4.0), 1e-13);
    ExpectErrors(Geers(pair.View()), 0.0, 2.0, 2.0, 1e-13);
    ExpectErrors(GeersCsa(pair.View()), 0.0, 0.0, 0.0, 1e-13);
}

TEST(MagnitudePhase, GeersCsaTakesTheSignOfTheProduct) {
    const CPairOfSignals pair = WithGain(Wave(300), -1.5);
    ExpectErrors(GeersCsa(pair.View()), 0.5, 0.0, -0.5, 1e-13);
}

TEST(MagnitudePhase, ADelayOverWholePeriodsIsAllPhase) {
    const auto sine = [](double delay) {
        return [delay](double i) { return std::sin(2.0 * pi * 3.0 * i / 600.0 - delay); };
    };
    for (const double delay : {1e-7, 0.1, 1.0, pi / 2.0, 3.0}) {
        // 601 samples: with the ends halved the sums are those of whole periods.
        const CPairOfSignals pair = MakePair(601, sine(0.0), sine(delay));
        ExpectErrors(SpragueGeers(pair.View()), 0.0, delay / pi, delay / pi, 1e-13);
        EXPECT_NEAR(Geers(pair.View()).phase.Number(), 1.0 - std::cos(delay), 1e-13);
        EXPECT_NEAR(GeersCsa(pair.View()).phase.Number(), 1.0 - std::abs(std::cos(delay)), 1e-13);
    }
}

TEST(MagnitudePhase, OrthogonalSignalsHavePhaseOneHalfAndCountAsPositive) {
    constexpr std::array kReference = {0.0, 1.0, 0.0, 0.0};
    constexpr std::array kComputed = {0.0, 0.0, 2.0, 0.0};
    const CSamples samples{kReference, kComputed};
    ExpectErrors(SpragueGeers(samples), 1.0, 0.5, std::sqrt(1.25), 1e-15);
    ExpectErrors(GeersCsa(samples), 1.0, 1.0, std::sqrt(2.0), 1e-15);
}

TEST(MagnitudePhase, EndsCountHalf) {
    // Smm = 1/2 + 1 + 1/2 = 2, Scc = 4/2 + 0 + 0 = 2, Smc = 2/2 = 1.
    ExpectErrors(SpragueGeers({std::array{1.0, 1.0, 1.0}, std::array{2.0, 0.0, 0.0}}), 0.0, 1.0 / 3.0, 1.0 / 3.0,
                 1e-14);
}

TEST(MagnitudePhase, RussellIsSymmetricButForItsSign) {
    const CPairOfSignals pair{Wave(200), Pulse(200, 0.2)};
    const CMagnitudePhase forth = Russell(pair.View());
    const CMagnitudePhase back = Russell({pair.computed, pair.reference});
    ExpectErrors(back, -forth.magnitude.Number(), forth.phase.Number(), forth.combined.Number(), 1e-13);
}

TEST(MagnitudePhase, WithoutAReferenceNothingIsAvailable) {
    const std::array zero{0.0, 0.0, 0.0}, some{1.0, 2.0, 3.0};
    for (const auto& errors :
         {SpragueGeers({zero, some}), Geers({zero, some}), GeersCsa({zero, some}), Russell({zero, some}),
          SpragueGeers({zero, zero}), SpragueGeers(CProductSums{0, 1, 0})}) {
        EXPECT_EQ(errors.magnitude.Reason(), rating_message::kReferenceZero);
        EXPECT_EQ(errors.phase.Reason(), rating_message::kReferenceZero);
        EXPECT_EQ(errors.combined.Reason(), rating_message::kReferenceZero);
    }
}

TEST(MagnitudePhase, WithoutAComputedSignalOnlyTheMagnitudeIsKnown) {
    const std::array zero{0.0, 0.0, 0.0}, some{1.0, 2.0, 3.0};
    for (const auto& errors : {SpragueGeers({some, zero}), Geers({some, zero}), GeersCsa({some, zero})}) {
        EXPECT_EQ(errors.magnitude.Number(), -1.0);
        EXPECT_EQ(errors.phase.Reason(), rating_message::kComputedZero);
        EXPECT_EQ(errors.combined.Reason(), rating_message::kComputedZero);
    }
    EXPECT_EQ(Russell({some, zero}).magnitude.Reason(), rating_message::kComputedZero);
}

TEST(MagnitudePhase, ASingleSampleHasAGainAndASign) {
    ExpectErrors(SpragueGeers({std::array{2.0}, std::array{-3.0}}), 0.5, 1.0, std::sqrt(1.25), 1e-15);
}

TEST(MagnitudePhase, SignalsOfVeryDifferentSizeKeepTheirRatio) {
    const CPairOfSignals pair = WithGain(Wave(100), 1e200);
    EXPECT_NEAR(SpragueGeers(pair.View()).magnitude.Number() / 1e200, 1.0, 1e-14);
    EXPECT_NEAR(SpragueGeers({pair.computed, pair.reference}).magnitude.Number(), -1.0, 1e-14);
    const CMagnitudePhase beyond = SpragueGeers({std::array{1e-300, 0.0}, std::array{1e300, 0.0}});
    EXPECT_EQ(beyond.magnitude.Reason(), rating_message::kBeyondNumbers);
    EXPECT_NEAR(beyond.phase.Number(), 0.0, 1e-15);
}

TEST(MagnitudePhase, WhatCannotBeRatedSaysWhy) {
    const std::array some{1.0, 2.0}, holed{1.0, std::numeric_limits<double>::quiet_NaN()};
    EXPECT_EQ(SpragueGeers({some, holed}).combined.Reason(), rating_message::kComputedNotFinite);
    EXPECT_EQ(Russell({holed, some}).phase.Reason(), rating_message::kReferenceNotFinite);
    EXPECT_EQ(Geers(CSamples{}).magnitude.Reason(), rating_message::kNoSamples);
}

}  // namespace
}  // namespace ratings
