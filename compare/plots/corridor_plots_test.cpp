#include "compare/plots/corridor_plots.h"

#include "compare/plots/page_ids.h"
#include "compare/signal.h"
#include "tests/support/page_samples.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

/// A signal whose residual against a reference of five zeros has the standard deviation `sigma`: the first four
/// residuals sum to 0 and their squares to 5, and the last one counts in neither.
CSignal WithSigma(std::string path, double sigma) {
    CSignal reference = ComputedSignal("reference", TimeSignal(0.5, {0, 0, 0, 0, 0}));
    CSignal signal =
        ComputedSignal(std::move(path), TimeSignal(0.5, {1.5 * sigma, -1.5 * sigma, 0.5 * sigma, -0.5 * sigma, 0.0}));
    signal.Compare(reference);
    return signal;
}

std::vector<CSignal> OneSignal(double corridorSize) {
    std::vector<CSignal> computed{ComputedSignal("/runs/close.uds", TimeSignal(0.5, {1, 2, 3}))};
    computed[0].Comparison().SetCorridor(corridorSize);
    return computed;
}

TEST(PlotCorridor, LiesItsSizeAboveAndBelowTheReferenceWithoutShowingIt) {
    std::vector<CSignal> computed = OneSignal(4.0);
    const CShownPage shown = Show(page::kCorridor, computed, TimeSignal(0.5, {10, 20, 30}));
    EXPECT_TRUE(shown.isBuilt);
    EXPECT_THAT(shown.names, ElementsAre("Plus 4", "Minus 4", "close.uds"));
    ASSERT_EQ(shown.series.size(), 3U);
    EXPECT_THAT(shown.series[0]->GetX(), ElementsAre(0, 0.5, 1));
    EXPECT_THAT(shown.series[0]->GetY(), ElementsAre(14, 24, 34));
    EXPECT_THAT(shown.series[0]->GetZ(), ElementsAre(0, 0, 0));
    EXPECT_EQ(shown.series[0]->GetYMax(), 34.0);
    EXPECT_EQ(shown.series[0]->GetYMin(), 14.0);
    EXPECT_THAT(shown.series[1]->GetX(), ElementsAre(0, 0.5, 1));
    EXPECT_THAT(shown.series[1]->GetY(), ElementsAre(6, 16, 26));
    EXPECT_THAT(shown.series[2]->GetY(), ElementsAre(1, 2, 3));
}

struct NameRow {
    double size;
    const char *upper, *lower;
};

TEST(PlotCorridor, NamesCarryTheSizeInSixSignificantDigits) {
    for (const NameRow& row :
         {NameRow{4.0, "Plus 4", "Minus 4"}, NameRow{2.5, "Plus 2.5", "Minus 2.5"},
          NameRow{0.5, "Plus 0.5", "Minus 0.5"}, NameRow{1.0 / 3.0, "Plus 0.333333", "Minus 0.333333"},
          NameRow{1e7, "Plus 1e+07", "Minus 1e+07"}, NameRow{-1.5, "Plus -1.5", "Minus -1.5"},
          NameRow{std::nan(""), "Plus nan", "Minus nan"}}) {
        std::vector<CSignal> computed = OneSignal(row.size);
        EXPECT_THAT(Show(page::kCorridor, computed, TimeSignal(0.5, {1, 2, 3})).names,
                    ElementsAre(row.upper, row.lower, "close.uds"));
    }
}

TEST(PlotCorridor, TheSizeIsThatOfTheFirstSignal) {
    std::vector<CSignal> computed = OneSignal(2.5);
    computed.push_back(OneSignal(9.0).front());
    EXPECT_EQ(Show(page::kCorridor, computed, TimeSignal(0.5, {1, 2, 3})).names[0], "Plus 2.5");
}

TEST(PlotCorridor, TitlesAreTheReferencesAxesWithALoneClosingParenthesis) {
    std::vector<CSignal> computed = OneSignal(4.0);
    const CShownPage shown = Show(page::kCorridor, computed, TimeSignal(0.5, {1, 2, 3}));
    EXPECT_EQ(shown.xTitle, "TIME SECONDS)");
    EXPECT_EQ(shown.yTitle, "ACCELERATION G'S)");
}

TEST(PlotCorridor, WithoutSignalsThereIsNothingToShow) {
    std::vector<CSignal> none;
    CSeriesList series(1);
    std::vector<std::string> names{"left over"};
    EXPECT_FALSE(CPlot4GCorridor().BuildSeries(none, TimeSignal(0.5, {1, 2, 3}), series, names));
    EXPECT_THAT(series, IsEmpty());
    EXPECT_THAT(names, IsEmpty());
}

TEST(PlotCorridor, ASizeOfZeroLeavesNothingToShow) {
    for (const double zero : {0.0, -0.0}) {
        std::vector<CSignal> computed = OneSignal(zero);
        const CShownPage shown = Show(page::kCorridor, computed, TimeSignal(0.5, {1, 2, 3}));
        EXPECT_FALSE(shown.isBuilt);
        EXPECT_THAT(shown.series, IsEmpty());
        EXPECT_THAT(shown.names, IsEmpty());
        EXPECT_EQ(shown.xTitle, "");
        EXPECT_EQ(shown.yTitle, "");
    }
}

TEST(PlotCorridor, AnEmptyReferenceHasEmptyEdges) {
    std::vector<CSignal> computed = OneSignal(4.0);
    const CShownPage shown = Show(page::kCorridor, computed, ks::CNSignal());
    EXPECT_TRUE(shown.isBuilt);
    ASSERT_EQ(shown.series.size(), 3U);
    EXPECT_EQ(shown.series[0]->GetPointCount(), 0U);
    EXPECT_EQ(shown.series[2]->GetPointCount(), 3U);
}

TEST(PlotStdDeviation, TheBandIsTheMeanOfTheSignalsStandardDeviations) {
    std::vector<CSignal> computed{WithSigma("/a/one", 1.0), WithSigma("/a/three", 3.0)};
    ASSERT_EQ(computed[0].Comparison().GetResidualStandardDeviation(), 1.0);
    ASSERT_EQ(computed[1].Comparison().GetResidualStandardDeviation(), 3.0);
    const CShownPage shown = Show(page::kStandardDeviation, computed, TimeSignal(0.5, {10, 20, 30, 40, 50}));
    EXPECT_TRUE(shown.isBuilt);
    EXPECT_THAT(shown.names, ElementsAre("Plus 1 Std Dev", "Minus 1 Std Dev", "one", "three"));
    ASSERT_EQ(shown.series.size(), 4U);
    EXPECT_THAT(shown.series[0]->GetY(), ElementsAre(12, 22, 32, 42, 52));
    EXPECT_THAT(shown.series[1]->GetY(), ElementsAre(8, 18, 28, 38, 48));
    EXPECT_EQ(shown.series[2]->GetY(), computed[0].Record().GetY());
    EXPECT_EQ(shown.series[3]->GetY(), computed[1].Record().GetY());
    EXPECT_EQ(shown.yTitle, "Acceleration (G's)");
}

TEST(Plot90Percent, TheBandIs16449StandardDeviationsWide) {
    std::vector<CSignal> computed{WithSigma("/a/one", 1.0), WithSigma("/a/three", 3.0)};
    const CShownPage shown = Show(page::k90Percentile, computed, TimeSignal(0.5, {0, 0, 0, 0, 0}));
    EXPECT_TRUE(shown.isBuilt);
    EXPECT_THAT(shown.names, ElementsAre("Plus 90%", "Minus 90%", "one", "three"));
    EXPECT_THAT(shown.series[0]->GetY(), Each(testing::DoubleEq(3.2898)));
    EXPECT_THAT(shown.series[1]->GetY(), Each(testing::DoubleEq(-3.2898)));
}

TEST(PlotStdDeviation, TheLowerEdgeIsTheUpperOneLessTwiceTheHalfWidth) {
    // 0.1 + h - 2 h and 0.1 - h differ in the last digit for this h.
    std::vector<CSignal> computed{WithSigma("a", 1.0)};
    const double h = computed[0].Comparison().GetResidualStandardDeviation();
    ASSERT_NE((0.1 + h) - 2.0 * h, 0.1 - h);
    const CShownPage shown = Show(page::kStandardDeviation, computed, TimeSignal(0.5, {0.1, 0.1}));
    EXPECT_EQ(shown.series[1]->GetY()[0], (0.1 + h) - 2.0 * h);
}

class BandPages : public testing::TestWithParam<std::int32_t> {};
INSTANTIATE_TEST_SUITE_P(PlotBands, BandPages, testing::Values(page::kStandardDeviation, page::k90Percentile));

TEST_P(BandPages, SigmaZeroDrawsTheReferenceTwice) {
    std::vector<CSignal> computed{WithSigma("a", 0.0)};
    const CShownPage shown = Show(GetParam(), computed, TimeSignal(0.5, {1, 2, 3}));
    EXPECT_THAT(shown.series[0]->GetY(), ElementsAre(1, 2, 3));
    EXPECT_THAT(shown.series[1]->GetY(), ElementsAre(1, 2, 3));
}

TEST_P(BandPages, WithoutSignalsTheBandIsNotANumber) {
    std::vector<CSignal> none;
    const CShownPage shown = Show(GetParam(), none, TimeSignal(0.5, {1, 2, 3}));
    EXPECT_TRUE(shown.isBuilt);
    ASSERT_EQ(shown.series.size(), 2U);
    EXPECT_THAT(shown.series[0]->GetY(), Each(testing::IsNan()));
    EXPECT_THAT(shown.series[1]->GetY(), Each(testing::IsNan()));
    EXPECT_THAT(shown.series[0]->GetX(), ElementsAre(0, 0.5, 1));
}

TEST_P(BandPages, OneSigmaThatIsNotANumberMakesTheBandNotANumber) {
    std::vector<CSignal> computed{WithSigma("a", 1.0), WithSigma("b", std::numeric_limits<double>::quiet_NaN())};
    const CShownPage shown = Show(GetParam(), computed, TimeSignal(0.5, {1, 2, 3}));
    EXPECT_THAT(shown.series[0]->GetY(), Each(testing::IsNan()));
    EXPECT_EQ(shown.series[2]->GetPointCount(), 5U);
}

}  // namespace
