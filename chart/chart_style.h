#pragma once

#include "chart/line_look.h"

#include <QColor>
#include <QFont>
#include <QPen>

#include <cstddef>

class QWidget;

/// Colors, font, and proportions of one drawing of a chart.
struct CChartStyle {
    CChartBackground kind = CChartBackground::Light;
    QColor background, ink, grid;
    QFont font;
    double scale = 1.0;  ///< output units per pixel of the screen; lengths and widths are multiplied by it

    [[nodiscard]] int Length(double pixels) const;
    [[nodiscard]] QPen Pen(const QColor& color, double pixels) const;
    [[nodiscard]] QPen CurvePen(int lineStyle, std::size_t index) const;
};

/// The colors and font of a widget: light or dark like the desktop.
CChartStyle ScreenStyle(const QWidget& widget);

/// Black on white, with a 13-pixel font.
CChartStyle PaperStyle(double scale);
