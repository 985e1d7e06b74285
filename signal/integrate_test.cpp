#include "signal/integrate.h"

#include "signal/column.h"
#include "signal/limits.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <vector>

namespace ks {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;

template <class Function>
std::vector<double> Sampled(const std::vector<double>& x, Function function) {
    std::vector<double> y;
    for (const double t : x) y.push_back(function(t));
    return y;
}

TEST(TimeZeroIndex, IsTheSampleWithPointNumberZero) {
    EXPECT_EQ(TimeZeroIndex(-20, 100), 20U);
    EXPECT_EQ(TimeZeroIndex(0, 100), 0U);
}

TEST(TimeZeroIndex, IsTheFirstSampleWhenPointsBeginAfterZero) {
    EXPECT_EQ(TimeZeroIndex(5, 100), 0U);
}

TEST(TimeZeroIndex, IsTheLastSampleWhenPointsEndBeforeZero) {
    EXPECT_EQ(TimeZeroIndex(-99, 100), 99U);
    EXPECT_EQ(TimeZeroIndex(-100, 100), 99U);
    EXPECT_EQ(TimeZeroIndex(std::numeric_limits<std::int32_t>::min(), 100), 99U);
}

TEST(CumulativeIntegral, OfAConstantIsALine) {
    const std::vector<double> x = RegularAxis(0, 1001, 0.0001);
    const std::vector<double> y(x.size(), 3.0);
    const std::vector<double> expected = Sampled(x, [](double t) { return 7.0 + 2.0 * 3.0 * t; });

    EXPECT_THAT(CumulativeIntegral(CColumn(x), y, 0, 2.0, 7.0), Pointwise(DoubleNear(1e-12), expected));
}

TEST(CumulativeIntegral, OfARampIsAParabolaAndRunsBothWays) {
    // The trapezoid rule is exact for a line.
    const std::vector<double> x = RegularAxis(-200, 501, 0.001);
    const std::vector<double> y = Sampled(x, [](double t) { return 4.0 * t + 1.0; });
    const std::vector<double> expected = Sampled(x, [](double t) { return 5.0 + 2.0 * t * t + t; });

    EXPECT_THAT(CumulativeIntegral(CColumn(x), y, 200, 1.0, 5.0), Pointwise(DoubleNear(1e-12), expected));
}

TEST(CumulativeIntegral, OfASineIsTheTrapezoidSumInClosedForm) {
    // The trapezoid sums of sin(w t) at step h are (h / 2) cot(w h / 2) (1 - cos(w t)).
    const double h = 0.001;
    const double w = 2.0 * std::numbers::pi * 25.0;
    const std::vector<double> x = RegularAxis(-100, 301, h);
    const std::vector<double> y = Sampled(x, [&](double t) { return std::sin(w * t); });
    const std::vector<double> expected =
        Sampled(x, [&](double t) { return h / 2.0 / std::tan(w * h / 2.0) * (1.0 - std::cos(w * t)); });

    EXPECT_THAT(CumulativeIntegral(CColumn(x), y, 100, 1.0, 0.0), Pointwise(DoubleNear(1e-14), expected));
}

TEST(CumulativeIntegral, WeighsUnequalSteps) {
    EXPECT_THAT(CumulativeIntegral(CColumn({0.0, 1.0, 3.0, 3.0}), std::vector{0.0, 2.0, 4.0, 9.0}, 1, 1.0, 10.0),
                ElementsAre(9.0, 10.0, 16.0, 16.0));
}

TEST(CumulativeIntegral, FallsBackwardsFromTheAnchorForAPositiveSignal) {
    EXPECT_THAT(CumulativeIntegral(CColumn({0.0, 1.0, 2.0}), std::vector{2.0, 2.0, 2.0}, 2, 1.0, 0.0),
                ElementsAre(-4.0, -2.0, 0.0));
}

TEST(CumulativeIntegral, OverARegularAxisIsTheOneOverItsValues) {
    const CColumn x = CColumn::Regular({0.001, -50}, 200);
    const std::vector<double> y = Sampled(x.ToVector(), [](double t) { return std::exp(3.0 * t); });
    EXPECT_EQ(CumulativeIntegral(x, y, 50, 1.5, 7.0), CumulativeIntegral(CColumn(x.ToVector()), y, 50, 1.5, 7.0));
}

TEST(CumulativeIntegral, OfOneSampleIsTheInitialValue) {
    EXPECT_THAT(CumulativeIntegral(CColumn(std::vector{3.0}), std::vector{9.0}, 0, 1.0, 0.5), ElementsAre(0.5));
}

}  // namespace
}  // namespace ks
