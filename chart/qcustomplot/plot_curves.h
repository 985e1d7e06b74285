#pragma once

class QCustomPlot;
struct CPlotCurve;

/// Adds a curve to the plot, which takes ownership and draws it with the pen it gets later.
void AddCurve(QCustomPlot& plot, const CPlotCurve& curve);
