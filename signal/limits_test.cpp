#include "signal/limits.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace ks {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

TEST(ExtremaOf, OneValueIsBoth) {
    const CExtrema extrema = ExtremaOf(std::vector{-3.0});

    EXPECT_EQ(extrema.minimum, -3.0);
    EXPECT_EQ(extrema.maximum, -3.0);
}

TEST(ExtremaOf, FindsTheExtremesAtEveryPlaceOfEveryLength) {
    for (std::size_t length = 1; length <= 40; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            std::vector<double> values(length, 1.0);
            values[place] = 2.0;
            EXPECT_EQ(ExtremaOf(values).maximum, 2.0) << length << " " << place;
            values[place] = -2.0;
            EXPECT_EQ(ExtremaOf(values).minimum, -2.0) << length << " " << place;
        }
    }
}

TEST(ExtremaOf, PassesOverWhatIsNotANumber) {
    std::vector<double> values(20, 1.0);
    values[3] = kNaN;
    values[9] = 5.0;
    values[11] = -5.0;
    values[19] = kNaN;
    const CExtrema extrema = ExtremaOf(values);

    EXPECT_EQ(extrema.minimum, -5.0);
    EXPECT_EQ(extrema.maximum, 5.0);
}

TEST(ExtremaOf, IsNotANumberWhenTheFirstValueIsNone) {
    const CExtrema extrema = ExtremaOf(std::vector{kNaN, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0});

    EXPECT_TRUE(std::isnan(extrema.minimum));
    EXPECT_TRUE(std::isnan(extrema.maximum));
}

TEST(ExtremaOf, GivesTheFirstOfEqualZeros) {
    std::vector<double> values(20, -1.0);
    values[3] = -0.0;
    values[8] = 0.0;
    EXPECT_TRUE(std::signbit(ExtremaOf(values).maximum));

    values[2] = 0.0;
    EXPECT_FALSE(std::signbit(ExtremaOf(values).maximum));
}

TEST(CountOf, FollowsThePointNumbers) {
    EXPECT_EQ(CountOf(5, 4), 0);
    EXPECT_EQ(CountOf(0, 0), 0);
    EXPECT_EQ(CountOf(7, 7), 1);
    EXPECT_EQ(CountOf(-10, 89), 100);
    EXPECT_EQ(CountOf(0, 1), 2);
    EXPECT_EQ(CountOf(-1, 0), 2);
}

TEST(CountOf, SaturatesWhereTheNumberLeaves32Bits) {
    EXPECT_EQ(CountOf(kLeast, kMost), kMost);
    EXPECT_EQ(CountOf(0, kMost), kMost);
    EXPECT_EQ(CountOf(1, kMost), kMost);
}

TEST(RegularAxis, IsTheTimeStepTimesThePointNumber) {
    EXPECT_THAT(RegularAxis(-2, 4, 0.001), ElementsAre(0.001 * -2.0, 0.001 * -1.0, 0.0, 0.001));
}

TEST(RegularAxis, MayEndBeyond32Bits) {
    EXPECT_THAT(RegularAxis(kMost, 2, 1.0), ElementsAre(2147483647.0, 2147483648.0));
}

TEST(RegularAxis, IsEmptyForNoPoints) {
    EXPECT_THAT(RegularAxis(3, 0, 0.001), IsEmpty());
    EXPECT_THAT(RegularAxis(3, -1, 0.001), IsEmpty());
}

}  // namespace
}  // namespace ks
