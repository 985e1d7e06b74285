#include "compare/plots/real_transform.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <new>
#include <numbers>

namespace {

TEST(RealTransform, FastSizesAreTheNextMultiplesOf64WithoutPrimeFactorsAboveFive) {
    EXPECT_EQ(CRealTransform::FastSize(0), 64U);
    EXPECT_EQ(CRealTransform::FastSize(1), 64U);
    EXPECT_EQ(CRealTransform::FastSize(64), 64U);
    EXPECT_EQ(CRealTransform::FastSize(65), 128U);
    EXPECT_EQ(CRealTransform::FastSize(64 * 7), 64U * 8);
    EXPECT_EQ(CRealTransform::FastSize(64 * 31 + 1), 64U * 32);
    EXPECT_EQ(CRealTransform::FastSize(310000), 64U * 4860);
}

TEST(RealTransform, ACosineBecomesOneLineOfHalfTheSize) {
    CRealTransform transform(128);
    for (std::size_t i = 0; i < 128; ++i) {
        transform.Samples()[i] = std::cos(2.0 * std::numbers::pi * 5.0 * static_cast<double>(i) / 128.0);
    }
    transform.Forward();
    ASSERT_EQ(transform.Spectrum().size(), 65U);
    for (std::size_t line = 0; line < 65; ++line) {
        EXPECT_NEAR(transform.Spectrum()[line].real(), line == 5 ? 64.0 : 0.0, 1e-13) << line;
        EXPECT_NEAR(transform.Spectrum()[line].imag(), 0.0, 1e-13) << line;
    }
}

TEST(RealTransform, ForwardAndBackwardGiveTheSamplesTimesTheSize) {
    CRealTransform transform(192);
    for (std::size_t i = 0; i < 192; ++i) transform.Samples()[i] = static_cast<double>(i * i % 23);
    transform.Forward();
    transform.Backward();
    for (std::size_t i = 0; i < 192; ++i) {
        EXPECT_NEAR(transform.Samples()[i] / 192.0, static_cast<double>(i * i % 23), 1e-12) << i;
    }
}

TEST(RealTransform, MoreSamplesThanAnyMemoryHoldsAreABadAllocation) {
    EXPECT_THROW(CRealTransform(std::numeric_limits<std::size_t>::max() / 4), std::bad_alloc);
    EXPECT_THROW(CRealTransform(std::size_t{1} << 56), std::bad_alloc);
}

}  // namespace
