#include "viewer/curve_plot.h"

#include "chart/chart_control.h"
#include "chart/chart_style.h"
#include "chart/make_chart.h"
#include "signal/column.h"
#include "signal/data.h"
#include "viewer/page.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

namespace {

constexpr double kPixelsPerInch = 96.0;  // the chart's unit for font sizes

// Of the plot; the rest is for the other axis and the legend.
constexpr double kLongestXTitle = 0.7;
constexpr double kLongestYTitle = 0.85;

QString AxisTitle(const std::string& quantity, const std::string& units) {
    if (units.empty()) return Printable(QString::fromStdString(quantity));
    return Printable(QString::fromStdString(quantity.empty() ? units : quantity + " (" + units + ")"));
}

/// The chart draws its titles in full, even past its edges.
std::string Shortened(const QString& title, double inches) {
    const QFontMetricsF letters(PaperStyle(1.0).font);
    return letters.elidedText(title, Qt::ElideRight, inches * kPixelsPerInch).toStdString();
}

CSharedValues FirstOf(const ks::CColumn& column, std::size_t count) {
    const auto kept = std::make_shared<const ks::CColumn>(column);
    return {kept, kept->Values().first(count)};
}

}  // namespace

CPage::Picture CurvePlot(const ks::CData& record, const QString& name, QSizeF size) {
    constexpr std::size_t kMostPoints = std::numeric_limits<std::int32_t>::max();
    const std::size_t points = std::min({record.GetX().size(), record.GetY().size(), kMostPoints});
    const std::shared_ptr<CChartControl> chart = MakeChartControl();
    chart->Create({});
    chart->SetInteger(CChartProperty::SeriesCount, 1);
    chart->SetInteger(CChartProperty::PointCount, static_cast<std::int32_t>(points));
    chart->ShareArray(CChartProperty::XData, FirstOf(record.GetX(), points));
    chart->ShareArray(CChartProperty::YData, FirstOf(record.GetY(), points));
    chart->SetArray(CChartProperty::Legend, Printable(name).toStdString() + '\t', 1);
    const QString xTitle = AxisTitle(record.GetXTYPE(), record.GetXUNITS());
    const QString yTitle = AxisTitle(record.GetYTYPE(), record.GetYUNITS());
    chart->SetText(CChartProperty::XTitle, Shortened(xTitle, size.width() * kLongestXTitle));
    chart->SetText(CChartProperty::YTitle, Shortened(yTitle, size.height() * kLongestYTitle));
    chart->Apply();
    return [chart](QPainter& painter, const QRectF& area) { chart->PaintOnto(painter, area); };
}
