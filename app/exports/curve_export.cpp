#include "app/exports/curve_export.h"

#include "app/messages.h"
#include "app/window_host.h"
#include "chart/chart_control.h"
#include "compare/document.h"

QString SaveCurves(const CChartControl& chart, CQuorvelDoc& document, CWindowHost& host, CCurveFormat format) {
    // Before asking for a name: the document would write an empty ASCII table.
    if (!chart.Exists()) return app_message::kNoCurvesToSave;
    host.BeginSaving();
    format == CCurveFormat::Uds ? document.OnSaveUds() : document.OnSaveAscii();
    const QStringList& paths = host.SavePaths();
    // What is shown after saving as UDS are warnings: the files were written.
    const bool hasFailed = format == CCurveFormat::Ascii && host.HasShownErrors();
    if (hasFailed || paths.isEmpty()) return {};
    if (paths.size() == 1) return app_message::Saved(paths.front());
    return app_message::CurvesSaved(paths.size(), paths.back());
}
