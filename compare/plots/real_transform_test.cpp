#include "compare/plots/real_transform.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstddef>
#include <limits>
#include <new>
#include <numbers>
#include <thread>
#include <vector>

namespace {

TEST(RealTransform, FastSizesAreMultiplesOf64WithoutPrimeFactorsAboveFiveAndWithFewTwosWhenLarge) {
    EXPECT_EQ(CRealTransform::FastSize(0), 64U);
    EXPECT_EQ(CRealTransform::FastSize(1), 64U);
    EXPECT_EQ(CRealTransform::FastSize(64), 64U);
    EXPECT_EQ(CRealTransform::FastSize(65), 128U);
    EXPECT_EQ(CRealTransform::FastSize(64 * 7), 64U * 8);
    EXPECT_EQ(CRealTransform::FastSize(64 * 31 + 1), 64U * 32);
    EXPECT_EQ(CRealTransform::FastSize(310000), 64U * 4860);
    EXPECT_EQ(CRealTransform::FastSize(64 * 512), 64U * 512);
    EXPECT_EQ(CRealTransform::FastSize(64 * 1024), 64U * 1080);  // 2^10 and 2^6 * 16 twos are too many
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

TEST(RealTransform, EverySizeGivesTheSumsOfTheDefinition) {
    for (const std::size_t size : {2U, 4U, 6U, 10U, 64U, 126U, 192U, 320U}) {
        CRealTransform transform(size);
        std::vector<double> values(size);
        for (std::size_t i = 0; i < size; ++i) values[i] = static_cast<double>(i * i % 23) - 11.0;
        std::ranges::copy(values, transform.Samples().begin());
        transform.Forward();
        ASSERT_EQ(transform.Spectrum().size(), size / 2 + 1);
        for (std::size_t line = 0; line <= size / 2; ++line) {
            std::complex<double> sum;
            for (std::size_t i = 0; i < size; ++i) {
                // Reduced first, so that the angle is exact to the last digit.
                const double turns = static_cast<double>(line * i % size) / static_cast<double>(size);
                sum += values[i] * std::polar(1.0, -2.0 * std::numbers::pi * turns);
            }
            EXPECT_NEAR(std::abs(transform.Spectrum()[line] - sum), 0.0, 1e-12) << size << " " << line;
        }
        transform.Backward();
        for (std::size_t i = 0; i < size; ++i) {
            EXPECT_NEAR(transform.Samples()[i] / static_cast<double>(size), values[i], 1e-13) << size << " " << i;
        }
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

TEST(RealTransform, ThreadsGetTheSameBitsAsOneAlone) {
    const auto spectrumOf = [](std::size_t size) {
        CRealTransform transform(size);
        for (std::size_t i = 0; i < size; ++i) transform.Samples()[i] = static_cast<double>(i * i % 23) - 11.0;
        transform.Forward();
        return std::vector<std::complex<double>>(transform.Spectrum().begin(), transform.Spectrum().end());
    };
    std::vector<std::vector<std::complex<double>>> alone(40), together(40);
    const auto sizeOf = [](std::size_t i) { return 64 * (1 + i % 20); };
    for (std::size_t i = 0; i < alone.size(); ++i) alone[i] = spectrumOf(sizeOf(i));
    std::vector<std::thread> threads;
    for (std::size_t first = 0; first < 4; ++first) {
        threads.emplace_back([&, first] {
            for (std::size_t i = first; i < together.size(); i += 4) together[i] = spectrumOf(sizeOf(i));
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (std::size_t i = 0; i < alone.size(); ++i) EXPECT_EQ(together[i], alone[i]) << i;
}

TEST(RealTransform, MoreSamplesThanAnAddressReachesAreABadAllocation) {
    EXPECT_THROW(CRealTransform(std::numeric_limits<std::size_t>::max() / 4 * 2), std::bad_alloc);
}

TEST(RealTransform, MoreSamplesThanMemoryHoldsAreABadAllocation) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer ends the program at a request of this size";
#endif
    EXPECT_THROW(CRealTransform(std::size_t{1} << 56), std::bad_alloc);
}

}  // namespace
