#include "chart/qcustomplot/plot_axes.h"

#include "chart/chart_style.h"
#include "chart/messages.h"
#include "chart/qcustomplot/plot_contents.h"
#include "chart/view_range.h"

#include <QFontMetricsF>
#include <QLocale>
#include <qcustomplot.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kMostXTicks = 7;
constexpr int kMostYTicks = 8;
constexpr double kWheelZoom = 0.8;

CViewRange RangeOf(const QCPRange& range) {
    return {range.lower, range.upper};
}

QCPRange RangeOf(const CViewRange& range) {
    return {range.lower, range.upper};
}

int FittingTicks(double room, double label, int most) {
    return std::clamp(static_cast<int>(room / label), 2, most);
}

}  // namespace

CPlotAxes::CPlotAxes(QCustomPlot& plot) : m_plot(plot) {
    QLocale numbers = QLocale::c();  // as in tables, dialogs and reports, and the same on every machine
    numbers.setNumberOptions(QLocale::OmitGroupSeparator);
    plot.setLocale(numbers);
    plot.axisRect()->setupFullAxesBox(true);
    plot.xAxis2->setTicker(plot.xAxis->ticker());
    plot.yAxis2->setTicker(plot.yAxis->ticker());
    plot.axisRect()->setRangeZoomFactor(kWheelZoom, kWheelZoom);
    for (QCPAxis* axis : {plot.xAxis, plot.yAxis}) SetUp(*axis);
}

void CPlotAxes::SetUp(QCPAxis& axis) {
    axis.setNumberFormat("gbc");
    QObject::connect(&axis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), &m_plot,
                     [this, &axis](const QCPRange& range) { LimitRange(axis, range); });
}

void CPlotAxes::SetContents(const CPlotContents& contents) {
    m_plot.xAxis->setLabel(contents.xTitle);
    m_plot.yAxis->setLabel(contents.yTitle);
    m_home = CHome{contents.xHome, contents.yHome};
    ShowAll();
}

void CPlotAxes::SetStyle(const CChartStyle& style) {
    m_style = style;
    for (QCPAxis* axis : m_plot.axisRect()->axes()) StyleAxis(*axis);
    const int edge = style.Length(6);
    m_plot.axisRect()->setMargins(QMargins(edge, edge, edge, edge));
    m_plot.axisRect()->setMinimumMargins(QMargins(edge, style.Length(10), style.Length(16), edge));
}

void CPlotAxes::StyleAxis(QCPAxis& axis) const {
    const CChartStyle& style = m_style;
    axis.setBasePen(style.Pen(style.ink, 1.0));
    axis.setTickPen(style.Pen(style.ink, 1.0));
    axis.setSubTickPen(style.Pen(style.ink, 1.0));
    axis.setTickLength(style.Length(5));
    axis.setSubTickLength(style.Length(2));
    axis.setTickLabelPadding(style.Length(5));
    axis.setLabelPadding(style.Length(5));
    axis.setTickLabelFont(style.font);
    axis.setLabelFont(style.font);
    axis.setTickLabelColor(style.ink);
    axis.setLabelColor(style.ink);
    axis.grid()->setPen(style.Pen(style.grid, 1.0));
    axis.grid()->setZeroLinePen(style.Pen(style.grid, 2.0));
}

void CPlotAxes::FitTicks(double legendWidth) {
    const QFontMetricsF metrics(m_style.font);
    const double margins = metrics.height() * 2.0 + LabelWidth(*m_plot.yAxis, metrics);
    const double width = m_plot.viewport().width() - legendWidth - margins;
    const double height = m_plot.viewport().height() - metrics.height() * 4.0;
    const double xLabel = 2.0 * LabelWidth(*m_plot.xAxis, metrics);
    m_plot.xAxis->ticker()->setTickCount(FittingTicks(width, xLabel, kMostXTicks));
    m_plot.yAxis->ticker()->setTickCount(FittingTicks(height, 3.0 * metrics.height(), kMostYTicks));
}

double CPlotAxes::LabelWidth(const QCPAxis& axis, const QFontMetricsF& metrics) const {
    const CViewRange range = RangeOf(axis.range());
    const double step = std::pow(10.0, std::floor(std::log10(range.Size() / 5.0)));
    double widest = metrics.horizontalAdvance(QStringLiteral("-0.00"));
    for (const double end : {range.lower, range.upper}) {
        const QString label = m_plot.locale().toString(std::round(end / step) * step, 'g', LabelDigits(range));
        widest = std::max(widest, metrics.horizontalAdvance(label));
    }
    return widest;
}

void CPlotAxes::ShowAll() {
    if (!m_home) return;
    m_plot.xAxis->setRange(RangeOf(m_home->x));
    m_plot.yAxis->setRange(RangeOf(m_home->y));
}

void CPlotAxes::ShowSameAs(const CPlotAxes& other) {
    m_plot.xAxis->setRange(other.m_plot.xAxis->range());
    m_plot.yAxis->setRange(other.m_plot.yAxis->range());
}

void CPlotAxes::ZoomBy(double factor) {
    for (QCPAxis* axis : {m_plot.xAxis, m_plot.yAxis})
        axis->setRange(RangeOf(Zoomed(RangeOf(axis->range()), axis->range().center(), factor)));
}

void CPlotAxes::PanBy(double xShare, double yShare) {
    m_plot.xAxis->setRange(RangeOf(Panned(RangeOf(m_plot.xAxis->range()), xShare)));
    m_plot.yAxis->setRange(RangeOf(Panned(RangeOf(m_plot.yAxis->range()), yShare)));
}

void CPlotAxes::LimitRange(QCPAxis& axis, const QCPRange& range) {
    if (!m_home) return;
    const CViewRange wanted = RangeOf(range);
    const CViewRange limited = Limited(wanted, &axis == m_plot.xAxis ? m_home->x : m_home->y);
    axis.setNumberPrecision(LabelDigits(limited));
    if (!(limited == wanted)) axis.setRange(RangeOf(limited));
}

QString CPlotAxes::ReadoutAt(const QPointF& position) const {
    if (!m_plot.axisRect()->rect().contains(position.toPoint())) return {};
    return chart_message::Readout(NumberAt(*m_plot.xAxis, position.x()), NumberAt(*m_plot.yAxis, position.y()));
}

QString CPlotAxes::NumberAt(const QCPAxis& axis, double pixel) const {
    return m_plot.locale().toString(axis.pixelToCoord(pixel), 'g', LabelDigits(RangeOf(axis.range())));
}
