#pragma once

#include "chart/chart_control.h"
#include "chart/view_range.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>
#include <vector>

/// Smallest and largest of some values; `lowest` > `highest` while there are none.
struct CExtremes {
    double lowest = std::numeric_limits<double>::infinity();
    double highest = -std::numeric_limits<double>::infinity();

    void Add(double value) {
        lowest = std::min(lowest, value);
        highest = std::max(highest, value);
    }
    void Add(const CExtremes& other) {
        lowest = std::min(lowest, other.lowest);
        highest = std::max(highest, other.highest);
    }
    bool operator==(const CExtremes&) const = default;
};

/// Values from here on are not drawn.
inline constexpr double kTooLarge = 1e200;

/// Tells which points are drawn: neither coordinate is a no-data value, both are finite and small enough to draw
/// (below kTooLarge).
struct CDrawnPoints {
    std::array<double, 2> noData{std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN()};

    [[nodiscard]] bool Has(double x, double y) const { return HasValue(x) && HasValue(y); }
    [[nodiscard]] bool HasValue(double value) const {
        return std::abs(value) < kTooLarge && value != noData[0] && value != noData[1];
    }
};

/// Neighboring points that are all drawn, `first` to `end` - 1.
struct CPointRun {
    std::size_t first = 0;
    std::size_t end = 0;
    bool operator==(const CPointRun&) const = default;
};

/// The points of one curve, and what drawing must know of them so that its cost follows the pixels: the runs of drawn
/// points, and the extremes of blocks of points, of blocks of such blocks, and so on. All that is found in one pass
/// and takes a fiftieth of the points' memory; the points themselves are shared, not copied.
class CCurvePoints {
public:
    /// `x` and `y` are of the same length.
    CCurvePoints(CSharedValues x, CSharedValues y, const CDrawnPoints& drawn);

    [[nodiscard]] std::span<const double> X() const { return m_x.values; }
    [[nodiscard]] std::span<const double> Y() const { return m_y.values; }
    /// The drawn points in order. Where points between two runs are left out, the curve has a gap.
    [[nodiscard]] std::span<const CPointRun> Runs() const { return m_runs; }
    [[nodiscard]] bool IsOnePoint() const;
    /// Whether no drawn point's x is smaller than the one before.
    [[nodiscard]] bool Rises() const { return m_rises; }

    /// Of the drawn points; without values when there are none.
    [[nodiscard]] CDataRange XRange() const;
    [[nodiscard]] CDataRange YRange() const;
    /// Extremes of y of the drawn points among `first` to `end` - 1.
    [[nodiscard]] CExtremes YExtremes(std::size_t first, std::size_t end) const;

private:
    void AddBlock(std::size_t first);
    void AddPoints(std::size_t first, std::size_t end);
    void AddRun(std::size_t first, std::size_t end);
    void BuildLevels();
    [[nodiscard]] bool IsDrawn(std::size_t point) const { return m_drawn.Has(X()[point], Y()[point]); }
    void AddYOf(std::size_t first, std::size_t end, CExtremes& extremes) const;
    void AddYOfBlocks(std::size_t first, std::size_t end, CExtremes& extremes) const;

    CSharedValues m_x, m_y;
    CDrawnPoints m_drawn;
    std::vector<CPointRun> m_runs;
    std::vector<std::vector<CExtremes>> m_levels;  ///< of blocks of points, then of blocks of the level before
    bool m_rises = true;
};
