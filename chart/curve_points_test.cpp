#include "chart/curve_points.h"

#include "chart/chart_control.h"
#include "chart/view_range.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <memory>
#include <random>
#include <utility>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kPadding = 2.220446049250313e-16;
constexpr CDrawnPoints kDrawn{{kPadding, kPadding}};

CSharedValues Shared(std::vector<double> values) {
    const auto kept = std::make_shared<const std::vector<double>>(std::move(values));
    return {kept, *kept};
}

CCurvePoints Curve(std::vector<double> x, std::vector<double> y) {
    return {Shared(std::move(x)), Shared(std::move(y)), kDrawn};
}

std::vector<CPointRun> Runs(const std::vector<double>& x, const std::vector<double>& y) {
    const CCurvePoints curve = Curve(x, y);
    return {curve.Runs().begin(), curve.Runs().end()};
}

std::vector<double> UpTo(std::size_t count) {
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i) values[i] = static_cast<double>(i);
    return values;
}

TEST(CurvePoints, DrawsAllPointsOfASoundSeries) {
    EXPECT_THAT(Runs({1.0, 2.0, 3.0}, {0.0, 0.0, 0.0}), ElementsAre(CPointRun{0, 3}));
}

TEST(CurvePoints, LeavesOutPaddingAtTheEnd) {
    EXPECT_THAT(Runs({1.0, 2.0, kPadding, kPadding}, {0.0, 0.0, kPadding, kPadding}), ElementsAre(CPointRun{0, 2}));
}

TEST(CurvePoints, AnyNumberOfMissingPointsIsOneGap) {
    EXPECT_THAT(Runs({1.0, 2.0, 3.0, 4.0}, {0.0, kPadding, kPadding, 0.0}),
                ElementsAre(CPointRun{0, 1}, CPointRun{3, 4}));
}

TEST(CurvePoints, MissingPointsAtTheStartAreNoGap) {
    EXPECT_THAT(Runs({1.0, 2.0}, {kPadding, 0.0}), ElementsAre(CPointRun{1, 2}));
}

TEST(CurvePoints, PointsThatAreNotFiniteOrBeyondDrawingAreGaps) {
    for (const double missing : {kInf, -kInf, kNan, 1e250, -1e200}) {
        EXPECT_THAT(Runs({1.0, 2.0, 3.0}, {0.0, missing, 0.0}), ElementsAre(CPointRun{0, 1}, CPointRun{2, 3}));
        EXPECT_THAT(Runs({1.0, missing, 3.0}, {0.0, 0.0, 0.0}), ElementsAre(CPointRun{0, 1}, CPointRun{2, 3}));
    }
}

TEST(CurvePoints, WithoutANoDataValueEveryFiniteValueIsDrawn) {
    const CCurvePoints curve(Shared({kPadding, 0.0}), Shared({kPadding, 0.0}), {});
    EXPECT_THAT(curve.Runs(), ElementsAre(CPointRun{0, 2}));
}

TEST(CurvePoints, PaddingAloneHasNoPointAndNoRange) {
    const CCurvePoints curve = Curve({kPadding, kPadding}, {kPadding, kPadding});
    EXPECT_THAT(curve.Runs(), IsEmpty());
    EXPECT_FALSE(curve.XRange().HasValues());
    EXPECT_FALSE(curve.YRange().HasValues());
    EXPECT_FALSE(curve.IsOnePoint());
}

TEST(CurvePoints, NoPointsAtAllAreACurve) {
    const CCurvePoints curve = Curve({}, {});
    EXPECT_THAT(curve.Runs(), IsEmpty());
    EXPECT_FALSE(curve.YRange().HasValues());
}

TEST(CurvePoints, OnePointIsOnePointWithOrWithoutPadding) {
    EXPECT_TRUE(Curve({1.0}, {2.0}).IsOnePoint());
    EXPECT_TRUE(Curve({1.0, kPadding}, {2.0, kPadding}).IsOnePoint());
    EXPECT_FALSE(Curve({1.0, 2.0}, {2.0, 2.0}).IsOnePoint());
    EXPECT_FALSE(Curve({1.0, kPadding, 2.0}, {2.0, kPadding, 2.0}).IsOnePoint());
}

TEST(CurvePoints, RangesAreThoseOfTheDrawnPoints) {
    const CCurvePoints curve = Curve({1.0, 2.0, kPadding, 4.0, 9.0}, {5.0, -3.0, 7.0, 6.0, kNan});
    EXPECT_EQ(curve.XRange().Range(), (CViewRange{1.0, 4.0}));
    EXPECT_EQ(curve.YRange().Range(), (CViewRange{-3.0, 6.0}));
    EXPECT_EQ(Curve({3.0, 1.0, 2.0}, {0.0, 0.0, 0.0}).XRange().Range(), (CViewRange{1.0, 3.0}));
}

/// Blocks are looked at as a whole, so a fall may hide within one or between two of them, before or after a gap.
TEST(CurvePoints, FindsAFallAnywhere) {
    constexpr std::size_t kCount = 300;
    EXPECT_TRUE(Curve(UpTo(kCount), UpTo(kCount)).Rises());
    EXPECT_TRUE(Curve(std::vector<double>(kCount, 1.0), UpTo(kCount)).Rises());
    for (const bool hasGap : {false, true}) {
        for (std::size_t fall = 1; fall < kCount; ++fall) {
            std::vector<double> x = UpTo(kCount);
            std::vector<double> y(kCount, 0.0);
            for (std::size_t i = fall; i < kCount; ++i) x[i] -= 2.0;
            if (hasGap && fall > 5 && fall + 5 < kCount) std::fill_n(y.begin() + static_cast<int>(fall) - 3, 3, kNan);
            EXPECT_EQ(Curve(x, y).Rises(), y[fall - 1] != 0.0) << fall;
        }
    }
}

TEST(CurvePoints, APointThatIsNotDrawnIsNoFall) {
    std::vector<double> x = UpTo(200);
    std::vector<double> y(200, 1.0);
    x[100] = -50.0;
    EXPECT_FALSE(Curve(x, y).Rises());
    y[100] = kNan;
    EXPECT_TRUE(Curve(x, y).Rises());
}

/// Against a plain loop: random values with and without gaps, random parts, lengths around the block sizes.
TEST(CurvePoints, ExtremesAreThoseOfAPlainLoop) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> value(-100.0, 100.0);
    for (const std::size_t count : std::array<std::size_t, 7>{1, 63, 64, 65, 1024, 20000, 70001}) {
        for (const double gaps : {0.0, 0.002, 0.5}) {
            std::bernoulli_distribution isGap(gaps);
            std::vector<double> y(count);
            for (double& each : y) each = isGap(random) ? kPadding : value(random);
            const CCurvePoints curve = Curve(UpTo(count), y);
            std::uniform_int_distribution<std::size_t> place(0, count);
            for (int part = 0; part < 50; ++part) {
                const auto [first, end] = std::minmax({place(random), place(random)});
                CExtremes expected;
                for (std::size_t i = first; i < end; ++i)
                    if (y[i] != kPadding) expected.Add(y[i]);
                ASSERT_EQ(curve.YExtremes(first, end), expected) << count << ' ' << first << ' ' << end;
            }
        }
    }
}

}  // namespace
