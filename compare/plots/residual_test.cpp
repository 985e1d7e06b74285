#include "compare/plots/residual.h"

#include <gmock/gmock.h>

#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Residuals, AreComputedMinusReference) {
    EXPECT_THAT(Residuals(std::vector<double>{5, 1, -2}, std::vector<double>{1, 2, 3}), ElementsAre(4, -1, -5));
}

TEST(Residuals, AreAsManyAsTheShorterHasValues) {
    EXPECT_THAT(Residuals(std::vector<double>{5, 1, -2}, std::vector<double>{1}), ElementsAre(4));
    EXPECT_THAT(Residuals(std::vector<double>{5}, std::vector<double>{1, 2}), ElementsAre(4));
    EXPECT_THAT(Residuals({}, std::vector<double>{1, 2}), IsEmpty());
}

}  // namespace
