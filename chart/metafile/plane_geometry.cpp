#include "chart/metafile/plane_geometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <optional>
#include <span>
#include <utility>
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

// Liang and Barsky, "A New Concept and Method for Line Clipping", ACM Transactions on Graphics 3 (1984).
std::optional<CSegment> ClippedSegment(const CPlanePoint& from, const CPlanePoint& to, const CPlaneBox& box) {
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

double Length(std::span<const CPlanePoint> points) {
    double length = 0.0;
    for (std::size_t index = 1; index < points.size(); ++index)
        length += std::hypot(points[index].x - points[index - 1].x, points[index].y - points[index - 1].y);
    return length;
}

/// Walks along a polyline and cuts it by the pattern.
class CDasher {
public:
    explicit CDasher(std::span<const double> pattern) : m_pattern(pattern), m_left(pattern[0]) {}

    void Start(const CPlanePoint& point) { m_dash.push_back(point); }

    void LineTo(const CPlanePoint& from, const CPlanePoint& to) {
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        double done = 0.0;
        while (length - done > m_left) {
            done += m_left;
            Turn(Between(from, to, done / length));
        }
        m_left -= length - done;
        if (IsLine()) m_dash.push_back(to);
    }

    std::vector<CPolyline> Finish() {
        Keep();
        return std::move(m_dashes);
    }

private:
    [[nodiscard]] bool IsLine() const { return m_part % 2 == 0; }

    void Turn(const CPlanePoint& point) {
        m_dash.push_back(point);
        if (IsLine()) Keep();
        m_dash.clear();
        m_part = (m_part + 1) % (m_pattern.size() % 2 == 0 ? m_pattern.size() : 2 * m_pattern.size());
        m_left = m_pattern[m_part % m_pattern.size()];
        if (IsLine()) m_dash.push_back(point);
    }

    void Keep() {
        if (m_dash.size() > 1) m_dashes.push_back(std::move(m_dash));
        m_dash = CPolyline();
    }

    std::span<const double> m_pattern;
    std::size_t m_part = 0;
    double m_left;
    CPolyline m_dash;
    std::vector<CPolyline> m_dashes;
};

}  // namespace

CPlaneBox Intersection(const CPlaneBox& a, const CPlaneBox& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

std::vector<CPolyline> ClippedPolyline(std::span<const CPlanePoint> points, const CPlaneBox& box) {
    std::vector<CPolyline> parts;
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
        if (!isJoined || !(segment->from == from)) parts.push_back({segment->from});
        parts.back().push_back(segment->to);
        isJoined = segment->to == to;
    }
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

std::vector<CPolyline> DashedPolyline(std::span<const CPlanePoint> points, std::span<const double> pattern) {
    if (points.size() < 2) return {};
    const bool isUsable = std::all_of(pattern.begin(), pattern.end(), [](double length) { return length >= 0.0; }) &&
                          std::accumulate(pattern.begin(), pattern.end(), 0.0) > 0.0;
    if (!isUsable) return {CPolyline(points.begin(), points.end())};
    CDasher dasher(pattern);
    dasher.Start(points[0]);
    for (std::size_t index = 1; index < points.size(); ++index) dasher.LineTo(points[index - 1], points[index]);
    return dasher.Finish();
}

std::vector<CPolyline> VisibleDashes(std::span<const CPlanePoint> points, const CPlaneBox& box,
                                     std::span<const double> pattern) {
    std::vector<CPolyline> parts = ClippedPolyline(points, box);
    double length = 0.0;
    for (const CPolyline& part : parts) length += Length(part);
    const double around = box.right - box.left + box.bottom - box.top;
    if (pattern.empty() || length > kLongestDashed * around) return parts;
    std::vector<CPolyline> dashes;
    for (const CPolyline& part : parts)
        for (CPolyline& dash : DashedPolyline(part, pattern)) dashes.push_back(std::move(dash));
    return dashes;
}
