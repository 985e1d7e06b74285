#include "chart/qcustomplot/plot_contents.h"

#include "chart/chart_model.h"
#include "chart/messages.h"
#include "chart/view_range.h"

#include <QList>

#include <cmath>
#include <cstddef>
#include <memory>
#include <string>

namespace {

constexpr double kXMargin = 0.0;
constexpr double kYMargin = 0.05;

QString Text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QString NameOf(const CChartModel& model, std::size_t series) {
    const std::string name = model.Name(series);
    return name.empty() ? chart_message::UnnamedCurve(series) : Text(name);
}

QSharedPointer<QCPCurveDataContainer> InOrder(const QVector<QCPGraphData>& points) {
    QVector<QCPCurveData> inOrder;
    inOrder.reserve(points.size());
    for (const QCPGraphData& point : points)
        inOrder.append(QCPCurveData(static_cast<double>(inOrder.size()), point.key, point.value));
    auto container = QSharedPointer<QCPCurveDataContainer>::create();
    container->set(inOrder, true);
    return container;
}

CPlotCurve Curve(const CChartModel& model, std::size_t series, CDataRange& xRange, CDataRange& yRange) {
    QVector<QCPGraphData> points;
    points.reserve(static_cast<qsizetype>(model.X(series).size()));
    bool rises = true;
    model.ForEachPoint(series, [&](double x, double y) {
        rises = rises && (points.isEmpty() || points.back().key <= x);
        points.append(QCPGraphData(x, y));
        xRange.Add(x);
        if (!std::isnan(y)) yRange.Add(y);
    });

    CPlotCurve curve;
    curve.name = NameOf(model, series);
    curve.lineStyle = model.LineStyle(series);
    curve.isOnePoint = points.size() == 1;
    if (rises) {
        curve.byX = QSharedPointer<QCPGraphDataContainer>::create();
        curve.byX->set(points, true);
    } else {
        curve.byOrder = InOrder(points);
    }
    return curve;
}

}  // namespace

std::shared_ptr<const CPlotContents> ContentsOf(const CChartModel& model) {
    auto contents = std::make_shared<CPlotContents>();
    CDataRange xRange;
    CDataRange yRange;
    for (std::size_t series = 0; series < model.SeriesCount(); ++series)
        contents->curves.push_back(Curve(model, series, xRange, yRange));
    contents->xHome = RangeToShow(xRange, kXMargin);
    contents->yHome = RangeToShow(yRange, kYMargin);
    contents->xTitle = Text(model.XTitle());
    contents->yTitle = Text(model.YTitle());
    contents->mainTitle = Text(model.MainTitle());
    contents->subTitle = Text(model.SubTitle());
    return contents;
}
