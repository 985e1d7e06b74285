#include "signal/whole_number.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <limits>
#include <optional>

namespace ks {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

TEST(WholeNumber, CutsTowardZero) {
    EXPECT_EQ(WholeNumber(2.99), 2);
    EXPECT_EQ(WholeNumber(-2.99), -2);
    EXPECT_EQ(WholeNumber(-0.5), 0);
}

TEST(WholeNumber, ReachesBothEndsOf32Bits) {
    EXPECT_EQ(WholeNumber(2147483647.9), kMost);
    EXPECT_EQ(WholeNumber(-2147483648.9), kLeast);
}

TEST(WholeNumber, HasNoValueBeyondTheEnds) {
    EXPECT_EQ(WholeNumber(2147483648.0), std::nullopt);
    EXPECT_EQ(WholeNumber(-2147483649.0), std::nullopt);
    EXPECT_EQ(WholeNumber(kInfinity), std::nullopt);
    EXPECT_EQ(WholeNumber(-kInfinity), std::nullopt);
    EXPECT_EQ(WholeNumber(kNaN), std::nullopt);
}

TEST(SaturatedWholeNumber, EqualsTheWholeNumberInsideTheRange) {
    EXPECT_EQ(SaturatedWholeNumber(7.9), 7);
    EXPECT_EQ(SaturatedWholeNumber(-7.9), -7);
}

TEST(SaturatedWholeNumber, StopsAtTheEndsAndTakesNotANumberAsZero) {
    EXPECT_EQ(SaturatedWholeNumber(1e300), kMost);
    EXPECT_EQ(SaturatedWholeNumber(-1e300), kLeast);
    EXPECT_EQ(SaturatedWholeNumber(kInfinity), kMost);
    EXPECT_EQ(SaturatedWholeNumber(-kInfinity), kLeast);
    EXPECT_EQ(SaturatedWholeNumber(kNaN), 0);
}

TEST(Saturated, StopsAtTheEnds) {
    EXPECT_EQ(Saturated(5), 5);
    EXPECT_EQ(Saturated(std::int64_t{kMost} + 1), kMost);
    EXPECT_EQ(Saturated(std::int64_t{kLeast} - 1), kLeast);
}

}  // namespace
}  // namespace ks
