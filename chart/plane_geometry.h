#pragma once

#include <cstddef>
#include <span>
#include <vector>

struct CPlanePoint {
    double x = 0.0;
    double y = 0.0;
    bool operator==(const CPlanePoint&) const = default;
};

/// y increases downward.
struct CPlaneBox {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    bool operator==(const CPlaneBox&) const = default;
};

using CPolyline = std::vector<CPlanePoint>;

/// Polylines of at least two points one after the other in one array, so that thousands of them need no memory of
/// their own.
class CPolylines {
public:
    void Add(const CPlanePoint& point) { m_points.push_back(point); }
    /// Ends the polyline of the points added since the last end. A single point is dropped.
    void End();

    [[nodiscard]] std::size_t Count() const { return m_ends.size(); }
    [[nodiscard]] std::span<const CPlanePoint> operator[](std::size_t index) const;

private:
    std::vector<CPlanePoint> m_points;
    std::vector<std::size_t> m_ends;
};

/// Turned inside out, with `left` > `right` or `top` > `bottom`, where the boxes do not meet: nothing lies in it.
CPlaneBox Intersection(const CPlaneBox& a, const CPlaneBox& b);

/// The parts of a polyline that lie in the box, in order. A point that is not finite ends a part.
CPolylines ClippedPolyline(std::span<const CPlanePoint> points, const CPlaneBox& box);

/// The part of a filled polygon that lies in the box; empty when nothing is left. The last point is joined to the
/// first.
CPolyline ClippedPolygon(std::span<const CPlanePoint> points, const CPlaneBox& box);

/// The dashes of a polyline. `pattern` holds lengths of line and blank in turn, starting with line; an empty pattern,
/// and one whose lengths do not add up to more than 0, gives the polyline itself.
CPolylines DashedPolyline(std::span<const CPlanePoint> points, std::span<const double> pattern);

/// The part of a dashed line to draw: its dashes inside the box. If a line winds through the box so often that its
/// dashes could not be distinguished, the line itself.
CPolylines VisibleDashes(std::span<const CPlanePoint> points, const CPlaneBox& box, std::span<const double> pattern);
