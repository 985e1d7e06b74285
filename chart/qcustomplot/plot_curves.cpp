#include "chart/qcustomplot/plot_curves.h"

#include "chart/metafile/plane_geometry.h"
#include "chart/qcustomplot/plot_contents.h"

#include <QLineF>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <qcustomplot.h>

#include <cstddef>
#include <vector>

namespace {

constexpr double kDiscSize = 6.0;  // pixels, of a curve that is one point

/// Draws dashes line by line, which on the screen is many times faster than a dashed pen on a long curve.
class CDashedGraph : public QCPGraph {
public:
    using QCPGraph::QCPGraph;

protected:
    void drawLinePlot(QCPPainter* painter, const QVector<QPointF>& lines) const override {
        if (mPen.style() == Qt::SolidLine || painter->modes().testFlag(QCPPainter::pmVectorized)) {
            QCPGraph::drawLinePlot(painter, lines);
            return;
        }
        std::vector<CPlanePoint> points;
        points.reserve(static_cast<std::size_t>(lines.size()));
        for (const QPointF& point : lines) points.push_back({point.x(), point.y()});
        std::vector<double> pattern;
        for (const double length : mPen.dashPattern()) pattern.push_back(length * mPen.widthF());
        QPen pen = mPen;
        pen.setStyle(Qt::SolidLine);
        painter->setPen(pen);
        applyDefaultAntialiasingHint(painter);
        const QRectF clip(clipRect());
        const CPlaneBox box{clip.left(), clip.top(), clip.right(), clip.bottom()};
        for (const CPolyline& dash : VisibleDashes(points, box, pattern)) {
            for (std::size_t index = 1; index < dash.size(); ++index)
                painter->drawLine(QLineF(dash[index - 1].x, dash[index - 1].y, dash[index].x, dash[index].y));
        }
    }
};

}  // namespace

void AddCurve(QCustomPlot& plot, const CPlotCurve& curve) {
    if (curve.byX) {
        auto* const graph = new CDashedGraph(plot.xAxis, plot.yAxis);  // the plot owns it
        graph->setData(curve.byX);
        if (curve.isOnePoint) graph->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, kDiscSize));
        return;
    }
    auto* const drawn = new QCPCurve(plot.xAxis, plot.yAxis);  // the plot owns it
    drawn->setData(curve.byOrder);
}
