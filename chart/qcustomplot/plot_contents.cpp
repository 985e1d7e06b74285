#include "chart/qcustomplot/plot_contents.h"

#include "chart/chart_model.h"
#include "chart/curve_points.h"
#include "chart/messages.h"
#include "chart/view_range.h"

#include <cstddef>
#include <memory>
#include <string>

namespace {

constexpr double kXMargin = 0.0;
constexpr double kYMargin = 0.05;

QString Text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QString NameOf(const CChartModel& model, std::size_t series) {
    const std::string name = model.Name(series);
    return name.empty() ? chart_message::UnnamedCurve(series) : Text(name);
}

void Extend(CDataRange& range, const CDataRange& other) {
    if (!other.HasValues()) return;
    range.Add(other.Range().lower);
    range.Add(other.Range().upper);
}

}  // namespace

std::shared_ptr<const CPlotContents> ContentsOf(const CChartModel& model) {
    auto contents = std::make_shared<CPlotContents>();
    CDataRange xRange;
    CDataRange yRange;
    for (std::size_t series = 0; series < model.SeriesCount(); ++series) {
        const auto points = std::make_shared<const CCurvePoints>(model.Curve(series));
        Extend(xRange, points->XRange());
        Extend(yRange, points->YRange());
        contents->curves.push_back({NameOf(model, series), model.LineStyle(series), points});
    }
    contents->xHome = RangeToShow(xRange, kXMargin);
    contents->yHome = RangeToShow(yRange, kYMargin);
    contents->xTitle = Text(model.XTitle());
    contents->yTitle = Text(model.YTitle());
    contents->mainTitle = Text(model.MainTitle());
    contents->subTitle = Text(model.SubTitle());
    return contents;
}
