
#include "compare/plots/page_ids.h"
#include "compare/plots/page_table.h"
#include "compare/signal.h"
#include "files/error.h"
#include "tests/support/page_samples.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

using testing::ElementsAre;

std::vector<CSignal> TwoSignals() {
    std::vector<CSignal> computed;
    computed.push_back(ComputedSignal("C:\\runs\\late.001", TimeSignal(0.25, {0, 1, 2, 3, 4})));
    computed.push_back(ComputedSignal("/runs/close.uds", TimeSignal(0.25, {1, 1, 1, 1, 1, 1}, -2)));
    return computed;
}

class InputPages : public testing::TestWithParam<std::int32_t> {};
INSTANTIATE_TEST_SUITE_P(PlotInput, InputPages, testing::Values(page::kInputData, page::kAcceleration));

TEST_P(InputPages, ShowTheReferenceAndThenEverySignalAsItIs) {
    std::vector<CSignal> computed = TwoSignals();
    const CShownPage shown = Show(GetParam(), computed, TimeSignal(0.5, {7, 8, 9}));
    EXPECT_TRUE(shown.isBuilt);
    EXPECT_THAT(shown.names, ElementsAre("Reference", "late.001", "close.uds"));
    ASSERT_EQ(shown.series.size(), 3U);
    EXPECT_THAT(shown.series[0]->GetX(), ElementsAre(0, 0.5, 1));
    EXPECT_THAT(shown.series[0]->GetY(), ElementsAre(7, 8, 9));
    EXPECT_THAT(shown.series[1]->GetY(), ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(shown.series[2]->GetX(), ElementsAre(-0.5, -0.25, 0, 0.25, 0.5, 0.75));
    EXPECT_EQ(shown.series[2]->GetNFP(), -2);
}

TEST_P(InputPages, TheCurvesAreCopies) {
    std::vector<CSignal> computed = TwoSignals();
    const CShownPage shown = Show(GetParam(), computed, TimeSignal(0.5, {7, 8, 9}));
    shown.series[1]->SetPoint(0, 99, 99);
    EXPECT_EQ(computed[0].Record().GetY()[0], 0.0);
}

TEST_P(InputPages, EmptyRecordsAreCurvesWithoutPoints) {
    std::vector<CSignal> computed(1);
    const CShownPage shown = Show(GetParam(), computed, ks::CNSignal());
    ASSERT_EQ(shown.series.size(), 2U);
    EXPECT_EQ(shown.series[0]->GetPointCount() + shown.series[1]->GetPointCount(), 0U);
}

class IntegralPages : public testing::TestWithParam<std::int32_t> {};
INSTANTIATE_TEST_SUITE_P(PlotVel, IntegralPages, testing::Values(page::kVelocity, page::kDisplacement));

TEST_P(IntegralPages, IntegrateReferenceAndSignalsOnce) {
    std::vector<CSignal> computed = TwoSignals();
    ks::CNSignal reference = TimeSignal(0.5, {1, 1, 1, 1});
    reference.SetINIVEL(50.0);
    const CShownPage shown = Show(GetParam(), computed, reference);
    EXPECT_TRUE(shown.isBuilt);
    EXPECT_THAT(shown.names, ElementsAre("Reference", "late.001", "close.uds"));
    ASSERT_EQ(shown.series.size(), 3U);
    constexpr double kKmhPerGSecond = 35.30394;
    for (std::size_t i = 0; i < 4; ++i) {
        // Constant 1 G from an initial velocity of 50: a straight line.
        EXPECT_NEAR(shown.series[0]->GetY()[i], 50.0 + kKmhPerGSecond * 0.5 * static_cast<double>(i), 1e-12) << i;
    }
    for (std::size_t i = 0; i < 5; ++i) {
        const double t = 0.25 * static_cast<double>(i);  // acceleration 4 t: velocity 2 t squared
        EXPECT_NEAR(shown.series[1]->GetY()[i], kKmhPerGSecond * 2.0 * t * t, 1e-12) << i;
    }
    EXPECT_EQ(shown.series[2]->GetY()[2], 0.0);  // anchored at time zero, the third sample
    EXPECT_EQ(shown.series[0]->GetYUNITS(), "KILOMETERS/HOUR");
    EXPECT_EQ(shown.series[0]->GetYQuantity(), "VELOCITY");
    EXPECT_THAT(computed[0].Record().GetY(), ElementsAre(0, 1, 2, 3, 4));
}

TEST_P(IntegralPages, ASignalTooShortForAnIntegralFailsAfterTheCurvesBeforeIt) {
    std::vector<CSignal> computed = TwoSignals();
    computed[1].Record() = TimeSignal(0.25, {1, 2, 3});
    CSeriesList series;
    std::vector<std::string> names;
    try {
        MakePage(GetParam())->BuildSeries(computed, TimeSignal(0.5, {1, 1, 1, 1}), series, names);
        FAIL() << "nothing thrown";
    } catch (const ks::CError& error) {
        EXPECT_STREQ(error.what(), "Too few data points to compute an Integral");
    }
    EXPECT_EQ(series.size(), 2U);
}

TEST(PlotDisp, ShowsTheCurvesOfVelocityUnderAnotherTitle) {
    std::vector<CSignal> computed = TwoSignals();
    const ks::CNSignal reference = TimeSignal(0.5, {1, 4, -2, 1});
    const CShownPage velocity = Show(page::kVelocity, computed, reference);
    const CShownPage displacement = Show(page::kDisplacement, computed, reference);
    ASSERT_EQ(velocity.series.size(), displacement.series.size());
    for (std::size_t j = 0; j < velocity.series.size(); ++j) {
        EXPECT_EQ(velocity.series[j]->GetX(), displacement.series[j]->GetX()) << j;
        EXPECT_EQ(velocity.series[j]->GetY(), displacement.series[j]->GetY()) << j;
    }
    EXPECT_EQ(velocity.names, displacement.names);
    EXPECT_EQ(velocity.yTitle, "Velocity (kmph)");
    EXPECT_EQ(displacement.yTitle, "Displacement (mm)");
}

}  // namespace
