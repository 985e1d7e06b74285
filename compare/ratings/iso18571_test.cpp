#include "compare/ratings/iso18571.h"

#include "compare/ratings/messages.h"
#include "compare/ratings/samples.h"
#include "compare/ratings/testing/pairs.h"
#include "compare/ratings/value.h"
#include "tests/support/allocation_count.h"
#include "tests/support/expect_error.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace ratings {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

double Zero(double /*i*/) {
    return 0.0;
}

double SineOverNine(double i) {
    return std::sin(i / 9.0);
}

CIso18571Scores Score(const CPairOfSignals& pair, const CIso18571Options& options = {}) {
    return ScoreIso18571(pair.View(), options);
}

TEST(Iso18571, ASignalAgainstItselfIsPerfect) {
    const CIso18571Scores scores = Score(WithGain(Wave(500), 1.0));
    EXPECT_EQ(scores.r, 1.0);
    EXPECT_EQ(scores.lag, 0);
    EXPECT_NEAR(scores.correlation, 1.0, 1e-15);
}

TEST(Iso18571, ADelayOfAPulseWithQuietEndsCostsPhaseAlone) {
    for (const int delay : {1, 17, 99}) {
        const CIso18571Scores late = Score({Pulse(500, 0.3), Pulse(500, 0.3, delay)});
        EXPECT_EQ(late.lag, delay);
        EXPECT_NEAR(late.ep, 1.0 - delay / 100.0, 1e-12) << delay;
        EXPECT_NEAR(late.em, 1.0, 1e-9);
        EXPECT_NEAR(late.es, 1.0, 1e-9);
        const CIso18571Scores early = Score({Pulse(500, 0.3, delay), Pulse(500, 0.3)});
        EXPECT_EQ(early.lag, -delay);
        EXPECT_NEAR(early.ep, late.ep, 1e-12);
    }
}

TEST(Iso18571, ADelayOfTheLargestShareScoresZeroInPhase) {
    const CIso18571Scores scores = Score({Pulse(500, 0.3), Pulse(500, 0.3, 100)});
    EXPECT_EQ(scores.lag, 100);
    EXPECT_EQ(scores.ep, 0.0);
    EXPECT_NEAR(scores.em, 1.0, 1e-9);
}

TEST(Iso18571, ALargestShareThatIsNoWholeNumberLeavesALittlePhase) {
    // 0.2 * 504 = 100.8: a lag of 100 is the last one tried and scores 0.8 / 100.8.
    const CIso18571Scores scores = Score({Pulse(504, 0.3), Pulse(504, 0.3, 100)});
    EXPECT_EQ(scores.lag, 100);
    EXPECT_NEAR(scores.ep, 0.8 / 100.8, 1e-12);
}

TEST(Iso18571, AnOffsetCostsCorridorAndMagnitudeAlone) {
    std::vector<double> reference = Wave(400);
    const double peak = LargestMagnitude(reference);
    struct Row {
        double offset, z;
    };
    for (const Row& row : {Row{0.04, 1.0}, Row{0.3, std::pow(0.2 / 0.45, 2)}, Row{0.51, 0.0}}) {
        const CIso18571Scores scores = Score(WithGain(reference, 1.0, row.offset * peak));
        EXPECT_NEAR(scores.z, row.z, 1e-9) << row.offset;
        EXPECT_EQ(scores.ep, 1.0);
        EXPECT_NEAR(scores.es, 1.0, 1e-9);
    }
}

TEST(Iso18571, AGainCostsHalfItsDepartureInSlope) {
    for (const double gain : {0.5, 1.2, 1.7}) {
        const CIso18571Scores scores = Score(WithGain(Wave(300), gain));
        EXPECT_NEAR(scores.es, 1.0 - std::abs(gain - 1.0) / 2.0, 1e-12) << gain;
        EXPECT_EQ(scores.lag, 0);
    }
}

TEST(Iso18571, AConstantWithinTheInnerCorridorLosesMagnitudeAlone) {
    const std::vector<double> reference(100, 10.0);
    const CIso18571Scores scores = Score(WithGain(reference, 1.0, 0.25));
    EXPECT_EQ(scores.z, 1.0);
    EXPECT_NEAR(scores.em, 0.95, 1e-12);
    EXPECT_NEAR(scores.r, 0.99, 1e-12);
    EXPECT_TRUE(scores.isCorrelationByRule);
    EXPECT_TRUE(scores.isSlopeByRule);
    EXPECT_FALSE(scores.isMagnitudeByRule);
}

TEST(Iso18571, ScoresDoNotDependOnTheUnit) {
    const CPairOfSignals pair{Wave(200), Pulse(200, 0.1)};
    const CIso18571Scores expected = Score(pair);
    for (const int exponent : {-900, 1000}) {
        CPairOfSignals scaled = pair;
        for (auto* values : {&scaled.reference, &scaled.computed}) {
            for (double& value : *values) value = std::ldexp(value, exponent);
        }
        const CIso18571Scores scores = Score(scaled);
        EXPECT_EQ(scores.r, expected.r) << exponent;
        EXPECT_EQ(scores.lag, expected.lag);
    }
}

TEST(Iso18571, NineSamplesAreRatedWithoutAShift) {
    // floor(0.2 * 9) = 1, which would leave eight.
    const CIso18571Scores scores = Score({Pulse(9, 0.3), Pulse(9, 0.3, 1)});
    EXPECT_EQ(scores.lag, 0);
    EXPECT_EQ(scores.ep, 1.0);
}

TEST(Iso18571, AShiftThatLeavesNineSamplesIsTaken) {
    // A single sample away from zero; of ten samples one may be shifted, and two would leave eight.
    std::vector<double> reference(10, 0.0), late(10, 0.0), later(10, 0.0);
    reference[4] = late[5] = later[6] = 1.0;
    EXPECT_EQ(Score({reference, late}).lag, 1);
    EXPECT_EQ(Score({reference, later}).lag, 0);
    EXPECT_EQ(Score({reference, later}).ep, 1.0);
}

TEST(Iso18571, MemoryGrowsWithTheSamplesAndNotWithTheCellsOfTheBand) {
    constexpr std::size_t kCount = 8000;
    const CPairOfSignals pair{Pulse(kCount, 0.3), Pulse(kCount, 0.3, 100)};
    ResetLargestAllocation();
    EXPECT_EQ(Score(pair).lag, 100);
    EXPECT_GT(LargestAllocation(), 0U);
    EXPECT_LT(LargestAllocation(), 8 * sizeof(double) * kCount) << "a row of the band has 1600 cells";
}

TEST(Iso18571, EveryParameterHasItsEffect) {
    const CPairOfSignals pair{Pulse(300, 0.3), WithGain(Pulse(300, 0.3, 15), 1.2).computed};
    const CIso18571Scores scores = Score(pair);
    CIso18571Options options;
    options.largestShiftShare = 0.1;
    EXPECT_NEAR(Score(pair, options).ep, 0.5, 1e-12);
    options = {};
    options.phaseExponent = 2;
    EXPECT_NEAR(Score(pair, options).ep, scores.ep * scores.ep, 1e-12);
    options = {};
    options.magnitudeExponent = 3;
    EXPECT_NEAR(Score(pair, options).em, std::pow(scores.em, 3), 1e-12);
    options = {};
    options.largestMagnitudeError = 1.0;
    EXPECT_NEAR(Score(pair, options).em, 1.0 - 0.5 * (1.0 - scores.em), 1e-12);
    options = {};
    options.largestSlopeError = 1.0;
    EXPECT_NEAR(Score(pair, options).es, 0.8, 1e-9);
    options.slopeExponent = 2;
    EXPECT_NEAR(Score(pair, options).es, 0.64, 1e-9);
    options = {};
    options.warpingShare = 1e-6;  // the diagonal alone: every sample meets its own partner
    EXPECT_NEAR(Score(pair, options).em, 1.0 - 0.2 / 0.5, 1e-9);
    options = {};
    options.corridorWeight = 0.0;
    options.slopeWeight = 0.6;
    EXPECT_NEAR(Score(pair, options).r, 0.2 * scores.ep + 0.2 * scores.em + 0.6 * scores.es, 1e-12);
    options = {};
    options.corridorInner = 0.0;
    options.corridorOuter = 1.0;
    options.corridorExponent = 1;
    // Distances up to the peak then cost what they measure; their mean is that of |m - c| / peak.
    double sum = 0.0;
    const double peak = LargestMagnitude(pair.reference);
    for (std::size_t i = 0; i < 300; ++i) sum += std::min(std::abs(pair.reference[i] - pair.computed[i]) / peak, 1.0);
    EXPECT_NEAR(Score(pair, options).z, 1.0 - sum / 300, 1e-12);
}

TEST(Iso18571, GradesChangeJustAboveTheirLimits) {
    const auto grade = [](double r) { return std::string(NameOf(GradeOf(r))); };
    EXPECT_EQ(grade(0.9401), "excellent");
    EXPECT_EQ(grade(0.94), "good");
    EXPECT_EQ(grade(0.80), "fair");
    EXPECT_EQ(grade(0.58), "poor");
}

struct Refusal {
    std::string name;
    CIso18571Options options;
    std::string_view sentence;
};

std::vector<Refusal> Refusals() {
    return {
        {"CrossedCorridor", {.corridorInner = 0.5}, rating_message::kCorridorWidths},
        {"NegativeCorridor", {.corridorInner = -0.1}, rating_message::kCorridorWidths},
        {"WideCorridor", {.corridorOuter = 1.1}, rating_message::kCorridorWidths},
        {"NotANumberCorridor", {.corridorInner = kNaN}, rating_message::kCorridorWidths},
        {"CorridorExponentZero", {.corridorExponent = 0}, rating_message::kCorridorExponent},
        {"NoShift", {.largestShiftShare = 0.0}, rating_message::kIsoShiftShare},
        {"WholeShift", {.largestShiftShare = 1.0}, rating_message::kIsoShiftShare},
        {"PhaseExponentFour", {.phaseExponent = 4}, rating_message::kIsoExponents},
        {"MagnitudeExponentZero", {.magnitudeExponent = 0}, rating_message::kIsoExponents},
        {"SlopeExponentFour", {.slopeExponent = 4}, rating_message::kIsoExponents},
        {"NoMagnitudeError", {.largestMagnitudeError = 0.0}, rating_message::kIsoLargestErrors},
        {"NoSlopeError", {.largestSlopeError = kNaN}, rating_message::kIsoLargestErrors},
        {"NoBand", {.warpingShare = 0.0}, rating_message::kIsoWarpingShare},
        {"WideBand", {.warpingShare = 1.01}, rating_message::kIsoWarpingShare},
        {"WeightsBeyondOne", {.corridorWeight = 0.5}, rating_message::kWeights},
        {"NegativeWeight", {.corridorWeight = 0.8, .phaseWeight = -0.2}, rating_message::kWeights},
    };
}

class RefusedIsoOptions : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedIsoOptions, AreRefusedWithASentence) {
    const CPairOfSignals pair = WithGain(Wave(50), 1.0);
    EXPECT_EQ(FaultOf(GetParam().options), GetParam().sentence);
    EXPECT_EQ(ErrorOf([&] { ScoreIso18571(pair.View(), GetParam().options); }), GetParam().sentence);
    EXPECT_EQ(ErrorOf([&] { Iso18571(pair.View(), GetParam().options); }), GetParam().sentence);
}
INSTANTIATE_TEST_SUITE_P(Iso18571, RefusedIsoOptions, testing::ValuesIn(Refusals()),
                         [](const auto& row) { return row.param.name; });

TEST(Iso18571, ARatingOfUsualSignalsHasEveryValue) {
    const CPairOfSignals pair{Pulse(500, 0.3), Pulse(500, 0.3, 17)};
    const CIso18571Rating rating = Iso18571(pair.View());
    const CIso18571Scores scores = ScoreIso18571(pair.View());
    EXPECT_EQ(rating.r.Number(), scores.r);
    EXPECT_EQ(rating.lag.Number(), 17.0);
    EXPECT_NEAR(rating.correlation.Number(), 1.0, 1e-12);
    EXPECT_EQ(rating.grade, CIsoGrade::Good);
    EXPECT_EQ(rating.pointCount, 500U);
    EXPECT_FALSE(rating.isModified);
}

TEST(Iso18571, ARatingOfChangedParametersSaysSo) {
    const CPairOfSignals pair = WithGain(Wave(50), 1.0);
    EXPECT_TRUE(Iso18571(pair.View(), {.warpingShare = 0.2}).isModified);
}

struct Refused {
    std::string name;
    CPairOfSignals pair;
    std::string_view reason;
};

std::vector<Refused> RefusedPairs() {
    std::vector<double> holed = Wave(50);
    holed[7] = kNaN;
    std::vector<double> endless = Wave(50);
    endless[49] = -std::numeric_limits<double>::infinity();
    return {{"NoSamples", {}, rating_message::kNoSamples},
            {"Eight", WithGain(Wave(8), 1.0), rating_message::kTooFewForIso},
            {"TooMany", WithGain(Wave(200001), 1.0), rating_message::kTooManyForIso},
            {"DifferentLengths", {Wave(50), Wave(49)}, rating_message::kLengthsDiffer},
            {"NotANumber", {holed, Wave(50)}, rating_message::kReferenceNotFinite},
            {"Infinite", {Wave(50), endless}, rating_message::kComputedNotFinite}};
}

class UnratedIsoPair : public testing::TestWithParam<Refused> {};

TEST_P(UnratedIsoPair, IsNotAvailableWithItsReason) {
    const CIso18571Rating rating = Iso18571(GetParam().pair.View());
    for (const CValue* value :
         {&rating.r, &rating.z, &rating.ep, &rating.em, &rating.es, &rating.lag, &rating.correlation}) {
        EXPECT_EQ(value->State(), CValueState::Unavailable);
        EXPECT_EQ(value->Reason(), GetParam().reason);
    }
    EXPECT_FALSE(rating.grade);
    EXPECT_EQ(ErrorOf([] { ScoreIso18571(GetParam().pair.View()); }), GetParam().reason);
}
INSTANTIATE_TEST_SUITE_P(Iso18571, UnratedIsoPair, testing::ValuesIn(RefusedPairs()),
                         [](const auto& row) { return row.param.name; });

TEST(Iso18571, AReferenceOfZeroIsNotRatedThoughItHasScores) {
    const CPairOfSignals pair = MakePair(200, Zero, SineOverNine);
    const CIso18571Rating rating = Iso18571(pair.View());
    EXPECT_EQ(rating.r.Reason(), rating_message::kReferenceZero);
    EXPECT_FALSE(rating.grade);
    EXPECT_NEAR(ScoreIso18571(pair.View()).r, 0.202, 1e-12);
}

TEST(Iso18571, AConstantSignalHasScoresButNoCorrelation) {
    const CPairOfSignals pair = MakePair(200, SineOverNine, Zero);
    const CIso18571Rating rating = Iso18571(pair.View());
    EXPECT_TRUE(rating.r.IsNumber());
    EXPECT_EQ(rating.correlation.Reason(), rating_message::kConstantAtLag);
}

}  // namespace
}  // namespace ratings
