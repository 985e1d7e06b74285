#pragma once

class QCustomPlot;
struct CPlotCurve;

/// Adds a curve to the plot, which owns it from then on and draws it with the pen it is given later.
void AddCurve(QCustomPlot& plot, const CPlotCurve& curve);
