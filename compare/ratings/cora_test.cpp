#include "compare/ratings/cora.h"

#include "compare/ratings/messages.h"
#include "compare/ratings/samples.h"
#include "compare/ratings/testing/pairs.h"
#include "compare/ratings/value.h"
#include "tests/support/expect_error.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

namespace ratings {
namespace {

constexpr CTimeBase kTime{0.0, 0.001};

CCora Rate(const CPairOfSignals& pair, const CCoraOptions& options = {}) {
    return Cora(pair.View(), kTime, options);
}

TEST(Cora, ASignalAgainstItselfIsPerfect) {
    const CCora cora = Rate(WithGain(Pulse(500, 0.3), 1.0));
    for (const CValue* value :
         {&cora.corridor, &cora.shape, &cora.size, &cora.phase, &cora.crossCorrelation, &cora.total}) {
        EXPECT_NEAR(value->Number(), 1.0, 1e-14);
    }
    EXPECT_EQ(cora.lag.Number(), 0.0);
    EXPECT_FALSE(cora.isModified);
}

TEST(Cora, AGainCostsSizeAndCorridorAlone) {
    for (const double gain : {0.5, 1.5}) {
        const CCora cora = Rate(WithGain(Pulse(500, 0.3), gain));
        const double size = std::min(gain * gain, 1.0 / (gain * gain));
        EXPECT_NEAR(cora.size.Number(), size, 1e-12);
        EXPECT_NEAR(cora.shape.Number(), 1.0, 1e-12);
        EXPECT_EQ(cora.phase.Number(), 1.0);
        EXPECT_NEAR(cora.crossCorrelation.Number(), 0.75 + 0.25 * size, 1e-12);
        EXPECT_NEAR(cora.total.Number(), 0.5 * cora.corridor.Number() + 0.5 * cora.crossCorrelation.Number(), 1e-15);
    }
}

TEST(Cora, TheIntervalFollowsTheThresholdsAndIsWidened) {
    // A triangle of peak 100 from sample 100 to 300: 3 from sample 103 on, 7.5 up to sample 292. One percent of 189
    // is 1.89, so one more sample on each side.
    const auto triangle = Sampled(501, [](double i) { return std::max(0.0, 100.0 - std::abs(i - 200.0)); });
    const CCora cora = Rate(WithGain(triangle, 1.0));
    EXPECT_NEAR(cora.startS.Number(), 0.102, 1e-15);
    EXPECT_NEAR(cora.endS.Number(), 0.293, 1e-15);
    CCoraOptions fixed;
    fixed.startS = 0.1505;
    EXPECT_NEAR(Rate(WithGain(triangle, 1.0), fixed).startS.Number(), 0.151, 1e-15);
    EXPECT_NEAR(Rate(WithGain(triangle, 1.0), fixed).endS.Number(), 0.293, 1e-15);
    fixed.endS = 9.0;
    EXPECT_NEAR(Rate(WithGain(triangle, 1.0), fixed).endS.Number(), 0.5, 1e-15);
    EXPECT_TRUE(Rate(WithGain(triangle, 1.0), fixed).isModified);
}

TEST(Cora, AnEndPlateauIsLeftOut) {
    // A ramp to 100 at sample 200, then level to 400: beyond 20 of the final value up to sample 159; widened by 1.56.
    const auto ramp = Sampled(401, [](double i) { return std::min(i / 2.0, 100.0); });
    EXPECT_NEAR(Rate(WithGain(ramp, 1.0)).endS.Number(), 0.160, 1e-15);
    CCoraOptions options;
    options.endPlateau = 0.0;
    EXPECT_NEAR(Rate(WithGain(ramp, 1.0), options).endS.Number(), 0.400, 1e-15);
    // A step has nothing between its start and its plateau; the interval keeps its end.
    const auto step = Sampled(401, [](double i) { return i < 100.0 ? 0.0 : 5.0; });
    EXPECT_NEAR(Rate(WithGain(step, 1.0)).endS.Number(), 0.400, 1e-15);
}

TEST(Cora, ADelayCostsPhaseBetweenItsLimits) {
    CCoraOptions options;
    options.startS = 0.0;
    options.endS = 1.0;  // 1001 samples, so a delay of 10 is 1 % and one of 120 is 12 %
    const auto phase = [&](double delay) {
        const CCora cora = Rate({Pulse(1001, 0.4), Pulse(1001, 0.4, delay)}, options);
        EXPECT_EQ(cora.lag.Number(), delay);
        EXPECT_NEAR(cora.shape.Number(), 1.0, 1e-9);
        return cora.phase.Number();
    };
    EXPECT_EQ(phase(9), 1.0);
    EXPECT_NEAR(phase(65), 0.5, 1e-12);
    EXPECT_NEAR(phase(119), 1.0 / 110.0, 1e-12);
    EXPECT_EQ(phase(121), 0.0);
    EXPECT_EQ(phase(-121), 0.0);
    EXPECT_NEAR(phase(-65), 0.5, 1e-12);
}

TEST(Cora, ShapeIsAPowerOfTheCorrelation) {
    // Without any shift: sums 1*1 + 1*0 = 1 over sqrt(2 * 1).
    CCoraOptions options;
    options.startS = 0.0;
    options.endS = 0.003;
    options.leastOverlap = 1.0;
    const CCora cora = Rate({{1.0, 1.0, 0.0, 0.0}, {1.0, 0.0, 0.0, 0.0}}, options);
    EXPECT_NEAR(cora.shape.Number(), std::pow((std::sqrt(0.5) + 1.0) / 2.0, 10), 1e-14);
    EXPECT_NEAR(cora.size.Number(), 0.5, 1e-15);
    EXPECT_NEAR(cora.corridor.Number(), 0.75, 1e-15);
}

TEST(Cora, DegenerateSignalsSayWhy) {
    const std::vector<double> zero(50, 0.0);
    EXPECT_EQ(Rate({zero, Wave(50)}).total.Reason(), rating_message::kReferenceZero);
    const CCora computedZero = Rate({Wave(50), zero});
    EXPECT_TRUE(computedZero.corridor.IsNumber());
    EXPECT_EQ(computedZero.total.Reason(), rating_message::kNoCrossCorrelation);
    EXPECT_EQ(computedZero.lag.Reason(), rating_message::kNoCrossCorrelation);
    EXPECT_EQ(Rate({{5.0}, {5.0}}).total.Reason(), rating_message::kShortInterval);
    EXPECT_EQ(Rate({}).corridor.Reason(), rating_message::kNoSamples);
    CCoraOptions options;
    options.startS = 0.040;
    options.endS = 0.045;
    std::vector<double> early(50, 0.0);
    early[3] = 1.0;
    EXPECT_EQ(Rate({early, early}, options).corridor.Reason(), rating_message::kReferenceZeroInInterval);
    options.startS = 0.060;
    options.endS = 0.070;
    EXPECT_EQ(Rate({early, early}, options).total.Reason(), rating_message::kShortInterval);
}

struct Refusal {
    std::string name;
    CCoraOptions options;
    std::string_view sentence;
};

std::vector<Refusal> Refusals() {
    return {{"StartThreshold", {.startThreshold = 1.5}, rating_message::kCoraThresholds},
            {"EndThreshold", {.endThreshold = -0.1}, rating_message::kCoraThresholds},
            {"Widening", {.widening = -1.0}, rating_message::kCoraThresholds},
            {"EndPlateau", {.endPlateau = std::nan("")}, rating_message::kCoraThresholds},
            {"Times", {.startS = 1.0, .endS = 1.0}, rating_message::kCoraTimes},
            {"Corridor", {.corridorOuter = 0.01}, rating_message::kCorridorWidths},
            {"Exponent", {.shapeExponent = 0.0}, rating_message::kCoraExponents},
            {"Delays", {.leastDelay = 0.12}, rating_message::kCoraDelays},
            {"Overlap", {.leastOverlap = 0.0}, rating_message::kCoraOverlap},
            {"PartWeights", {.shapeWeight = 0.6}, rating_message::kWeights},
            {"MethodWeights", {.corridorWeight = -0.5, .crossCorrelationWeight = 1.5}, rating_message::kWeights}};
}

class RefusedCoraOptions : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedCoraOptions, AreRefusedWithASentence) {
    EXPECT_EQ(FaultOf(GetParam().options), GetParam().sentence);
    EXPECT_EQ(ErrorOf([] { Rate(WithGain(Wave(50), 1.0), GetParam().options); }), GetParam().sentence);
}
INSTANTIATE_TEST_SUITE_P(Cora, RefusedCoraOptions, testing::ValuesIn(Refusals()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace ratings
