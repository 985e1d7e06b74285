#include "signal/column.h"

#include "signal/limits.h"

#include <gmock/gmock.h>

#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <span>
#include <thread>
#include <utility>
#include <vector>

namespace ks {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// 0, 1, 2, ...
CColumn Counted(std::size_t count) {
    std::vector<double> values(count);
    std::iota(values.begin(), values.end(), 0.0);
    return CColumn(std::move(values));
}

void ExpectExtremaOf(const CColumn& column) {
    const CExtrema found = column.Extrema();
    const CExtrema expected = ExtremaOf(column.ToVector());
    EXPECT_EQ(std::bit_cast<std::uint64_t>(found.minimum), std::bit_cast<std::uint64_t>(expected.minimum));
    EXPECT_EQ(std::bit_cast<std::uint64_t>(found.maximum), std::bit_cast<std::uint64_t>(expected.maximum));
}

// Copies and parts.

TEST(Column, TakesAVectorWithoutACopy) {
    std::vector<double> values{1.0, 2.0};
    const double* const block = values.data();
    const CColumn column(std::move(values));
    EXPECT_EQ(column.data(), block);
}

TEST(Column, CopiesAndPartsShareTheValues) {
    const CColumn column = Counted(10);
    const CColumn copy = column;
    const CColumn part = column.Part(3, 4);
    const CColumn partOfPart = part.Part(1, 2);

    EXPECT_EQ(copy.data(), column.data());
    EXPECT_EQ(part.data(), column.data() + 3);
    EXPECT_THAT(part, ElementsAre(3.0, 4.0, 5.0, 6.0));
    EXPECT_EQ(partOfPart.data(), column.data() + 4);
    EXPECT_THAT(partOfPart, ElementsAre(4.0, 5.0));
}

TEST(Column, AnEmptyPartIsEmpty) {
    EXPECT_THAT(Counted(3).Part(2, 0), IsEmpty());
    EXPECT_THAT(CColumn().Part(0, 0), IsEmpty());
    EXPECT_THAT(CColumn(std::vector<double>{}), IsEmpty());
    EXPECT_THAT(CColumn::Zeros(0), IsEmpty());
    EXPECT_THAT(CColumn::WithRoom(0), IsEmpty());
}

TEST(Column, APartOutlivesTheColumn) {
    CColumn part;
    {
        const CColumn column = Counted(5);
        part = column.Part(1, 2);
    }
    EXPECT_THAT(part, ElementsAre(1.0, 2.0));
}

TEST(Column, AChangeIsSeenOnlyThroughTheChangedColumn) {
    CColumn column = Counted(4);
    const CColumn copy = column;
    CColumn part = column.Part(1, 2);
    column.Mutable()[1] = 50.0;
    part.Mutable()[1] = 70.0;

    EXPECT_THAT(column, ElementsAre(0.0, 50.0, 2.0, 3.0));
    EXPECT_THAT(copy, ElementsAre(0.0, 1.0, 2.0, 3.0));
    EXPECT_THAT(part, ElementsAre(1.0, 70.0));
}

TEST(Column, AChangeIsNotSeenThroughAPartThatWasMadeBefore) {
    CColumn column = Counted(4);
    const CColumn part = column.Part(1, 2);
    column.Mutable()[1] = 50.0;
    EXPECT_THAT(part, ElementsAre(1.0, 2.0));
    EXPECT_THAT(column.Part(1, 2), ElementsAre(50.0, 2.0));
}

TEST(Column, ChangesInPlaceWhatNobodyShares) {
    CColumn column = Counted(4);
    const double* const block = column.data();
    { const CColumn passing = column.Part(1, 2); }
    EXPECT_EQ(column.Mutable().data(), block);
    const CColumn copy = column;
    EXPECT_NE(column.Mutable().data(), block);
}

TEST(Column, RewritesInPlaceWhatNobodyShares) {
    CColumn column = Counted(3);
    const double* const block = column.data();
    const CColumnRewrite rewrite = column.Rewrite();
    EXPECT_EQ(rewrite.input.data(), block);
    EXPECT_EQ(rewrite.output.data(), block);
}

TEST(Column, RewritesSharedValuesIntoNewOnes) {
    CColumn column = Counted(3);
    const CColumn copy = column;
    const CColumnRewrite rewrite = column.Rewrite();
    ASSERT_EQ(rewrite.input.size(), 3U);
    ASSERT_EQ(rewrite.output.size(), 3U);
    EXPECT_EQ(rewrite.input.data(), copy.data());
    for (std::size_t i = 0; i < 3; ++i) rewrite.output[i] = 10.0 * rewrite.input[i];

    EXPECT_THAT(column, ElementsAre(0.0, 10.0, 20.0));
    EXPECT_THAT(copy, ElementsAre(0.0, 1.0, 2.0));
}

TEST(Column, RewritesTheValuesOfARuleIntoNewOnes) {
    CColumn column = CColumn::Regular({2.0, 1}, 3);
    const CColumnRewrite rewrite = column.Rewrite();
    for (std::size_t i = 0; i < 3; ++i) rewrite.output[i] = 1.0 + rewrite.input[i];
    EXPECT_THAT(column, ElementsAre(3.0, 5.0, 7.0));
    EXPECT_EQ(column.Rule(), nullptr);
}

TEST(Column, EqualsByItsValues) {
    EXPECT_EQ(Counted(3), (std::vector{0.0, 1.0, 2.0}));
    EXPECT_EQ(Counted(3), CColumn::Regular({1.0, 0}, 3));
    EXPECT_NE(Counted(3), Counted(4));
    EXPECT_NE(CColumn(std::vector{kNaN}), CColumn(std::vector{kNaN}));
}

TEST(Column, CopiesItsFirstValues) {
    std::vector<double> target(2);
    Counted(3).CopyTo(target);
    EXPECT_THAT(target, ElementsAre(0.0, 1.0));
    CColumn::Regular({0.5, 1}, 3).CopyTo(target);
    EXPECT_THAT(target, ElementsAre(0.5, 1.0));
}

// Values by a rule.

TEST(Column, OfARuleHasTheValuesOfTheRegularAxis) {
    const CColumn column = CColumn::Regular({0.1, -7}, 1000);
    const std::vector<double> expected = RegularAxis(-7, 1000, 0.1);
    for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(column[i], expected[i]);
    EXPECT_EQ(column.front(), expected.front());
    EXPECT_EQ(column.back(), expected.back());
    EXPECT_EQ(column.ToVector(), expected);
    EXPECT_EQ(column, expected);
    EXPECT_EQ(column.Part(10, 20), std::vector<double>(expected.begin() + 10, expected.begin() + 30));
}

TEST(Column, OfASinglePrecisionRuleRoundsNumberStepAndProduct) {
    // 16 777 217 has no single-precision value; its nearest even neighbor takes its place.
    const CColumn column = CColumn::Regular({0.1, 16'777'217, CRulePrecision::Single}, 2);
    EXPECT_THAT(column,
                ElementsAre(static_cast<double>(16'777'216.0F * 0.1F), static_cast<double>(16'777'218.0F * 0.1F)));
    EXPECT_EQ(column[0], column.Values()[0]);
}

TEST(Column, VisitsTheSameValuesInEveryForm) {
    for (const CColumn& column : {Counted(9), CColumn::Regular({0.3, -4}, 9),
                                  CColumn::Regular({0.3, -4, CRulePrecision::Single}, 9), CColumn::Zeros(9)}) {
        VisitAxis(column, [&](const auto& axis) {
            for (std::size_t i = 0; i < column.size(); ++i) EXPECT_EQ(axis[i], column.Values()[i]);
        });
    }
}

TEST(Column, OfARuleHasItsOwnArrayAfterAChange) {
    CColumn column = CColumn::Regular({1.0, 0}, 3);
    const CColumn copy = column;
    column.Mutable()[1] = 9.0;
    EXPECT_THAT(column, ElementsAre(0.0, 9.0, 2.0));
    EXPECT_THAT(copy, ElementsAre(0.0, 1.0, 2.0));
    EXPECT_EQ(column.Rule(), nullptr);
    ASSERT_NE(copy.Rule(), nullptr);
    EXPECT_EQ(copy.Rule()->step, 1.0);
}

TEST(Column, AscendsByRuleOnlyWithFiniteValuesThatDoNotFall) {
    EXPECT_TRUE(CColumn::Regular({0.1, -5}, 10).IsAscendingByRule());
    EXPECT_TRUE(CColumn::Zeros(10).IsAscendingByRule());
    EXPECT_FALSE(CColumn::Regular({-0.1, -5}, 10).IsAscendingByRule());
    EXPECT_FALSE(CColumn::Regular({kInfinity, 1}, 10).IsAscendingByRule());
    EXPECT_FALSE(CColumn::Regular({kNaN, 0}, 10).IsAscendingByRule());
    EXPECT_FALSE(CColumn::Regular({1e308, 0}, 10).IsAscendingByRule());
    EXPECT_FALSE(Counted(10).IsAscendingByRule());
    EXPECT_FALSE(CColumn().IsAscendingByRule());
}

// Extrema.

TEST(Column, HasTheExtremaOfItsValues) {
    ExpectExtremaOf(CColumn({3.0, -1.0, 8.0, 8.0}));
    ExpectExtremaOf(CColumn({0.0, -0.0}));
    ExpectExtremaOf(CColumn({kNaN, 1.0}));
    ExpectExtremaOf(Counted(100).Part(20, 30));
}

TEST(Column, OfARuleHasTheExtremaOfItsValues) {
    for (const CRulePrecision precision : {CRulePrecision::Double, CRulePrecision::Single}) {
        for (const double step : {0.1, -0.1, 0.0, -0.0, 4.9e-324, 1e300, 1e308, kInfinity, kNaN}) {
            for (const std::int64_t first : {-20, -9, -1, 0, 1}) {
                ExpectExtremaOf(CColumn::Regular({step, first, precision}, 10));
                ExpectExtremaOf(CColumn::Regular({step, first, precision}, 1));
            }
        }
    }
}

TEST(Column, HasTheExtremaOfItsNewValuesAfterAChange) {
    CColumn column = Counted(4);
    EXPECT_EQ(column.Extrema().maximum, 3.0);
    EXPECT_EQ(column.Part(0, 2).Extrema().maximum, 1.0);
    column.Mutable()[1] = 50.0;
    EXPECT_EQ(column.Extrema().maximum, 50.0);
    EXPECT_EQ(column.Part(0, 2).Extrema().maximum, 50.0);
    const CColumnRewrite rewrite = column.Rewrite();
    rewrite.output[1] = 60.0;
    EXPECT_EQ(column.Extrema().maximum, 60.0);
}

// Threads.

template <class Work>
void InThreads(Work work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) threads.emplace_back(work);
    for (std::thread& thread : threads) thread.join();
}

TEST(Column, IsReadableFromSeveralThreads) {
    constexpr std::size_t kCount = 20'000;
    const CColumn stored = Counted(kCount);
    const CColumn regular = CColumn::Regular({1.0, 0}, kCount);
    const CColumn falling = CColumn::Regular({-1.0, 0}, kCount);
    std::atomic<int> wrong = 0;
    InThreads([&] {
        for (std::size_t i = 0; i < 50; ++i) {
            const std::size_t begin = i / 2;
            const CColumn part = stored.Part(begin, kCount - 100);
            const CColumn regularPart = regular.Part(begin, kCount - 100);
            const bool isRight = part.Extrema().minimum == static_cast<double>(begin) &&
                                 regularPart.Values()[3] == part[3] && stored.Extrema().maximum == kCount - 1.0 &&
                                 regular.Values()[kCount - 1] == kCount - 1.0 &&
                                 falling.Extrema().minimum == 1.0 - kCount;
            if (!isRight) ++wrong;
        }
    });
    EXPECT_EQ(wrong, 0);
}

TEST(Column, ThatSharesValuesCanBeChangedWhileAnotherThreadReads) {
    constexpr std::size_t kCount = 5000;
    CColumn column = Counted(kCount);
    std::atomic<int> wrong = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&wrong, own = column]() mutable {
            for (std::size_t k = 0; k < 50; ++k) {
                const CColumn before = own;
                own.Mutable()[k] += 1.0;
                if (before[k] != static_cast<double>(k) || own[k] != static_cast<double>(k) + 1.0) ++wrong;
            }
        });
    }
    // The last one to hold the first values changes them in place, whoever that is.
    column.Mutable()[kCount - 1] = -1.0;
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(column.Extrema().minimum, -1.0);
}

}  // namespace
}  // namespace ks
