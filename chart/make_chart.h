#pragma once

#include "chart/chart_control.h"

#include <QString>

#include <functional>
#include <memory>

/// The chart control of the desktop program. On the screen it follows the desktop's palette; exported, copied and
/// printed charts are always on white. Wheel: zoom at the pointer; drag: pan; double click: reset. Keys: "+" and "-"
/// zoom, arrows pan, "0" and Home reset, Page Up and Page Down scroll a legend that does not fit.
/// @param showReadout  gets the data coordinates under the pointer as text for a status bar, and an empty text when the
///                     pointer leaves the curves' area or the chart is destroyed; may be empty
std::unique_ptr<CChartControl> MakeChartControl(std::function<void(const QString& text)> showReadout = {});
