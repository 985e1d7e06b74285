#include "chart/curve_points.h"

#include "chart/chart_control.h"
#include "chart/view_range.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t kBlock = 64;   // points
constexpr std::size_t kBlocks = 16;  // of one level in a block of the next

using CBlock = std::span<const double, kBlock>;

/// As CDrawnPoints::HasValue; without branches, since nearly every block is whole.
bool IsWhole(CBlock values, const CDrawnPoints& drawn) {
    const double first = drawn.noData[0];
    const double second = drawn.noData[1];
    std::size_t missing = 0;
    for (const double value : values) {
        missing += static_cast<std::size_t>(!(std::abs(value) < kTooLarge));
        missing += static_cast<std::size_t>(value == first);
        missing += static_cast<std::size_t>(value == second);
    }
    return missing == 0;
}

bool NeverFalls(CBlock values) {
    std::size_t falls = 0;
    for (std::size_t i = 1; i < kBlock; ++i) falls += static_cast<std::size_t>(values[i] < values[i - 1]);
    return falls == 0;
}

/// In several lanes, which do not wait for each other.
CExtremes ExtremesOf(CBlock values) {
    constexpr std::size_t kLanes = 4;
    std::array<CExtremes, kLanes> lanes;
    for (std::size_t i = 0; i < kBlock; i += kLanes) {
        for (std::size_t lane = 0; lane < kLanes; ++lane) lanes[lane].Add(values[i + lane]);
    }
    for (std::size_t lane = 1; lane < kLanes; ++lane) lanes[0].Add(lanes[lane]);
    return lanes[0];
}

std::vector<CExtremes> NextLevel(const std::vector<CExtremes>& level) {
    std::vector<CExtremes> next((level.size() + kBlocks - 1) / kBlocks);
    for (std::size_t i = 0; i < level.size(); ++i) next[i / kBlocks].Add(level[i]);
    return next;
}

CDataRange RangeOf(const CExtremes& extremes) {
    CDataRange range;
    if (!(extremes.lowest <= extremes.highest)) return range;
    range.Add(extremes.lowest);
    range.Add(extremes.highest);
    return range;
}

}  // namespace

CCurvePoints::CCurvePoints(CSharedValues x, CSharedValues y, const CDrawnPoints& drawn)
    : m_x(std::move(x)), m_y(std::move(y)), m_drawn(drawn), m_levels(1) {
    const std::size_t count = X().size();
    m_levels[0].reserve((count + kBlock - 1) / kBlock);
    std::size_t first = 0;
    for (; first + kBlock <= count; first += kBlock) AddBlock(first);
    if (first < count) AddPoints(first, count);
    BuildLevels();
}

void CCurvePoints::AddBlock(std::size_t first) {
    const CBlock x = X().subspan(first).first<kBlock>();
    const CBlock y = Y().subspan(first).first<kBlock>();
    if (!IsWhole(x, m_drawn) || !IsWhole(y, m_drawn)) {
        AddPoints(first, first + kBlock);
        return;
    }
    AddRun(first, first + kBlock);
    m_rises = m_rises && NeverFalls(x);
    m_levels[0].push_back(ExtremesOf(y));
}

/// A block some of whose points are not drawn, or the last one.
void CCurvePoints::AddPoints(std::size_t first, std::size_t end) {
    CExtremes extremes;
    for (std::size_t point = first; point < end; ++point) {
        if (!IsDrawn(point)) continue;
        AddRun(point, point + 1);
        extremes.Add(Y()[point]);
    }
    m_levels[0].push_back(extremes);
}

void CCurvePoints::AddRun(std::size_t first, std::size_t end) {
    if (!m_runs.empty()) m_rises = m_rises && X()[m_runs.back().end - 1] <= X()[first];
    if (!m_runs.empty() && m_runs.back().end == first) {
        m_runs.back().end = end;
    } else {
        m_runs.push_back({first, end});
    }
}

void CCurvePoints::BuildLevels() {
    while (m_levels.back().size() > kBlocks) m_levels.push_back(NextLevel(m_levels.back()));
}

bool CCurvePoints::IsOnePoint() const {
    return m_runs.size() == 1 && m_runs[0].end - m_runs[0].first == 1;
}

CDataRange CCurvePoints::XRange() const {
    CDataRange range;
    for (const CPointRun& run : m_runs) {
        if (m_rises) {
            range.Add(X()[run.first]);
            range.Add(X()[run.end - 1]);
            continue;
        }
        for (std::size_t point = run.first; point < run.end; ++point) range.Add(X()[point]);
    }
    return range;
}

CDataRange CCurvePoints::YRange() const {
    CExtremes extremes;
    for (const CExtremes& block : m_levels.back()) extremes.Add(block);
    return RangeOf(extremes);
}

CExtremes CCurvePoints::YExtremes(std::size_t first, std::size_t end) const {
    CExtremes extremes;
    const std::size_t firstBlock = (first + kBlock - 1) / kBlock;
    const std::size_t endBlock = end / kBlock;
    if (firstBlock >= endBlock) {
        AddYOf(first, end, extremes);
        return extremes;
    }
    AddYOf(first, firstBlock * kBlock, extremes);
    AddYOfBlocks(firstBlock, endBlock, extremes);
    AddYOf(endBlock * kBlock, end, extremes);
    return extremes;
}

void CCurvePoints::AddYOf(std::size_t first, std::size_t end, CExtremes& extremes) const {
    const bool isWhole = m_runs.size() == 1 && m_runs[0].first <= first && end <= m_runs[0].end;
    for (std::size_t point = first; point < end; ++point) {
        if (isWhole || IsDrawn(point)) extremes.Add(Y()[point]);
    }
}

void CCurvePoints::AddYOfBlocks(std::size_t first, std::size_t end, CExtremes& extremes) const {
    for (const std::vector<CExtremes>& level : m_levels) {
        const auto add = [&](std::size_t from, std::size_t to) {
            for (std::size_t block = from; block < to; ++block) extremes.Add(level[block]);
        };
        const std::size_t firstAbove = (first + kBlocks - 1) / kBlocks;
        const std::size_t endAbove = end / kBlocks;
        if (&level == &m_levels.back() || firstAbove >= endAbove) {
            add(first, end);
            return;
        }
        add(first, firstAbove * kBlocks);
        add(endAbove * kBlocks, end);
        first = firstAbove;
        end = endAbove;
    }
}
