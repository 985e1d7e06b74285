#include "compare/ratings/families.h"

#include "compare/ratings/anova.h"
#include "compare/ratings/choice.h"
#include "compare/ratings/cora.h"
#include "compare/ratings/criteria.h"
#include "compare/ratings/iso18571.h"
#include "compare/ratings/magnitude_phase.h"
#include "compare/ratings/messages.h"
#include "compare/ratings/signal_ratings.h"
#include "compare/ratings/single_values.h"
#include "compare/ratings/value.h"
#include "compare/verdict.h"
#include "files/number_text.h"

#include <gmock/gmock.h>

#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ratings {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

CRatingChoice Choice(std::string_view name) {
    CRatingChoice choice;
    EXPECT_TRUE(AddFamilies(choice, name)) << name;
    return choice;
}

std::vector<std::string_view> MembersOf(const CRatingChoice& choice) {
    std::vector<std::string_view> members;
    for (const CRatingFamily& family : RatingFamilies()) {
        if (IsChosen(choice, family)) members.push_back(family.member);
    }
    return members;
}

const CRatingFamily& Family(std::string_view member) {
    for (const CRatingFamily& family : RatingFamilies()) {
        if (family.member == member) return family;
    }
    throw std::out_of_range(std::string(member));
}

const CRatedMember& Member(std::string_view family, std::string_view name) {
    for (const CRatedMember& member : Family(family).members) {
        if (member.name == name) return member;
    }
    throw std::out_of_range(std::string(name));
}

/// The state of a family of a signal whose families all lack memory.
CFamilyState StateWithoutMemory(const CRatingFamily& family) {
    CSignalRatings ratings;
    ratings.choice = Choice(kWholeSet);
    return StateOf(family, ratings);
}

// The table itself.

TEST(RatingTable, NamesNothingTwice) {
    std::set<std::string> members, headers;
    for (const CRatingFamily& family : RatingFamilies()) {
        EXPECT_TRUE(members.insert(std::string(family.member)).second) << family.member;
        std::set<std::string_view> names;
        for (const CRatedMember& member : family.members) {
            EXPECT_TRUE(names.insert(member.name).second) << family.member << "." << member.name;
            if (member.header.empty()) continue;
            const std::string header = HeaderOf(family, member, {});
            EXPECT_TRUE(headers.insert(header).second) << header;
        }
    }
}

TEST(RatingTable, ReferToCriteriaThatExistAndEachCriterionToOneFamily) {
    for (const CRatingFamily& family : RatingFamilies()) {
        for (const CRatedMember& member : family.members) {
            EXPECT_TRUE(member.criterion.empty() || FindRatingCriterion(member.criterion) != nullptr) << member.name;
        }
    }
    std::vector<std::string_view> options;
    for (const CRatingCriterion& criterion : RatingCriteria()) options.push_back(OptionOf(criterion));
    EXPECT_THAT(options, ElementsAre("iso18571", "anova", "sprague-geers", "anova", "anova"));
}

TEST(RatingTable, SaysOfEveryFamilyWhereItIsFromAndGivesItValues) {
    for (const CRatingFamily& family : RatingFamilies()) {
        EXPECT_TRUE(family.standing.ends_with('.')) << family.name;
        EXPECT_FALSE(family.members.empty()) << family.name;
    }
}

// Choosing.

TEST(RatingChoice, KnowsSetsAndOptions) {
    EXPECT_THAT(RatingNames(), ElementsAre("standard", "all", "iso18571", "sprague-geers", "geers", "geers-csa",
                                           "russell", "knowles-gear", "anova", "values", "cora"));
    EXPECT_THAT(MembersOf(Choice("standard")), ElementsAre("iso18571", "spragueGeers", "anova", "roadside"));
    EXPECT_THAT(MembersOf(Choice("all")), ElementsAre("iso18571", "spragueGeers", "geers", "geersCsa", "russell",
                                                      "knowlesGear", "anova", "roadside", "values", "cora"));
    EXPECT_THAT(MembersOf(Choice("anova")), ElementsAre("anova", "roadside"));
    EXPECT_THAT(MembersOf(Choice("geers-csa")), ElementsAre("geersCsa"));
}

TEST(RatingChoice, AddsToWhatIsChosenAndKeepsItForUnknownNames) {
    CRatingChoice choice = Choice("cora");
    EXPECT_TRUE(AddFamilies(choice, "russell"));
    for (const std::string_view name : {"", "Standard", "iso", "iso18571 "}) EXPECT_FALSE(AddFamilies(choice, name));
    EXPECT_THAT(MembersOf(choice), ElementsAre("russell", "cora"));
    EXPECT_TRUE(CRatingChoice().IsEmpty());
    EXPECT_FALSE(choice.IsEmpty());
}

TEST(RatingChoice, TellsWhichCriteriaItAnswers) {
    const CRatingCriterion& iso = *FindRatingCriterion("iso");
    const CRatingCriterion& roadside = *FindRatingCriterion("roadside");
    EXPECT_TRUE(IsJudged(Choice("iso18571"), iso));
    EXPECT_FALSE(IsJudged(Choice("iso18571"), roadside));
    EXPECT_TRUE(IsJudged(Choice("anova"), roadside));
    EXPECT_FALSE(IsJudged({}, iso));
    EXPECT_EQ(FindRatingCriterion("residual"), nullptr);
}

// Showing.

TEST(RatingNames, CallAFamilyWithChangedParametersModified) {
    CRatingChoice choice = Choice("all");
    const CRatingFamily &iso = Family("iso18571"), &cora = Family("cora");
    EXPECT_EQ(NameOf(iso, choice), "ISO/TS 18571");
    EXPECT_EQ(HeaderOf(iso, Member("iso18571", "r"), choice), "ISO R");
    EXPECT_EQ(HeaderOf(Family("values"), Member("values", "rms"), choice), "RMS error");
    choice.iso18571.slopeExponent = 2;
    EXPECT_EQ(NameOf(iso, choice), "ISO/TS 18571 modified");
    EXPECT_EQ(HeaderOf(iso, Member("iso18571", "r"), choice), "ISO modified R");
    EXPECT_EQ(NameOf(cora, choice), "CORA-like");
    choice.cora.endS = 0.1;
    EXPECT_EQ(HeaderOf(cora, Member("cora", "total"), choice), "CORA-like modified total");
}

TEST(RatingNames, AreThoseOfTheDemands) {
    CRatingChoice choice = Choice("all");
    CRatingLimits limits;
    EXPECT_EQ(DemandOf(*FindRatingCriterion("iso"), limits, choice), "ISO R above 0.58");
    limits.iso = 0.8;
    choice.iso18571.slopeExponent = 2;
    EXPECT_EQ(DemandOf(*FindRatingCriterion("iso"), limits, choice), "ISO modified R above 0.8");
    EXPECT_EQ(DemandOf(*FindRatingCriterion("anova-mean"), limits, choice), "ANOVA |mean| up to 0.05");
    EXPECT_EQ(DemandOf(*FindRatingCriterion("roadside"), limits, choice), FindRatingCriterion("roadside")->demand);
}

TEST(RatingNames, SayWhatIsBest) {
    EXPECT_EQ(DirectionText(Member("iso18571", "r").perfect), "1 is best");
    EXPECT_EQ(DirectionText(Member("spragueGeers", "c").perfect), "0 is best");
    EXPECT_EQ(DirectionText(Member("roadside", "verdict").perfect), "");
}

struct Row {
    std::string name, family, member;
    double number;
    std::string text;
    CVerdict verdict;
};

class RatedCells : public testing::TestWithParam<Row> {};

/// A signal with that number everywhere.
CSignalRatings Everywhere(double number) {
    const CValue value = CValue::Of(number);
    CSignalRatings ratings;
    ratings.choice = Choice(kWholeSet);
    ratings.iso18571 = CIso18571Rating{value, value, value, value, value, value, value, CIsoGrade::Fair};
    ratings.spragueGeers = ratings.russell = CMagnitudePhase{value, value, value};
    ratings.anova = CAnova{value, value, value};
    ratings.values =
        CSingleValues{value, value, value, value, value, value, value, value, value, value, value, value, value};
    return ratings;
}

TEST_P(RatedCells, AreJudgedAndWritten) {
    const CRatedCell cell =
        CellOf(Member(GetParam().family, GetParam().member), Everywhere(GetParam().number), CRatingLimits());
    EXPECT_EQ(cell.text, GetParam().text);
    EXPECT_EQ(cell.verdict, GetParam().verdict);
    EXPECT_EQ(cell.reason, "");
}

const Row kRows[] = {
    {"IsoAtItsLimit", "iso18571", "r", 0.58, "0.580", CVerdict::Bad},
    {"IsoAboveIt", "iso18571", "r", 0.5801, "0.580", CVerdict::Good},
    {"IsoPart", "iso18571", "z", 0.1, "0.100", CVerdict::None},
    {"IsoLag", "iso18571", "lag", -12.0, "-12", CVerdict::None},
    {"IsoGrade", "iso18571", "grade", 0.1, "fair", CVerdict::None},
    {"MagnitudeAtItsLimit", "spragueGeers", "m", -0.4, "-0.400", CVerdict::Good},
    {"MagnitudeBelowZero", "spragueGeers", "m", -0.41, "-0.410", CVerdict::Bad},
    {"PhaseAboveItsLimit", "spragueGeers", "p", 0.4001, "0.400", CVerdict::Bad},
    {"CombinedError", "spragueGeers", "c", 9.0, "9.000", CVerdict::None},
    {"RussellIsNotJudged", "russell", "m", 9.0, "9.000", CVerdict::None},
    {"MeanAtItsLimit", "anova", "mean", -0.05, "-0.050", CVerdict::Good},
    {"MeanBeyondIt", "anova", "mean", 0.051, "0.051", CVerdict::Bad},
    {"DeviationAtItsLimit", "anova", "standardDeviation", 0.35, "0.350", CVerdict::Good},
    {"DeviationBeyondIt", "anova", "standardDeviation", 0.36, "0.360", CVerdict::Bad},
    {"TIsNotJudged", "anova", "t", 99.0, "99.000", CVerdict::None},
    {"RmsInUnits", "values", "rms", 123456.789, "123457", CVerdict::None},
};

INSTANTIATE_TEST_SUITE_P(Rows, RatedCells, testing::ValuesIn(kRows), [](const auto& row) { return row.param.name; });

TEST(RatedCell, FollowsTheLimitsOfTheUser) {
    CRatingLimits limits;
    limits.iso = 0.9;
    EXPECT_EQ(CellOf(Member("iso18571", "r"), Everywhere(0.9), limits).verdict, CVerdict::Bad);
    limits.iso = 0.8;
    EXPECT_EQ(CellOf(Member("iso18571", "r"), Everywhere(0.9), limits).verdict, CVerdict::Good);
}

TEST(RatedCell, JudgesTheRoadsideVerdict) {
    CSignalRatings ratings;
    ratings.roadside = CRoadside{CRoadsideVerdict::Pass, {}};
    EXPECT_EQ(CellOf(Member("roadside", "verdict"), ratings, {}).text, "pass");
    EXPECT_EQ(CellOf(Member("roadside", "verdict"), ratings, {}).verdict, CVerdict::Good);
    ratings.roadside = CRoadside{CRoadsideVerdict::Fail, {}};
    EXPECT_EQ(CellOf(Member("roadside", "verdict"), ratings, {}).text, "fail");
    EXPECT_EQ(CellOf(Member("roadside", "verdict"), ratings, {}).verdict, CVerdict::Bad);
    ratings.roadside = CRoadside{{}, "Why."};
    const CRatedCell cell = CellOf(Member("roadside", "verdict"), ratings, {});
    EXPECT_EQ(cell.text, "n/a");
    EXPECT_EQ(cell.reason, "Why.");
    EXPECT_EQ(cell.verdict, CVerdict::None);
}

TEST(RatedCell, HasAReasonInPlaceOfANumber) {
    CSignalRatings ratings = Everywhere(0.5);
    ratings.iso18571 = UnavailableIso18571(rating_message::kReferenceZero, {});
    for (const std::string_view name : {"r", "lag", "grade"}) {
        const CRatedCell cell = CellOf(Member("iso18571", name), ratings, {});
        EXPECT_EQ(cell.text, "n/a");
        EXPECT_EQ(cell.reason, rating_message::kReferenceZero);
        EXPECT_EQ(cell.verdict, CVerdict::None);
    }
}

TEST(FamilyStates, AreThoseOfTheirValues) {
    CSignalRatings ratings = Everywhere(0.5);
    EXPECT_EQ(StateOf(Family("iso18571"), ratings).state, CValueState::Number);
    ratings.iso18571 = UnavailableIso18571("Why.", {});
    EXPECT_EQ(StateOf(Family("iso18571"), ratings).state, CValueState::Unavailable);
    EXPECT_EQ(StateOf(Family("iso18571"), ratings).reason, "Why.");
    // One defined value keeps the family.
    ratings.anova->mean = CValue::Unavailable("Mean.");
    ratings.anova->t = CValue::Unavailable("T.");
    EXPECT_EQ(StateOf(Family("anova"), ratings).state, CValueState::Number);
    EXPECT_EQ(StateOf(Family("anova"), ratings).reason, "");
    ratings.anova->standardDeviation = CValue::Unavailable("Deviation.");
    EXPECT_EQ(StateOf(Family("anova"), ratings).reason, "Mean.");
}

TEST(FamilyStates, AreErrorsForFamiliesThatLackedMemory) {
    for (const CRatingFamily& family : RatingFamilies()) {
        const CFamilyState state = StateWithoutMemory(family);
        EXPECT_EQ(state.state, CValueState::Error) << family.name;
        EXPECT_EQ(state.reason, rating_message::kNoMemoryForRating) << family.name;
    }
    const CRatedCell cell = CellOf(Member("cora", "total"), CSignalRatings(), {});
    EXPECT_EQ(cell.text, "error");
    EXPECT_EQ(cell.reason, rating_message::kNoMemoryForRating);
}

TEST(RatingRemarks, TellHowTheIsoRatingCameAbout) {
    const auto remarks = [](const CSignalRatings& ratings) { return Family("iso18571").remarks(ratings); };
    CSignalRatings ratings = Everywhere(0.5);
    EXPECT_THAT(remarks(ratings), IsEmpty());
    ratings.choice.iso18571.corridorOuter = 0.4;
    ratings.choice.iso18571.phaseExponent = 3;
    ratings.iso18571->isResampled = true;
    ratings.iso18571->pointCount = 991;
    ratings.iso18571->isSlopeByRule = true;
    EXPECT_THAT(remarks(ratings), ElementsAre("Parameters: corridor-outer 0.4, phase-exponent 3.",
                                              "Interpolated at a step of 0.0001 s, which gives 991 points.",
                                              rating_message::kSlopeByRule));
}

TEST(RatingRemarks, GiveEveryParameterOfTheCoraLikeRating) {
    CSignalRatings ratings = Everywhere(0.5);
    ratings.choice.cora.startS = 0.02;
    ratings.cora = CCora{};
    ratings.cora->startS = CValue::Of(0.02);
    ratings.cora->endS = CValue::Of(0.08);
    const std::vector<std::string> remarks = Family("cora").remarks(ratings);
    ASSERT_EQ(remarks.size(), 2U);
    EXPECT_THAT(remarks[0], HasSubstr("A_THRES 0.03, B_THRES 0.075, "));
    EXPECT_THAT(remarks[0], HasSubstr("T_MIN 0.02, a_0 0.05"));
    EXPECT_EQ(remarks[1], "Interval of evaluation: 0.02 to 0.08 s.");
}

// The sentence on the roadside verdict has its limits as text.
TEST(RatingCriteria, NameTheLimitsOfTheRoadsideVerdict) {
    const CRoadsideLimits limits;
    EXPECT_EQ(FindRatingCriterion("roadside")->demand,
              "Roadside verdict pass: |M| and P up to " + ks::GeneralText(limits.magnitude) + ", |mean| up to " +
                  ks::GeneralText(limits.mean) + ", deviation up to " + ks::GeneralText(limits.standardDeviation));
    EXPECT_EQ(limits.magnitude, limits.phase);
    EXPECT_EQ(limits.magnitude, CRatingLimits().spragueGeers);
    EXPECT_EQ(limits.mean, CRatingLimits().anovaMean);
    EXPECT_EQ(limits.standardDeviation, CRatingLimits().anovaDeviation);
}

}  // namespace
}  // namespace ratings
