#pragma once

#include "chart/chart_control.h"
#include "chart/chart_style.h"
#include "chart/qcustomplot/plot_axes.h"

#include <QString>
#include <qcustomplot.h>

#include <functional>
#include <memory>
#include <vector>

class CLegendElement;
struct CPlotContents;

/// The plot itself: on the screen, or never shown and painted onto something else. Handles the wheel, the mouse, and
/// the keys; everything else it shows comes through SetContents and SetStyle.
class CPlotWidget final : public QCustomPlot {
public:
    using ShowReadout = std::function<void(const QString& text)>;

    /// @param showReadout  gets the data coordinates under the pointer, empty when it leaves the curves' area; may be
    ///                     empty
    explicit CPlotWidget(QWidget* parent, ShowReadout showReadout = {});

    /// SetStyle must follow: new curves have no pens yet.
    void SetContents(std::shared_ptr<const CPlotContents> contents);
    [[nodiscard]] const std::shared_ptr<const CPlotContents>& Contents() const { return m_contents; }
    void SetStyle(const CChartStyle& style);
    void ShowSameAs(const CPlotWidget& other);

    void PaintInto(QPaintDevice& device, CChartSize size, QCPPainter::PainterModes modes);

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void SetTitles();
    void StyleTitles();
    void StyleCurves();
    void FitTicks();
    bool ObeyKey(int key);
    [[nodiscard]] QString Description() const;

    ShowReadout m_showReadout;
    std::shared_ptr<const CPlotContents> m_contents;
    CChartStyle m_style;
    CPlotAxes m_axes;
    CLegendElement* m_legend;  ///< the layout owns it and the titles
    std::vector<QCPTextElement*> m_titles;
};
