#include "compare/ratings/samples.h"

#include "compare/ratings/messages.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <limits>

namespace ratings {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

TEST(Samples, AreRefusedForTheFirstFaultFound) {
    const std::array longer{1.0, 2.0, 3.0};
    const std::array fine{1.0, 2.0}, holed{1.0, std::nan("")}, endless{-HUGE_VAL, 1.0};
    EXPECT_FALSE(WhyNotRated({fine, fine}));
    EXPECT_EQ(WhyNotRated({}), rating_message::kNoSamples);
    EXPECT_EQ(WhyNotRated({fine, longer}), rating_message::kLengthsDiffer);
    EXPECT_EQ(WhyNotRated({holed, endless}), rating_message::kReferenceNotFinite);
    EXPECT_EQ(WhyNotRated({fine, endless}), rating_message::kComputedNotFinite);
}

TEST(Samples, ScalingChangesNoDigit) {
    const CScaled scaled = Scale(std::array{3.0, -5.0, 0.1});
    EXPECT_EQ(scaled.exponent, 2);
    EXPECT_THAT(scaled.values, testing::ElementsAre(0.75, -1.25, 0.1 / 4.0));
    EXPECT_EQ(Scale(std::array{0.0, -0.0}).exponent, 0);
}

TEST(Samples, ScalingTogetherKeepsTheRatio) {
    const std::array small{1.0, 0.5}, large{kLargest, -kLargest};
    const CScaledSamples scaled = ScaleTogether({small, large});
    EXPECT_LT(LargestMagnitude(scaled.computed), std::ldexp(1.0, 25));
    EXPECT_EQ(scaled.reference[0] / scaled.computed[0], 1.0 / kLargest);
}

TEST(Samples, MagnitudesAndConstants) {
    EXPECT_EQ(LargestMagnitude({}), 0.0);
    EXPECT_EQ(LargestMagnitude(std::array{1.0, -3.0, 2.0}), 3.0);
    EXPECT_TRUE(IsConstant({}));
    EXPECT_TRUE(IsConstant(std::array{0.0, -0.0}));
    EXPECT_FALSE(IsConstant(std::array{1.0, 1.0, 1.0000000001}));
}

TEST(Samples, TrapezoidsHalveBothEndsAndLeaveASingleSampleWhole) {
    EXPECT_EQ(TrapezoidWeight(0, 1), 1.0);
    EXPECT_EQ(TrapezoidWeight(0, 2) + TrapezoidWeight(1, 2), 1.0);
    EXPECT_EQ(TrapezoidWeight(0, 3), 0.5);
    EXPECT_EQ(TrapezoidWeight(1, 3), 1.0);
    EXPECT_EQ(TrapezoidWeight(2, 3), 0.5);
}

}  // namespace
}  // namespace ratings
