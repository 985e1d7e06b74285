#pragma once

#include "chart/view_range.h"

#include <QString>

#include <memory>
#include <vector>

class CChartModel;
class CCurvePoints;

/// One curve; its points are shared by the window and every export.
struct CPlotCurve {
    QString name;
    int lineStyle = 0;
    std::shared_ptr<const CCurvePoints> points;
};

/// What a chart shows, apart from its style and zoom.
struct CPlotContents {
    QString xTitle, yTitle, mainTitle, subTitle;
    std::vector<CPlotCurve> curves;
    CViewRange xHome, yHome;  ///< the ranges that show all the data
};

std::shared_ptr<const CPlotContents> ContentsOf(const CChartModel& model);
