#pragma once

#include <QImage>
#include <string>

#include "chart/chart_control.h"

class CPlotWidget;
class QPainter;
class QRectF;

// The chart on paper: the part of the data that the plot on the screen shows, on white, whatever the screen's colors.

/// A picture of `size` pixels, letters in proportion to its width.
QImage PictureOf(const CPlotWidget& shown, CChartSize size);

/// The bytes of a metafile of `size` logical units, letters in proportion to its width.
std::string MetafileOf(const CPlotWidget& shown, CChartSize size);

/// What the clipboard shows beside a metafile of `size`: a picture of the same proportions.
QImage PreviewOf(const CPlotWidget& shown, CChartSize size);

/// Paints into `area` of the painter's coordinates, curves as vectors, letters as large as on the screen.
void PaintOnPaper(const CPlotWidget& shown, QPainter& painter, const QRectF& area);
