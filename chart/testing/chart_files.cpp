#include "chart/testing/chart_files.h"

#include "chart/chart_control.h"
#include "chart/testing/wmf_reader.h"
#include "files/replacing_file.h"

#include <QFile>
#include <QIODevice>
#include <QTemporaryDir>

QByteArray FileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray ExportedMetafileBytes(CChartControl& chart) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("chart.wmf");
    if (chart.ExportMetafile(kMetafileSize, path.toStdString()) != ks::CWriteResult::Written) return {};
    return FileBytes(path);
}

CWmfPicture ExportedMetafile(CChartControl& chart) {
    return ReadWmf(ExportedMetafileBytes(chart).toStdString());
}
