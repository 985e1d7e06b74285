#include "compare/plots/residual_plot.h"

#include "compare/plots/page_ids.h"
#include "compare/signal.h"
#include "files/error.h"
#include "tests/support/page_samples.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(PlotResidual, ShowsComputedMinusReferenceForEverySignal) {
    std::vector<CSignal> computed{ComputedSignal("C:\\a.001", TimeSignal(0.5, {1, 2, 3, 4})),
                                  ComputedSignal("/b.002", TimeSignal(0.5, {0, 0, 0, 10}))};
    const CShownPage shown = Show(page::kResiduals, computed, TimeSignal(0.5, {1, 1, 1, 1}));
    EXPECT_TRUE(shown.isBuilt);
    EXPECT_THAT(shown.names, ElementsAre("a.001", "b.002"));
    ASSERT_EQ(shown.series.size(), 2U);
    EXPECT_THAT(shown.series[0]->GetX(), ElementsAre(0, 0.5, 1, 1.5));
    EXPECT_THAT(shown.series[0]->GetY(), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(shown.series[0]->GetZ(), ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(shown.series[1]->GetY(), ElementsAre(-1, -1, -1, 9));
    EXPECT_EQ(shown.series[0]->GetNFP(), 0);
    EXPECT_EQ(shown.series[0]->GetNLP(), 3);
    EXPECT_EQ(shown.series[1]->GetYMax(), 9.0);
    EXPECT_EQ(shown.series[0]->GetDataStatus(), "COMPUTED");
}

TEST(PlotResidual, HeaderAndAbscissasAreThoseOfTheReference) {
    ks::CNSignal reference = TimeSignal(0.5, {1, 1, 1});
    reference.SetTITLE("reference");
    ks::CNSignal record = TimeSignal(0.5, {2, 2, 2});
    record.SetTITLE("computed");
    std::vector<CSignal> computed{ComputedSignal("a", record)};
    EXPECT_EQ(Show(page::kResiduals, computed, reference).series[0]->GetTITLE(), "reference");
}

TEST(PlotResidual, CutsTheSignalForGoodAndTheReferenceNever) {
    std::vector<CSignal> computed{ComputedSignal("a", TimeSignal(0.5, {1, 2, 3, 4, 5, 6}, 1))};  // 0.5 ... 3
    const ks::CNSignal reference = TimeSignal(0.5, {10, 10, 10, 10, 10});                        // 0 ... 2
    const CShownPage shown = Show(page::kResiduals, computed, reference);
    EXPECT_THAT(shown.series[0]->GetX(), ElementsAre(0.5, 1, 1.5));
    EXPECT_THAT(shown.series[0]->GetY(), ElementsAre(-9, -8, -7));
    EXPECT_EQ(shown.series[0]->GetNFP(), 1);
    EXPECT_EQ(shown.series[0]->GetNLP(), 3);
    EXPECT_EQ(shown.series[0]->GetStartTime(), 0.5);
    EXPECT_EQ(shown.series[0]->GetEndTime(), 1.5);
    EXPECT_EQ(shown.series[0]->GetDataStatus(), "COMPUTED");
    EXPECT_THAT(computed[0].Record().GetX(), ElementsAre(0.5, 1, 1.5));
    EXPECT_EQ(computed[0].Record().GetDataStatus(), "TRUNCATED");
    EXPECT_EQ(reference.GetPointCount(), 5U);
}

TEST(PlotResidual, EveryVisitCutsAgainWhileTheRangesDiffer) {
    std::vector<CSignal> computed{ComputedSignal("a", TimeSignal(0.5, {1, 2, 3, 4, 5, 6, 7, 8}))};
    const ks::CNSignal reference = TimeSignal(0.5, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    std::vector<std::size_t> counts;
    for (int visit = 0; visit < 3; ++visit) {
        counts.push_back(Show(page::kResiduals, computed, reference).series[0]->GetPointCount());
    }
    EXPECT_THAT(counts, ElementsAre(7, 6, 5));  // the last sample of a cut record is never kept
    EXPECT_EQ(computed[0].GetPointCount(), 5U);
}

TEST(PlotResidual, TheShorterOfBothSaysHowManyPointsThereAre) {
    // Ends that agree leave nothing to cut, and yet one record has fewer samples than the other.
    ks::CNSignal dense = TimeSignal(0.5, {0, 0, 0, 0, 0});
    ks::CNSignal sparse = TimeSignal(1.0, {3, 4, 5});
    std::vector<CSignal> computed{ComputedSignal("sparse", sparse)};
    const CShownPage few = Show(page::kResiduals, computed, dense);
    EXPECT_THAT(few.series[0]->GetX(), ElementsAre(0, 0.5, 1));
    EXPECT_THAT(few.series[0]->GetY(), ElementsAre(3, 4, 5));
    EXPECT_THAT(few.series[0]->GetZ(), ElementsAre(0, 0, 0));
    EXPECT_EQ(few.series[0]->GetNLP(), 2);
    EXPECT_EQ(few.series[0]->GetEndTime(), 1.0);

    computed = {ComputedSignal("dense", dense)};
    const CShownPage many = Show(page::kResiduals, computed, sparse);
    EXPECT_THAT(many.series[0]->GetX(), ElementsAre(0, 1, 2));
    EXPECT_THAT(many.series[0]->GetY(), ElementsAre(-3, -4, -5));
}

TEST(PlotResidual, TheLastPointNumberFollowsTheNumberOfPoints) {
    ks::CNSignal reference = TimeSignal(0.5, {1, 2, 3}, 5);
    reference.SetNLP(99);
    std::vector<CSignal> computed{ComputedSignal("a", TimeSignal(0.5, {1, 2, 3}, 5))};
    EXPECT_EQ(Show(page::kResiduals, computed, reference).series[0]->GetNLP(), 7);
}

TEST(PlotResidual, AnEmptyRecordGivesACurveWithoutPointsAndCutsNothing) {
    std::vector<CSignal> computed(1);
    const CShownPage withoutComputed = Show(page::kResiduals, computed, TimeSignal(0.5, {1, 2, 3}, 4));
    ASSERT_EQ(withoutComputed.series.size(), 1U);
    EXPECT_EQ(withoutComputed.series[0]->GetPointCount(), 0U);
    EXPECT_EQ(withoutComputed.series[0]->GetX().size(), 0U);
    EXPECT_EQ(withoutComputed.series[0]->GetNLP(), 3);  // NFP - 1: no point numbers
    EXPECT_EQ(withoutComputed.series[0]->GetCount(), 0);

    computed = {ComputedSignal("a", TimeSignal(0.5, {1, 2, 3}))};
    EXPECT_EQ(Show(page::kResiduals, computed, ks::CNSignal()).series[0]->GetPointCount(), 0U);
    EXPECT_EQ(computed[0].GetPointCount(), 3U);
}

TEST(PlotResidual, OneSampleEachIsOnePoint) {
    std::vector<CSignal> computed{ComputedSignal("a", TimeSignal(0.5, {5}))};
    EXPECT_THAT(Show(page::kResiduals, computed, TimeSignal(0.5, {2})).series[0]->GetY(), ElementsAre(3));
}

TEST(PlotResidual, ALastPointNumberBeyond32BitsStopsAtTheLargest) {
    ks::CNSignal reference = TimeSignal(0.5, {1, 2, 3});
    reference.SetNFP(std::numeric_limits<std::int32_t>::max());
    std::vector<CSignal> computed{ComputedSignal("a", TimeSignal(0.5, {1, 2, 3}))};
    EXPECT_EQ(Show(page::kResiduals, computed, reference).series[0]->GetNLP(),
              std::numeric_limits<std::int32_t>::max());
}

TEST(PlotResidual, WithoutSignalsThereAreNoCurves) {
    std::vector<CSignal> none;
    const CShownPage shown = Show(page::kResiduals, none, TimeSignal(0.5, {1, 2, 3}));
    EXPECT_TRUE(shown.isBuilt);
    EXPECT_THAT(shown.series, IsEmpty());
}

TEST(PlotResidual, RangesThatDoNotMeetFailWithTheSentenceOfTheCut) {
    std::vector<CSignal> computed{ComputedSignal("a", TimeSignal(0.5, {1, 2, 3})),
                                  ComputedSignal("far", TimeSignal(0.5, {1, 2, 3}, 100))};
    CSeriesList series;
    std::vector<std::string> names;
    try {
        CPlotResidual().BuildSeries(computed, TimeSignal(0.5, {1, 2, 3}), series, names);
        FAIL() << "nothing thrown";
    } catch (const ks::CError& error) {
        EXPECT_STREQ(error.what(), "Stop time (1) is before or equals Start Time (50)");
    }
    EXPECT_EQ(computed[1].GetPointCount(), 3U);
}

}  // namespace
