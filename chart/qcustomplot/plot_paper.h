#pragma once

#include "chart/chart_control.h"

#include <QImage>

#include <string>

class CPlotWidget;
class QPainter;
class QRectF;

// The chart on paper: the part of the data that the plot on the screen shows, always on white.

/// A picture of `size` pixels, with text in proportion to its width.
QImage PictureOf(const CPlotWidget& shown, CChartSize size);

/// The bytes of a metafile of `size` logical units, with text in proportion to its width.
std::string MetafileOf(const CPlotWidget& shown, CChartSize size);

/// The clipboard's picture next to a metafile of `size`, with the same proportions.
QImage PreviewOf(const CPlotWidget& shown, CChartSize size);

/// Paints into `area` of the painter's coordinates, curves as vectors, text as large as on the screen.
void PaintOnPaper(const CPlotWidget& shown, QPainter& painter, const QRectF& area);
