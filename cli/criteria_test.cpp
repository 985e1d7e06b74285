#include "cli/criteria.h"

#include "compare/critical_values.h"
#include "compare/ratings/choice.h"
#include "compare/ratings/criteria.h"
#include "compare/ratings/families.h"
#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"
#include "compare/verdict.h"
#include "tests/support/summary_samples.h"
#include "tests/support/test_signals.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

CSummaryTable TableWithBadColumn(std::size_t column) {
    CSummaryTable table;
    CSummaryRow good(table.columns.size(), {"", CVerdict::Good});
    CSummaryRow bad = good;
    bad.at(column).verdict = CVerdict::Bad;
    table.rows = {good, bad};
    return table;
}

struct Row {
    std::string name;
    int firstColumn, lastColumn;
};

class Criterion : public testing::TestWithParam<Row> {};

TEST_P(Criterion, IsBadByItsOwnColumnsOnly) {
    const CCriterion* const criterion = FindCriterion(GetParam().name);
    ASSERT_NE(criterion, nullptr);
    for (std::size_t column = 0; column < FixedColumns().size(); ++column) {
        const bool isOwn = column >= At(GetParam().firstColumn) && column <= At(GetParam().lastColumn);
        EXPECT_EQ(HasBad(TableWithBadColumn(column), {criterion}), isOwn) << column;
    }
}

INSTANTIATE_TEST_SUITE_P(Names, Criterion,
                         testing::Values(Row{"residual", 2, 2}, Row{"stddev", 3, 3}, Row{"corridor", 4, 4},
                                         Row{"correlation", 5, 5}, Row{"t", 6, 6}, Row{"moment", 7, 12}),
                         [](const auto& row) { return row.param.name; });

TEST(Criteria, AreNamedInSentences) {
    EXPECT_EQ(CriterionNames(),
              "residual, stddev, corridor, correlation, t, moment, iso, roadside, sprague-geers, anova-mean and "
              "anova-deviation");
    EXPECT_EQ(CriticalValueNames(),
              "residual, stddev, corridor, correlation, t, moment, iso, sprague-geers, anova-mean and anova-deviation");
}

TEST(Criteria, FindNothingBadWithoutCriteriaOrSignals) {
    EXPECT_FALSE(HasBad(TableWithBadColumn(2), {}));
    EXPECT_FALSE(HasBad(CSummaryTable(), {FindCriterion("residual")}));
}

// Ratings.

/// Twice the reference: M of Sprague-Geers is 1, P is 0.
CSignal RatedSignal(std::vector<double> computed) {
    CSignal reference("r"), signal("s");
    reference.Record() = MakeTimeSignal({0.0, 1.0, 4.0, 1.0, 0.0}, 0.5);
    signal.Record() = MakeTimeSignal(std::move(computed), 0.5);
    signal.Compare(reference);
    ratings::CRatingChoice choice;
    AddFamilies(choice, "sprague-geers");
    AddFamilies(choice, "anova");
    signal.Rate(reference, choice, std::nullopt);
    return signal;
}

TEST(RatingCriteria, FindWhatIsBad) {
    const std::vector<CSignal> twice{RatedSignal({0.0, 2.0, 8.0, 2.0, 0.0})};
    const auto hasBad = [&twice](const char* name, const ratings::CRatingLimits& limits) {
        return HasBadRating(twice, {ratings::FindRatingCriterion(name)}, limits);
    };
    ratings::CRatingLimits limits;
    EXPECT_TRUE(hasBad("sprague-geers", limits));
    EXPECT_TRUE(hasBad("roadside", limits));
    EXPECT_TRUE(hasBad("anova-mean", limits));  // (1 + 4 + 1) / 4 / 5 = 0.3
    limits.spragueGeers = 1.01;
    limits.anovaMean = 0.31;
    EXPECT_FALSE(hasBad("sprague-geers", limits));
    EXPECT_FALSE(hasBad("anova-mean", limits));
    EXPECT_FALSE(hasBad("iso", limits)) << "not rated";
    EXPECT_FALSE(HasBadRating(twice, {}, {}));
    EXPECT_FALSE(HasBadRating({CSignal("plain")}, {ratings::FindRatingCriterion("iso")}, {}));
}

TEST(RatingCriteria, TellWhatIsNotAvailableOncePerSignalAndReason) {
    const std::vector<CSignal> signalList{RatedSignal({0.0, 2.0, 8.0, 2.0, 0.0}),
                                          RatedSignal({0.0, 0.0, 0.0, 0.0, 0.0})};
    const auto* const spragueGeers = ratings::FindRatingCriterion("sprague-geers");
    const auto* const roadside = ratings::FindRatingCriterion("roadside");
    const std::string reason = ": The computed signal is zero throughout.";
    EXPECT_THAT(RatingsNotJudged(signalList, {spragueGeers, roadside}),
                testing::ElementsAre("s: not judged by sprague-geers" + reason, "s: not judged by roadside" + reason));
    EXPECT_TRUE(HasBadRating(signalList, {spragueGeers}, {}));
    EXPECT_THAT(RatingsNotJudged({CSignal("plain")}, {roadside}), testing::IsEmpty());
}

TEST(Criteria, CoverColumnsThatAreNotFixed) {
    const std::vector<CSummaryColumn> columns = ColumnsWithExtra();
    CSignal signal("a.uds");  // no points: below a limit that good values exceed
    CSummaryTable table = MakeSummaryTable({signal}, columns);
    for (CSummaryCell& cell : table.rows[0]) {
        if (&cell != &table.rows[0][columns.size() - 2]) cell.verdict = CVerdict::None;
    }
    EXPECT_TRUE(HasBad(table, {FindCriterion("t")}));
    EXPECT_FALSE(HasBad(table, {FindCriterion("moment")}));
}

}  // namespace
