#include "compare/ratings/warping.h"

#include "compare/ratings/testing/pairs.h"
#include "tests/support/page_samples.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace ratings {
namespace {

/// The definition with a whole matrix, its path traced back from the end.
class Matrix {
public:
    Matrix(CPairOfSignals pair, long width) : m_pair(std::move(pair)), m_width(width) {
        for (long i = 0; i < Count(); ++i) {
            for (long j = 0; j < Count(); ++j) Fill(i, j);
        }
    }

    CPathSums Trace() const {
        CPathSums sums;
        std::pair<long, long> cell{Count() - 1, Count() - 1};
        while (true) {
            sums.difference += std::abs(Error(cell.first, cell.second));
            sums.reference += std::abs(Value(m_pair.reference, cell.second));
            if (cell == std::pair<long, long>{0, 0}) return sums;
            cell = CheapestBefore(cell.first, cell.second);
        }
    }

private:
    long Count() const { return static_cast<long>(m_pair.reference.size()); }
    static double Value(const std::vector<double>& values, long i) { return values[static_cast<std::size_t>(i)]; }
    double Error(long i, long j) const { return Value(m_pair.computed, i) - Value(m_pair.reference, j); }

    double Cost(long i, long j) const {
        const auto found = m_costs.find({i, j});
        return found == m_costs.end() ? std::numeric_limits<double>::infinity() : found->second;
    }

    std::pair<long, long> CheapestBefore(long i, long j) const {
        std::pair<long, long> best{i - 1, j};
        for (const std::pair<long, long>& other : {std::pair{i, j - 1}, std::pair{i - 1, j - 1}}) {
            if (Cost(other.first, other.second) < Cost(best.first, best.second)) best = other;
        }
        return best;
    }

    void Fill(long i, long j) {
        if (std::abs(i - j) >= m_width) return;
        const std::pair<long, long> before = CheapestBefore(i, j);
        const double soFar = i == 0 && j == 0 ? 0.0 : Cost(before.first, before.second);
        m_costs[{i, j}] = soFar + Error(i, j) * Error(i, j);
    }

    CPairOfSignals m_pair;
    long m_width;
    std::map<std::pair<long, long>, double> m_costs;
};

void ExpectAsTraced(const CPairOfSignals& pair, std::size_t width) {
    const CPathSums found = WarpingPathSums(pair.View(), width);
    const CPathSums expected = Matrix(pair, static_cast<long>(width)).Trace();
    EXPECT_NEAR(found.difference, expected.difference, 1e-12 * expected.difference) << width;
    EXPECT_NEAR(found.reference, expected.reference, 1e-12 * expected.reference) << width;
}

TEST(Warping, AWorkedPathOfThreeSamples) {
    // Costs (row i over computed 0 2 2, column j over reference 0 1 2): the path (0,0) (0,1) (1,2) (2,2) costs 1.
    const CPathSums sums = WarpingPathSums({std::array{0.0, 1.0, 2.0}, std::array{0.0, 2.0, 2.0}}, 3);
    EXPECT_EQ(sums.difference, 1.0);
    EXPECT_EQ(sums.reference, 0.0 + 1.0 + 2.0 + 2.0);
}

TEST(Warping, OfEquallyCheapStepsTheOneInTheComputedSignalWins) {
    // Equal values everywhere: every path costs nothing, so the end is reached along i after all of j: 2 n - 1 cells.
    const std::vector<double> values(6, 2.0);
    const CPathSums sums = WarpingPathSums({values, values}, 6);
    EXPECT_EQ(sums.difference, 0.0);
    EXPECT_EQ(sums.reference, 2.0 * 11);
}

TEST(Warping, TheNarrowestBandIsTheDiagonal) {
    const CPairOfSignals pair{Noise(70, 1), Noise(70, 2)};
    CPathSums expected;
    for (std::size_t i = 0; i < 70; ++i) {
        expected.difference += std::abs(pair.computed[i] - pair.reference[i]);
        expected.reference += std::abs(pair.reference[i]);
    }
    const CPathSums sums = WarpingPathSums(pair.View(), 1);
    EXPECT_NEAR(sums.difference, expected.difference, 1e-12);
    EXPECT_NEAR(sums.reference, expected.reference, 1e-12);
}

TEST(Warping, ASingleSampleIsItsOwnPath) {
    const CPathSums sums = WarpingPathSums({std::array{-3.0}, std::array{1.0}}, 1);
    EXPECT_EQ(sums.difference, 4.0);
    EXPECT_EQ(sums.reference, 3.0);
}

TEST(Warping, NoiseFollowsTheTracedPathInEveryBand) {
    for (const std::size_t count : {2U, 3U, 10U, 63U, 64U, 65U, 140U}) {
        const CPairOfSignals pair{Noise(count, 3), Noise(count, 4)};
        for (const std::size_t width : {1UL, 2UL, 3UL, count / 10 + 1, count / 2 + 1, count - 1, count}) {
            ExpectAsTraced(pair, width);
        }
    }
}

TEST(Warping, SmallIntegersFollowTheTracedPathThroughManyTies) {
    CPairOfSignals pair{Noise(150, 5), Noise(150, 6)};
    for (auto* values : {&pair.reference, &pair.computed}) {
        for (double& value : *values) value = std::round(value);
    }
    for (const std::size_t width : {2U, 15U, 150U}) ExpectAsTraced(pair, width);
}

}  // namespace
}  // namespace ratings
