#include "signal/truncate.h"

#include "files/error.h"
#include "signal/column.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace ks {
namespace {

using testing::ThrowsMessage;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

const std::vector<double> kAxis{0.0, 1.0, 2.0, 3.0, 4.0};

void ExpectRange(const CIndexRange& range, std::size_t begin, std::size_t end) {
    EXPECT_EQ(range.begin, begin);
    EXPECT_EQ(range.end, end);
}

TEST(SamplesInWindow, IncludesTheStartAndExcludesTheStop) {
    ExpectRange(SamplesInWindow(kAxis, 1.0, 3.0, 5), 1, 3);
    ExpectRange(SamplesInWindow(kAxis, 0.5, 3.5, 5), 1, 4);
}

TEST(SamplesInWindow, NeverKeepsTheLastSample) {
    ExpectRange(SamplesInWindow(kAxis, -1.0, 100.0, 5), 0, 4);
    ExpectRange(SamplesInWindow(kAxis, -kInfinity, kInfinity, 5), 0, 4);
}

TEST(SamplesInWindow, IsEmptyWhereNoSampleFallsInto) {
    EXPECT_EQ(SamplesInWindow(kAxis, 1.2, 1.8, 5).Count(), 0U);
    EXPECT_EQ(SamplesInWindow(kAxis, 5.0, 6.0, 5).Count(), 0U);
    EXPECT_EQ(SamplesInWindow(kAxis, 4.0, 6.0, 5).Count(), 0U) << "only the last sample";
    EXPECT_EQ(SamplesInWindow(kAxis, -3.0, -1.0, 5).Count(), 0U);
    EXPECT_EQ(SamplesInWindow(kAxis, kNaN, 3.0, 5).Count(), 0U);
    EXPECT_EQ(SamplesInWindow(kAxis, 1.0, kNaN, 5).Count(), 0U);
    EXPECT_EQ(SamplesInWindow(std::span<const double>(), 1.0, 3.0, 5).Count(), 0U);
}

TEST(SamplesInWindow, IsBoundByTheCount) {
    ExpectRange(SamplesInWindow(kAxis, 0.0, 100.0, 3), 0, 2);
    EXPECT_EQ(SamplesInWindow(kAxis, 0.0, 100.0, 1).Count(), 0U);
    EXPECT_EQ(SamplesInWindow(kAxis, 0.0, 100.0, 0).Count(), 0U);
}

TEST(SamplesInWindow, TakesACountBeyondTheArrayAsItsLength) {
    ExpectRange(SamplesInWindow(kAxis, 0.0, 100.0, 6), 0, 4);
    ExpectRange(SamplesInWindow(kAxis, 0.0, 100.0, kMost), 0, 4);
}

TEST(SamplesInWindow, OfARegularAxisIsTheOneOfItsValues) {
    for (const CRulePrecision precision : {CRulePrecision::Double, CRulePrecision::Single}) {
        for (const double step : {0.1, 0.0, -0.1, 1e300, kInfinity}) {
            const CColumn x = CColumn::Regular({step, -10, precision}, 40);
            const std::vector<double> values = x.ToVector();
            for (const double start : {-kInfinity, -1.0, -0.35, 0.0, 0.3, 2.9, 3.0, kInfinity, kNaN}) {
                for (const double stop : {-2.0, 0.0, 0.3, 0.30000000000000004, 2.85, 9.0, kInfinity, kNaN}) {
                    for (const std::int32_t count : {-1, 0, 1, 20, 40, kMost}) {
                        const CIndexRange expected = SamplesInWindow(std::span(values), start, stop, count);
                        ExpectRange(SamplesInWindow(x, start, stop, count), expected.begin, expected.end);
                    }
                }
            }
        }
    }
}

TEST(FirstPointAt, CutsTheQuotientTowardZero) {
    EXPECT_EQ(FirstPointAt(0.0255, 0.01), 2);
    EXPECT_EQ(FirstPointAt(-0.0255, 0.01), -2);
}

TEST(FirstPointAt, IsZeroWithoutATimeStep) {
    EXPECT_EQ(FirstPointAt(5.0, 0.0), 0);
    EXPECT_EQ(FirstPointAt(5.0, -0.001), 0);
    EXPECT_EQ(FirstPointAt(5.0, kNaN), 0);
}

TEST(FirstPointAt, Saturates) {
    EXPECT_EQ(FirstPointAt(1e9, 1e-9), kMost);
    EXPECT_EQ(FirstPointAt(-1e9, 1e-9), kLeast);
    EXPECT_EQ(FirstPointAt(-kInfinity, 1.0), kLeast);
}

TEST(SamplesBetween, IncludesBothEnds) {
    ExpectRange(SamplesBetween(2, 4, 10, 10), 2, 5);
}

TEST(SamplesBetween, RefusesCrossedOrEqualIndices) {
    const char* message = "Stop index is <= Start Index";
    EXPECT_THAT([] { SamplesBetween(4, 4, 10, 10); }, ThrowsMessage<CError>(message));
    EXPECT_THAT([] { SamplesBetween(4, 3, 10, 10); }, ThrowsMessage<CError>(message));
    EXPECT_THAT([] { SamplesBetween(-3, -4, 10, 10); }, ThrowsMessage<CError>(message)) << "before the range check";
}

TEST(SamplesBetween, RefusesWhatIsNoSample) {
    const char* message = "Unable to provide requested stop/start indices";
    EXPECT_THAT([] { SamplesBetween(-1, 4, 10, 10); }, ThrowsMessage<CError>(message));
    EXPECT_THAT([] { SamplesBetween(0, 11, 10, 20); }, ThrowsMessage<CError>(message)) << "beyond the count";
    EXPECT_THAT([] { SamplesBetween(0, 10, 10, 20); }, ThrowsMessage<CError>(message)) << "one beyond the count";
    EXPECT_THAT([] { SamplesBetween(0, 10, 20, 10); }, ThrowsMessage<CError>(message)) << "one beyond the array";
    EXPECT_THAT([] { SamplesBetween(15, 16, 20, 10); }, ThrowsMessage<CError>(message));
    ExpectRange(SamplesBetween(0, 9, 10, 10), 0, 10);
}

}  // namespace
}  // namespace ks
