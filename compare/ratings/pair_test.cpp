#include "compare/ratings/pair.h"

#include "compare/comparison.h"
#include "compare/ratings/messages.h"
#include "compare/ratings/testing/pairs.h"
#include "compare/ratings/value.h"
#include "signal/nsignal.h"
#include "tests/support/test_signals.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <vector>

namespace ratings {
namespace {

std::vector<double> Abscissas(std::size_t count, double step, double start = 0.0) {
    return Sampled(count, [=](double i) { return start + i * step; });
}

std::vector<double> InSinglePrecision(std::vector<double> values) {
    for (double& value : values) value = static_cast<double>(static_cast<float>(value));
    return values;
}

TEST(RatedPair, TakesTheShorterOfBothFromTheLaterStart) {
    const ks::CNSignal computed = MakeTimeSignal(Abscissas(90, 0.001, 0.010), Wave(90), 0.001);
    const ks::CNSignal reference = MakeTimeSignal(Abscissas(100, 0.001, 0.0100000001), Wave(100), 0.001);
    const CRatedPair pair = MakeRatedPair(computed, reference);
    EXPECT_EQ(pair.samples.reference.size(), 90U);
    EXPECT_EQ(pair.samples.computed.size(), 90U);
    EXPECT_EQ(pair.time.startS, 0.0100000001);
    EXPECT_EQ(pair.time.stepS, 0.001);
    EXPECT_NEAR(pair.End(), 0.0990000001, 1e-15);
    EXPECT_EQ(pair.timeReason, "");
}

TEST(RatedPair, CutsTheReferenceAsTheComparisonDid) {
    const ks::CNSignal reference = MakeTimeSignal(Sampled(101, [](double i) { return i; }), 0.001);
    ks::CNSignal computed = MakeTimeSignal(Sampled(51, [](double i) { return i + 20.0; }), 0.001, 20);
    CComparison comparison;
    comparison.Compute(computed, reference);
    const CRatedPair pair = MakeRatedPair(computed, reference, comparison);
    ASSERT_EQ(pair.samples.reference.size(), static_cast<std::size_t>(comparison.GetPointCount()));
    EXPECT_THAT(pair.samples.reference, testing::ElementsAreArray(pair.samples.computed));
    EXPECT_EQ(pair.samples.reference.front(), 20.0);
    EXPECT_EQ(pair.samples.reference.back(), 69.0);
    EXPECT_NEAR(pair.time.startS, 0.020, 1e-15);
}

TEST(RatedPair, KeepsAReferenceThatTheComparisonDidNotCut) {
    const ks::CNSignal reference = MakeTimeSignal(Wave(101), 0.001);
    ks::CNSignal computed = reference;
    CComparison comparison;
    comparison.Compute(computed, reference);
    EXPECT_EQ(MakeRatedPair(computed, reference, comparison).samples.reference.size(), 101U);
}

TEST(RatedPair, CutsAReferenceThatStartsWithTheComputedSignalButEndsLater) {
    const ks::CNSignal reference = MakeTimeSignal(Wave(101), 0.001);
    ks::CNSignal computed = MakeTimeSignal(Wave(61), 0.001);
    CComparison comparison;
    comparison.Compute(computed, reference);
    const CRatedPair pair = MakeRatedPair(computed, reference, comparison);
    EXPECT_EQ(pair.samples.reference.size(), 60U);
    EXPECT_THAT(pair.samples.reference, testing::ElementsAreArray(pair.samples.computed));
}

TEST(RatedPair, AFilesSinglePrecisionIsNotUneven) {
    // Near 3 s neighbors in single precision lie 2.4e-7 s apart: 0.24 % of the step.
    const std::vector<double> x = InSinglePrecision(Abscissas(5000, 0.0001, 3.0));
    double largest = 0.0;
    for (std::size_t i = 1; i < x.size(); ++i) largest = std::max(largest, std::abs(x[i] - x[i - 1] - 0.0001));
    ASSERT_GT(largest, 1e-3 * 0.0001);
    const ks::CNSignal record = MakeTimeSignal(x, Wave(5000), 0.0001);
    EXPECT_EQ(MakeRatedPair(record, record).timeReason, "");
}

TEST(RatedPair, UnevenStepsLeaveNoTimeInEitherRecord) {
    const ks::CNSignal even = MakeTimeSignal(Abscissas(50, 0.001), Wave(50), 0.001);
    for (const double departure : {0.9e-6, 1.2e-6, -1.2e-6}) {
        std::vector<double> x = Abscissas(50, 0.001);
        for (std::size_t i = 30; i < 50; ++i) x[i] += departure;
        const ks::CNSignal record = MakeTimeSignal(x, Wave(50), 0.001);
        const std::string_view reason = std::abs(departure) < 1e-6 ? "" : rating_message::kUnevenSteps;
        EXPECT_EQ(MakeRatedPair(record, even).timeReason, reason) << departure;
        EXPECT_EQ(MakeRatedPair(even, record).timeReason, reason) << departure;
    }
}

TEST(RatedPair, WithoutSecondsOrStepTimeSaysWhy) {
    ks::CNSignal meters = MakeTimeSignal(Wave(50), 0.001);
    meters.SetXUNITS("METERS");
    const ks::CNSignal seconds = MakeTimeSignal(Wave(50), 0.001);
    EXPECT_EQ(MakeRatedPair(seconds, meters).timeReason, rating_message::kNotInSeconds);
    EXPECT_EQ(MakeRatedPair(meters, seconds).timeReason, rating_message::kNotInSeconds);
    const ks::CNSignal stepless = MakeTimeSignal(Abscissas(50, 0.001), Wave(50), 0.0);
    EXPECT_EQ(MakeRatedPair(seconds, stepless).timeReason, rating_message::kNoTimeStep);
}

TEST(RatedPair, ARatingThatNeedsTimeGivesThePairsReason) {
    ks::CNSignal meters = MakeTimeSignal(Wave(50), 0.001);
    meters.SetXUNITS("METERS");
    const CRatedPair pair = MakeRatedPair(meters, meters);
    EXPECT_EQ(RateIso18571(pair).r.Reason(), rating_message::kNotInSeconds);
    EXPECT_EQ(RateKnowlesGear(pair).combined.Reason(), rating_message::kNotInSeconds);
    EXPECT_EQ(RateCora(pair).total.Reason(), rating_message::kNotInSeconds);
    EXPECT_TRUE(RateCora(pair, {.widening = 0.0}).isModified);
    EXPECT_TRUE(RateIso18571(pair, {.warpingShare = 0.2}).isModified);
}

TEST(RatedPair, AnEmptyRecordIsAReasonToo) {
    const ks::CNSignal record = MakeTimeSignal(Wave(50), 0.001);
    const CRatedPair pair = MakeRatedPair(ks::CNSignal(), record);
    EXPECT_TRUE(pair.samples.reference.empty());
    EXPECT_EQ(CountAtStep(pair, 0.0001), 0.0);
    EXPECT_EQ(RateIso18571(pair).r.State(), CValueState::Unavailable);
}

TEST(RatedPair, IsInterpolatedOnStraightLinesUpToItsLastSample) {
    const ks::CNSignal reference = MakeTimeSignal(Abscissas(4, 0.0003, 1.0), {0.0, 3.0, 0.0, 6.0}, 0.0003);
    const CRatedPair pair = MakeRatedPair(reference, reference);
    EXPECT_EQ(CountAtStep(pair, 0.0001), 10.0);
    EXPECT_THAT(AtStep(pair, 0.0001).reference,
                testing::Pointwise(testing::DoubleNear(1e-12), {0.0, 1.0, 2.0, 3.0, 2.0, 1.0, 0.0, 2.0, 4.0, 6.0}));
    EXPECT_THAT(AtStep(pair, 0.0004).computed, testing::Pointwise(testing::DoubleNear(1e-12), {0.0, 2.0, 4.0}));
}

TEST(RatedPair, IsoIsRatedAtATenthOfAMillisecond) {
    const auto bell = [](double step) {
        return [step](double i) { return 100.0 * std::exp(-std::pow((i * step - 0.04) / 0.01, 2)); };
    };
    const ks::CNSignal coarse = MakeTimeSignal(Sampled(101, bell(0.001)), 0.001);
    const CIso18571Rating resampled = RateIso18571(MakeRatedPair(coarse, coarse));
    EXPECT_TRUE(resampled.isResampled);
    EXPECT_EQ(resampled.pointCount, 1001U);
    EXPECT_EQ(resampled.r.Number(), 1.0);
    // A file's step of 0.0001 is 2.5e-8 of it off.
    const double fileStep = static_cast<double>(0.0001F);
    const ks::CNSignal fine = MakeTimeSignal(Sampled(1001, bell(fileStep)), fileStep);
    EXPECT_FALSE(RateIso18571(MakeRatedPair(fine, fine)).isResampled);
    EXPECT_EQ(RateIso18571(MakeRatedPair(fine, fine)).pointCount, 1001U);
}

TEST(RatedPair, ALongCoarsePairIsNotInterpolatedBeyondWhatIsRated) {
    const ks::CNSignal longest = MakeTimeSignal(Wave(2100), 0.01);
    const CIso18571Rating rating = RateIso18571(MakeRatedPair(longest, longest));
    EXPECT_EQ(rating.r.Reason(), rating_message::kTooManyForIso);
    EXPECT_TRUE(rating.isResampled);
}

TEST(RatedPair, TheOtherRatingsUseThePairsOwnTime) {
    const ks::CNSignal reference = MakeTimeSignal(DecayingSine(.14), 0.02);
    const ks::CNSignal computed = MakeTimeSignal(DecayingSine(.24), 0.02);
    const CRatedPair pair = MakeRatedPair(computed, reference);
    EXPECT_NEAR(RateKnowlesGear(pair).arrival.Number(), .6830, 0.5e-4);
    EXPECT_EQ(RateCora(pair).lag.Number(), 5.0);
}

}  // namespace
}  // namespace ratings
