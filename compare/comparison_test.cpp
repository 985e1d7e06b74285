#include "compare/comparison.h"

#include "files/error.h"
#include "signal/nsignal.h"
#include "tests/support/test_signals.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

namespace {

using testing::DoubleNear;
using testing::Each;
using testing::ElementsAre;
using testing::NanSensitiveDoubleEq;

constexpr double kStep = 0.001;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// The measures of two value lists on the same samples from time 0 on.
CComparison Compared(const std::vector<double>& computed, const std::vector<double>& reference,
                     double corridorSize = 4.0) {
    ks::CNSignal record = MakeTimeSignal(computed, kStep);
    CComparison measures;
    measures.SetCorridor(corridorSize);
    measures.Compute(record, MakeTimeSignal(reference, kStep));
    return measures;
}

std::vector<double> AllOf(const CComparison& measures) {
    std::vector<double> all{measures.GetMeanSquareResidual(),
                            measures.GetComputedPeak(),
                            measures.GetReferencePeak(),
                            measures.GetComputedMaximum(),
                            measures.GetReferenceMaximum(),
                            measures.GetComputedMinimum(),
                            measures.GetReferenceMinimum(),
                            measures.GetResidualStandardDeviation(),
                            measures.GetResidualSum(),
                            measures.GetResidualSumOfSquares(),
                            measures.GetPercentOutsideCorridor(),
                            static_cast<double>(measures.GetPointCount()),
                            measures.GetCorrelationFactor(),
                            measures.GetMagnitudeError(),
                            measures.GetPhaseError(),
                            measures.GetComprehensiveError(),
                            measures.GetTStatistic(),
                            measures.GetMinimumTime(),
                            measures.GetMaximumTime()};
    all.insert(all.end(), measures.GetMomentDifferences().begin(), measures.GetMomentDifferences().end());
    return all;
}

TEST(Comparison, StartsWithZerosAndACorridorOfFour) {
    const CComparison measures;

    EXPECT_THAT(AllOf(measures), Each(0.0));
    EXPECT_EQ(measures.GetCorridorSize(), 4.0);
}

TEST(Comparison, CopyingCopiesEveryField) {
    const CComparison measures = Compared({1.0, 5.0, 2.0, 4.0}, {2.0, 3.0, 7.0, 1.0}, 0.5);
    const CComparison copy = measures;

    EXPECT_EQ(AllOf(copy), AllOf(measures));
    EXPECT_EQ(copy.GetCorridorSize(), 0.5);
}

// Equal signals.

TEST(Comparison, OfEqualSignalsFindsNoDifference) {
    const CComparison measures = Compared({0.0, 3.0, -2.0, 5.0, 1.0}, {0.0, 3.0, -2.0, 5.0, 1.0});

    EXPECT_EQ(measures.GetResidualSum(), 0.0);
    EXPECT_EQ(measures.GetResidualSumOfSquares(), 0.0);
    EXPECT_EQ(measures.GetMeanSquareResidual(), 0.0);
    EXPECT_EQ(measures.GetResidualStandardDeviation(), 0.0);
    EXPECT_EQ(measures.GetPercentOutsideCorridor(), 0.0);
    EXPECT_THAT(measures.GetMomentDifferences(), Each(0.0));
    EXPECT_THAT(measures.GetCorrelationFactor(), DoubleNear(1.0, 1e-15));
    EXPECT_THAT(measures.GetMagnitudeError(), DoubleNear(0.0, 1e-15));
    EXPECT_THAT(measures.GetPhaseError(), DoubleNear(0.0, 1e-15));
    EXPECT_THAT(measures.GetComprehensiveError(), DoubleNear(0.0, 1e-15));
}

TEST(Comparison, OfEqualSignalsHasNoTStatistic) {
    EXPECT_TRUE(std::isnan(Compared({1.0, 2.0, 3.0}, {1.0, 2.0, 3.0}).GetTStatistic()));
}

// Peaks.

TEST(Comparison, TakesTheFirstValueIntoThePeakWithItsSign) {
    const CComparison measures = Compared({-10.0, -3.0, -1.0, 0.0}, {-20.0, 0.5, -7.0, 0.0});

    EXPECT_EQ(measures.GetComputedPeak(), 3.0);
    EXPECT_EQ(measures.GetReferencePeak(), 7.0);
}

TEST(Comparison, LeavesANegativeFirstValueAsThePeakOfTwoPoints) {
    EXPECT_EQ(Compared({-10.0, 50.0}, {1.0, 1.0}).GetComputedPeak(), -10.0);
}

TEST(Comparison, KeepsALargeFirstValueAsThePeak) {
    EXPECT_EQ(Compared({10.0, -3.0, 2.0, 0.0}, {1.0, 1.0, 1.0, 1.0}).GetComputedPeak(), 10.0);
}

TEST(Comparison, NeverLooksAtTheLastPointForPeaksAndResiduals) {
    const CComparison plain = Compared({1.0, 2.0, 3.0, 4.0}, {0.5, 1.0, 2.5, 3.0});
    const CComparison largeEnd = Compared({1.0, 2.0, 3.0, 4000.0}, {0.5, 1.0, 2.5, -3000.0});

    EXPECT_EQ(largeEnd.GetComputedPeak(), plain.GetComputedPeak());
    EXPECT_EQ(largeEnd.GetReferencePeak(), plain.GetReferencePeak());
    EXPECT_EQ(largeEnd.GetResidualSum(), plain.GetResidualSum());
    EXPECT_EQ(largeEnd.GetResidualSumOfSquares(), plain.GetResidualSumOfSquares());
    EXPECT_EQ(largeEnd.GetMeanSquareResidual(), plain.GetMeanSquareResidual());
    EXPECT_EQ(largeEnd.GetResidualStandardDeviation(), plain.GetResidualStandardDeviation());
    EXPECT_EQ(largeEnd.GetPercentOutsideCorridor(), plain.GetPercentOutsideCorridor());
}

TEST(Comparison, TakesExtremaFromTheRecords) {
    const CComparison measures = Compared({1.0, -2.0, 3.0, 40.0}, {0.5, 1.0, -25.0, 3.0});

    EXPECT_EQ(measures.GetComputedMaximum(), 40.0);
    EXPECT_EQ(measures.GetComputedMinimum(), -2.0);
    EXPECT_EQ(measures.GetReferenceMaximum(), 3.0);
    EXPECT_EQ(measures.GetReferenceMinimum(), -25.0);
}

// Residuals.

TEST(Comparison, DividesResidualSumsOfAllButTheLastPointByAllPoints) {
    // Residuals 1, 2, 3 and an unseen one: sum 6, sum of squares 14, N = 4.
    const CComparison measures = Compared({1.0, 2.0, 3.0, 9.0}, {0.0, 0.0, 0.0, 0.0});

    EXPECT_EQ(measures.GetPointCount(), 4);
    EXPECT_EQ(measures.GetResidualSum(), 6.0);
    EXPECT_EQ(measures.GetResidualSumOfSquares(), 14.0);
    EXPECT_EQ(measures.GetMeanSquareResidual(), 3.5);
    EXPECT_THAT(measures.GetResidualStandardDeviation(), DoubleNear(std::sqrt(1.25), 1e-15));
    EXPECT_THAT(measures.GetTStatistic(), DoubleNear(1.5 / (std::sqrt(1.25) / 2.0), 1e-14));
}

// Corridor.

TEST(Comparison, JudgesTheFirstPointAgainstFourWhateverTheCorridorSize) {
    EXPECT_EQ(Compared({4.5, 0.0, 0.0, 0.0}, {0.0, 0.0, 0.0, 0.0}, 5.0).GetPercentOutsideCorridor(), 25.0);
    EXPECT_EQ(Compared({3.5, 0.0, 0.0, 0.0}, {0.0, 0.0, 0.0, 0.0}, 0.1).GetPercentOutsideCorridor(), 0.0);
    EXPECT_EQ(Compared({-4.5, 0.0, 0.0, 0.0}, {0.0, 0.0, 0.0, 0.0}, 5.0).GetPercentOutsideCorridor(), 25.0);
}

TEST(Comparison, CountsAResidualOfTheCorridorSizeAsInside) {
    EXPECT_EQ(Compared({4.0, 2.5, -2.5, 0.0}, {0.0, 0.0, 0.0, 0.0}, 2.5).GetPercentOutsideCorridor(), 0.0);
}

TEST(Comparison, CountsResidualsOutsideTheCorridorOnBothSides) {
    EXPECT_EQ(Compared({0.0, 2.6, -2.6, 2.4, 9.0}, {0.0, 0.0, 0.0, 0.0, 0.0}, 2.5).GetPercentOutsideCorridor(), 40.0);
}

// Closed forms: the reference as a multiple of the computed signal, and a shifted sine.

class ScaledCopy : public testing::TestWithParam<double> {};

TEST_P(ScaledCopy, DiffersByTheScaleInEveryMoment) {
    const double scale = GetParam();
    const std::vector<double> values{0.3, 1.7, -2.2, 0.9, 5.0, 4.1};
    std::vector<double> scaled;
    for (const double value : values) scaled.push_back(scale * value);
    const CComparison measures = Compared(values, scaled);

    EXPECT_THAT(measures.GetMomentDifferences(), Each(DoubleNear(std::abs(1.0 - scale), 1e-13)));
    EXPECT_THAT(measures.GetCorrelationFactor(), DoubleNear(scale > 0.0 ? 1.0 : -1.0, 1e-14));
    EXPECT_THAT(measures.GetMagnitudeError(), DoubleNear(std::abs(scale) - 1.0, 1e-14));
    EXPECT_THAT(measures.GetPhaseError(), DoubleNear(0.0, 1e-14));
    EXPECT_THAT(measures.GetComprehensiveError(), DoubleNear(std::abs(std::abs(scale) - 1.0), 1e-14));
}

INSTANTIATE_TEST_SUITE_P(Scales, ScaledCopy, testing::Values(1.0, 2.0, 0.25, 1.1, -1.0, -3.0));

TEST(Comparison, OfAShiftedSineHasTheCosineAsCorrelation) {
    // Whole periods of sin(x) and sin(x + shift) that end where they began: the trapezoid rule is then exact and gives
    // cos(shift) for the correlation. The plain sums count the end twice, so they are only near it.
    constexpr std::size_t kCount = 20001;
    constexpr double kShift = 0.7;
    std::vector<double> computed(kCount), reference(kCount);
    for (std::size_t i = 0; i < kCount; ++i) {
        const double angle = 2.0 * std::numbers::pi * 5.0 * static_cast<double>(i) / (kCount - 1);
        computed[i] = std::sin(angle);
        reference[i] = std::sin(angle + kShift);
    }
    const CComparison measures = Compared(computed, reference);

    EXPECT_THAT(measures.GetCorrelationFactor(), DoubleNear(std::cos(kShift), 1e-12));
    EXPECT_THAT(measures.GetPhaseError(), DoubleNear(1.0 - std::sqrt(std::cos(kShift)), 1e-4));
    EXPECT_THAT(measures.GetMagnitudeError(), DoubleNear(0.0, 1e-4));
}

TEST(Comparison, CountsInnerPointsTwiceInMomentsAndCorrelation) {
    // Moments of order 0: 1 + 2 * (2 + 3) + 4 = 15 and 2 + 2 * (2 + 2) + 2 = 12. Of order 1 with t = 1, 2, 3, 4 steps:
    // 1 + 2 * (4 + 9) + 16 = 43 and 2 + 2 * (4 + 6) + 8 = 30. Products: c r: 2 + 2 * (4 + 6) + 8 = 30,
    // c c: 1 + 2 * (4 + 9) + 16 = 43, r r: 4 + 2 * (4 + 4) + 4 = 24.
    const CComparison measures = Compared({1.0, 2.0, 3.0, 4.0}, {2.0, 2.0, 2.0, 2.0});

    EXPECT_THAT(measures.GetMomentDifferences()[0], DoubleNear(3.0 / 15.0, 1e-15));
    EXPECT_THAT(measures.GetMomentDifferences()[1], DoubleNear(13.0 / 43.0, 1e-15));
    EXPECT_THAT(measures.GetCorrelationFactor(), DoubleNear(30.0 / std::sqrt(43.0 * 24.0), 1e-15));
}

TEST(Comparison, CountsEveryPointOnceInMagnitudeAndPhase) {
    // Squares: c: 1 + 4 + 9 + 16 = 30, r: 4 * 4 = 16; products: 2 + 4 + 6 + 8 = 20.
    const CComparison measures = Compared({1.0, 2.0, 3.0, 4.0}, {2.0, 2.0, 2.0, 2.0});
    const double magnitude = 4.0 / std::sqrt(30.0) - 1.0;
    const double phase = 1.0 - std::sqrt(20.0) / std::sqrt(std::sqrt(16.0) * std::sqrt(30.0));

    EXPECT_THAT(measures.GetMagnitudeError(), DoubleNear(magnitude, 1e-15));
    EXPECT_THAT(measures.GetPhaseError(), DoubleNear(phase, 1e-15));
    EXPECT_THAT(measures.GetComprehensiveError(), DoubleNear(std::hypot(magnitude, phase), 1e-15));
}

TEST(Comparison, TimesTheFirstPointByOneStepWhereverTheSignalStarts) {
    const std::vector<double> values{1.0, 4.0, -2.0, 3.0}, others{2.0, 1.0, 0.5, 1.0};
    ks::CNSignal shifted = MakeTimeSignal(values, kStep, -2);
    CComparison measures;
    measures.Compute(shifted, MakeTimeSignal(others, kStep, -2));

    EXPECT_EQ(measures.GetMomentDifferences(), Compared(values, others).GetMomentDifferences());
}

// An independent evaluation: plain loops per measure, in long double.

struct Plain {
    std::vector<long double> c, r;
    long double dt, corridor;

    std::size_t Count() const { return c.size(); }
    long double N() const { return static_cast<long double>(Count()); }
    long double Time(std::size_t i) const { return dt * static_cast<long double>(i + 1); }
    static long double Weight(std::size_t i, std::size_t count) {
        const bool isFirst = i == 0, isLast = i + 1 == count;
        return isFirst && isLast ? 2.0L : (isFirst || isLast ? 1.0L : 2.0L);
    }

    template <class Term>
    long double Sum(std::size_t count, Term term) const {
        long double sum = 0.0L;
        for (std::size_t i = 0; i < count; ++i) sum += term(i);
        return sum;
    }
    template <class Term>
    long double Weighted(Term term) const {
        return Sum(Count(), [&](std::size_t i) { return Weight(i, Count()) * term(i); });
    }

    std::size_t Seen() const { return std::max<std::size_t>(1, Count() - 1); }
    long double ResidualSum() const {
        return Sum(Seen(), [&](std::size_t i) { return c[i] - r[i]; });
    }
    long double SquareSum() const {
        return Sum(Seen(), [&](std::size_t i) { return (c[i] - r[i]) * (c[i] - r[i]); });
    }
    long double Deviation() const { return std::sqrt((SquareSum() - ResidualSum() * ResidualSum() / N()) / N()); }
    long double Percent() const {
        return Sum(Seen(),
                   [&](std::size_t i) { return std::abs(c[i] - r[i]) > (i == 0 ? 4.0L : corridor) ? 1.0L : 0; }) *
               100.0L / N();
    }
    long double Peak(const std::vector<long double>& v) const {
        long double peak = v[0];
        for (std::size_t i = 1; i < Seen(); ++i) peak = std::max(peak, std::abs(v[i]));
        return peak;
    }
    long double Moment(const std::vector<long double>& v, int order) const {
        return Weighted([&](std::size_t i) { return std::pow(Time(i), static_cast<long double>(order)) * v[i]; });
    }
    long double MomentDifference(int order) const {
        return std::abs((Moment(c, order) - Moment(r, order)) / Moment(c, order));
    }
    long double Product(const std::vector<long double>& a, const std::vector<long double>& b) const {
        return Sum(Count(), [&](std::size_t i) { return a[i] * b[i]; });
    }
    long double Correlation() const {
        const auto weighted = [&](const auto& a, const auto& b) {
            return Weighted([&](std::size_t i) { return a[i] * b[i]; });
        };
        return weighted(c, r) / std::sqrt(weighted(c, c) * weighted(r, r));
    }
    long double Magnitude() const { return std::sqrt(Product(r, r) / Product(c, c)) - 1.0L; }
    long double Phase() const {
        return 1.0L - std::sqrt(std::abs(Product(c, r)) / std::sqrt(Product(r, r) * Product(c, c)));
    }
};

class RandomSignals : public testing::TestWithParam<int> {};

TEST_P(RandomSignals, AgreeWithPlainLoopsInLongDouble) {
    std::mt19937 random(static_cast<unsigned>(GetParam()));
    std::uniform_int_distribution<std::size_t> anyCount(2, 400);
    std::uniform_real_distribution<double> anyValue(-30.0, 50.0), anyNoise(-6.0, 6.0);
    const std::size_t count = anyCount(random);
    std::vector<double> computed(count), reference(count);
    Plain plain{{}, {}, static_cast<long double>(kStep), 2.5L};
    for (std::size_t i = 0; i < count; ++i) {
        reference[i] = anyValue(random);
        computed[i] = reference[i] + anyNoise(random);
        plain.c.push_back(static_cast<long double>(computed[i]));
        plain.r.push_back(static_cast<long double>(reference[i]));
    }
    const CComparison measures = Compared(computed, reference, 2.5);

    const auto isNear = [](long double expected) {
        const double value = static_cast<double>(expected);
        return DoubleNear(value, 1e-10 * (1.0 + std::abs(value)));
    };
    EXPECT_EQ(measures.GetPointCount(), static_cast<std::int32_t>(count));
    EXPECT_THAT(measures.GetResidualSum(), isNear(plain.ResidualSum()));
    EXPECT_THAT(measures.GetResidualSumOfSquares(), isNear(plain.SquareSum()));
    EXPECT_THAT(measures.GetMeanSquareResidual(), isNear(plain.SquareSum() / plain.N()));
    EXPECT_THAT(measures.GetResidualStandardDeviation(), isNear(plain.Deviation()));
    EXPECT_THAT(measures.GetTStatistic(),
                isNear(plain.ResidualSum() / plain.N() / (plain.Deviation() / std::sqrt(plain.N()))));
    EXPECT_THAT(measures.GetPercentOutsideCorridor(), isNear(plain.Percent()));
    EXPECT_THAT(measures.GetComputedPeak(), isNear(plain.Peak(plain.c)));
    EXPECT_THAT(measures.GetReferencePeak(), isNear(plain.Peak(plain.r)));
    EXPECT_THAT(measures.GetCorrelationFactor(), isNear(plain.Correlation()));
    EXPECT_THAT(measures.GetMagnitudeError(), isNear(plain.Magnitude()));
    EXPECT_THAT(measures.GetPhaseError(), isNear(plain.Phase()));
    EXPECT_THAT(measures.GetComprehensiveError(), isNear(std::hypot(plain.Magnitude(), plain.Phase())));
    for (int order = 0; order < 6; ++order) {
        EXPECT_THAT(measures.GetMomentDifferences()[static_cast<std::size_t>(order)],
                    isNear(plain.MomentDifference(order)));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomSignals, testing::Range(1, 41));

// Few points.

TEST(Comparison, WithoutComputedValuesLeavesEverythingAtZero) {
    ks::CNSignal computed;
    CComparison measures = Compared({1.0, 2.0, 3.0}, {2.0, 2.0, 2.0}, 2.5);
    measures.Compute(computed, MakeTimeSignal(std::vector<double>{1.0, 2.0}, kStep));

    EXPECT_THAT(AllOf(measures), Each(0.0));
    EXPECT_EQ(measures.GetCorridorSize(), 2.5);
}

TEST(Comparison, WithoutReferenceValuesNeitherResamplesNorCuts) {
    ks::CNSignal computed = MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0}, 0.5);
    CComparison measures;
    measures.SetCorridor(2.5);
    measures.Compute(computed, ks::CNSignal());

    EXPECT_THAT(AllOf(measures), Each(0.0));
    EXPECT_EQ(measures.GetCorridorSize(), 2.5);
    EXPECT_EQ(computed.Getdelt(), 0.5);
    EXPECT_THAT(computed.GetY(), ElementsAre(1.0, 2.0, 3.0));
    EXPECT_FALSE(computed.IsModified());
}

TEST(Comparison, OfOnePointCountsItAsFirstAndLast) {
    const CComparison measures = Compared({10.0}, {8.0});

    EXPECT_EQ(measures.GetPointCount(), 1);
    EXPECT_EQ(measures.GetResidualSum(), 2.0);
    EXPECT_EQ(measures.GetResidualSumOfSquares(), 4.0);
    EXPECT_EQ(measures.GetResidualStandardDeviation(), 0.0);
    EXPECT_EQ(measures.GetTStatistic(), kInfinity);
    EXPECT_THAT(measures.GetMomentDifferences(), Each(DoubleNear(0.2, 1e-15)));
    EXPECT_THAT(measures.GetCorrelationFactor(), DoubleNear(1.0, 1e-15));
    EXPECT_THAT(measures.GetMagnitudeError(), DoubleNear(-0.2, 1e-15));
    EXPECT_THAT(measures.GetPhaseError(), DoubleNear(0.0, 1e-15));
    EXPECT_EQ(measures.GetPercentOutsideCorridor(), 0.0);
}

TEST(Comparison, OfTwoPointsTakesResidualsFromTheFirstAlone) {
    const CComparison measures = Compared({3.0, 100.0}, {1.0, -100.0});

    EXPECT_EQ(measures.GetResidualSum(), 2.0);
    EXPECT_EQ(measures.GetMeanSquareResidual(), 2.0);
    EXPECT_EQ(measures.GetResidualStandardDeviation(), 1.0);  // (4 - 4 / 2) / 2
    EXPECT_EQ(measures.GetMomentDifferences()[0], 202.0 / 103.0);
}

TEST(Comparison, ComparesAsManyPointsAsTheShorterSignalHas) {
    // Equal first and last abscissas and time steps, so that nothing is resampled or cut.
    ks::CNSignal computed = MakeTimeSignal({0.0, 1.0, 2.0, 3.0, 4.0}, {1.0, 1.0, 1.0, 9.0, 9.0}, 1.0);
    const ks::CNSignal reference = MakeTimeSignal({0.0, 2.0, 4.0}, {0.0, 0.0, 5.0}, 1.0);
    CComparison measures;
    measures.Compute(computed, reference);
    EXPECT_EQ(measures.GetPointCount(), 3);
    EXPECT_EQ(measures.GetResidualSum(), 2.0);

    ks::CNSignal shorter = reference;
    measures.Compute(shorter, computed);
    EXPECT_EQ(measures.GetPointCount(), 3);
    EXPECT_EQ(measures.GetResidualSum(), -2.0);
}

// Values that no formula can digest.

TEST(Comparison, AgainstZerosGivesWhatTheFormulasGive) {
    const CComparison measures = Compared({1.0, 2.0, 3.0}, {0.0, 0.0, 0.0});

    EXPECT_EQ(measures.GetReferencePeak(), 0.0);
    EXPECT_THAT(measures.GetMomentDifferences(), Each(1.0));
    EXPECT_TRUE(std::isnan(measures.GetCorrelationFactor()));
    EXPECT_EQ(measures.GetMagnitudeError(), -1.0);
    EXPECT_TRUE(std::isnan(measures.GetPhaseError()));
    EXPECT_TRUE(std::isnan(measures.GetComprehensiveError()));
}

TEST(Comparison, OfZerosGivesInfinities) {
    const CComparison measures = Compared({0.0, 0.0, 0.0}, {1.0, 2.0, 3.0});

    EXPECT_THAT(measures.GetMomentDifferences(), Each(kInfinity));
    EXPECT_EQ(measures.GetMagnitudeError(), kInfinity);
}

TEST(Comparison, CarriesNotANumberThrough) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const CComparison measures = Compared({1.0, nan, 3.0, 4.0}, {1.0, 2.0, 3.0, 4.0});

    EXPECT_THAT(measures.GetResidualSum(), NanSensitiveDoubleEq(nan));
    EXPECT_THAT(measures.GetMomentDifferences(), Each(NanSensitiveDoubleEq(nan)));
    EXPECT_EQ(measures.GetComputedPeak(), 3.0);
    EXPECT_EQ(measures.GetPercentOutsideCorridor(), 0.0);
}

// Common time step and range.

TEST(Comparison, ResamplesToTheReferencesStepBeforeAnythingElse) {
    // Half steps of a ramp: its values at the full steps are known.
    ks::CNSignal computed = MakeTimeSignal(std::vector<double>{0.0, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0}, 0.5);
    const ks::CNSignal reference = MakeTimeSignal(std::vector<double>{0.0, 2.0, 4.0, 6.0, 8.0}, 1.0);
    CComparison measures;
    measures.Compute(computed, reference);

    EXPECT_EQ(measures.GetPointCount(), 5);
    EXPECT_EQ(measures.GetResidualSum(), 0.0);
    EXPECT_EQ(computed.Getdelt(), 1.0);
    EXPECT_THAT(computed.GetX(), ElementsAre(0.0, 1.0, 2.0, 3.0, 4.0));
    EXPECT_THAT(computed.GetY(), ElementsAre(0.0, 2.0, 4.0, 6.0, 8.0));
}

TEST(Comparison, CutsBothToTheRangeOfAShorterComputedSignal) {
    ks::CNSignal computed = MakeTimeSignal(std::vector<double>{10.0, 20.0, 30.0, 40.0}, 1.0, 2);
    const ks::CNSignal reference = MakeTimeSignal(std::vector<double>{0.0, 5.0, 10.0, 20.0, 31.0, 40.0, 50.0}, 1.0);
    CComparison measures;
    measures.Compute(computed, reference);

    // Times 2 to 5; the sample at 5 never survives a cut.
    EXPECT_EQ(measures.GetMinimumTime(), 2.0);
    EXPECT_EQ(measures.GetMaximumTime(), 5.0);
    EXPECT_EQ(measures.GetPointCount(), 3);
    EXPECT_THAT(computed.GetY(), ElementsAre(10.0, 20.0, 30.0));
    EXPECT_EQ(computed.GetDataStatus(), "TRUNCATED");
    EXPECT_EQ(measures.GetReferenceMaximum(), 31.0);
    EXPECT_EQ(measures.GetReferenceMinimum(), 10.0);
}

TEST(Comparison, CutsALongerComputedSignalToTheReferencesRange) {
    ks::CNSignal computed = MakeTimeSignal(std::vector<double>{0.0, 1.0, 2.0, 3.0, 4.0, 5.0}, 1.0);
    const ks::CNSignal reference = MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0}, 1.0, 1);
    CComparison measures;
    measures.Compute(computed, reference);

    EXPECT_EQ(measures.GetMinimumTime(), 1.0);
    EXPECT_EQ(measures.GetMaximumTime(), 3.0);
    EXPECT_THAT(computed.GetX(), ElementsAre(1.0, 2.0));
    EXPECT_EQ(measures.GetPointCount(), 2);
    EXPECT_EQ(measures.GetResidualSum(), 0.0);
}

TEST(Comparison, CutsNothingWhereTheRangesAgree) {
    ks::CNSignal computed = MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0}, 1.0, 4);
    CComparison measures;
    measures.Compute(computed, MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0}, 1.0, 4));

    EXPECT_EQ(measures.GetPointCount(), 3);
    EXPECT_EQ(measures.GetMinimumTime(), 4.0);
    EXPECT_EQ(measures.GetMaximumTime(), 6.0);
    EXPECT_FALSE(computed.IsModified());
}

TEST(Comparison, NeverChangesTheReference) {
    ks::CNSignal computed = MakeTimeSignal(std::vector<double>{10.0, 20.0, 30.0, 40.0}, 0.5, 2);
    const ks::CNSignal reference = MakeTimeSignal(std::vector<double>{0.0, 5.0, 10.0, 20.0}, 1.0);
    CComparison measures;
    measures.Compute(computed, reference);

    EXPECT_THAT(reference.GetX(), ElementsAre(0.0, 1.0, 2.0, 3.0));
    EXPECT_THAT(reference.GetY(), ElementsAre(0.0, 5.0, 10.0, 20.0));
    EXPECT_FALSE(reference.IsModified());
}

TEST(Comparison, WithoutACommonRangeThrowsAndLeavesZeros) {
    ks::CNSignal computed = MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0}, 1.0, 10);
    CComparison measures = Compared({1.0, 2.0, 3.0}, {2.0, 2.0, 2.0}, 2.5);
    try {
        measures.Compute(computed, MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0}, 1.0));
        FAIL();
    } catch (const ks::CError& error) {
        EXPECT_STREQ(error.what(), "Stop time (2) is before or equals Start Time (10)");
    }
    EXPECT_THAT(AllOf(measures), Each(0.0));
    EXPECT_EQ(measures.GetCorridorSize(), 2.5);
}

TEST(Comparison, PassesAFailureToResampleOut) {
    ks::CNSignal computed = MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0}, 1.0);
    CComparison measures;
    try {
        measures.Compute(computed, MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0}, 0.0));
        FAIL();
    } catch (const ks::CError& error) {
        EXPECT_STREQ(error.what(), "Requested Time step <= 0");
    }
}

TEST(Comparison, KeepsNothingOfAnEarlierComparison) {
    const CComparison fresh = Compared({1.0, 2.0, 3.0}, {2.0, 2.0, 2.0});
    CComparison again = Compared({100.0, -200.0, 300.0, 50.0}, {2.0, 70.0, 2.0, 1.0});
    ks::CNSignal computed = MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0}, kStep);
    again.Compute(computed, MakeTimeSignal(std::vector<double>{2.0, 2.0, 2.0}, kStep));

    EXPECT_EQ(AllOf(again), AllOf(fresh));
}

}  // namespace
