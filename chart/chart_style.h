#pragma once

#include <QColor>
#include <QFont>
#include <QPen>
#include <cstddef>

#include "chart/line_look.h"

class QWidget;

/// Colors, letters and proportions of one drawing of a chart.
struct CChartStyle {
    CChartBackground kind = CChartBackground::Light;
    QColor background, ink, grid;
    QFont font;
    double scale = 1.0;  ///< output units per pixel of the screen; lengths and widths are multiplied by it

    [[nodiscard]] int Length(double pixels) const;
    [[nodiscard]] QPen Pen(const QColor& color, double pixels) const;
    [[nodiscard]] QPen CurvePen(int lineStyle, std::size_t index) const;
};

/// The colors and letters of a widget: light or dark as the desktop has it.
CChartStyle ScreenStyle(const QWidget& widget);

/// Black on white, letters of 13 pixels.
CChartStyle PaperStyle(double scale);
