#pragma once

#include "signal/data.h"
#include "viewer/page.h"

#include <QSizeF>
#include <QString>

/// A plot of the record's curve: Y over X with quantities and units on the axes, on white, as vectors. Needs a
/// QApplication. The picture holds the points it needs.
/// @param name  of the curve, in the plot's legend
/// @param size  of the plot on paper, inches: axis titles too long for it are shortened
CPage::Picture CurvePlot(const ks::CData& record, const QString& name, QSizeF size);
