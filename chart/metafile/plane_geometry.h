#pragma once

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

/// Turned inside out, with `left` > `right` or `top` > `bottom`, where the boxes do not meet: nothing lies in it.
CPlaneBox Intersection(const CPlaneBox& a, const CPlaneBox& b);

/// The parts of a polyline that lie in the box, in order. A point that is not finite ends a part.
std::vector<CPolyline> ClippedPolyline(std::span<const CPlanePoint> points, const CPlaneBox& box);

/// The part of a filled polygon that lies in the box; empty when nothing is left. The last point is joined to the
/// first.
CPolyline ClippedPolygon(std::span<const CPlanePoint> points, const CPlaneBox& box);

/// The dashes of a polyline. `pattern` holds lengths of line and blank in turn, starting with line; an empty pattern,
/// and one whose lengths do not add up to more than 0, gives the polyline itself.
std::vector<CPolyline> DashedPolyline(std::span<const CPlanePoint> points, std::span<const double> pattern);

/// The part of a dashed line to draw: its dashes inside the box. If a line winds through the box so often that its
/// dashes could not be distinguished, the line itself.
std::vector<CPolyline> VisibleDashes(std::span<const CPlanePoint> points, const CPlaneBox& box,
                                     std::span<const double> pattern);
