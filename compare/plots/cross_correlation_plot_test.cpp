#include "compare/plots/cross_correlation_plot.h"

#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "signal/nsignal.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#if defined(__linux__)
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sys/resource.h>
#include <unistd.h>
#endif

#include "compare/plots/page_ids.h"
#include "files/error.h"
#include "tests/support/page_samples.h"

namespace {

using testing::Each;
using testing::ElementsAre;

/// The sentence with which the page fails.
std::string FailureOf(const ks::CNSignal& reference, std::vector<CSignal> computed = {}) {
    CSeriesList series;
    std::vector<std::string> names;
    try {
        CPlotCrossCorrelation().BuildSeries(computed, reference, series, names);
    } catch (const ks::CError& error) {
        EXPECT_THAT(series, testing::IsEmpty());
        return error.what();
    }
    return "nothing thrown";
}

/// The definition for one lag, plainly.
double Covariance(const std::vector<double>& a, const std::vector<double>& b, long lag) {
    const long n = static_cast<long>(std::min(a.size(), b.size()));
    const auto at = [](const std::vector<double>& values, long i) { return values[static_cast<std::size_t>(i)]; };
    double meanA = 0.0, meanB = 0.0;
    for (long i = 0; i < n; ++i) {
        meanA += at(a, i) / static_cast<double>(n);
        meanB += at(b, i) / static_cast<double>(n);
    }
    const long first = lag < 1 ? 0 : lag, end = lag < 1 ? n + lag : n;
    double sum = 0.0;
    for (long j = first; j < end; ++j) sum += (at(a, j) - meanA) * (at(b, j - lag) - meanB);
    return sum / static_cast<double>(end - first);
}

void ExpectCovariances(const ks::CNSignal& curve, const std::vector<double>& a, const std::vector<double>& b) {
    const long largest = static_cast<long>(curve.GetPointCount() / 2);
    for (long lag = -largest; lag <= largest; ++lag) {
        const double value = curve.GetY()[static_cast<std::size_t>(lag + largest)];
        EXPECT_NEAR(value, Covariance(a, b, lag), 1e-12) << lag;
    }
}

TEST(PlotCrossCorrelation, AStepOfATenthOfAMillisecondGives201OffsetsOfUpToTenMilliseconds) {
    std::vector<CSignal> computed{ComputedSignal("/a.001", TimeSignal(0.0001, Noise(1001, 2)))};
    const CShownPage shown = Show(page::kCrossCorrelation, computed, TimeSignal(0.0001, Noise(1001, 1)));
    EXPECT_TRUE(shown.isBuilt);
    EXPECT_THAT(shown.names, ElementsAre("Reference", "a.001"));
    ASSERT_EQ(shown.series.size(), 2U);
    for (const auto& curve : shown.series) {
        ASSERT_EQ(curve->GetPointCount(), 201U);
        EXPECT_EQ(curve->GetX().front(), -0.01);
        EXPECT_EQ(curve->GetX()[100], 0.0);
        EXPECT_EQ(curve->GetX()[103], 3 * 0.0001);
        EXPECT_EQ(curve->GetX().back(), 0.01);
        EXPECT_THAT(curve->GetZ(), Each(0.0));
    }
    ExpectCovariances(*shown.series[0], Noise(1001, 1), Noise(1001, 1));
    ExpectCovariances(*shown.series[1], Noise(1001, 1), Noise(1001, 2));
}

TEST(PlotCrossCorrelation, AStepOfAMillisecondGives21Offsets) {
    std::vector<CSignal> computed;
    EXPECT_EQ(Show(page::kCrossCorrelation, computed, TimeSignal(0.001, Noise(1001, 1))).series[0]->GetPointCount(),
              21U);
}

TEST(PlotCrossCorrelation, TheStepOfAFileIsTakenAsItIs) {
    // 0.001 in single precision is a little more than a thousandth, so only nine steps fit into 0.01.
    const double widened = static_cast<double>(0.001F);
    std::vector<CSignal> computed;
    EXPECT_EQ(Show(page::kCrossCorrelation, computed, TimeSignal(widened, Noise(1001, 1))).series[0]->GetPointCount(),
              19U);
}

TEST(PlotCrossCorrelation, HeaderFieldsAreThePagesOwnAndOtherwiseTheReferences) {
    ks::CNSignal reference = TimeSignal(0.001, Noise(100, 1), -5);
    reference.SetTITLE("sled");
    reference.SetFCUT(100.0);
    reference.SetXTYPE("TIME");
    std::vector<CSignal> computed{ComputedSignal("a", TimeSignal(0.001, Noise(100, 2), -5))};
    const CShownPage shown = Show(page::kCrossCorrelation, computed, reference);
    for (const auto& curve : shown.series) {
        EXPECT_EQ(curve->GetSENATT(), "UNKN");
        EXPECT_EQ(curve->GetYTYPE(), "ERROR");
        EXPECT_EQ(curve->GetYUNITS(), "None");
        EXPECT_EQ(curve->GetTSTSRC(), "Computed");
        EXPECT_EQ(curve->GetDataStatus(), "TRUNCATED");  // set to Computed first, then cut
        EXPECT_EQ(curve->GetFCUT(), 0.0);
        EXPECT_EQ(curve->Getdelt(), 0.0);
        EXPECT_EQ(curve->GetNFP(), 0);
        EXPECT_EQ(curve->GetNLP(), 20);
        EXPECT_EQ(curve->GetTITLE(), "sled");
        EXPECT_EQ(curve->GetXTYPE(), "TIME");
        EXPECT_TRUE(curve->IsModified());
        EXPECT_EQ(curve->GetXMin(), -0.01);
        EXPECT_EQ(curve->GetXMax(), 0.01);
    }
    EXPECT_EQ(reference.GetTITLE(), "sled");
    EXPECT_EQ(reference.GetPointCount(), 100U);
}

TEST(PlotCrossCorrelation, ADelayedSignalPeaksAtMinusItsDelay) {
    // b[j - L] meets a[j]: what b shows seven steps later than a is met at L = -7.
    std::vector<double> wave(500), late(500);
    for (std::size_t i = 0; i < wave.size(); ++i) {
        const auto pulse = [](double at) { return std::exp(-at * at / 200.0); };
        wave[i] = pulse(static_cast<double>(i) - 250.0);
        late[i] = pulse(static_cast<double>(i) - 257.0);
    }
    std::vector<CSignal> computed{ComputedSignal("late", TimeSignal(0.0005, late))};
    const CShownPage shown = Show(page::kCrossCorrelation, computed, TimeSignal(0.0005, wave));
    const ks::CColumn& values = shown.series[1]->GetY();
    const auto peak = std::max_element(values.begin(), values.end()) - values.begin();
    EXPECT_EQ(peak - 20, -7);
}

TEST(PlotCrossCorrelation, CutsTheSignalForGoodAndPairsWhatIsLeft) {
    const std::vector<double> a = Noise(100, 1), b = Noise(60, 2);
    std::vector<CSignal> computed{ComputedSignal("short", TimeSignal(0.001, b)),
                                  ComputedSignal("whole", TimeSignal(0.001, Noise(100, 3))),
                                  ComputedSignal("short again", TimeSignal(0.001, b))};
    const CShownPage shown = Show(page::kCrossCorrelation, computed, TimeSignal(0.001, a));
    EXPECT_EQ(computed[0].GetPointCount(), 59U);
    EXPECT_EQ(computed[1].GetPointCount(), 100U);
    const std::vector<double> cutA(a.begin(), a.begin() + 59), cutB(b.begin(), b.begin() + 59);
    ExpectCovariances(*shown.series[0], a, a);
    ExpectCovariances(*shown.series[1], cutA, cutB);
    ExpectCovariances(*shown.series[2], a, Noise(100, 3));
    ExpectCovariances(*shown.series[3], cutA, cutB);
}

TEST(PlotCrossCorrelation, LongSignalsOfSeveralLengthsGiveTheSameAsTheDefinition) {
    // Long enough for the transform, which is shared while nothing is cut and made again where something is.
    const std::vector<double> a = Noise(30000, 1), b = Noise(25000, 2), c = Noise(30000, 3);
    std::vector<CSignal> computed{ComputedSignal("short", TimeSignal(0.0001, b)),
                                  ComputedSignal("whole", TimeSignal(0.0001, c)),
                                  ComputedSignal("shorter", TimeSignal(0.0001, Noise(20000, 4)))};
    const CShownPage shown = Show(page::kCrossCorrelation, computed, TimeSignal(0.0001, a));
    const auto first = [](const std::vector<double>& values, long count) {
        return std::vector<double>(values.begin(), values.begin() + count);
    };
    ExpectCovariances(*shown.series[0], a, a);
    ExpectCovariances(*shown.series[1], first(a, 24999), first(b, 24999));
    ExpectCovariances(*shown.series[2], a, c);
    ExpectCovariances(*shown.series[3], first(a, 19999), first(Noise(20000, 4), 19999));
}

TEST(PlotCrossCorrelation, TheShorterOfBothPairsWhereNothingIsCut) {
    // Equal ends, different steps: 41 samples of the reference against 21.
    const std::vector<double> a = Noise(41, 1), b = Noise(21, 2);
    std::vector<CSignal> computed{ComputedSignal("sparse", TimeSignal(0.002, b))};
    const CShownPage shown = Show(page::kCrossCorrelation, computed, TimeSignal(0.001, a));
    EXPECT_EQ(computed[0].GetPointCount(), 21U);
    ExpectCovariances(*shown.series[1], a, b);
}

TEST(PlotCrossCorrelation, AnEmptySignalOverlapsNowhere) {
    std::vector<CSignal> computed(1);
    const CShownPage shown = Show(page::kCrossCorrelation, computed, TimeSignal(0.001, Noise(100, 1)));
    ASSERT_EQ(shown.series.size(), 2U);
    EXPECT_EQ(shown.series[1]->GetPointCount(), 21U);
    EXPECT_TRUE(std::isnan(shown.series[1]->GetY()[10]));
}

TEST(PlotCrossCorrelation, AConstantReferenceHasNoCovariance) {
    std::vector<CSignal> computed{ComputedSignal("a", TimeSignal(0.001, Noise(100, 1)))};
    const CShownPage shown = Show(page::kCrossCorrelation, computed, TimeSignal(0.001, std::vector<double>(100, 2.0)));
    EXPECT_THAT(shown.series[0]->GetY(), Each(0.0));
    EXPECT_THAT(shown.series[1]->GetY(), Each(0.0));
}

TEST(PlotCrossCorrelation, AStepTooLargeForAnOffsetFails) {
    EXPECT_EQ(FailureOf(TimeSignal(0.02, Noise(1001, 1))), "Start Index (0)is >= Stop Index (0)");
    EXPECT_EQ(FailureOf(TimeSignal(std::numeric_limits<double>::infinity(), Noise(10, 1))),
              "Start Index (0)is >= Stop Index (0)");
}

TEST(PlotCrossCorrelation, ANegativeStepFails) {
    EXPECT_EQ(FailureOf(TimeSignal(-0.001, Noise(1001, 1))), "Start Index (0)is >= Stop Index (-20)");
}

TEST(PlotCrossCorrelation, OffsetsBeyond32BitsFail) {
    constexpr const char* kRange = "Unable to provide requested stop/start indices";
    EXPECT_EQ(FailureOf(TimeSignal(0.0, Noise(1001, 1))), kRange);
    EXPECT_EQ(FailureOf(TimeSignal(-0.0, Noise(1001, 1))), kRange);
    EXPECT_EQ(FailureOf(TimeSignal(1e-12, Noise(1001, 1))), kRange);    // 1e10 offsets
    EXPECT_EQ(FailureOf(TimeSignal(9e-12, Noise(1001, 1))), kRange);    // 1.1e9 fit, twice as many do not
    EXPECT_EQ(FailureOf(TimeSignal(9.4e-12, Noise(1001, 1))), kRange);  // all fit, the reference does not cover them
    EXPECT_EQ(FailureOf(TimeSignal(-1e-12, Noise(1001, 1))), kRange);
    EXPECT_EQ(FailureOf(TimeSignal(std::nan(""), Noise(1001, 1))), kRange);
}

TEST(PlotCrossCorrelation, AReferenceThatDoesNotCoverTheOffsetsFails) {
    constexpr const char* kRange = "Unable to provide requested stop/start indices";
    EXPECT_EQ(FailureOf(TimeSignal(0.001, Noise(20, 1))), kRange);      // 0 ... 19, needed are 0 ... 20
    EXPECT_EQ(FailureOf(TimeSignal(0.001, Noise(100, 1), 1)), kRange);  // from 1 on
    EXPECT_EQ(FailureOf(TimeSignal(0.001, Noise(30, 1), -20)), kRange);
    EXPECT_EQ(FailureOf(ks::CNSignal()), kRange);  // its step is 0
    EXPECT_EQ(FailureOf(TimeSignal(0.001, Noise(21, 1))), "nothing thrown");
    EXPECT_EQ(FailureOf(TimeSignal(0.001, Noise(41, 1), -20)), "nothing thrown");
}

TEST(PlotCrossCorrelation, AFailureOfTheReferenceCutsNothing) {
    std::vector<CSignal> computed{ComputedSignal("a", TimeSignal(0.02, Noise(50, 2)))};
    CSeriesList series;
    std::vector<std::string> names;
    EXPECT_THROW(CPlotCrossCorrelation().BuildSeries(computed, TimeSignal(0.02, Noise(90, 1)), series, names),
                 ks::CError);
    EXPECT_EQ(computed[0].GetPointCount(), 50U);
}

#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__)

/// Lets this process have `bytes` more than it has now.
void AllowOnly(std::size_t bytes) {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t limit = pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) + bytes;
    const rlimit limits{limit, limit};
    setrlimit(RLIMIT_AS, &limits);
}

void FailWithoutMemory() {
    const ks::CNSignal reference = TimeSignal(0.0001, std::vector<double>(500000, 1.0));
    AllowOnly(std::size_t{8} << 20);
    std::cerr << FailureOf(reference);
    std::_Exit(0);
}

TEST(PlotCrossCorrelationDeathTest, WithoutMemoryThePageFailsWithASentenceInsteadOfTheProgram) {
    EXPECT_EXIT(FailWithoutMemory(), testing::ExitedWithCode(0),
                "^There is not enough memory for the cross correlation of these signals. Shorter signals would need "
                "less.$");
}

#endif

}  // namespace
