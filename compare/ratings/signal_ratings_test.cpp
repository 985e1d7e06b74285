#include "compare/ratings/signal_ratings.h"

#include "compare/document_host.h"
#include "compare/note.h"
#include "compare/ratings/choice.h"
#include "compare/ratings/families.h"
#include "compare/ratings/messages.h"
#include "compare/ratings/pair.h"
#include "compare/ratings/testing/pairs.h"
#include "compare/ratings/value.h"
#include "compare/signal.h"
#include "files/error.h"
#include "tests/support/allocation_count.h"
#include "tests/support/document_fixture.h"
#include "tests/support/test_signals.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace ratings {
namespace {

using testing::Contains;
using testing::Field;
using testing::Not;

CRatingChoice Choice(std::string_view name) {
    CRatingChoice choice;
    EXPECT_TRUE(AddFamilies(choice, name));
    return choice;
}

/// A pair at the step of ISO/TS 18571 that starts at 0.01 s.
CRatedPair PairOf(const CPairOfSignals& signals) {
    return {signals.View(), {0.01, 0.0001}, {}};
}

// Pairs.

TEST(RatePair, RatesWhatIsChosenAndNothingElse) {
    const CPairOfSignals signals = WithGain(Wave(500), 1.2);
    const CSignalRatings ratings = RatePair(PairOf(signals), Choice("sprague-geers"), 180);
    ASSERT_TRUE(ratings.spragueGeers.has_value());
    EXPECT_NEAR(ratings.spragueGeers->magnitude.Number(), 0.2, 1e-12);
    EXPECT_FALSE(ratings.iso18571 || ratings.geers || ratings.anova || ratings.roadside || ratings.values ||
                 ratings.cora || ratings.knowlesGear || ratings.russell || ratings.geersCsa);
}

TEST(RatePair, GivesEveryChosenFamilyAValueOrAReason) {
    const CPairOfSignals signals = WithGain(Wave(500), 1.2);
    const CSignalRatings ratings = RatePair(PairOf(signals), Choice("all"), std::nullopt);
    for (const CRatingFamily& family : RatingFamilies()) {
        EXPECT_EQ(StateOf(family, ratings).state, CValueState::Number) << family.name;
    }
}

TEST(RatePair, SaysWhatItWasComputedOn) {
    const CPairOfSignals signals = WithGain(Wave(500), 1.2);
    const CSignalRatings ratings = RatePair(PairOf(signals), Choice("geers"), 600);
    EXPECT_EQ(ratings.pointCount, 500U);
    EXPECT_EQ(ratings.step, 0.0001);
    EXPECT_EQ(ratings.start, 0.01);
    EXPECT_NEAR(ratings.end, 0.0599, 1e-15);
    EXPECT_EQ(ratings.filterClass, 600);
}

TEST(RatePair, TakesTheParametersOfTheChoice) {
    const CPairOfSignals signals = WithGain(Wave(500), 1.2);
    CRatingChoice choice = Choice("all");
    // With all of the weight on the corridor, R is Z.
    choice.iso18571.corridorWeight = 1.0;
    choice.iso18571.phaseWeight = choice.iso18571.magnitudeWeight = choice.iso18571.slopeWeight = 0.0;
    choice.cora.corridorWeight = 0.0;
    choice.cora.crossCorrelationWeight = 1.0;
    const CSignalRatings ratings = RatePair(PairOf(signals), choice, std::nullopt);
    EXPECT_EQ(ratings.iso18571->r.Number(), ratings.iso18571->z.Number());
    EXPECT_EQ(ratings.cora->total.Number(), ratings.cora->crossCorrelation.Number());
    EXPECT_TRUE(ratings.iso18571->isModified);
    choice.cora.leastOverlap = 2.0;
    EXPECT_THROW(RatePair(PairOf(signals), choice, std::nullopt), ks::CError);
}

// Only large arrays fail, so the families that need one are left out and the others are rated.
TEST(RatePair, LeavesOutWhatLacksMemoryAndRatesTheRest) {
    const CPairOfSignals signals = WithGain(Wave(5000), 1.2);
    const CRatedPair pair = PairOf(signals);
    const CRatingChoice choice = Choice("all");
    std::size_t rated = 0;
    for (std::size_t allowed = 0; allowed < 200 && rated < RatingFamilies().size(); ++allowed) {
        CSignalRatings ratings;
        {
            const CAllocationLimit limit(5000 * sizeof(double) - 1, allowed);
            ratings = RatePair(pair, choice, std::nullopt);
        }
        rated = 0;
        for (const CRatingFamily& family : RatingFamilies()) {
            const CFamilyState state = StateOf(family, ratings);
            EXPECT_NE(state.state, CValueState::Unavailable) << family.name;
            const bool isError = state.state == CValueState::Error;
            EXPECT_EQ(state.reason, isError ? rating_message::kNoMemoryForRating : "");
            rated += state.state == CValueState::Number ? 1 : 0;
        }
        EXPECT_TRUE(allowed > 0 || rated < RatingFamilies().size());
    }
    EXPECT_EQ(rated, RatingFamilies().size());
}

// Signals.

class RatedSignal : public testing::Test {
protected:
    RatedSignal() : signal("computed"), reference("reference") {}

    void Compare(std::vector<double> computed, std::vector<double> measured, std::string_view set = "all") {
        signal.Record() = MakeTimeSignal(std::move(computed), 0.0001);
        reference.Record() = MakeTimeSignal(std::move(measured), 0.0001);
        CompareRecords(set);
    }
    void CompareRecords(std::string_view set = "all") {
        signal.Compare(reference);
        signal.Rate(reference, Choice(set), 60);
    }

    CSignal signal, reference;
};

TEST_F(RatedSignal, HasNoRatingsUntilItIsRated) {
    EXPECT_EQ(signal.Ratings(), nullptr);
    Compare(Wave(100), Wave(100));
    ASSERT_NE(signal.Ratings(), nullptr);
    EXPECT_EQ(signal.Ratings()->filterClass, 60);
    signal.Rate(reference, {}, 60);
    EXPECT_EQ(signal.Ratings(), nullptr);
    CompareRecords();
    signal.Compare(reference);
    EXPECT_EQ(signal.Ratings(), nullptr);
}

TEST_F(RatedSignal, IsRatedAsItWasCompared) {
    // The computed signal starts 20 samples later and ends earlier; both are cut to that range.
    signal.Record() = MakeTimeSignal(Sampled(51, [](double i) { return i + 20.0; }), 0.001, 20);
    reference.Record() = MakeTimeSignal(Sampled(101, [](double i) { return i; }), 0.001);
    CompareRecords();
    EXPECT_EQ(signal.Ratings()->pointCount, signal.GetPointCount());
    EXPECT_EQ(signal.Ratings()->values->rms.Number(), 0.0);
    EXPECT_NEAR(signal.Ratings()->start, 0.02, 1e-15);
    EXPECT_NEAR(signal.Ratings()->end, 0.069, 1e-15);
}

TEST_F(RatedSignal, KeepsItsRatingsWhenAPageCutsItsRecord) {
    Compare(WithGain(Wave(200), 1.5).computed, Wave(200));
    const CSignalRatings* const before = signal.Ratings();
    signal.Record().TruncateByTime(0.0, 0.005);
    EXPECT_EQ(signal.Ratings(), before);
    EXPECT_EQ(signal.Ratings()->pointCount, 200U);
    EXPECT_NEAR(signal.Ratings()->geers->magnitude.Number(), 0.5, 1e-12);
}

// It was compared on straight lines far beyond its own samples.
TEST_F(RatedSignal, HasReasonsWhenItSharesNoTimeWithTheReference) {
    signal.Record() = MakeTimeSignal(Wave(100), 0.0001);
    reference.Record() = MakeTimeSignal(Wave(100), 0.0001);
    signal.Notes().push_back({CNoteKind::NoCommonTime, "No time in common."});
    CompareRecords();
    EXPECT_EQ(signal.Ratings()->pointCount, 0U);
    for (const CRatingFamily& family : RatingFamilies()) {
        const CFamilyState state = StateOf(family, *signal.Ratings());
        EXPECT_EQ(state.state, CValueState::Unavailable) << family.name;
        EXPECT_EQ(state.reason, rating_message::kNoSamples) << family.name;
    }
}

TEST_F(RatedSignal, HasReasonsWhenThereIsNoReference) {
    signal.Record() = MakeTimeSignal(Wave(100), 0.0001);
    CompareRecords();
    EXPECT_EQ(signal.Ratings()->pointCount, 0U);
    EXPECT_EQ(StateOf(RatingFamilies().front(), *signal.Ratings()).state, CValueState::Unavailable);
}

TEST_F(RatedSignal, IsNotedWhenItsUnitsAreNotThoseOfTheReference) {
    const auto isOfUnits = Field(&CNote::kind, CNoteKind::UnitsDiffer);
    signal.Record() = MakeTimeSignal(Wave(100), 0.0001);
    reference.Record() = MakeTimeSignal(Wave(100), 0.0001);
    CompareRecords();
    EXPECT_THAT(signal.Notes(), Not(Contains(isOfUnits)));
    reference.Record().SetYUNITS("");  // not known
    CompareRecords();
    EXPECT_THAT(signal.Notes(), Not(Contains(isOfUnits)));
    reference.Record().SetYUNITS("NEWTONS");
    CompareRecords();
    ASSERT_THAT(signal.Notes(), Contains(isOfUnits));
    EXPECT_EQ(
        signal.Notes().back().sentence,
        "Rated as numbers: Y is in G'S, but in NEWTONS in reference. Ratings of different quantities mean nothing.");
}

TEST_F(RatedSignal, HasNoNoteOnUnitsWithoutRatings) {
    signal.Record() = MakeTimeSignal(Wave(100), 0.0001);
    reference.Record() = MakeTimeSignal(Wave(100), 0.0001);
    reference.Record().SetYUNITS("NEWTONS");
    signal.Compare(reference);
    signal.Rate(reference, {}, 60);
    EXPECT_TRUE(signal.Notes().empty());
}

// Runs.

using RatedRuns = CDocumentFixture;

TEST_F(RatedRuns, RateOnlyWhenAsked) {
    const std::string file = Write("a.uds", Wave(100), 0.5), reference = Write("r.uds", Wave(100), 0.5);
    Run(Choice({file}, reference));
    EXPECT_EQ(document.ComputedSignals().front().Ratings(), nullptr);
    document.SetRatings(ratings::Choice("standard"));
    Run(Choice({file}, reference));
    ASSERT_NE(document.ComputedSignals().front().Ratings(), nullptr);
    EXPECT_EQ(document.ComputedSignals().front().Ratings()->spragueGeers->combined.Number(), 0.0);
    EXPECT_EQ(document.Reference().Ratings(), nullptr);
    document.SetRatings({});
    Run(Choice({file}, reference));
    EXPECT_EQ(document.ComputedSignals().front().Ratings(), nullptr);
}

TEST_F(RatedRuns, SayAtWhichClassASignalWasFiltered) {
    const std::string file = Write("a.uds", Wave(100), 0.0001), reference = Write("r.uds", Wave(100), 0.0001);
    document.SetRatings(ratings::Choice("geers"));
    CFileSelection choice = Choice({file}, reference);
    Run(choice);
    EXPECT_EQ(document.ComputedSignals().front().Ratings()->filterClass, std::nullopt);
    choice.shouldFilter = true;
    choice.channelClass = 600;
    Run(choice);
    EXPECT_EQ(document.ComputedSignals().front().Ratings()->filterClass, 600);
}

TEST_F(RatedRuns, RateTheSignalsOfAnAverageRunAgainstTheFirst) {
    document.SetRatings(ratings::Choice("values"));
    Run(AverageChoice({Write("a.uds", Wave(100)), Write("b.uds", WithGain(Wave(100), 1.5).computed)}));
    ASSERT_EQ(document.ComputedSignals().size(), 2U);
    EXPECT_EQ(document.ComputedSignals()[0].Ratings()->values->rss.Number(), 0.0);
    EXPECT_NEAR(document.ComputedSignals()[1].Ratings()->values->rss.Number(), 0.5, 1e-6);
}

}  // namespace
}  // namespace ratings
