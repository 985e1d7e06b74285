#include "compare/critical_values.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const CCriterion& criterion : Criteria()) names.emplace_back(criterion.name);
    return names;
}

TEST(CriticalValuesOfTheProcess, HaveTheirDefaults) {
    const CCriticalValues values;

    EXPECT_EQ(values.averageResidual, 5.0);
    EXPECT_EQ(values.standardDeviation, 20.0);
    EXPECT_EQ(values.corridor, 0.1);
    EXPECT_EQ(values.correlation, 0.05);
    EXPECT_EQ(values.tStatistic, 2.58);
    EXPECT_EQ(values.moment, 0.2);
    EXPECT_EQ(&CriticalValues(), &CriticalValues());
}

TEST(Criteria, HaveTheirFrozenNamesInOrder) {
    EXPECT_THAT(Names(), ElementsAre("residual", "stddev", "corridor", "correlation", "t", "moment"));
}

TEST(Criteria, AreFoundByNameAndByCriticalValue) {
    for (const CCriterion& criterion : Criteria()) {
        EXPECT_EQ(FindCriterion(criterion.name), &criterion);
        EXPECT_EQ(&CriterionOf(criterion.limit), &criterion);
    }
    EXPECT_EQ(FindCriterion("peak"), nullptr);
    EXPECT_EQ(FindCriterion(""), nullptr);
}

TEST(Criteria, HaveOneForEachCriticalValue) {
    EXPECT_EQ(Criteria().size() * sizeof(double), sizeof(CCriticalValues));
}

TEST(Criteria, HaveAPlaceForEachNumberInTheirTexts) {
    for (const CCriterion& criterion : Criteria()) {
        SCOPED_TRACE(criterion.name);
        EXPECT_NE(criterion.phrase.find("%1"), std::string_view::npos);
        const std::size_t count = criterion.demandNumbers(0.25).size();
        EXPECT_EQ(criterion.demand.find("%1") != std::string_view::npos, count >= 1);
        EXPECT_EQ(criterion.demand.find("%2") != std::string_view::npos, count >= 2);
    }
}

}  // namespace
