#include "chart/make_chart.h"

#include "chart/chart_control.h"
#include "chart/qcustomplot/qcustomplot_chart.h"

#include <functional>
#include <memory>
#include <utility>

std::unique_ptr<CChartControl> MakeChartControl(std::function<void(const QString& text)> showReadout) {
    return std::make_unique<CQCustomPlotChart>(std::move(showReadout));
}
