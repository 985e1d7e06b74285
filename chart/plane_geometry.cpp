#include "chart/plane_geometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <optional>
#include <span>
#include <vector>

namespace {

struct CSegment {
    CPlanePoint from, to;
};

constexpr double kLongestDashed = 50.0;  // times width plus height of the box

CPlanePoint Between(const CPlanePoint& from, const CPlanePoint& to, double share) {
    return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
}

bool IsFinite(const CPlanePoint& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

bool Contains(const CPlaneBox& box, const CPlanePoint& point) {
    return point.x >= box.left && point.x <= box.right && point.y >= box.top && point.y <= box.bottom;
}

// Liang and Barsky, "A New Concept and Method for Line Clipping", ACM Transactions on Graphics 3 (1984).
std::optional<CSegment> ClippedSegment(const CPlanePoint& from, const CPlanePoint& to, const CPlaneBox& box) {
    if (Contains(box, from) && Contains(box, to)) return CSegment{from, to};
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const std::array<double, 4> direction{-dx, dx, -dy, dy};
    const std::array<double, 4> distance{from.x - box.left, box.right - from.x, from.y - box.top, box.bottom - from.y};
    double enter = 0.0;
    double leave = 1.0;
    for (std::size_t side = 0; side < 4; ++side) {
        if (direction[side] == 0.0) {
            if (distance[side] < 0.0) return std::nullopt;
            continue;
        }
        const double share = distance[side] / direction[side];
        if (direction[side] < 0.0) {
            enter = std::max(enter, share);
        } else {
            leave = std::min(leave, share);
        }
    }
    if (!(enter <= leave)) return std::nullopt;
    // The ends themselves are kept exactly, so that the parts of an unclipped polyline join up.
    return CSegment{enter > 0.0 ? Between(from, to, enter) : from, leave < 1.0 ? Between(from, to, leave) : to};
}

/// One border of the box: points with sign * (coordinate - limit) >= 0 are inside.
struct CBorder {
    double CPlanePoint::*coordinate;
    double limit;
    double sign;
    [[nodiscard]] double Depth(const CPlanePoint& point) const { return sign * (point.*coordinate - limit); }
};

CPolyline ClippedAt(const CPolyline& polygon, const CBorder& border) {
    CPolyline kept;
    if (polygon.empty()) return kept;
    CPlanePoint before = polygon.back();
    for (const CPlanePoint& point : polygon) {
        const double depthBefore = border.Depth(before);
        const double depth = border.Depth(point);
        if ((depthBefore >= 0.0) != (depth >= 0.0))
            kept.push_back(Between(before, point, depthBefore / (depthBefore - depth)));
        if (depth >= 0.0) kept.push_back(point);
        before = point;
    }
    return kept;
}

/// Not std::hypot, which takes ten times as long to be exact for numbers that no picture has.
double Distance(const CPlanePoint& from, const CPlanePoint& to) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    return std::sqrt(dx * dx + dy * dy);
}

double Length(std::span<const CPlanePoint> points) {
    double length = 0.0;
    for (std::size_t index = 1; index < points.size(); ++index) length += Distance(points[index - 1], points[index]);
    return length;
}

/// Walks along a polyline and cuts it by the pattern.
class CDasher {
public:
    CDasher(std::span<const double> pattern, CPolylines& dashes)
        : m_pattern(pattern), m_left(pattern[0]), m_dashes(dashes) {}

    void Walk(std::span<const CPlanePoint> points) {
        m_dashes.Add(points[0]);
        for (std::size_t index = 1; index < points.size(); ++index) LineTo(points[index - 1], points[index]);
        m_dashes.End();
    }

private:
    [[nodiscard]] bool IsLine() const { return m_part % 2 == 0; }

    void LineTo(const CPlanePoint& from, const CPlanePoint& to) {
        const double length = Distance(from, to);
        double done = 0.0;
        while (length - done > m_left) {
            done += m_left;
            Turn(Between(from, to, done / length));
        }
        m_left -= length - done;
        if (IsLine()) m_dashes.Add(to);
    }

    void Turn(const CPlanePoint& point) {
        if (IsLine()) {
            m_dashes.Add(point);
            m_dashes.End();
        }
        m_part = (m_part + 1) % (m_pattern.size() % 2 == 0 ? m_pattern.size() : 2 * m_pattern.size());
        m_left = m_pattern[m_part % m_pattern.size()];
        if (IsLine()) m_dashes.Add(point);
    }

    std::span<const double> m_pattern;
    std::size_t m_part = 0;
    double m_left;
    CPolylines& m_dashes;
};

bool IsUsable(std::span<const double> pattern) {
    return std::all_of(pattern.begin(), pattern.end(), [](double length) { return length >= 0.0; }) &&
           std::accumulate(pattern.begin(), pattern.end(), 0.0) > 0.0;
}

void AddDashes(std::span<const CPlanePoint> points, std::span<const double> pattern, CPolylines& dashes) {
    if (points.size() < 2) return;
    if (IsUsable(pattern)) {
        CDasher(pattern, dashes).Walk(points);
        return;
    }
    for (const CPlanePoint& point : points) dashes.Add(point);
    dashes.End();
}

}  // namespace

void CPolylines::End() {
    const std::size_t start = m_ends.empty() ? 0 : m_ends.back();
    if (m_points.size() == start + 1) m_points.pop_back();
    if (m_points.size() > start) m_ends.push_back(m_points.size());
}

std::span<const CPlanePoint> CPolylines::operator[](std::size_t index) const {
    const std::size_t start = index == 0 ? 0 : m_ends[index - 1];
    return std::span(m_points).subspan(start, m_ends[index] - start);
}

CPlaneBox Intersection(const CPlaneBox& a, const CPlaneBox& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

CPolylines ClippedPolyline(std::span<const CPlanePoint> points, const CPlaneBox& box) {
    CPolylines parts;
    bool isJoined = false;
    for (std::size_t index = 1; index < points.size(); ++index) {
        const CPlanePoint& from = points[index - 1];
        const CPlanePoint& to = points[index];
        const bool isDrawn = IsFinite(from) && IsFinite(to);
        const std::optional<CSegment> segment = isDrawn ? ClippedSegment(from, to, box) : std::nullopt;
        if (!segment) {
            isJoined = false;
            continue;
        }
        if (!isJoined || !(segment->from == from)) {
            parts.End();
            parts.Add(segment->from);
        }
        parts.Add(segment->to);
        isJoined = segment->to == to;
    }
    parts.End();
    return parts;
}

CPolyline ClippedPolygon(std::span<const CPlanePoint> points, const CPlaneBox& box) {
    if (!std::all_of(points.begin(), points.end(), IsFinite)) return {};
    CPolyline polygon(points.begin(), points.end());
    for (const CBorder& border : {CBorder{&CPlanePoint::x, box.left, 1.0}, CBorder{&CPlanePoint::x, box.right, -1.0},
                                  CBorder{&CPlanePoint::y, box.top, 1.0}, CBorder{&CPlanePoint::y, box.bottom, -1.0}})
        polygon = ClippedAt(polygon, border);
    return polygon;
}

CPolylines DashedPolyline(std::span<const CPlanePoint> points, std::span<const double> pattern) {
    CPolylines dashes;
    AddDashes(points, pattern, dashes);
    return dashes;
}

CPolylines VisibleDashes(std::span<const CPlanePoint> points, const CPlaneBox& box, std::span<const double> pattern) {
    CPolylines parts = ClippedPolyline(points, box);
    if (pattern.empty()) return parts;
    double length = 0.0;
    for (std::size_t part = 0; part < parts.Count(); ++part) length += Length(parts[part]);
    const double around = box.right - box.left + box.bottom - box.top;
    if (length > kLongestDashed * around) return parts;
    CPolylines dashes;
    for (std::size_t part = 0; part < parts.Count(); ++part) AddDashes(parts[part], pattern, dashes);
    return dashes;
}
