#pragma once

#include "chart/chart_style.h"
#include "chart/view_range.h"

#include <QPointF>
#include <QString>

#include <optional>

class QCPAxis;
class QCPRange;
class QCustomPlot;
class QFontMetricsF;
struct CPlotContents;

/// The axes of one plot with their grid: how they look, how many ticks fit, which part of the data they show, and the
/// readout of the data coordinates under the pointer. Ranges never get finer than doubles can resolve and never lose
/// the data. Must not outlive the plot.
class CPlotAxes {
public:
    explicit CPlotAxes(QCustomPlot& plot);

    /// Sets the titles and the ranges that show all the data, and shows these ranges.
    void SetContents(const CPlotContents& contents);
    void SetStyle(const CChartStyle& style);
    /// As many tick labels as fit side by side with room between them; the legend takes `legendWidth` of the viewport.
    void FitTicks(double legendWidth);

    void ShowAll();
    void ShowSameAs(const CPlotAxes& other);
    /// `factor` < 1 shows less, > 1 more; the center stays where it is.
    void ZoomBy(double factor);
    /// Moves both ranges by a share of their sizes.
    void PanBy(double xShare, double yShare);

    /// Empty outside the curves' area.
    [[nodiscard]] QString ReadoutAt(const QPointF& position) const;

private:
    struct CHome {
        CViewRange x, y;
    };

    void SetUp(QCPAxis& axis);
    void LimitRange(QCPAxis& axis, const QCPRange& range);
    void StyleAxis(QCPAxis& axis) const;
    [[nodiscard]] double LabelWidth(const QCPAxis& axis, const QFontMetricsF& metrics) const;
    [[nodiscard]] QString NumberAt(const QCPAxis& axis, double pixel) const;

    QCustomPlot& m_plot;
    CChartStyle m_style;
    std::optional<CHome> m_home;  ///< none before the first contents
};
