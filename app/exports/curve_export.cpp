#include "app/exports/curve_export.h"

#include "app/window_host.h"
#include "chart/chart_control.h"
#include "compare/document.h"

#include <QCoreApplication>

namespace {

struct CCurveExport {
    Q_DECLARE_TR_FUNCTIONS(CCurveExport)
};

}  // namespace

QString SaveCurves(const CChartControl& chart, CQuorvelDoc& document, CWindowHost& host, CCurveFormat format) {
    // Before a name is asked for: the document would make an empty ASCII table of it.
    if (!chart.Exists()) return CCurveExport::tr("This page has no curves to save.");
    host.BeginSaving();
    format == CCurveFormat::Uds ? document.OnSaveUds() : document.OnSaveAscii();
    const QStringList& paths = host.SavePaths();
    if (host.HasShownErrors() || paths.isEmpty()) return {};
    if (paths.size() == 1) return CCurveExport::tr("Saved as %1.").arg(paths.front());
    return CCurveExport::tr("%1 curves were saved, the last as %2.").arg(paths.size()).arg(paths.back());
}
