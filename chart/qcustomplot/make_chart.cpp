#include "chart/make_chart.h"

#include <functional>
#include <memory>
#include <utility>

#include "chart/chart_control.h"
#include "chart/qcustomplot/qcustomplot_chart.h"

std::unique_ptr<CChartControl> MakeChartControl(std::function<void(const QString& text)> showReadout) {
    return std::make_unique<CQCustomPlotChart>(std::move(showReadout));
}
