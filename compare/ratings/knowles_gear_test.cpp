#include "compare/ratings/knowles_gear.h"

#include "compare/ratings/messages.h"
#include "compare/ratings/samples.h"
#include "compare/ratings/testing/pairs.h"
#include "tests/support/expect_error.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace ratings {
namespace {

constexpr CTimeBase kClassicTime{0.0, 0.02};

void ExpectErrors(const CKnowlesGear& errors, double magnitude, double arrival, double combined, double tolerance) {
    EXPECT_NEAR(errors.magnitude.Number(), magnitude, tolerance);
    EXPECT_NEAR(errors.arrival.Number(), arrival, tolerance);
    EXPECT_NEAR(errors.combined.Number(), combined, tolerance);
}

TEST(KnowlesGear, AGainIsAllMagnitude) {
    for (const double gain : {0.5, 1.2}) {
        const CPairOfSignals pair = WithGain(DecayingSine(.14), gain);
        const double m = std::abs(gain - 1.0);
        ExpectErrors(KnowlesGear(pair.View(), kClassicTime), m, 0.0, m * std::sqrt(10.0 / 12.0), 1e-12);
    }
}

TEST(KnowlesGear, ArrivalIsWhereTheLineReachesTheLevel) {
    // Peaks 1 and -2: levels 0.05 and 0.1; the second line rises from 0.02 through 0 to -0.18 and reaches -0.1 after
    // 0.12 of 0.2.
    const CKnowlesGear errors =
        KnowlesGear({std::array{0.0, 0.1, 1.0, 0.0}, std::array{0.02, -0.18, -2.0, 0.0}}, {1.0, 0.5});
    EXPECT_NEAR(errors.referenceArrivalS.Number(), 1.25, 1e-15);
    EXPECT_NEAR(errors.computedArrivalS.Number(), 1.3, 1e-15);
    EXPECT_NEAR(errors.arrival.Number(), 0.05 / 1.25, 1e-15);
}

TEST(KnowlesGear, AReferenceThatArrivesAtTimeZeroHasAMagnitudeErrorOnly) {
    const std::array reference{1.0, 2.0, 1.0}, computed{1.5, 3.0, 1.5};
    const CKnowlesGear errors = KnowlesGear({reference, computed}, {0.0, 0.1});
    EXPECT_NEAR(errors.magnitude.Number(), 0.5, 1e-15);
    EXPECT_EQ(errors.arrival.Reason(), rating_message::kArrivalAtZero);
    EXPECT_EQ(errors.combined.Reason(), rating_message::kArrivalAtZero);
    // The same half a second before and after time zero.
    EXPECT_EQ(KnowlesGear({reference, computed}, {0.5, 0.1}).arrival.Number(), 0.0);
    EXPECT_EQ(KnowlesGear({reference, computed}, {-0.5, 0.1}).arrival.Number(), 0.0);
}

TEST(KnowlesGear, SamplesThatHaveNoPartnerOnceAlignedAreLeftOut) {
    const CKnowlesGear errors = KnowlesGear({std::array{0.0, 0.0, 0.0, 2.0}, std::array{3.0, 9.0, 9.0, 9.0}},
                                            {1.0, 1.0}, {.arrivalShare = 1.0});
    // The computed signal's peak of 9 is at sample 1, the reference's at 3: 9 meets 2.
    EXPECT_NEAR(errors.magnitude.Number(), 3.5, 1e-15);
    EXPECT_NEAR(errors.arrival.Number(), 2.0 / 4.0, 1e-15);
}

TEST(KnowlesGear, WithoutAPartnerWhereTheReferenceHasAValueThereIsNoMagnitudeError) {
    // The lines reach 0.05 at 0.05 of a sample and at 0.099 / 1.049 of one: moved, sample 1 meets what follows the end.
    const CKnowlesGear errors =
        KnowlesGear({std::array{0.0, 1.0, 0.0, 0.0}, std::array{0.0, 0.0, -0.049, 1.0}}, {1.0, 1.0});
    EXPECT_EQ(errors.magnitude.Reason(), rating_message::kNoWeightedOverlap);
    EXPECT_EQ(errors.combined.Reason(), rating_message::kNoWeightedOverlap);
    EXPECT_NEAR(errors.arrival.Number(), (2.0 + 0.099 / 1.049 - 0.05) / 1.05, 1e-14);
}

TEST(KnowlesGear, ZeroSignalsAreNotRated) {
    const std::array zero{0.0, 0.0, 0.0}, some{0.0, 1.0, 0.0};
    EXPECT_EQ(KnowlesGear({zero, some}, {}).magnitude.Reason(), rating_message::kReferenceZero);
    EXPECT_EQ(KnowlesGear({some, zero}, {}).combined.Reason(), rating_message::kComputedZero);
    EXPECT_EQ(KnowlesGear({}, {}).arrival.Reason(), rating_message::kNoSamples);
}

TEST(KnowlesGear, OptionsAreChecked) {
    const std::array some{0.0, 1.0};
    const auto error = [&](const CKnowlesGearOptions& options) {
        return ErrorOf([&] { KnowlesGear({some, some}, {}, options); });
    };
    EXPECT_EQ(error({.arrivalShare = 0.0}), rating_message::kArrivalShare);
    EXPECT_EQ(error({.arrivalShare = 1.1}), rating_message::kArrivalShare);
    EXPECT_EQ(error({.weightExponent = -1.0}), rating_message::kWeightExponent);
}

}  // namespace
}  // namespace ratings
