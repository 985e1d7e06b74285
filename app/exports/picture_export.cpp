#include "app/exports/picture_export.h"

#include "app/dialogs/data_type_filters.h"
#include "app/dialogs/file_picker.h"
#include "app/message_box.h"
#include "app/messages.h"
#include "chart/chart_control.h"
#include "files/file_request.h"
#include "files/replacing_file.h"
#include "widgets/messages.h"

#include <optional>
#include <string>

namespace {

ks::CFileRequest PictureRequest(CPictureKind kind, const std::string& folder) {
    if (kind == CPictureKind::Bitmap) {
        return ks::SaveRequest(CPictureExport::tr("Save Bitmap as").toStdString(), folder,
                               {{"Windows Bitmap(*.bmp)", "*.bmp"}, AllFilesFilter()});
    }
    return ks::SaveRequest(CPictureExport::tr("Save Metafile as").toStdString(), folder,
                           {{"Windows Metafile(*.wmf)", "*.wmf"}, AllFilesFilter()});
}

ks::CWriteResult WritePicture(CChartControl& chart, CPictureKind kind, const std::string& path) {
    return kind == CPictureKind::Bitmap ? chart.ExportBitmap(kBitmapSize, path)
                                        : chart.ExportMetafile(kMetafileSize, path);
}

}  // namespace

QString CPictureExport::Save(CChartControl& chart, CPictureKind kind, QWidget* parent) {
    if (!chart.Exists()) return {};
    const std::optional<CPickedFiles> picked = m_services.picker.Pick(parent, PictureRequest(kind, m_folder));
    if (!picked) return {};
    const QString& path = picked->paths.front();
    switch (WritePicture(chart, kind, path.toStdString())) {
        case ks::CWriteResult::Written:
            break;
        case ks::CWriteResult::Damaged:
            m_services.messages.ShowError(parent, widget_message::FileDamaged(path));
            return {};
        case ks::CWriteResult::NotOpened:
        case ks::CWriteResult::NotCompleted:
            m_services.messages.ShowError(parent, app_message::PlotNotWritten(path));
            return {};
    }
    m_folder = DriveAndFolder(path).toStdString();
    return app_message::PlotSaved(path);
}

QString CopyPicture(CChartControl& chart) {
    if (!chart.Exists()) return {};
    chart.CopyMetafile(kMetafileSize);
    return app_message::kPlotCopied;
}
