#pragma once

#include <QString>

#include "signal/data.h"
#include "viewer/page.h"

/// A plot of the record's curve: Y over X with quantities and units at the axes, on white, as vectors. Needs a
/// QApplication. The picture holds the points it needs.
/// @param name  of the curve, in the plot's legend
CPage::Picture CurvePlot(const ks::CData& record, const QString& name);
