#include "compare/ratings/lag_search.h"

#include "compare/ratings/correlation.h"
#include "compare/ratings/samples.h"
#include "compare/ratings/testing/pairs.h"
#include "tests/support/page_samples.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace ratings {
namespace {

/// Every lag summed by itself, in the order of trying.
CLagCorrelation PlainSearch(const CSamples& samples, std::int64_t maxLag, CCentering centering) {
    CLagCorrelation best = CorrelationAtLag(samples, 0, centering);
    bool hasBest = centering == CCentering::Mean || !best.isByRule;
    for (std::int64_t shift = 1; shift <= maxLag; ++shift) {
        for (const std::int64_t lag : {shift, -shift}) {
            const CLagCorrelation candidate = CorrelationAtLag(samples, lag, centering);
            if (centering == CCentering::None && candidate.isByRule) continue;
            if (!hasBest || candidate.correlation > best.correlation + 1e-12) best = candidate;
            hasBest = true;
        }
    }
    return best;
}

void ExpectAsPlain(const CPairOfSignals& pair, std::size_t maxLag) {
    for (const CCentering centering : {CCentering::Mean, CCentering::None}) {
        const CLagCorrelation found = FindBestLag(pair.View(), maxLag, centering);
        const CLagCorrelation expected = PlainSearch(pair.View(), static_cast<std::int64_t>(maxLag), centering);
        EXPECT_EQ(found.lag, expected.lag);
        EXPECT_EQ(found.correlation, expected.correlation);
        EXPECT_EQ(found.isByRule, expected.isByRule);
    }
}

TEST(LagSearch, ALateComputedSignalHasAPositiveLag) {
    const CPairOfSignals pair{Pulse(200, 0.3), Pulse(200, 0.3, 7)};
    EXPECT_EQ(FindBestLag(pair.View(), 40, CCentering::Mean).lag, 7);
    EXPECT_EQ(FindBestLag({pair.computed, pair.reference}, 40, CCentering::Mean).lag, -7);
    EXPECT_EQ(FindBestLag(pair.View(), 6, CCentering::Mean).lag, 6);
}

TEST(LagSearch, NoiseIsSearchedAsByPlainSums) {
    for (const std::size_t count : {1U, 2U, 9U, 50U, 333U}) {
        ExpectAsPlain({Noise(count, 1), Noise(count, 2, 3.0)}, count / 5);
        ExpectAsPlain({Noise(count, 3), Noise(count, 4)}, count - 1);
    }
}

TEST(LagSearch, OfTiesTheSmallestLagWins) {
    // A period of 10 samples, the computed signal late by 4: lags 4, -6, 14 and -16 match equally well.
    const auto wave = [](double late) {
        return Sampled(200, [late](double i) { return std::sin(2.0 * 3.14159265358979323846 * (i - late) / 10.0); });
    };
    EXPECT_EQ(FindBestLag({wave(0), wave(4)}, 40, CCentering::Mean).lag, 4);
    EXPECT_EQ(FindBestLag({wave(0), wave(6)}, 40, CCentering::Mean).lag, -4);
    ExpectAsPlain({wave(0), wave(4)}, 40);
}

TEST(LagSearch, AtEqualMagnitudeTheLateOneWins) {
    // Symmetric in time: one pulse against two that lie as far before as after it.
    std::vector<double> one(101, 0.0), two(101, 0.0);
    one[50] = two[43] = two[57] = 1.0;
    EXPECT_EQ(FindBestLag({one, two}, 20, CCentering::Mean).lag, 7);
    EXPECT_EQ(FindBestLag({two, one}, 20, CCentering::Mean).lag, 7);
    ExpectAsPlain({one, two}, 20);
}

TEST(LagSearch, RampsTieAtEveryLagAndStayWhereTheyAre) {
    const CPairOfSignals rising = WithGain(Sampled(500, [](double i) { return i; }), 1.5);
    EXPECT_EQ(FindBestLag(rising.View(), 100, CCentering::Mean).lag, 0);
    const CPairOfSignals falling = WithGain(Sampled(500, [](double i) { return i; }), -1.5, 3.0);
    EXPECT_EQ(FindBestLag(falling.View(), 100, CCentering::Mean).lag, 0);
    EXPECT_NEAR(FindBestLag(falling.View(), 100, CCentering::Mean).correlation, -1.0, 1e-14);
}

TEST(LagSearch, IntegersTieExactly) {
    const CPairOfSignals pair = MakePair(
        240, [](double i) { return std::fmod(i, 6.0) < 3.0 ? 1.0 : -1.0; },
        [](double i) { return std::fmod(i + 2.0, 6.0) < 3.0 ? 2.0 : 0.0; });
    ExpectAsPlain(pair, 48);
}

TEST(LagSearch, PartsThatAreConstantCorrelateByRule) {
    // The reference is constant but for its last sample, the computed signal but for its first.
    std::vector<double> reference(50, 3.0), computed(50, 3.0);
    reference[49] = 8.0;
    computed[0] = 8.0;
    const CLagCorrelation best = FindBestLag({reference, computed}, 10, CCentering::Mean);
    EXPECT_EQ(best.lag, 1);
    EXPECT_EQ(best.correlation, 1.0);
    EXPECT_TRUE(best.isByRule);
    ExpectAsPlain({reference, computed}, 10);
    computed.assign(50, 4.0);
    EXPECT_EQ(FindBestLag({reference, computed}, 10, CCentering::Mean).correlation, 0.0);
}

TEST(LagSearch, WithoutCenteringLagsWithAZeroPartArePassedOver) {
    std::vector<double> reference(20, 0.0), computed(20, 0.0);
    reference[0] = reference[1] = 1.0;
    computed[0] = computed[1] = -1.0;
    // Lag 0 has -1, lags 1 and -1 have -1 / sqrt(2); from 2 on one of the parts is zero, which 0 would let win.
    const CLagCorrelation best = FindBestLag({reference, computed}, 4, CCentering::None);
    EXPECT_EQ(best.lag, 1);
    EXPECT_NEAR(best.correlation, -std::sqrt(0.5), 1e-15);
    EXPECT_FALSE(best.isByRule);
    ExpectAsPlain({reference, computed}, 4);
    EXPECT_TRUE(FindBestLag({reference, std::vector<double>(20, 0.0)}, 4, CCentering::None).isByRule);
}

TEST(LagSearch, APeakThatLeavesTheOverlapDoesNotSpoilTheRest) {
    // The rest is eight orders smaller than the peak at the end: only new sums tell its lag.
    std::vector<double> reference = Noise(300, 5), computed(300, 0.0);
    for (std::size_t i = 12; i < 300; ++i) computed[i] = reference[i - 12];
    computed[0] = 1e8;
    reference[299] = -1e8;
    EXPECT_EQ(FindBestLag({reference, computed}, 60, CCentering::Mean).lag, 12);
    ExpectAsPlain({reference, computed}, 60);
}

TEST(LagSearch, MeansThatDwarfTheDeviationsCostNoLag) {
    CPairOfSignals pair{Noise(400, 6, 1e7), Noise(400, 7, -1e9)};
    for (std::size_t i = 9; i < 400; ++i) pair.computed[i] += 3.0 * pair.reference[i - 9];
    EXPECT_EQ(FindBestLag(pair.View(), 80, CCentering::Mean).lag, 9);
    ExpectAsPlain(pair, 80);
}

TEST(LagSearch, LongNoiseIsSearchedAsByPlainSums) {
    CPairOfSignals pair{Noise(3000, 8), Noise(3000, 9)};
    ExpectAsPlain(pair, 600);
}

}  // namespace
}  // namespace ratings
