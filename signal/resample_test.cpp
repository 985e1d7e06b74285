#include "signal/resample.h"

#include "signal/limits.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace ks {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

/// A curve over given abscissas that owns its arrays.
struct Samples {
    std::vector<double> x, y;
    std::int32_t first = 0, last = 0;

    CNumberedCurve Curve() const { return {x, y, first, last, CountOf(first, last)}; }
};

/// Count = number of samples, Y = 1 + 2 X.
Samples Line(std::vector<double> x, std::int32_t first) {
    Samples samples{std::move(x), {}, first, 0};
    for (const double t : samples.x) samples.y.push_back(1.0 + 2.0 * t);
    samples.last = first + static_cast<std::int32_t>(samples.x.size()) - 1;
    return samples;
}

std::vector<double> Resampled(const Samples& samples, double timeStep) {
    const std::optional<CPointRange> range = ResampledRange(samples.Curve(), timeStep);
    EXPECT_TRUE(range.has_value());
    return range ? Interpolate(samples.Curve(), *range, timeStep) : std::vector<double>{};
}

void ExpectRange(const Samples& samples, double timeStep, std::int32_t first, std::int32_t last) {
    const std::optional<CPointRange> range = ResampledRange(samples.Curve(), timeStep);
    ASSERT_TRUE(range.has_value());
    EXPECT_EQ(range->first, first);
    EXPECT_EQ(range->last, last);
}

TEST(IsAscending, AllowsEqualNeighbors) {
    EXPECT_TRUE(IsAscending(std::vector{0.0, 0.001, 0.001, 0.002}));
    EXPECT_FALSE(IsAscending(std::vector{0.0, 0.002, 0.001}));
    EXPECT_TRUE(IsAscending(std::vector{1.0}));
    EXPECT_TRUE(IsAscending({}));
}

TEST(ResampledRange, CoversTheMultiplesInsideTheSamples) {
    ExpectRange(Line(RegularAxis(0, 21, 0.0005), 0), 0.001, 0, 10);
    ExpectRange(Line(RegularAxis(0, 11, 0.001), 0), 0.0005, 0, 20);
    ExpectRange(Line({0.0, 0.4, 0.8, 1.2}, 0), 0.5, 0, 2);
}

TEST(ResampledRange, CountsASampleJustBeforeAMultipleAsOnIt) {
    ExpectRange(Line({0.0, 0.5, 0.9951}, 0), 0.5, 0, 2);
    ExpectRange(Line({0.0, 0.5, 0.9949}, 0), 0.5, 0, 1);
}

TEST(ResampledRange, LosesTheFirstSampleWhenPointsStandBeforeTimeZero) {
    // trunc(-10 + 0.01) is -9: kept on purpose.
    ExpectRange(Line(RegularAxis(-10, 31, 0.001), -10), 0.001, -9, 20);
}

TEST(ResampledRange, IsBoundByTheOldPointNumbers) {
    // The axis begins at 5 and ends at 8, the point numbers say 0 to 3: F at most NLP - 1, L at least NFP + 1.
    Samples samples = Line({5.0, 6.0, 7.0, 8.0}, 0);
    ExpectRange(samples, 1.0, 2, 8);

    samples.first = 100;
    samples.last = 103;
    ExpectRange(samples, 1.0, 5, 101);
}

TEST(ResampledRange, HasNoValueForACountOfZero) {
    Samples samples = Line({0.0, 1.0, 2.0}, 0);
    samples.last = 0;
    EXPECT_EQ(ResampledRange(samples.Curve(), 0.5), std::nullopt);

    samples.first = 3;
    samples.last = 2;
    EXPECT_EQ(ResampledRange(samples.Curve(), 0.5), std::nullopt);
}

TEST(ResampledRange, HasNoValueForAStepLongerThanTheSamples) {
    // m = trunc(2 / dt + 0.99) is 1 up to dt = 200 and 0 from there on.
    const Samples samples = Line({0.0, 1.0, 2.0}, 0);
    EXPECT_NE(ResampledRange(samples.Curve(), 199.0), std::nullopt);
    EXPECT_EQ(ResampledRange(samples.Curve(), 201.0), std::nullopt);
    EXPECT_EQ(ResampledRange(samples.Curve(), kInfinity), std::nullopt);
    EXPECT_EQ(ResampledRange(samples.Curve(), kNaN), std::nullopt);
}

TEST(ResampledRange, HasNoValueForAConstantAxisOrOneSample) {
    EXPECT_EQ(ResampledRange(Line({1.0, 1.0, 1.0}, 0).Curve(), 0.5), std::nullopt);
    EXPECT_EQ(ResampledRange(Line({1.0}, 7).Curve(), 0.5), std::nullopt);
}

TEST(ResampledRange, HasNoValueWhereANumberLeaves32Bits) {
    EXPECT_EQ(ResampledRange(Line({0.0, 1.0}, 0).Curve(), 1e-10), std::nullopt) << "m";
    EXPECT_EQ(ResampledRange(Line({0.0, 1.0}, 0).Curve(), 1e-310), std::nullopt) << "m infinite";
    EXPECT_EQ(ResampledRange(Line({-3e9, -3e9 + 2.0}, 0).Curve(), 1.0), std::nullopt) << "F";
    EXPECT_EQ(ResampledRange(Line({3e9, 3e9 + 2.0}, 0).Curve(), 1.0), std::nullopt) << "F and L";
    EXPECT_EQ(ResampledRange(Line({0.0, kInfinity}, 0).Curve(), 1.0), std::nullopt);
    EXPECT_EQ(ResampledRange(Line({0.0, kNaN}, 0).Curve(), 1.0), std::nullopt);

    Samples samples = Line({0.0, 1.0, 2.0}, 0);
    samples.first = kLeast;
    samples.last = kLeast;
    EXPECT_EQ(ResampledRange(samples.Curve(), 1.0), std::nullopt) << "NLP - 1";
    samples.first = kMost;
    samples.last = kMost;
    EXPECT_EQ(ResampledRange(samples.Curve(), 1.0), std::nullopt) << "NFP + 1";
}

TEST(ResampledRange, HasNoValueForMoreThanAHundredMillionPoints) {
    ExpectRange(Line({0.0, 99'999'999.0}, 0), 1.0, 0, 99'999'999);
    EXPECT_EQ(ResampledRange(Line({0.0, 100'000'000.0}, 0).Curve(), 1.0), std::nullopt);
}

TEST(Interpolate, IsExactForALine) {
    const Samples samples = Line({0.0, 0.3, 0.35, 1.2, 2.0}, 0);
    const std::vector<double> expected{1.0, 1.5, 2.0, 2.5, 3.0, 3.5, 4.0, 4.5, 5.0};

    EXPECT_THAT(Resampled(samples, 0.25), Pointwise(DoubleNear(1e-14), expected));
}

TEST(Interpolate, JoinsNeighborsByStraightLines) {
    const Samples samples{{0.0, 1.0, 2.0, 4.0}, {0.0, 1.0, -1.0, 3.0}, 0, 3};

    EXPECT_THAT(Resampled(samples, 0.5), ElementsAre(0.0, 0.5, 1.0, 0.0, -1.0, 0.0, 1.0, 2.0, 3.0));
}

TEST(Interpolate, ContinuesTheFirstAndTheLastLineBeyondTheSamples) {
    const Samples samples{{1.0, 2.0, 3.0}, {10.0, 20.0, 0.0}, 0, 2};

    // Targets 0 ... 5: before 1 the slope is 10, after 3 it is -20.
    EXPECT_THAT(Interpolate(samples.Curve(), {0, 5}, 1.0), ElementsAre(0.0, 10.0, 20.0, 0.0, -20.0, -40.0));
}

TEST(Interpolate, DividesByZeroWhereTheBracketHasEqualAbscissas) {
    // The only target after the samples lies after the last two, which are equal: (3 - 2) / 0 * (5 - 2).
    const Samples samples{{0.0, 1.0, 2.0, 2.0}, {0.0, 1.0, 2.0, 5.0}, 0, 3};

    EXPECT_THAT(Interpolate(samples.Curve(), {0, 3}, 1.0), ElementsAre(0.0, 1.0, 2.0, kInfinity));
}

TEST(Interpolate, PassesOverEqualAbscissasBetweenOthers) {
    const Samples samples{{0.0, 1.0, 1.0, 2.0}, {0.0, 1.0, 5.0, 6.0}, 0, 3};

    EXPECT_THAT(Interpolate(samples.Curve(), {0, 4}, 0.5), ElementsAre(0.0, 0.5, 1.0, 5.5, 6.0));
}

TEST(Interpolate, UsesOnlyTheSamplesThatThePointNumbersKnow) {
    // Count 2: after 1 the line through the first two samples continues, the later ones are not looked at.
    Samples samples{{0.0, 1.0, 2.0, 3.0}, {0.0, 1.0, 7.0, 9.0}, 0, 1};
    EXPECT_THAT(Resampled(samples, 1.0), ElementsAre(0.0, 1.0));
    EXPECT_THAT(Interpolate(samples.Curve(), {0, 3}, 1.0), ElementsAre(0.0, 1.0, 2.0, 3.0));
}

TEST(Interpolate, UsesTheStoredSamplesWhereThePointNumbersKnowMore) {
    Samples samples = Line({0.0, 1.0, 2.0}, 0);
    samples.last = 1000;
    EXPECT_THAT(Resampled(samples, 1.0), ElementsAre(1.0, 3.0, 5.0));
}

TEST(Interpolate, StaysInsideTheArraysForACountOfOne) {
    Samples samples = Line({0.0, 1.0, 2.0}, 7);
    samples.last = 7;

    // F = min(0, 6), L = max(0, 8); the count of 1 keeps to the line of the first two samples.
    EXPECT_THAT(Resampled(samples, 1.0), ElementsAre(1.0, 3.0, 5.0, 7.0, 9.0, 11.0, 13.0, 15.0, 17.0));
}

TEST(Interpolate, GivesNothingForBothEndsZeroOrCrossedEnds) {
    const Samples samples = Line({0.0, 1.0, 2.0}, 0);
    EXPECT_THAT(Interpolate(samples.Curve(), {0, 0}, 1.0), testing::IsEmpty());
    EXPECT_THAT(Interpolate(samples.Curve(), {2, 1}, 1.0), testing::IsEmpty());
}

}  // namespace
}  // namespace ks
