#include "chart/qcustomplot/plot_widget.h"

#include "chart/chart_control.h"
#include "chart/chart_style.h"
#include "chart/messages.h"
#include "chart/qcustomplot/legend_element.h"
#include "chart/qcustomplot/plot_contents.h"
#include "chart/qcustomplot/plot_curves.h"

#include <QEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QRegion>
#include <QStringList>
#include <QToolTip>

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace {

constexpr double kKeyZoom = 0.8;
constexpr double kKeyPan = 0.1;

}  // namespace

CPlotWidget::CPlotWidget(QWidget* parent, ShowReadout showReadout)
    : QCustomPlot(parent), m_showReadout(std::move(showReadout)), m_axes(*this), m_legend(new CLegendElement(this)) {
    setObjectName("chart");
    setAccessibleName(chart_message::kChart);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoMousePropagation, false);  // the context menu is the parent's
    setPlottingHints(QCP::phFastPolylines);
    setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    connect(this, &QCustomPlot::beforeReplot, this, [this] { FitTicks(); });
    plotLayout()->addElement(0, 1, m_legend);
    plotLayout()->setColumnStretchFactor(1, 0.001);
}

void CPlotWidget::SetContents(std::shared_ptr<const CPlotContents> contents) {
    m_contents = std::move(contents);
    clearPlottables();
    for (const CPlotCurve& curve : m_contents->curves) AddCurve(*this, curve);
    SetTitles();
    setAccessibleDescription(Description());
    m_axes.SetContents(*m_contents);
}

void CPlotWidget::SetTitles() {
    for (QCPTextElement* title : m_titles) plotLayout()->remove(title);
    m_titles.clear();
    plotLayout()->simplify();
    for (const QString& text : {m_contents->subTitle, m_contents->mainTitle}) {
        if (text.isEmpty()) continue;
        plotLayout()->insertRow(0);
        m_titles.insert(m_titles.begin(), new QCPTextElement(this, text));
        plotLayout()->addElement(0, 0, m_titles.front());
    }
}

QString CPlotWidget::Description() const {
    QStringList names;
    for (const CPlotCurve& curve : m_contents->curves) names += curve.name;
    return chart_message::Description(m_contents->yTitle, m_contents->xTitle, names);
}

void CPlotWidget::SetStyle(const CChartStyle& style) {
    m_style = style;
    setBackground(QBrush(style.background));
    plotLayout()->setColumnSpacing(0);
    plotLayout()->setRowSpacing(style.Length(2));
    m_axes.SetStyle(style);
    m_legend->setMargins(QMargins(0, style.Length(10), style.Length(6), 0));
    StyleCurves();
    StyleTitles();
}

void CPlotWidget::StyleCurves() {
    std::vector<CLegendEntry> entries;
    for (int index = 0; index < plottableCount(); ++index) {
        const auto series = static_cast<std::size_t>(index);
        const CPlotCurve& curve = m_contents->curves[series];
        entries.push_back({curve.name, m_style.CurvePen(curve.lineStyle, series)});
        plottable(index)->setPen(entries.back().pen);
    }
    m_legend->SetEntries(std::move(entries), m_style);
}

void CPlotWidget::StyleTitles() {
    for (QCPTextElement* title : m_titles) {
        title->setTextColor(m_style.ink);
        QFont font = m_style.font;
        font.setBold(title == m_titles.front());
        title->setFont(font);
    }
}

void CPlotWidget::ShowSameAs(const CPlotWidget& other) {
    m_axes.ShowSameAs(other.m_axes);
}

void CPlotWidget::FitTicks() {
    m_legend->LayOut();
    m_axes.FitTicks(m_legend->OuterWidth());
}

void CPlotWidget::PaintInto(QPaintDevice& device, CChartSize size, QCPPainter::PainterModes modes) {
    setViewport(QRect(0, 0, size.width, size.height));
    FitTicks();
    QCPPainter painter(&device);
    painter.setModes(modes);
    toPainter(&painter, size.width, size.height);
}

void CPlotWidget::changeEvent(QEvent* event) {
    QCustomPlot::changeEvent(event);
    const bool looksDifferent = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
                                event->type() == QEvent::StyleChange;
    if (!looksDifferent || !parentWidget()) return;
    SetStyle(ScreenStyle(*this));
    replot(rpQueuedReplot);
}

void CPlotWidget::keyPressEvent(QKeyEvent* event) {
    if (ObeyKey(event->key())) {
        replot(rpQueuedReplot);
    } else {
        QCustomPlot::keyPressEvent(event);
    }
}

/// False for a key that does nothing here.
bool CPlotWidget::ObeyKey(int key) {
    switch (key) {
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            m_axes.ZoomBy(kKeyZoom);
            return true;
        case Qt::Key_Minus:
            m_axes.ZoomBy(1.0 / kKeyZoom);
            return true;
        case Qt::Key_Left:
            m_axes.PanBy(-kKeyPan, 0.0);
            return true;
        case Qt::Key_Right:
            m_axes.PanBy(kKeyPan, 0.0);
            return true;
        case Qt::Key_Down:
            m_axes.PanBy(0.0, -kKeyPan);
            return true;
        case Qt::Key_Up:
            m_axes.PanBy(0.0, kKeyPan);
            return true;
        case Qt::Key_0:
        case Qt::Key_Home:
            m_axes.ShowAll();
            return true;
        case Qt::Key_PageDown:
            m_legend->ScrollForward();
            return true;
        case Qt::Key_PageUp:
            m_legend->ScrollBack();
            return true;
        default:
            return false;
    }
}

void CPlotWidget::mouseMoveEvent(QMouseEvent* event) {
    QCustomPlot::mouseMoveEvent(event);
    if (m_showReadout) m_showReadout(m_axes.ReadoutAt(event->position()));
}

void CPlotWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    QCustomPlot::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton) return;
    m_axes.ShowAll();
    replot(rpQueuedReplot);
}

void CPlotWidget::leaveEvent(QEvent* event) {
    QCustomPlot::leaveEvent(event);
    if (m_showReadout) m_showReadout({});
}

bool CPlotWidget::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QCustomPlot::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), m_legend->NameAt(help->pos()), this);
    return true;
}

void CPlotWidget::paintEvent(QPaintEvent* event) {
    QCustomPlot::paintEvent(event);
    if (!hasFocus()) return;
    // Not the style's focus frame: some styles fill its inside with a tint.
    QPainter painter(this);
    for (const QRect& edge : QRegion(rect()) - QRegion(rect().adjusted(1, 1, -1, -1)))
        painter.fillRect(edge, palette().highlight());
}
