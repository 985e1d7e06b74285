#include "compare/plots/covariance.h"

#include "tests/support/allocation_count.h"
#include "tests/support/page_samples.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numbers>
#include <span>
#include <vector>

namespace {

using std::numbers::pi;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Sums of the definition in extended precision.
class PlainDefinition {
public:
    PlainDefinition(const std::vector<double>& a, const std::vector<double>& b)
        : m_count(static_cast<long>(std::min(a.size(), b.size()))), m_a(Centered(a)), m_b(Centered(b)) {}

    long double Value(long lag) const {
        const long first = lag < 1 ? 0 : lag;
        const long end = lag < 1 ? m_count + lag : m_count;
        long double sum = 0.0L;
        for (long j = first; j < end; ++j) sum += m_a[Index(j)] * m_b[Index(j - lag)];
        return sum / static_cast<long double>(end - first);
    }

    long double Scale() const { return std::sqrt(MeanSquare(m_a)) * std::sqrt(MeanSquare(m_b)); }

private:
    static std::size_t Index(long i) { return static_cast<std::size_t>(i); }

    std::vector<long double> Centered(const std::vector<double>& values) const {
        std::vector<long double> centered(values.begin(), values.begin() + m_count);
        // Twice: a mean that dwarfs the deviations is too coarse even in extended precision.
        for (int pass = 0; pass < 2; ++pass) {
            long double sum = 0.0L;
            for (const long double value : centered) sum += value;
            for (long double& value : centered) value -= sum / static_cast<long double>(m_count);
        }
        return centered;
    }

    long double MeanSquare(const std::vector<long double>& values) const {
        long double sum = 0.0L;
        for (const long double value : values) sum += value * value;
        return sum / static_cast<long double>(m_count);
    }

    long m_count;
    std::vector<long double> m_a, m_b;
};

std::vector<double> Values(CCovarianceMethod method, const std::vector<double>& a, const std::vector<double>& b,
                           std::int32_t maxLag) {
    CCovariances covariances(maxLag, method);
    covariances.SetFirst(std::span(a).first(std::min(a.size(), b.size())));
    return covariances.With(b);
}

double At(const std::vector<double>& values, long lag) {
    return values.at(static_cast<std::size_t>(static_cast<long>(values.size() / 2) + lag));
}

std::vector<double> Impulse(std::size_t count, std::size_t at) {
    std::vector<double> values(count, 0.0);
    values.at(at) = 1.0;
    return values;
}

bool HaveSameBits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

void ExpectWithinTheStatedError(const std::vector<double>& values, const std::vector<double>& a,
                                const std::vector<double>& b, const std::vector<long>& lags) {
    const PlainDefinition plain(a, b);
    const long double tolerance = 1e-12L * plain.Scale();
    for (const long lag : lags) {
        const long double error = std::abs(static_cast<long double>(At(values, lag)) - plain.Value(lag));
        EXPECT_TRUE(error <= tolerance) << "lag " << lag << ": " << static_cast<double>(error) << " above "
                                        << static_cast<double>(tolerance);
    }
}

/// Every lag of a few, some lags and both ends of many.
std::vector<long> LagsToCheck(long maxLag) {
    std::vector<long> lags;
    for (long lag = -maxLag; lag <= maxLag; ++lag) {
        const long fromEnd = maxLag - std::abs(lag);
        if (maxLag <= 300 || fromEnd < 40 || std::abs(lag) < 20 || lag % 997 == 0) lags.push_back(lag);
    }
    return lags;
}

class EitherMethod : public testing::TestWithParam<CCovarianceMethod> {};

INSTANTIATE_TEST_SUITE_P(Covariance, EitherMethod,
                         testing::Values(CCovarianceMethod::PlainSums, CCovarianceMethod::Transform,
                                         CCovarianceMethod::Sections),
                         [](const auto& row) {
                             if (row.param == CCovarianceMethod::Sections) return "Sections";
                             return row.param == CCovarianceMethod::PlainSums ? "PlainSums" : "Transform";
                         });

TEST_P(EitherMethod, LagPlusTwoPairsFromTheThirdValueOfTheFirstOnAndDividesByTwoLess) {
    // Means 3 and 1; deviations -2 -1 0 1 2 and 2 -1 -1 -1 1.
    const std::vector<double> values = Values(GetParam(), {1, 2, 3, 4, 5}, {3, 0, 0, 0, 2}, 2);
    EXPECT_NEAR(At(values, 2), (0.0 * 2 + 1 * -1 + 2 * -1) / 3, 1e-15);
}

TEST_P(EitherMethod, LagMinusTwoPairsFromTheThirdValueOfTheSecondOnAndDividesByTwoLess) {
    const std::vector<double> values = Values(GetParam(), {1, 2, 3, 4, 5}, {3, 0, 0, 0, 2}, 2);
    EXPECT_NEAR(At(values, -2), (-2.0 * -1 + -1 * -1 + 0 * 1) / 3, 1e-15);
}

// The rounding of each step decides the last digits of every value of the page.
TEST(CenteredView, FormsItsValuesStepByStep) {
    for (const double mean : {0.0, 3.0e7}) {
        const std::vector<double> values = Noise(10007, 31, mean);
        const CCenteredView view(values);
        const CCentered centered = Center(values);
        const double scale = std::ldexp(1.0, -view.Exponent());
        // Of the values times the scale, by the page's order of summation: eight lanes, blocks of 1024.
        const auto sum = [&values](auto term) {
            double total = 0.0;
            std::size_t i = 0;
            while (i + 8 <= values.size()) {
                std::array<double, 8> lanes{};
                const std::size_t end = std::min(i + 1024, values.size() / 8 * 8);
                for (; i < end; ++i) lanes[i % 8] += term(i);
                total +=
                    ((lanes[0] + lanes[1]) + (lanes[2] + lanes[3])) + ((lanes[4] + lanes[5]) + (lanes[6] + lanes[7]));
            }
            for (; i < values.size(); ++i) total += term(i);
            return total;
        };
        const double meanOfScaled = sum([&](std::size_t i) { return values[i] * scale; }) / 10007.0;
        const double missed = sum([&](std::size_t i) { return values[i] * scale - meanOfScaled; }) / 10007.0;
        for (std::size_t i = 0; i < values.size(); ++i) {
            double expected = values[i] * scale;
            expected -= meanOfScaled;
            expected -= missed;
            ASSERT_TRUE(HaveSameBits(view[i], expected)) << i;
            ASSERT_TRUE(HaveSameBits(centered.values[i], expected)) << i;
        }
    }
}

TEST_P(EitherMethod, ShiftedImpulsesFollowTheirClosedForm) {
    constexpr long kCount = 64, kFirstAt = 20, kSecondAt = 13;
    const std::vector<double> values = Values(GetParam(), Impulse(kCount, kFirstAt), Impulse(kCount, kSecondAt), 63);
    for (long lag = -63; lag <= 63; ++lag) {
        const long first = lag < 1 ? 0 : lag;
        const long end = lag < 1 ? kCount + lag : kCount;
        const double overlap = static_cast<double>(end - first);
        const double mean = 1.0 / kCount;
        // The product of (impulse - mean) twice, multiplied out: where impulses meet, where each is in the overlap.
        double sum = overlap * mean * mean;
        if (lag == kFirstAt - kSecondAt) sum += 1.0;
        if (first <= kFirstAt && kFirstAt < end) sum -= mean;
        if (first <= kSecondAt + lag && kSecondAt + lag < end) sum -= mean;
        EXPECT_NEAR(At(values, lag), sum / overlap, 1e-15) << lag;
    }
}

TEST_P(EitherMethod, SinesOverWholePeriodsFollowTheirClosedForm) {
    constexpr long kCount = 2000;
    const double step = 2.0 * pi * 7 / kCount;
    std::vector<double> sine(kCount);
    for (std::size_t j = 0; j < sine.size(); ++j) sine[j] = std::sin(step * static_cast<double>(j));
    const std::vector<double> values = Values(GetParam(), sine, sine, kCount - 1);
    for (long lag = 0; lag < kCount; ++lag) {
        // sin(s j) sin(s (j - L)) = (cos(s L) - cos(s (2 j - L))) / 2; the second cosine summed as a geometric series.
        const double overlap = static_cast<double>(kCount - lag);
        const double series = std::sin(step * overlap) / std::sin(step) * std::cos(step * (kCount - 1));
        const double expected = 0.5 * (std::cos(step * static_cast<double>(lag)) - series / overlap);
        EXPECT_NEAR(At(values, lag), expected, 2e-12) << lag;
        EXPECT_NEAR(At(values, -lag), expected, 2e-12) << -lag;
    }
    EXPECT_NEAR(At(values, 0), 0.5, 1e-14);
}

TEST_P(EitherMethod, NoiseAgreesWithThePlainDefinitionAtEveryLag) {
    for (const std::size_t count : {1U, 2U, 3U, 7U, 8U, 9U, 63U, 64U, 65U, 257U}) {
        const std::vector<double> a = Noise(count, 1, 3.0);
        const std::vector<double> b = Noise(count, 2, -5.0);
        const long maxLag = static_cast<long>(count) - 1;
        ExpectWithinTheStatedError(Values(GetParam(), a, b, static_cast<std::int32_t>(maxLag)), a, b,
                                   LagsToCheck(maxLag));
    }
}

TEST_P(EitherMethod, NoiseAgreesWithThePlainDefinitionAtBothEndsOfManyLags) {
    const std::vector<double> a = Noise(6000, 3);
    const std::vector<double> b = Noise(6000, 4);
    ExpectWithinTheStatedError(Values(GetParam(), a, b, 5999), a, b, LagsToCheck(5999));
}

TEST_P(EitherMethod, SlowWavesKeepTheStatedErrorWhereFewValuesOverlap) {
    // Most of the covariance sits at small lags here, so that a transform's rounding is largest against small overlaps.
    std::vector<double> a(20000), b(20000);
    for (std::size_t i = 0; i < a.size(); ++i) {
        const double t = static_cast<double>(i) * 1e-4;
        a[i] = std::sin(2.0 * pi * 0.6 * t);
        b[i] = t < 1.0 ? 1.0 : -1.0;
    }
    ExpectWithinTheStatedError(Values(GetParam(), a, b, 19999), a, b, LagsToCheck(19999));
}

TEST_P(EitherMethod, MeansThatDwarfTheDeviationsCostNoDigits) {
    const std::vector<double> a = Noise(4000, 5, 1.0e6);
    const std::vector<double> b = Noise(4000, 6, -3.0e9);
    ExpectWithinTheStatedError(Values(GetParam(), a, b, 3999), a, b, LagsToCheck(3999));
}

TEST_P(EitherMethod, ConstantSequencesHaveNoCovariance) {
    const std::vector<double> constant(1000, 0.1);
    for (const double value : Values(GetParam(), constant, Noise(1000, 7), 999)) EXPECT_NEAR(value, 0.0, 1e-16);
}

TEST_P(EitherMethod, VeryLargeAndVerySmallValuesNeitherOverflowNorVanish) {
    const std::vector<double> a = Noise(300, 8);
    const std::vector<double> b = Noise(300, 9);
    std::vector<double> large = a, small = b;
    for (double& value : large) value = std::ldexp(value, 900);
    for (double& value : small) value = std::ldexp(value, -1000);
    const std::vector<double> expected = Values(GetParam(), a, b, 299);
    const std::vector<double> values = Values(GetParam(), large, small, 299);
    for (std::size_t i = 0; i < values.size(); ++i) EXPECT_DOUBLE_EQ(values[i], std::ldexp(expected[i], -100)) << i;
}

TEST_P(EitherMethod, OneValueMoreThanTheLargestFiniteSumKeepsItsMean) {
    const double largest = std::numeric_limits<double>::max();
    const std::vector<double> values = Values(GetParam(), {largest, largest, largest, 0.0}, {1e-300, 0.0, 0.0, 0.0}, 0);
    // Deviations: a quarter of the largest, three times, and three quarters below; 3/4 and three times -1/4 of 1e-300.
    const double expected =
        (largest / 4 * 0.75 * 1e-300 - 2 * (largest / 4 * 0.25 * 1e-300) + largest * 0.75 * 0.25 * 1e-300) / 4;
    EXPECT_NEAR(At(values, 0) / expected, 1.0, 1e-14);
}

TEST_P(EitherMethod, PairedWithItselfMirrorsToTheLastBit) {
    const std::vector<double> a = Noise(3001, 10, 1.0);
    CCovariances covariances(3000, GetParam());
    covariances.SetFirst(a);
    const std::vector<double> values = covariances.WithItself();
    for (long lag = 1; lag <= 3000; ++lag) EXPECT_TRUE(HaveSameBits(At(values, lag), At(values, -lag))) << lag;
    ExpectWithinTheStatedError(values, a, a, LagsToCheck(3000));
}

TEST_P(EitherMethod, LagZeroWithItselfIsThePopulationVariance) {
    const std::vector<double> a{2, 4, 4, 4, 5, 5, 7, 9};
    CCovariances covariances(3, GetParam());
    covariances.SetFirst(a);
    EXPECT_NEAR(At(covariances.WithItself(), 0), 4.0, 1e-14);
}

TEST_P(EitherMethod, WithoutOverlapTheValueIsZeroByZeroAndThenMinusZero) {
    const std::vector<double> values = Values(GetParam(), {1, 2, 4}, {3, 1, 1}, 5);
    for (const long lag : {-2L, -1L, 0L, 1L, 2L}) EXPECT_TRUE(std::isfinite(At(values, lag))) << lag;
    for (const long lag : {-3L, 3L}) EXPECT_TRUE(std::isnan(At(values, lag))) << lag;
    for (const long lag : {-5L, -4L, 4L, 5L}) EXPECT_TRUE(HaveSameBits(At(values, lag), -0.0)) << lag;
}

TEST_P(EitherMethod, WithoutAnyValueEveryLagIsWithoutOverlap) {
    const std::vector<double> values = Values(GetParam(), {}, {}, 2);
    ASSERT_EQ(values.size(), 5U);
    EXPECT_TRUE(std::isnan(At(values, 0)));
    for (const long lag : {-2L, -1L, 1L, 2L}) EXPECT_TRUE(HaveSameBits(At(values, lag), -0.0)) << lag;
}

TEST_P(EitherMethod, OneNotANumberMakesEveryOverlappingLagNotANumber) {
    std::vector<double> a = Noise(3000, 11);
    a[17] = kNaN;
    for (const double value : Values(GetParam(), a, Noise(3000, 12), 2999)) EXPECT_TRUE(std::isnan(value));
}

TEST_P(EitherMethod, InfinitiesGiveWhatTheDefinitionGives) {
    // The mean of the first is infinite: deviations -inf, nan, -inf; the second deviates by 2, -1, -1.
    const std::vector<double> values = Values(GetParam(), {0, kInfinity, 0}, {3, 0, 0}, 2);
    EXPECT_EQ(At(values, 2), -kInfinity);    // -inf * 2
    EXPECT_TRUE(std::isnan(At(values, 1)));  // nan * 2
    EXPECT_TRUE(std::isnan(At(values, 0)));
    EXPECT_TRUE(std::isnan(At(values, -1)));
    EXPECT_EQ(At(values, -2), kInfinity);  // -inf * -1
}

TEST_P(EitherMethod, TheSameInputGivesTheSameBitsAgain) {
    const std::vector<double> a = Noise(5000, 13), b = Noise(5000, 14);
    const std::vector<double> once = Values(GetParam(), a, b, 700);
    const std::vector<double> again = Values(GetParam(), a, b, 700);
    for (std::size_t i = 0; i < once.size(); ++i) EXPECT_TRUE(HaveSameBits(once[i], again[i])) << i;
}

TEST_P(EitherMethod, OneObjectServesManyPairsOfDifferentLength) {
    const std::vector<double> a = Noise(4000, 15), b = Noise(4000, 16), c = Noise(4100, 17);
    CCovariances covariances(900, GetParam());
    covariances.SetFirst(a);
    ExpectWithinTheStatedError(covariances.WithItself(), a, a, LagsToCheck(900));
    ExpectWithinTheStatedError(covariances.With(b), a, b, LagsToCheck(900));
    ExpectWithinTheStatedError(covariances.With(c), a, c, LagsToCheck(900));
    const std::vector<double> shorter = Noise(3500, 18), muchShorter = Noise(950, 19);
    covariances.SetFirst(shorter);
    ExpectWithinTheStatedError(covariances.With(b), shorter, b, LagsToCheck(900));
    covariances.SetFirst(muchShorter);
    ExpectWithinTheStatedError(covariances.With(b), muchShorter, b, LagsToCheck(900));
    covariances.SetFirst(a);
    ExpectWithinTheStatedError(covariances.With(b), a, b, LagsToCheck(900));
}

TEST(Covariance, SectionsMeetWithoutAGap) {
    // Sections of 64 to 3264 values, of which twice the lags are lost; lengths just below, at and above their
    // multiples.
    for (const std::int32_t maxLag : {0, 1, 7, 8, 100, 400}) {
        for (const std::size_t count : {47U, 48U, 49U, 63U, 64U, 65U, 1000U, 5000U, 7201U}) {
            const std::vector<double> a = Noise(count, 26, 2.0), b = Noise(count, 27, -3.0);
            const std::int32_t lags = std::min(maxLag, static_cast<std::int32_t>(count) - 1);
            ExpectWithinTheStatedError(Values(CCovarianceMethod::Sections, a, b, lags), a, b, LagsToCheck(lags));
        }
    }
}

TEST(Covariance, AVeryLongSignalKeepsTheStatedErrorAndNeedsNoMemoryOfItsLength) {
    constexpr std::size_t kCount = 600000;
    const std::vector<double> a = Noise(kCount, 28, 10.0), b = Noise(kCount, 29, -10.0);
    ResetLargestAllocation();
    CCovariances covariances(1000);
    covariances.SetFirst(a);
    const std::vector<double> itself = covariances.WithItself(), both = covariances.With(b);
    EXPECT_LT(LargestAllocation(), kCount * sizeof(double) / 4);
    ExpectWithinTheStatedError(itself, a, a, {-1000, -1, 0, 999});
    ExpectWithinTheStatedError(both, a, b, {-1000, -999, -500, -1, 0, 1, 500, 999, 1000});
}

TEST(Covariance, OneObjectServesVeryLongAndShortPairs) {
    const std::vector<double> a = Noise(550000, 30), b = Noise(550000, 31);
    const std::span<const double> shortA = std::span(a).first(20000), shortB = std::span(b).first(20000);
    CCovariances covariances(300);
    covariances.SetFirst(shortA);
    const std::vector<double> expected = covariances.With(shortB);
    covariances.SetFirst(a);
    const std::vector<double> expectedLong = covariances.With(b);
    covariances.SetFirst(shortA);
    EXPECT_EQ(covariances.With(shortB), expected);
    covariances.SetFirst(a);
    EXPECT_EQ(covariances.With(b), expectedLong);
}

TEST(Covariance, TheShorterSequenceSaysHowManyValuesCountInBothMeansAndSums) {
    const std::vector<double> a = Noise(500, 20, 2.0);
    std::vector<double> b = Noise(400, 21, 1.0);
    const std::vector<double> expected = Covariances(std::span(a).first(400), b, 50);
    EXPECT_EQ(Covariances(a, b, 50), expected);
    b.resize(450, 1.0e9);  // after the others' end: seen by neither mean nor sum
    EXPECT_EQ(Covariances(std::span(a).first(400), b, 50), expected);
}

TEST(Covariance, ShortAndLongSequencesKeepTheStatedErrorWhateverMethodIsChosen) {
    for (const std::size_t count : {300U, 3000U, 30000U}) {
        const std::vector<double> a = Noise(count, 22), b = Noise(count, 23);
        for (const std::int32_t maxLag : {0, 1, 100, 299}) {
            ExpectWithinTheStatedError(Covariances(a, b, maxLag), a, b,
                                       {-maxLag, -maxLag / 2, 0, 1 % (maxLag + 1), maxLag});
        }
    }
}

TEST(Covariance, ASignalOfTheSizeOfAMicrosecondRecordKeepsTheStatedErrorAtBothEnds) {
    const std::vector<double> a = Noise(300000, 24, 10.0), b = Noise(300000, 25, -10.0);
    ExpectWithinTheStatedError(Covariances(a, b, 10000), a, b, {-10000, -9999, -5000, -1, 0, 1, 5000, 9999, 10000});
}

}  // namespace
