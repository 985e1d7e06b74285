#include "signal/resample.h"

#include "signal/column.h"
#include "signal/limits.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <span>
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

    CNumberedCurve Curve() const { return {CColumn(x), CColumn(y), first, last, CountOf(first, last)}; }
};

/// Count = number of samples, Y = 1 + 2 X.
Samples Line(std::vector<double> x, std::int32_t first) {
    Samples samples{std::move(x), {}, first, 0};
    for (const double t : samples.x) samples.y.push_back(1.0 + 2.0 * t);
    samples.last = first + static_cast<std::int32_t>(samples.x.size()) - 1;
    return samples;
}

CColumn Resampled(const Samples& samples, double timeStep) {
    const std::optional<CPointRange> range = ResampledRange(samples.Curve(), timeStep);
    EXPECT_TRUE(range.has_value());
    return range ? Interpolate(samples.Curve(), *range, timeStep) : CColumn();
}

void ExpectRange(const Samples& samples, double timeStep, std::int32_t first, std::int32_t last) {
    const std::optional<CPointRange> range = ResampledRange(samples.Curve(), timeStep);
    ASSERT_TRUE(range.has_value());
    EXPECT_EQ(range->first, first);
    EXPECT_EQ(range->last, last);
}

TEST(IsAscending, AllowsEqualNeighbors) {
    EXPECT_TRUE(IsAscending(CColumn({0.0, 0.001, 0.001, 0.002})));
    EXPECT_FALSE(IsAscending(CColumn({0.0, 0.002, 0.001})));
    EXPECT_TRUE(IsAscending(CColumn(std::vector{1.0})));
    EXPECT_TRUE(IsAscending(CColumn()));
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

// The ways that avoid the search, against the search written down once more.

/// The search of Interpolate, sample by sample, over abscissas as an array.
std::vector<double> Searched(const CNumberedCurve& curve, const CPointRange& range, double timeStep) {
    const std::vector<double> x = curve.x.ToVector();
    const std::vector<double> y = curve.y.ToVector();
    const std::size_t last = std::min({x.size(), y.size(), static_cast<std::size_t>(curve.count)}) - 1;
    std::vector<double> values(static_cast<std::size_t>(CountOf(range.first, range.last)));
    for (std::size_t j = 0, high = 1; j < values.size(); ++j) {
        const double t = static_cast<double>(range.first + static_cast<std::int64_t>(j)) * timeStep;
        while (high < last && t > x[high]) ++high;
        std::size_t low = high - 1;
        while (low > 0 && x[low] > t) --low;
        values[j] = y[low] + (t - x[low]) / (x[high] - x[low]) * (y[high] - y[low]);
    }
    return values;
}

/// The bits, except that all that is not a number is alike.
std::vector<std::uint64_t> Bits(std::span<const double> values) {
    std::vector<std::uint64_t> bits;
    for (const double value : values) bits.push_back(std::bit_cast<std::uint64_t>(std::isnan(value) ? kNaN : value));
    return bits;
}

/// Values of every magnitude, among them denormal ones, zeros of both signs, infinities, and not-a-number.
std::vector<double> AnyValues(std::size_t count, std::mt19937_64& random) {
    std::vector<double> values(count);
    for (double& value : values) {
        const std::uint64_t kind = random() % 16;
        value = std::bit_cast<double>(random());  // any exponent is as likely as another
        if (kind < 8) value = std::ldexp(static_cast<double>(random() % 2001) - 1000.0, -3);
        if (kind == 8) value = std::bit_cast<double>(random() % 1000);
        if (kind == 9) value = random() % 2 == 0 ? 0.0 : -0.0;
        if (kind == 10) value = random() % 2 == 0 ? kInfinity : -kInfinity;
    }
    return values;
}

void ExpectAsSearched(const CNumberedCurve& curve, const CPointRange& range, double timeStep) {
    const CColumn values = Interpolate(curve, range, timeStep);
    ASSERT_EQ(Bits(values), Bits(Searched(curve, range, timeStep)))
        << "step " << timeStep << ", points " << range.first << " to " << range.last;
}

/// The range that a resampling covers, and ranges that begin before the samples or end after them.
void ExpectAsSearchedInManyRanges(const CNumberedCurve& curve, double timeStep) {
    const std::optional<CPointRange> range = ResampledRange(curve, timeStep);
    ASSERT_TRUE(range.has_value());
    ExpectAsSearched(curve, *range, timeStep);
    ExpectAsSearched(curve, {range->first - 3, range->last + 5}, timeStep);
    ExpectAsSearched(curve, {range->first + 2, range->last - 2}, timeStep);
    ExpectAsSearched(curve, {range->first - 9, range->first - 2}, timeStep);
    ExpectAsSearched(curve, {range->last + 2, range->last + 9}, timeStep);
}

CNumberedCurve CurveOver(CColumn x, std::vector<double> y, std::int32_t first) {
    const auto count = static_cast<std::int32_t>(y.size());
    return {std::move(x), CColumn(std::move(y)), first, first + count - 1, count};
}

TEST(Interpolate, AtTheStepOfARegularAxisGivesTheBitsOfTheSearch) {
    std::mt19937_64 random(1);
    for (const double step : {1e-4, 0.1, 1.0, 1e300, 4.9e-324, 1e-310, 3.7e-5}) {
        for (const std::int32_t first : {0, 1, -1, -700, 1'000'000}) {
            for (const std::size_t count : {2U, 3U, 5U, 1500U}) {
                if (!std::isfinite(step * (first + static_cast<double>(count)))) continue;
                const CColumn x = CColumn::Regular({step, first}, count);
                ExpectAsSearchedInManyRanges(CurveOver(x, AnyValues(count, random), first), step);
            }
        }
    }
}

TEST(Interpolate, AtTheStepWithFewerKnownThanStoredSamplesGivesTheBitsOfTheSearch) {
    std::mt19937_64 random(2);
    for (const std::int32_t count : {1, 2, 3, 10}) {
        CNumberedCurve curve = CurveOver(CColumn::Regular({0.5, 0}, 20), AnyValues(20, random), 0);
        curve.count = count;
        for (const std::int32_t first : {-2, 0, 1, 5}) ExpectAsSearched(curve, {first, 15}, 0.5);
    }
}

TEST(Interpolate, AtAnotherStepOfARegularAxisGivesTheBitsOfTheSearch) {
    std::mt19937_64 random(3);
    for (const CRulePrecision precision : {CRulePrecision::Double, CRulePrecision::Single}) {
        for (const double factor : {0.3, 0.7, 0.999, 0.99999, 1.00001, 1.001, 1.3, 17.0}) {
            const double step = static_cast<double>(1e-4F);
            for (const std::int32_t first : {0, -700, 1'000'000}) {
                const CColumn x = CColumn::Regular({step, first, precision}, 3000);
                ExpectAsSearchedInManyRanges(CurveOver(x, AnyValues(3000, random), first), factor * step);
            }
        }
    }
}

TEST(Interpolate, AtTheStepOfSinglePrecisionAbscissasGivesTheBitsOfTheSearch) {
    std::mt19937_64 random(4);
    for (const float step : {1e-4F, 1e-5F, 0.3F}) {
        // From 16 777 216 on, neighbors in single precision are equal.
        for (const std::int32_t first : {0, -1500, 900'000, 16'776'000, 40'000'000}) {
            const CColumn x = CColumn::Regular({static_cast<double>(step), first, CRulePrecision::Single}, 3000);
            const CNumberedCurve curve = CurveOver(x, AnyValues(3000, random), first);
            ExpectAsSearchedInManyRanges(curve, static_cast<double>(step));
            ExpectAsSearchedInManyRanges({CColumn(x.ToVector()), curve.y, first, first + 2999, 3000},
                                         static_cast<double>(step));
        }
    }
}

TEST(Interpolate, OverRaggedAbscissasGivesTheBitsOfTheSearch) {
    std::mt19937_64 random(5);
    for (const std::uint64_t spread : {1U, 40U, 400U, 1200U}) {
        std::vector<double> x(3000);
        for (std::size_t i = 0; i < x.size(); ++i) {
            x[i] = static_cast<double>(i) + static_cast<double>(random() % spread) / 400.0;
        }
        std::ranges::sort(x);
        x[1000] = x[1001] = x[1002];
        x[2000] = kNaN;  // compares as neither smaller nor larger
        for (const double step : {0.9, 1.0, 1.1}) {
            ExpectAsSearched(CurveOver(CColumn(x), AnyValues(x.size(), random), 0), {-3, 3400}, step);
        }
    }
}

}  // namespace
}  // namespace ks
