#pragma once

#include "chart/view_range.h"

#include <QSharedPointer>
#include <QString>
#include <qcustomplot.h>

#include <memory>
#include <vector>

class CChartModel;

/// One curve, its points in the form QCustomPlot draws; shared by the window and every export.
struct CPlotCurve {
    QString name;
    int lineStyle = 0;
    QSharedPointer<QCPGraphDataContainer> byX;      ///< x never decreases: the fast way
    QSharedPointer<QCPCurveDataContainer> byOrder;  ///< set instead when x decreases somewhere
    bool isOnePoint = false;
};

/// What a chart shows, apart from its style and zoom.
struct CPlotContents {
    QString xTitle, yTitle, mainTitle, subTitle;
    std::vector<CPlotCurve> curves;
    CViewRange xHome, yHome;  ///< the ranges that show all the data
};

std::shared_ptr<const CPlotContents> ContentsOf(const CChartModel& model);
