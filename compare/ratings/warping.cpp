#include "compare/ratings/warping.h"

#include "compare/ratings/samples.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace ratings {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Cells computed at a time.
constexpr std::size_t kBlock = 64;

/// The cells of one anti-diagonal: entry i + 1 is cell (i, d - i). What the band leaves out costs infinitely much.
class CDiagonal {
public:
    explicit CDiagonal(std::size_t count)
        : cost(count + 2, kInfinity), difference(count + 2, 0.0), reference(count + 2, 0.0) {}

    std::vector<double> cost, difference, reference;
};

/// The rows i that one anti-diagonal has within the band, both included; none when last < first.
struct CRows {
    std::int64_t first;
    std::int64_t last;
};

/// Rows with 0 <= i < count, 0 <= d - i < count and |2 i - d| < width.
CRows RowsOf(std::int64_t d, std::int64_t count, std::int64_t width) {
    const std::int64_t bandFirst = d < width ? 0 : (d - width) / 2 + 1;
    const std::int64_t bandLast = (d + width - 1) / 2;
    return {std::max(bandFirst, d - count + 1), std::min({bandLast, d, count - 1})};
}

/// Where a block's values are read. Cell k has the predecessors (i - 1, j) and (i, j - 1) at k and k + 1 of the
/// diagonal before, and (i - 1, j - 1) at k of the one before that.
struct CSources {
    const double* costBefore;
    const double* differenceBefore;
    const double* referenceBefore;
    const double* costBeforeThat;
    const double* differenceBeforeThat;
    const double* referenceBeforeThat;
    const double* computed;
    const double* reference;
};

struct CBlock {
    std::array<double, kBlock> cost, difference, reference;
};

/// Without branches and into an array of its own, since which predecessor is cheapest follows no pattern.
void ComputeBlock(const CSources& at, std::size_t count, CBlock& block) {
    CBlock cells;
    for (std::size_t k = 0; k < count; ++k) {
        const double costUp = at.costBefore[k], costLeft = at.costBefore[k + 1], costBoth = at.costBeforeThat[k];
        const double differenceUp = at.differenceBefore[k], differenceLeft = at.differenceBefore[k + 1];
        const double differenceBoth = at.differenceBeforeThat[k];
        const double referenceUp = at.referenceBefore[k], referenceLeft = at.referenceBefore[k + 1];
        const double referenceBoth = at.referenceBeforeThat[k];

        const bool isLeft = costLeft <= costBoth;
        const double cost = isLeft ? costLeft : costBoth;
        const double difference = isLeft ? differenceLeft : differenceBoth;
        const double reference = isLeft ? referenceLeft : referenceBoth;
        const bool isUp = costUp <= cost;

        const double error = at.computed[k] - at.reference[k];
        cells.cost[k] = (isUp ? costUp : cost) + error * error;
        cells.difference[k] = (isUp ? differenceUp : difference) + std::abs(error);
        cells.reference[k] = (isUp ? referenceUp : reference) + std::abs(at.reference[k]);
    }
    block = cells;
}

class CWarping {
public:
    explicit CWarping(const CSamples& samples)
        : m_computed(samples.computed.begin(), samples.computed.end()),
          m_reversed(samples.reference.rbegin(), samples.reference.rend()),
          m_before(samples.computed.size()),
          m_beforeThat(samples.computed.size()),
          m_next(samples.computed.size()) {}

    CPathSums Run(std::size_t width) {
        const std::size_t count = m_computed.size();
        const auto n = static_cast<std::int64_t>(count);
        const auto band = static_cast<std::int64_t>(std::min(width, count));
        Start();
        for (std::int64_t d = 1; d <= 2 * (n - 1); ++d) {
            const CRows rows = RowsOf(d, n, band);
            Compute(d, rows);
            // The diagonals to come look one row beyond; an earlier diagonal's values are still there.
            m_next.cost[static_cast<std::size_t>(rows.first)] = kInfinity;
            m_next.cost[static_cast<std::size_t>(rows.last + 2)] = kInfinity;
            std::swap(m_beforeThat, m_before);
            std::swap(m_before, m_next);
        }
        return {m_before.difference[count], m_before.reference[count]};
    }

private:
    void Start() {
        const double error = m_computed.front() - m_reversed.back();
        m_before.cost[1] = error * error;
        m_before.difference[1] = std::abs(error);
        m_before.reference[1] = std::abs(m_reversed.back());
    }

    void Compute(std::int64_t d, const CRows& rows) {
        const auto reversedOffset = static_cast<std::int64_t>(m_computed.size()) - 1 - d;
        CBlock block;
        for (std::int64_t first = rows.first; first <= rows.last; first += static_cast<std::int64_t>(kBlock)) {
            const std::size_t i = static_cast<std::size_t>(first);
            const std::size_t count = std::min(static_cast<std::size_t>(rows.last - first) + 1, kBlock);
            const std::size_t j = static_cast<std::size_t>(reversedOffset + first);
            ComputeBlock({&m_before.cost[i], &m_before.difference[i], &m_before.reference[i], &m_beforeThat.cost[i],
                          &m_beforeThat.difference[i], &m_beforeThat.reference[i], &m_computed[i], &m_reversed[j]},
                         count, block);
            std::copy_n(block.cost.begin(), count, &m_next.cost[i + 1]);
            std::copy_n(block.difference.begin(), count, &m_next.difference[i + 1]);
            std::copy_n(block.reference.begin(), count, &m_next.reference[i + 1]);
        }
    }

    std::vector<double> m_computed;
    std::vector<double> m_reversed;  ///< the reference from its end, so that a diagonal reads it forward
    CDiagonal m_before, m_beforeThat, m_next;
};

}  // namespace

CPathSums WarpingPathSums(const CSamples& samples, std::size_t width) {
    return CWarping(samples).Run(width);
}

}  // namespace ratings
