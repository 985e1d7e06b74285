#include "chart/visible_curve.h"

#include "chart/curve_points.h"
#include "chart/plane_geometry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>

namespace {

constexpr std::size_t kFewPoints = 4;  // that a column shows as they are
constexpr double kSamePlace = 0.25;    // of a column

/// A drawn point; `run` equals the number of runs after the last one.
struct CPlace {
    std::size_t run = 0;
    std::size_t point = 0;
};

/// Goes through a curve whose x never falls, pixel column by pixel column.
class CColumnWalk {
public:
    CColumnWalk(const CCurvePoints& curve, const CCurveView& view, CPolylines& polylines)
        : m_curve(curve), m_runs(curve.Runs()), m_view(view), m_polylines(polylines) {}

    void Walk() {
        CPlace place = FirstFrom({0, m_runs[0].first}, m_view.left);
        if (IsInside(place)) m_polylines.Add(At(place.point - 1));
        while (!IsPastEnd(place) && PixelOf(place.point) < m_view.right) place = AddColumn(place);
        if (IsInside(place)) m_polylines.Add(At(place.point));
        m_polylines.End();
    }

private:
    [[nodiscard]] double PixelOf(std::size_t point) const { return m_view.x.PixelOf(m_curve.X()[point]); }
    [[nodiscard]] double HeightOf(double y) const { return m_view.y.PixelOf(y); }
    [[nodiscard]] CPlanePoint At(std::size_t point) const { return {PixelOf(point), HeightOf(m_curve.Y()[point])}; }
    [[nodiscard]] bool IsPastEnd(const CPlace& place) const { return place.run == m_runs.size(); }
    /// Whether a line leads to the point.
    [[nodiscard]] bool IsInside(const CPlace& place) const {
        return !IsPastEnd(place) && place.point > m_runs[place.run].first;
    }
    /// The drawn point before a place that is not the first.
    [[nodiscard]] std::size_t Before(const CPlace& place) const {
        return IsInside(place) ? place.point - 1 : m_runs[place.run - 1].end - 1;
    }

    /// The first drawn point from `start` on that does not lie left of `pixel`.
    [[nodiscard]] CPlace FirstFrom(CPlace start, double pixel) {
        const auto isLeft = [&](const CPointRun& run) { return PixelOf(run.end - 1) < pixel; };
        if (isLeft(m_runs[start.run])) {
            const auto next = m_runs.begin() + static_cast<std::ptrdiff_t>(start.run) + 1;
            const auto run = std::partition_point(next, m_runs.end(), isLeft);
            if (run == m_runs.end()) return {m_runs.size(), 0};
            start = {static_cast<std::size_t>(run - m_runs.begin()), run->first};
        }
        const std::size_t point = FirstInRun(start, pixel);
        m_usualCount = point - start.point;
        return {start.run, point};
    }

    /// The same within the run, whose last point does not lie left of `pixel`. Most columns hold as many points as
    /// the one before: the search begins there and takes longer steps the further it gets.
    [[nodiscard]] std::size_t FirstInRun(const CPlace& start, double pixel) const {
        const auto isLeft = [&](std::size_t point) { return PixelOf(point) < pixel; };
        std::size_t low = start.point;  // all before it lie left
        std::size_t high = m_runs[start.run].end - 1;
        std::size_t step = 1;
        const std::size_t guess = std::min(low + m_usualCount, high);
        if (isLeft(guess)) {
            low = guess + 1;
            for (; low + step < high && isLeft(low + step); step *= 2) low += step + 1;
            high = std::min(high, low + step);
        } else {
            high = guess;
            for (; high - low > step && !isLeft(high - step); step *= 2) high -= step;
            if (high - low > step) low = high - step + 1;
        }
        while (low < high) {
            const std::size_t middle = low + (high - low) / 2;
            if (isLeft(middle)) {
                low = middle + 1;
            } else {
                high = middle;
            }
        }
        return low;
    }

    /// Where the column that holds `pixel` ends, always to the right of it.
    [[nodiscard]] double ColumnEnd(double pixel) const {
        const double end = (std::floor(pixel / m_view.columnWidth) + 1.0) * m_view.columnWidth;
        return end > pixel ? end : end + m_view.columnWidth;
    }

    /// Adds the points of the column that begins with `start`; returns the first point after it.
    CPlace AddColumn(const CPlace& start) {
        const CPlace next = FirstFrom(start, ColumnEnd(PixelOf(start.point)));
        const std::size_t last = Before(next);
        if (!IsInside(start)) m_polylines.End();
        if (last - start.point < kFewPoints) {
            AddPoints(start, last);
        } else {
            AddExtremes(start.point, last);
        }
        return next;
    }

    void AddPoints(CPlace place, std::size_t last) {
        for (; place.point <= last; ++place.point) {
            m_polylines.Add(At(place.point));
            if (place.point + 1 != m_runs[place.run].end || place.point == last) continue;
            m_polylines.End();
            ++place.run;
            place.point = m_runs[place.run].first - 1;
        }
    }

    void AddExtremes(std::size_t first, std::size_t last) {
        const CExtremes extremes = m_curve.YExtremes(first, last + 1);
        const double from = m_curve.Y()[first];
        const double to = m_curve.Y()[last];
        const bool isRising = from <= to;
        const double early = isRising ? extremes.lowest : extremes.highest;
        const double late = isRising ? extremes.highest : extremes.lowest;
        const double left = PixelOf(first);
        const double right = PixelOf(last);
        m_polylines.Add({left, HeightOf(from)});
        if (early != from) m_polylines.Add({left + 0.25 * (right - left), HeightOf(early)});
        if (late != to) m_polylines.Add({left + 0.75 * (right - left), HeightOf(late)});
        m_polylines.Add({right, HeightOf(to)});
    }

    const CCurvePoints& m_curve;
    std::span<const CPointRun> m_runs;
    const CCurveView& m_view;
    CPolylines& m_polylines;
    std::size_t m_usualCount = 1;  ///< of the points in a column
};

/// A curve that runs backward somewhere.
void AddInOrder(const CCurvePoints& curve, const CCurveView& view, CPolylines& polylines) {
    const double samePlace = kSamePlace * view.columnWidth;
    for (const CPointRun& run : curve.Runs()) {
        CPlanePoint before{std::numeric_limits<double>::infinity(), 0.0};
        for (std::size_t point = run.first; point < run.end; ++point) {
            const CPlanePoint at{view.x.PixelOf(curve.X()[point]), view.y.PixelOf(curve.Y()[point])};
            const bool isFar = std::abs(at.x - before.x) >= samePlace || std::abs(at.y - before.y) >= samePlace;
            if (!isFar && point + 1 < run.end) continue;
            polylines.Add(at);
            before = at;
        }
        polylines.End();
    }
}

/// The directions from a point in which a line passes all points since then closely enough.
class CSector {
public:
    explicit CSector(const CPlanePoint& apex) : m_apex(apex) {}

    [[nodiscard]] bool Has(const CPlanePoint& point) const {
        const double slope = (point.y - m_apex.y) / (point.x - m_apex.x);
        return slope >= m_lowest && slope <= m_highest;  // false straight above or below, where the slope is infinite
    }

    void Narrow(const CPlanePoint& point, double tolerance) {
        const double advance = point.x - m_apex.x;
        if (!(advance > 0.0)) {
            m_highest = -std::numeric_limits<double>::infinity();
            return;
        }
        m_lowest = std::max(m_lowest, (point.y - tolerance - m_apex.y) / advance);
        m_highest = std::min(m_highest, (point.y + tolerance - m_apex.y) / advance);
    }

private:
    CPlanePoint m_apex;
    double m_lowest = std::numeric_limits<double>::lowest();
    double m_highest = std::numeric_limits<double>::max();
};

}  // namespace

void AddVisibleCurve(const CCurvePoints& curve, const CCurveView& view, CPolylines& polylines) {
    if (curve.Runs().empty()) return;
    if (curve.Rises()) {
        CColumnWalk(curve, view, polylines).Walk();
    } else {
        AddInOrder(curve, view, polylines);
    }
}

CPolyline ThinnedPolyline(std::span<const CPlanePoint> points, double tolerance) {
    CPolyline kept;
    if (points.empty()) return kept;
    kept.reserve(points.size());
    kept.push_back(points[0]);
    CSector sector(points[0]);
    for (std::size_t index = 1; index < points.size(); ++index) {
        if (index > 1 && !sector.Has(points[index])) {
            kept.push_back(points[index - 1]);
            sector = CSector(points[index - 1]);
        }
        sector.Narrow(points[index], tolerance);
    }
    if (points.size() > 1) kept.push_back(points.back());
    return kept;
}
