#pragma once

#include "app/window_services.h"

#include <QString>

class CChartControl;
class QWidget;

// Both print `chart` on one page, inside its margins; `pageName` names the print job. They return what was
// done, for the status bar; an empty text when nothing was done. Errors are reported above `parent`.

/// To the printer or PDF file that the user chooses.
[[nodiscard]] QString PrintChart(CChartControl& chart, const QString& pageName, const CWindowServices& services,
                                 QWidget* parent);

/// To the default printer, without asking.
[[nodiscard]] QString PrintChartDirectly(CChartControl& chart, const QString& pageName, const CWindowServices& services,
                                         QWidget* parent);
