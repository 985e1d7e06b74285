#pragma once

#include "chart/chart_control.h"
#include "chart/testing/wmf_reader.h"

#include <QByteArray>
#include <QString>

/// Empty when the file cannot be read.
QByteArray FileBytes(const QString& path);

/// The chart's metafile as it is exported; empty when that fails.
QByteArray ExportedMetafileBytes(CChartControl& chart);
CWmfPicture ExportedMetafile(CChartControl& chart);
