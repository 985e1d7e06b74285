#pragma once

#include "app/window_services.h"

#include <QString>

class CChartControl;
class QWidget;

// Both print `chart` on one page, inside its margins; `pageName` names the print job. They give what was done, for the
// status bar, and an empty text when nothing was. What goes wrong is reported above `parent`.

/// On the printer, or into the PDF file, that the user chooses.
[[nodiscard]] QString PrintChart(CChartControl& chart, const QString& pageName, const CWindowServices& services,
                                 QWidget* parent);

/// On the default printer, without a question.
[[nodiscard]] QString PrintChartDirectly(CChartControl& chart, const QString& pageName, const CWindowServices& services,
                                         QWidget* parent);
