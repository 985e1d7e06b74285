
#include "cli/commands/compare_options.h"
#include "cli/usage_error.h"
#include "compare/ratings/choice.h"
#include "compare/ratings/cora.h"
#include "compare/ratings/criteria.h"
#include "compare/ratings/families.h"
#include "compare/ratings/iso18571.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

CCompareOptions Parsed(Texts arguments) {
    arguments.emplace_back("a.uds");
    return ParseCompareOptions(arguments);
}

std::vector<std::string_view> FamiliesOf(const Texts& arguments) {
    const ratings::CRatingChoice choice = Parsed(arguments).ratings;
    std::vector<std::string_view> members;
    for (const ratings::CRatingFamily& family : ratings::RatingFamilies()) {
        if (IsChosen(choice, family)) members.push_back(family.member);
    }
    return members;
}

std::vector<std::string_view> FailingOn(const Texts& arguments) {
    std::vector<std::string_view> names;
    for (const ratings::CRatingCriterion* const criterion : Parsed(arguments).failOnBadRating) {
        names.push_back(criterion->name);
    }
    return names;
}

TEST(RatingOptions, ChooseNothingByDefault) {
    const CCompareOptions options = Parsed({});
    EXPECT_EQ(options.ratings, ratings::CRatingChoice());
    EXPECT_TRUE(options.ratings.IsEmpty());
    EXPECT_EQ(options.ratingLimits, ratings::CRatingLimits());
    EXPECT_THAT(options.failOnBadRating, IsEmpty());
}

TEST(RatingOptions, ChooseSetsAndNames) {
    EXPECT_THAT(FamiliesOf({"--ratings", "standard"}), ElementsAre("iso18571", "spragueGeers", "anova", "roadside"));
    EXPECT_EQ(FamiliesOf({"--ratings=all"}).size(), ratings::RatingFamilies().size());
    EXPECT_THAT(FamiliesOf({"--ratings", "cora,geers,cora"}), ElementsAre("geers", "cora"));
    EXPECT_THAT(FamiliesOf({"--ratings", "russell,standard"}),
                ElementsAre("iso18571", "spragueGeers", "russell", "anova", "roadside"));
}

TEST(RatingOptions, SetParameters) {
    const ratings::CRatingChoice choice =
        Parsed({"--ratings", "iso18571,cora", "--iso-parameter", "corridor-outer=0.4", "--iso-parameter",
                "Slope-Exponent=3", "--cora-parameter", "k_v=1", "--cora-parameter", "T_MAX=0.1"})
            .ratings;
    ratings::CIso18571Options iso;
    iso.corridorOuter = 0.4;
    iso.slopeExponent = 3;
    ratings::CCoraOptions cora;
    cora.shapeExponent = 1.0;
    cora.endS = 0.1;
    EXPECT_EQ(choice.iso18571, iso);
    EXPECT_EQ(choice.cora, cora);
}

// Either weight alone leaves a sum that is refused; both together are fine.
TEST(RatingOptions, CheckParametersTogether) {
    const Texts both{"--ratings", "cora", "--cora-parameter", "G_1=0.25", "--cora-parameter", "G_2=0.75"};
    EXPECT_EQ(Parsed(both).ratings.cora.corridorWeight, 0.25);
    EXPECT_THROW(Parsed({"--ratings", "cora", "--cora-parameter", "G_1=0.25"}), CUsageError);
}

TEST(RatingOptions, SetCriticalValues) {
    const ratings::CRatingLimits limits =
        Parsed({"--ratings", "standard", "--critical", "iso=0.8", "--critical", "sprague-geers=0.2", "--critical",
                "anova-mean=0.01", "--critical", "anova-deviation=0.1", "--critical", "iso=0.94"})
            .ratingLimits;
    EXPECT_EQ(limits.iso, 0.94);
    EXPECT_EQ(limits.spragueGeers, 0.2);
    EXPECT_EQ(limits.anovaMean, 0.01);
    EXPECT_EQ(limits.anovaDeviation, 0.1);
}

TEST(RatingOptions, FailOnNamedCriteriaOrOnThoseOfTheChosenRatings) {
    EXPECT_THAT(FailingOn({"--fail-on-bad"}), IsEmpty());
    EXPECT_THAT(FailingOn({"--ratings", "geers", "--fail-on-bad"}), IsEmpty());
    EXPECT_THAT(FailingOn({"--ratings", "standard", "--fail-on-bad"}),
                ElementsAre("iso", "roadside", "sprague-geers", "anova-mean", "anova-deviation"));
    EXPECT_THAT(FailingOn({"--ratings", "anova", "--fail-on-bad"}),
                ElementsAre("roadside", "anova-mean", "anova-deviation"));
    const Texts named{"--ratings", "standard", "--fail-on-bad=iso,t", "--fail-on-bad=roadside,iso"};
    EXPECT_THAT(FailingOn(named), ElementsAre("iso", "roadside"));
    EXPECT_EQ(Parsed(named).failOnBad.size(), 1U);
    EXPECT_EQ(Parsed({"--ratings", "standard", "--fail-on-bad"}).failOnBad.size(), 6U);
    EXPECT_THAT(FailingOn({"--ratings", "standard"}), IsEmpty());
}

struct Row {
    std::string name;
    Texts arguments;
    std::string sentence;
};

class RefusedRatingOptions : public testing::TestWithParam<Row> {};

TEST_P(RefusedRatingOptions, GetTheirSentence) {
    try {
        Parsed(GetParam().arguments);
        FAIL() << "accepted";
    } catch (const CUsageError& error) {
        EXPECT_EQ(error.what(), GetParam().sentence);
    }
}

const std::string kSets =
    "Option --ratings knows the names standard, all, iso18571, sprague-geers, geers, geers-csa, russell, knowles-gear, "
    "anova, values and cora, not: ";

const Row kRows[] = {
    {"UnknownSet", {"--ratings", "iso"}, kSets + "iso"},
    {"EmptySet", {"--ratings", "geers,"}, kSets},
    {"NoSet", {"--ratings="}, "Option --ratings needs a SET, for example standard."},
    {"SetTwice", {"--ratings", "all", "--ratings", "all"}, "Option --ratings can be given only once."},
    {"IsoParameterWithoutRatings",
     {"--iso-parameter", "corridor-outer=0.4"},
     "Option --iso-parameter needs --ratings with iso18571."},
    {"CoraParameterWithoutCora",
     {"--ratings", "standard", "--cora-parameter", "K=1"},
     "Option --cora-parameter needs --ratings with cora."},
    {"ParameterWithoutValue",
     {"--ratings", "all", "--iso-parameter", "corridor-outer"},
     "Option --iso-parameter takes NAME=VALUE, for example corridor-outer=0.4, not: corridor-outer"},
    {"ParameterOfNoNumber",
     {"--ratings", "all", "--cora-parameter", "K=two"},
     "Option --cora-parameter takes finite decimal numbers, not: two"},
    {"UnknownIsoParameter",
     {"--ratings", "all", "--iso-parameter", "K=2"},
     "Option --iso-parameter knows the names corridor-inner, corridor-outer, corridor-exponent, largest-shift, "
     "phase-exponent, largest-magnitude-error, magnitude-exponent, warping-band, largest-slope-error, slope-exponent, "
     "corridor-weight, phase-weight, magnitude-weight and slope-weight, not: K"},
    {"UnknownCoraParameter",
     {"--ratings", "all", "--cora-parameter", "a_sigma=2"},
     "Option --cora-parameter knows the names A_THRES, B_THRES, A_EVAL, B_DELTA_END, T_MIN, T_MAX, a_0, b_0, K, D_MIN, "
     "D_MAX, INT_MIN, K_V, K_G, K_P, G_V, G_G, G_P, G_1 and G_2, not: a_sigma"},
    {"RefusedIsoParameter",
     {"--ratings", "all", "--iso-parameter", "corridor-outer=0.01"},
     "Option --iso-parameter: The corridor's half-widths must satisfy 0 <= inner < outer <= 1."},
    {"HalfAnExponent",
     {"--ratings", "all", "--iso-parameter", "phase-exponent=1.5"},
     "Option --iso-parameter: The exponents of phase, magnitude and slope must be 1, 2 or 3."},
    {"RefusedCoraParameter",
     {"--ratings", "all", "--cora-parameter", "INT_MIN=0"},
     "Option --cora-parameter: INT_MIN must be above 0 and at most 1."},
    {"CriterionWithoutRatings", {"--fail-on-bad=iso"}, "Option --fail-on-bad=iso needs --ratings with iso18571."},
    {"CriterionOfOtherRatings",
     {"--ratings", "iso18571", "--fail-on-bad=roadside"},
     "Option --fail-on-bad=roadside needs --ratings with anova."},
    {"CriticalValueOfOtherRatings",
     {"--ratings", "iso18571", "--critical", "sprague-geers=0.3"},
     "Option --critical sprague-geers needs --ratings with sprague-geers."},
    {"CriticalValueOfTheVerdict",
     {"--ratings", "standard", "--critical", "roadside=1"},
     "Option --critical knows the names residual, stddev, corridor, correlation, t, moment, iso, sprague-geers, "
     "anova-mean and anova-deviation, not: roadside"},
};

INSTANTIATE_TEST_SUITE_P(Rows, RefusedRatingOptions, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
