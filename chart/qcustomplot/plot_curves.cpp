#include "chart/qcustomplot/plot_curves.h"

#include "chart/curve_points.h"
#include "chart/plane_geometry.h"
#include "chart/qcustomplot/plot_contents.h"
#include "chart/view_range.h"
#include "chart/visible_curve.h"

#include <QLineF>
#include <QList>
#include <QPen>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <qcustomplot.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace {

constexpr double kDiscSize = 6.0;   // pixels, of a curve that is one point
constexpr double kTolerance = 0.1;  // pixels that a line on the screen may be off; a tenth of a shade

CAxisView ViewOf(const QCPAxis& axis) {
    const QCPRange range = axis.range();
    return {range.lower, range.upper, axis.coordToPixel(range.lower), axis.coordToPixel(range.upper)};
}

QPointF PointOf(const CPlanePoint& point) {
    return {point.x, point.y};
}

void AddLines(std::span<const CPlanePoint> points, QList<QLineF>& lines) {
    for (std::size_t index = 1; index < points.size(); ++index)
        lines.append(QLineF(PointOf(points[index - 1]), PointOf(points[index])));
}

/// One curve, drawn from the points that the chart was given.
class CCurveLine : public QCPAbstractPlottable {
public:
    CCurveLine(QCustomPlot& plot, std::shared_ptr<const CCurvePoints> points)
        : QCPAbstractPlottable(plot.xAxis, plot.yAxis), m_points(std::move(points)) {}

    double selectTest(const QPointF& /*pos*/, bool /*onlySelectable*/, QVariant* /*details*/) const override {
        return -1.0;  // curves cannot be selected
    }
    QCPRange getKeyRange(bool& foundRange, QCP::SignDomain /*inSignDomain*/) const override {
        return Found(m_points->XRange(), foundRange);
    }
    QCPRange getValueRange(bool& foundRange, QCP::SignDomain /*inSignDomain*/,
                           const QCPRange& /*inKeyRange*/) const override {
        return Found(m_points->YRange(), foundRange);
    }

protected:
    void draw(QCPPainter* painter) override {
        applyDefaultAntialiasingHint(painter);
        painter->setPen(mPen);
        painter->setBrush(Qt::NoBrush);
        if (m_points->IsOnePoint()) DrawDisc(*painter);
        const CPolylines polylines = Visible();
        const bool isVectors = painter->modes().testFlag(QCPPainter::pmVectorized);
        const bool isPaper = painter->modes().testFlag(QCPPainter::pmNoCaching);
        if (isVectors || (isPaper && mPen.style() == Qt::SolidLine)) {
            DrawPolylines(*painter, polylines);
        } else {
            DrawLines(*painter, polylines);
        }
    }
    void drawLegendIcon(QCPPainter* /*painter*/, const QRectF& /*rect*/) const override {}  // the legend is ours

private:
    static QCPRange Found(const CDataRange& range, bool& foundRange) {
        foundRange = range.HasValues();
        return {range.Range().lower, range.Range().upper};
    }

    /// Lines that begin or end this far outside are seen inside.
    [[nodiscard]] double Reach() const { return mPen.widthF(); }

    [[nodiscard]] CPolylines Visible() const {
        CCurveView view;
        view.x = ViewOf(*mKeyAxis);
        view.y = ViewOf(*mValueAxis);
        view.left = clipRect().left() - Reach();
        view.right = clipRect().left() + clipRect().width() + Reach();
        view.columnWidth = 1.0 / std::max(1.0, mParentPlot->bufferDevicePixelRatio());
        CPolylines polylines;
        AddVisibleCurve(*m_points, view, polylines);
        return polylines;
    }

    void DrawDisc(QCPPainter& painter) const {
        const std::size_t point = m_points->Runs()[0].first;
        QCPScatterStyle disc(QCPScatterStyle::ssDisc, kDiscSize);
        disc.applyTo(&painter, mPen);
        disc.drawShape(&painter, coordsToPixels(m_points->X()[point], m_points->Y()[point]));
    }

    static void DrawPolylines(QCPPainter& painter, const CPolylines& polylines) {
        QPolygonF points;
        for (std::size_t index = 0; index < polylines.Count(); ++index) {
            points.clear();
            for (const CPlanePoint& point : polylines[index]) points.append(PointOf(point));
            painter.drawPolyline(points);
        }
    }

    /// Line by line, which on the screen is many times faster than a long polyline, and than a dashed pen.
    void DrawLines(QCPPainter& painter, const CPolylines& polylines) const {
        std::vector<double> pattern;
        for (const double length : mPen.dashPattern()) pattern.push_back(length * mPen.widthF());
        const double reach = pattern.empty() ? Reach() : 0.0;  // dashes begin at the frame
        const QRectF clip = QRectF(clipRect()).adjusted(-reach, -reach, reach, reach);
        const CPlaneBox box{clip.left(), clip.top(), clip.right(), clip.bottom()};
        QList<QLineF> lines;
        for (std::size_t index = 0; index < polylines.Count(); ++index) {
            const CPolylines dashes = VisibleDashes(Thinned(polylines[index]), box, pattern);
            for (std::size_t dash = 0; dash < dashes.Count(); ++dash) AddLines(dashes[dash], lines);
        }
        QPen pen = mPen;
        pen.setStyle(Qt::SolidLine);
        painter.setPen(pen);
        painter.drawLines(lines);
    }

    [[nodiscard]] std::vector<CPlanePoint> Thinned(std::span<const CPlanePoint> points) const {
        if (!m_points->Rises()) return {points.begin(), points.end()};
        return ThinnedPolyline(points, kTolerance);
    }

    std::shared_ptr<const CCurvePoints> m_points;
};

}  // namespace

void AddCurve(QCustomPlot& plot, const CPlotCurve& curve) {
    new CCurveLine(plot, curve.points);  // the plot owns it
}
