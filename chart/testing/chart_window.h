#pragma once

#include "chart/chart_control.h"
#include "chart/line_look.h"
#include "chart/testing/sample_blocks.h"

#include <QImage>
#include <QObject>
#include <QPointF>
#include <QRect>
#include <QRgb>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <cstddef>
#include <cstdint>
#include <memory>

inline constexpr CChartSize kWindow{800, 500};
inline constexpr QPointF kMiddle(300, 250);
inline constexpr QRect kInsideFrame(100, 20, 500, 440);  // for any width of names and labels

/// Series s, from 0 on, is the line y = s + 1 over x from 5 to 6.
CSamplePage FlatPage(std::int32_t seriesCount);

/// The color of the series when all lines are thick.
QRgb SeriesColor(std::size_t series, CChartBackground background = CChartBackground::Light);

/// The box around all pixels of exactly one color.
QRect BoxOfColor(const QImage& image, QRgb color, const QRect& part);

bool IsNear(double actual, double expected, double tolerance);

/// Records the context menu events that a chart passes on.
class CParentWindow : public QWidget {
public:
    int contextMenus = 0;

protected:
    void contextMenuEvent(QContextMenuEvent*) override { ++contextMenus; }
};

/// Base of the tests of the chart on the screen: a light window with a chart, mouse and wheel input, and access to
/// pixels and the readout.
class CChartWindowTest : public QObject {
protected:
    CChartWindowTest();
    ~CChartWindowTest() override;

    void Show(const CSamplePage& page);
    void ShowThick(CSamplePage page);
    /// Recreates the chart with another page.
    void ShowAgain(const CSamplePage& page);
    void Close();

    [[nodiscard]] QWidget& Plot() const;
    [[nodiscard]] QImage Picture() const;
    /// Left of the legend, whose samples have the curves' colors as well.
    [[nodiscard]] static QRect CurveArea() { return {0, 0, 640, kWindow.height}; }

    void Move(const QPointF& to, Qt::MouseButtons buttons = Qt::NoButton);
    void Wheel(int clicks, const QPointF& at);
    void DoubleClick();

    QString ReadoutAt(const QPointF& place);
    /// The data coordinates under a place of the window.
    QPointF DataAt(const QPointF& place);
    /// Data per pixel in both directions.
    QPointF Resolution();
    QPointF PlaceOf(const QPointF& data);
    /// The whole of FlatPage is shown: x from 5 to 6 and y with its margin.
    void CheckAllShown();

    QStringList m_readouts;  ///< all that the chart reported
    std::unique_ptr<CParentWindow> m_window;
    std::unique_ptr<CChartControl> m_chart;
};
