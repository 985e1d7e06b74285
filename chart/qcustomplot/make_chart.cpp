#include "chart/make_chart.h"

#include <utility>

#include "chart/qcustomplot/qcustomplot_chart.h"

std::unique_ptr<CChartControl> MakeChartControl(std::function<void(const QString& text)> showReadout) {
    return std::make_unique<CQCustomPlotChart>(std::move(showReadout));
}
