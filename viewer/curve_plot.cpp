#include "viewer/curve_plot.h"

#include <QPainter>
#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <string>

#include "chart/qcustomplot_chart.h"

namespace {

std::string AxisTitle(const std::string& quantity, const std::string& units) {
    if (units.empty()) return quantity;
    return quantity.empty() ? units : quantity + " (" + units + ")";
}

}  // namespace

CPage::Picture CurvePlot(const ks::CData& record, const QString& name) {
    constexpr std::size_t kMostPoints = std::numeric_limits<std::int32_t>::max();
    const std::size_t points = std::min({record.GetX().size(), record.GetY().size(), kMostPoints});
    const auto chart = std::make_shared<CQCustomPlotChart>();
    chart->Create({});
    chart->SetInteger(ChartProperty::SeriesCount, 1);
    chart->SetInteger(ChartProperty::PointCount, static_cast<std::int32_t>(points));
    chart->SetArray(ChartProperty::XData, std::span(record.GetX()).first(points));
    chart->SetArray(ChartProperty::YData, std::span(record.GetY()).first(points));
    chart->SetArray(ChartProperty::Legend, name.toStdString() + '\t', 1);
    chart->SetText(ChartProperty::XTitle, AxisTitle(record.GetXTYPE(), record.GetXUNITS()));
    chart->SetText(ChartProperty::YTitle, AxisTitle(record.GetYTYPE(), record.GetYUNITS()));
    chart->Apply();
    return [chart](QPainter& painter, const QRectF& area) { chart->PaintOnto(painter, area); };
}
