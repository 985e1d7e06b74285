
#include "compare/chart_block.h"
#include "compare/plots/page_ids.h"
#include "compare/signal.h"
#include "tests/support/page_samples.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace {

using testing::Each;
using testing::ElementsAre;

/// Residuals 1.5, -1.5, 0.5, -0.5 and, not seen by the statistics, 0 against `reference`: sigma is 1.
CSignal ComparedSignal(std::string path, const CSignal& reference) {
    std::vector<double> y = reference.Record().GetY().ToVector();
    const std::vector<double> residuals{1.5, -1.5, 0.5, -0.5, 0.0};
    for (std::size_t i = 0; i < y.size(); ++i) y[i] += residuals[i];
    ks::CNSignal record = TimeSignal(0.5, y);
    record.SetTSTNAM("run 5");
    CSignal signal = ComputedSignal(std::move(path), record);
    signal.Compare(reference);
    return signal;
}

CSignal ReferenceSignal() {
    return ComputedSignal("reference", TimeSignal(0.5, {8, 4, 2, 1, 0}));
}

TEST(PlotCumulativeDensity, EveryCurveHasAHundredPointsFromMinusTwoSigmaOn) {
    const CSignal reference = ReferenceSignal();
    std::vector<CSignal> computed{ComparedSignal("/a.001", reference), ComparedSignal("/b.002", reference)};
    ASSERT_EQ(computed[0].Comparison().GetResidualStandardDeviation(), 1.0);
    const CShownPage shown = Show(page::kCumulativeDensity, computed, reference.Record());
    EXPECT_TRUE(shown.isBuilt);
    EXPECT_THAT(shown.names, ElementsAre("a.001", "b.002"));
    ASSERT_EQ(shown.series.size(), 2U);
    const ks::CNSignal& curve = *shown.series[0];
    ASSERT_EQ(curve.GetPointCount(), 100U);
    EXPECT_THAT(curve.GetZ(), Each(0.0));
    EXPECT_EQ(curve.GetX()[0], -2.0);
    EXPECT_EQ(curve.GetY()[0], 0.0);
    EXPECT_EQ(curve.GetY()[13], 20.0);   // x just above -1.5: one of five
    EXPECT_EQ(curve.GetY()[38], 40.0);   // -0.5
    EXPECT_EQ(curve.GetY()[50], 60.0);   // 0
    EXPECT_EQ(curve.GetY()[62], 80.0);   // 0.5
    EXPECT_EQ(curve.GetY()[87], 100.0);  // 1.5
    EXPECT_EQ(curve.GetYMax(), 100.0);
    EXPECT_EQ(curve.GetXMin(), -2.0);
}

TEST(PlotCumulativeDensity, HeaderFieldsAreThePagesOwnButUnitsAndTestName) {
    const CSignal reference = ReferenceSignal();
    std::vector<CSignal> computed{ComparedSignal("a", reference)};
    computed[0].Record().SetYUNITS("NEWTONS");
    const ks::CNSignal curve = *Show(page::kCumulativeDensity, computed, reference.Record()).series[0];
    EXPECT_EQ(curve.GetSENATT(), "UNKN");
    EXPECT_EQ(curve.GetXTYPE(), "RESIDUAL");
    EXPECT_EQ(curve.GetXUNITS(), "NEWTONS");
    EXPECT_EQ(curve.GetTSTNAM(), "run 5");
    EXPECT_EQ(curve.GetTSTSRC(), "Computed");
    EXPECT_EQ(curve.GetDataStatus(), "COMPUTED");
    EXPECT_EQ(curve.GetFCUT(), 0.0);
    EXPECT_EQ(curve.Getdelt(), 0.0);
    EXPECT_EQ(curve.GetNFP(), 0);
    EXPECT_EQ(curve.GetNLP(), 99);
    EXPECT_EQ(curve.GetYTYPE(), "");
    EXPECT_EQ(curve.GetCount(), 100);
}

TEST(PlotCumulativeDensity, SigmaZeroGivesPaddingOnly) {
    CSignal reference = ReferenceSignal();
    CSignal same = ComputedSignal("same", reference.Record());
    same.Compare(reference);
    std::vector<CSignal> computed{same};
    const CShownPage shown = Show(page::kCumulativeDensity, computed, reference.Record());
    ASSERT_EQ(shown.series.size(), 1U);
    EXPECT_EQ(shown.series[0]->GetX(), std::vector<double>(100, kNoDataValue));
    EXPECT_EQ(shown.series[0]->GetY(), std::vector<double>(100, kNoDataValue));
}

TEST(PlotCumulativeDensity, SigmaNotANumberGivesPaddingOnly) {
    CSignal reference = ReferenceSignal();
    CSignal broken = ComputedSignal("broken", TimeSignal(0.5, {1, std::numeric_limits<double>::quiet_NaN(), 1, 1, 1}));
    broken.Compare(reference);
    std::vector<CSignal> computed{broken};
    const CShownPage shown = Show(page::kCumulativeDensity, computed, reference.Record());
    EXPECT_EQ(shown.series[0]->GetX(), std::vector<double>(100, kNoDataValue));
}

TEST(PlotCumulativeDensity, CutsTheSignalForGoodAndDividesByWhatIsLeft) {
    const CSignal reference = ReferenceSignal();
    std::vector<CSignal> computed{ComparedSignal("a", reference)};
    ks::CNSignal longer = TimeSignal(0.5, {8, 4, 2, 1, 0, 0, 0});
    const CShownPage shown = Show(page::kCumulativeDensity, computed, longer);
    EXPECT_EQ(computed[0].GetPointCount(), 4U);
    EXPECT_EQ(longer.GetPointCount(), 7U);
    EXPECT_EQ(shown.series[0]->GetY()[13], 25.0);  // one of four
    EXPECT_EQ(shown.series[0]->GetY()[98], 100.0);
}

TEST(PlotCumulativeDensity, AnEmptySignalGivesPaddingSinceItsSigmaIsZero) {
    std::vector<CSignal> computed(1);
    const CShownPage shown = Show(page::kCumulativeDensity, computed, TimeSignal(0.5, {1, 2, 3}));
    EXPECT_EQ(shown.series[0]->GetY(), std::vector<double>(100, kNoDataValue));
}

}  // namespace
