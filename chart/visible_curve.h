#pragma once

#include "chart/plane_geometry.h"

#include <span>

class CCurvePoints;

/// How an axis turns values into pixels: `lower` lies at `lowerPixel`, `upper` at `upperPixel`.
struct CAxisView {
    double lower = 0.0;
    double upper = 1.0;
    double lowerPixel = 0.0;
    double upperPixel = 1.0;

    [[nodiscard]] double PixelOf(double value) const {
        return lowerPixel + (value - lower) / (upper - lower) * (upperPixel - lowerPixel);
    }
};

/// The part of the plane that is drawn.
struct CCurveView {
    CAxisView x, y;
    double left = 0.0;         ///< pixels; nothing left of it is seen
    double right = 0.0;        ///< nor from here on
    double columnWidth = 1.0;  ///< the finest detail of the device, pixels
};

/// The polylines to draw for the part of a curve that a view shows, in pixels: one for every run of points, and the
/// lines that enter and leave the view with the points they come from.
///
/// Of a curve whose x never falls, the points of a pixel column are replaced by the first, the lowest, the highest,
/// and the last of them where there are more than four; a gap within such a column is not seen. So the cost follows
/// the number of columns, and no extreme is lost. The x axis must increase to the right.
///
/// Of any other curve, points less than a quarter of a column from the one before are left out.
void AddVisibleCurve(const CCurvePoints& curve, const CCurveView& view, CPolylines& polylines);

/// The polyline without the points that the lines between the others pass at a vertical distance of at most
/// `tolerance`. x must not decrease.
CPolyline ThinnedPolyline(std::span<const CPlanePoint> points, double tolerance);
