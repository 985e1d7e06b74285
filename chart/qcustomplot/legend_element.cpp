#include "chart/qcustomplot/legend_element.h"

#include "chart/chart_style.h"
#include "chart/legend_layout.h"
#include "chart/messages.h"

#include <QFontMetricsF>
#include <QLineF>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace {

constexpr double kLargestLegendShare = 0.4;  // of the chart's width
constexpr double kLargestNameShare = 0.25;
constexpr double kUsualName = 16.0;     // characters
constexpr double kRowHeight = 1.1;      // in heights of the letters
constexpr double kSampleLength = 30.0;  // pixels
constexpr double kGapLength = 6.0;
constexpr double kMarginLength = 6.0;  // above and below the titles

}  // namespace

CLegendElement::CLegendElement(QCustomPlot* plot) : QCPLayoutElement(plot) {
    setLayer("legend");
}

void CLegendElement::SetEntries(std::vector<CLegendEntry> entries, const CChartStyle& style) {
    m_entries = std::move(entries);
    m_style = style;
    Scroll(0);
}

void CLegendElement::Scroll(int entries) {
    m_first = std::clamp(m_first + entries, 0, std::max(0, HiddenEntries()));
}

QString CLegendElement::NameAt(const QPointF& position) const {
    for (int place = 0; place < m_layout.shownEntries; ++place)
        if (Place(place).contains(position)) return m_entries[Index(place)].name;
    return {};
}

void CLegendElement::LayOut() {
    m_layout = CLegendLayout();  // measures at full font size
    const QFontMetricsF metrics(m_style.font);
    const double plotWidth = parentPlot()->viewport().width();
    double widest = 0.0;
    for (const CLegendEntry& entry : m_entries) widest = std::max(widest, metrics.horizontalAdvance(entry.name));
    CLegendSpace space;
    space.entryCount = static_cast<int>(m_entries.size());
    space.rowHeight = metrics.height() * kRowHeight;
    const double longestName = std::max(plotWidth * kLargestNameShare, metrics.averageCharWidth() * kUsualName);
    space.columnWidth = std::ceil(SampleWidth() + 3.0 * Gap() + std::min(widest, longestName));
    space.height = parentPlot()->viewport().height() - HeightAbove();
    space.width = plotWidth * kLargestLegendShare;
    m_layout = LayOutLegend(space);
    Scroll(0);
}

int CLegendElement::OuterWidth() const {
    return static_cast<int>(std::ceil(m_layout.columns * m_layout.columnWidth)) + margins().right();
}

void CLegendElement::update(UpdatePhase phase) {
    if (phase == upPreparation) LayOut();
    QCPLayoutElement::update(phase);
}

QSize CLegendElement::minimumOuterSizeHint() const {
    return {OuterWidth(), 0};
}

QSize CLegendElement::maximumOuterSizeHint() const {
    return {OuterWidth(), QWIDGETSIZE_MAX};
}

void CLegendElement::draw(QCPPainter* painter) {
    painter->setFont(Font());
    for (int place = 0; place < m_layout.shownEntries; ++place) DrawEntry(*painter, place);
    if (HiddenEntries() <= 0) return;
    painter->setPen(m_style.ink);
    painter->drawText(Place(m_layout.shownEntries), Qt::AlignLeft | Qt::AlignVCenter,
                      chart_message::HiddenEntries(HiddenEntries()));
}

void CLegendElement::wheelEvent(QWheelEvent* event) {
    const int degrees = event->angleDelta().y();
    if (degrees > 0) ScrollBack();
    if (degrees < 0) ScrollForward();
    event->accept();
    parentPlot()->replot(QCustomPlot::rpQueuedReplot);
}

int CLegendElement::HiddenEntries() const {
    return static_cast<int>(m_entries.size()) - m_layout.shownEntries;
}

std::size_t CLegendElement::Index(int place) const {
    return static_cast<std::size_t>(m_first) + static_cast<std::size_t>(place);
}

double CLegendElement::SampleWidth() const {
    return kSampleLength * m_style.scale * m_layout.letterScale;
}

double CLegendElement::Gap() const {
    return kGapLength * m_style.scale * m_layout.letterScale;
}

QFont CLegendElement::Font() const {
    QFont font = m_style.font;
    if (font.pixelSize() > 0) {
        font.setPixelSize(std::max(1, qRound(font.pixelSize() * m_layout.letterScale)));
    } else {
        font.setPointSizeF(font.pointSizeF() * m_layout.letterScale);
    }
    return font;
}

/// Of the titles, which occupy the rows above in the chart's layout.
double CLegendElement::HeightAbove() const {
    double height = 2.0 * m_style.Length(kMarginLength);
    QCPLayoutGrid& grid = *parentPlot()->plotLayout();
    for (int row = 0; row + 1 < grid.rowCount(); ++row)
        if (grid.hasElement(row, 0)) height += grid.element(row, 0)->minimumOuterSizeHint().height();
    return height;
}

QRectF CLegendElement::Place(int place) const {
    const double rowHeight = QFontMetricsF(Font()).height() * kRowHeight;
    const int column = place / m_layout.rows;
    const int row = place % m_layout.rows;
    return {rect().left() + column * m_layout.columnWidth, rect().top() + row * rowHeight, m_layout.columnWidth,
            rowHeight};
}

void CLegendElement::DrawEntry(QCPPainter& painter, int place) const {
    const CLegendEntry& entry = m_entries[Index(place)];
    const QRectF box = Place(place).adjusted(Gap(), 0.0, -Gap(), 0.0);
    painter.setPen(entry.pen);
    painter.drawLine(QLineF(box.left(), box.center().y(), box.left() + SampleWidth(), box.center().y()));
    painter.setPen(m_style.ink);
    const QRectF room = box.adjusted(SampleWidth() + Gap(), 0.0, 0.0, 0.0);
    const QFontMetricsF metrics(Font());
    const QString shown = metrics.horizontalAdvance(entry.name) <= room.width() + 1.0
                              ? entry.name
                              : metrics.elidedText(entry.name, Qt::ElideMiddle, room.width());
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip, shown);
}
