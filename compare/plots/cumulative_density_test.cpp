#include "compare/plots/cumulative_density.h"

#include "compare/chart_block.h"
#include "tests/support/page_samples.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

CCumulativeDensity DensityOf(const std::vector<double>& residuals, double sigma) {
    return CumulativeDensity(residuals, std::vector<double>(residuals.size(), 0.0), sigma);
}

/// The definition, word for word: for every threshold one count over all residuals.
CCumulativeDensity PlainDefinition(const std::vector<double>& residuals, double sigma) {
    CCumulativeDensity density;
    const double step = sigma * 4.0 / 99.0;
    double x = -2.0 * sigma;
    while (2.0 * sigma > x && density.x.size() < 100) {
        int count = 0;
        for (const double residual : residuals) count += residual < x ? 1 : 0;
        density.x.push_back(x);
        density.y.push_back(count * 100.0 / static_cast<double>(residuals.size()));
        x = x + step;
    }
    density.x.resize(100, 2.220446049250313e-16);
    density.y.resize(100, 2.220446049250313e-16);
    return density;
}

void ExpectPaddingOnly(const CCumulativeDensity& density) {
    EXPECT_EQ(density.x, std::vector<double>(100, 2.220446049250313e-16));
    EXPECT_EQ(density.y, std::vector<double>(100, 2.220446049250313e-16));
}

TEST(CumulativeDensity, ResidualsMinusOneZeroAndOneRiseInThirds) {
    const CCumulativeDensity density = DensityOf({-1.0, 0.0, 1.0}, 1.0);
    ASSERT_EQ(density.x.size(), 100U);
    EXPECT_EQ(density.x[0], -2.0);
    EXPECT_EQ(density.y[0], 0.0);
    for (std::size_t k = 0; k < 99; ++k) {
        EXPECT_NEAR(density.x[k], -2.0 + static_cast<double>(k) * 4.0 / 99.0, 1e-13) << k;
        // Thresholds are at odd multiples of 2/99, none of them at a residual; 50 is the first above 0.
        const double below = k < 25 ? 0.0 : k < 50 ? 1.0 : k < 75 ? 2.0 : 3.0;
        EXPECT_EQ(density.y[k], below * 100.0 / 3.0) << k;
    }
    EXPECT_GT(density.x[50], 0.0);
    EXPECT_NEAR(density.y[50], 66.67, 0.005);
    EXPECT_LT(density.x[74], 1.0);
    EXPECT_GT(density.x[75], 1.0);
}

TEST(CumulativeDensity, TheLastPointIsTwoSigmaOrPadding) {
    for (const double sigma : {1.0, 0.1, 3.7, 1e-5, 123.456}) {
        const CCumulativeDensity density = DensityOf({0.0}, sigma);
        const bool isPadding = density.x[99] == kNoDataValue && density.y[99] == kNoDataValue;
        EXPECT_TRUE(isPadding || (std::abs(density.x[99] - 2.0 * sigma) <= 1e-12 * sigma && density.x[99] < 2 * sigma));
        EXPECT_NE(density.y[98], kNoDataValue);
    }
}

TEST(CumulativeDensity, AResidualEqualToAThresholdIsNotBelowIt) {
    const std::vector<double> thresholds = DensityThresholds(0.7);
    for (const std::size_t k : {0U, 1U, 42U, 97U}) {
        const CCumulativeDensity density = DensityOf({thresholds[k]}, 0.7);
        EXPECT_EQ(density.y[k], 0.0) << k;
        EXPECT_EQ(density.y[k + 1], 100.0) << k;
    }
}

TEST(CumulativeDensity, NoiseHasTheCountsOfThePlainDefinition) {
    for (const double sigma : {0.01, 0.5, 1.0, 2.0, 1.0 / 3.0, 1e-300, 1e300}) {
        for (const std::size_t count : {1U, 2U, 100U, 5000U}) {
            const std::vector<double> residuals = Noise(count, 31);
            const CCumulativeDensity density = DensityOf(residuals, sigma);
            const CCumulativeDensity plain = PlainDefinition(residuals, sigma);
            EXPECT_EQ(density.x, plain.x) << sigma << " " << count;
            EXPECT_EQ(density.y, plain.y) << sigma << " " << count;
        }
    }
}

TEST(CumulativeDensity, InfiniteResidualsCountAsThePlainDefinitionCountsThem) {
    const std::vector<double> residuals{-kInfinity, kInfinity, 0.0, -kInfinity};
    EXPECT_EQ(DensityOf(residuals, 1.0).y, PlainDefinition(residuals, 1.0).y);
    EXPECT_EQ(DensityOf(residuals, 1.0).y[0], 50.0);
    EXPECT_EQ(DensityOf(residuals, 1.0).y[98], 75.0);
}

TEST(CumulativeDensity, ANotANumberResidualCountsNowhereButInTheDivisor) {
    const CCumulativeDensity density = DensityOf({-5.0, kNaN, -5.0, kNaN}, 1.0);
    for (std::size_t k = 0; k < 99; ++k) EXPECT_EQ(density.y[k], 50.0) << k;
}

TEST(CumulativeDensity, SigmaZeroGivesPaddingOnly) {
    ExpectPaddingOnly(DensityOf({1.0, 2.0}, 0.0));
}

TEST(CumulativeDensity, SigmaNotANumberGivesPaddingOnly) {
    ExpectPaddingOnly(DensityOf({1.0, 2.0}, kNaN));
}

TEST(CumulativeDensity, AnInfiniteSigmaGivesOnePointBelowEverything) {
    const CCumulativeDensity density = DensityOf({1.0, 2.0}, kInfinity);
    EXPECT_EQ(density.x[0], -kInfinity);
    EXPECT_EQ(density.y[0], 0.0);
    EXPECT_EQ(density.x[1], kNoDataValue);
    EXPECT_EQ(density.y[1], kNoDataValue);
}

TEST(CumulativeDensity, AStepLostInRoundingGivesAHundredEqualThresholds) {
    // The smallest double times 4 / 99 is 0, so x stays at -2 sigma forever.
    const double sigma = std::numeric_limits<double>::denorm_min();
    const std::vector<double> residuals{-1.0, 0.0, 1.0};
    const CCumulativeDensity density = DensityOf(residuals, sigma);
    EXPECT_EQ(density.x, std::vector<double>(100, -2.0 * sigma));
    EXPECT_EQ(density.y, std::vector<double>(100, 100.0 / 3.0));
    EXPECT_EQ(density.y, PlainDefinition(residuals, sigma).y);
}

TEST(CumulativeDensity, TheShorterOfBothSaysHowManyResidualsThereAre) {
    const std::vector<double> five{-9, -9, -9, -9, -9}, two{0, 0};
    EXPECT_EQ(CumulativeDensity(five, two, 1.0).y[0], 100.0);
    const std::vector<double> computed{-9, 9};
    EXPECT_EQ(CumulativeDensity(computed, std::vector<double>(5, 0.0), 1.0).y[0], 50.0);
}

TEST(CumulativeDensity, WithoutSamplesThePercentagesAreNotANumber) {
    const CCumulativeDensity density = DensityOf({}, 1.0);
    EXPECT_EQ(density.x[0], -2.0);
    for (std::size_t k = 0; k < 99; ++k) EXPECT_TRUE(std::isnan(density.y[k])) << k;
}

}  // namespace
