#pragma once

#include "chart/chart_style.h"
#include "chart/legend_layout.h"

#include <QFont>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QString>
#include <qcustomplot.h>

#include <cstddef>
#include <vector>

/// One row of the legend.
struct CLegendEntry {
    QString name;
    QPen pen;
};

/// The names next to the curves, in as many columns as they need; scrolls when they do not all fit.
class CLegendElement final : public QCPLayoutElement {
public:
    explicit CLegendElement(QCustomPlot* plot);

    void SetEntries(std::vector<CLegendEntry> entries, const CChartStyle& style);

    /// Scrolls one page of entries forward or back.
    void ScrollForward() { Scroll(m_layout.rows); }
    void ScrollBack() { Scroll(-m_layout.rows); }

    /// The full name of the entry at a point; empty outside the entries.
    [[nodiscard]] QString NameAt(const QPointF& position) const;

    /// Follows the plot's viewport.
    void LayOut();
    /// Width of the laid-out entries with the right margin.
    [[nodiscard]] int OuterWidth() const;

    void update(UpdatePhase phase) override;
    [[nodiscard]] QSize minimumOuterSizeHint() const override;
    [[nodiscard]] QSize maximumOuterSizeHint() const override;

protected:
    void draw(QCPPainter* painter) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Scroll(int entries);
    [[nodiscard]] int HiddenEntries() const;
    [[nodiscard]] std::size_t Index(int place) const;
    [[nodiscard]] double SampleWidth() const;
    [[nodiscard]] double Gap() const;
    [[nodiscard]] QFont Font() const;
    [[nodiscard]] double HeightAbove() const;
    [[nodiscard]] QRectF Place(int place) const;
    void DrawEntry(QCPPainter& painter, int place) const;

    std::vector<CLegendEntry> m_entries;
    CChartStyle m_style;
    CLegendLayout m_layout;
    int m_first = 0;  ///< index of the first entry shown
};
