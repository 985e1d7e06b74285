#include "app/exports/table_export.h"

#include "app/dialogs/data_type_filters.h"
#include "app/dialogs/file_picker.h"
#include "app/message_box.h"
#include "app/messages.h"
#include "app/settings.h"
#include "app/table/summary_list.h"
#include "app/window_services.h"
#include "compare/export.h"
#include "compare/setting_keys.h"
#include "files/file_request.h"
#include "files/replacing_file.h"
#include "widgets/messages.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>

#include <optional>

namespace {

struct CTableExport {
    Q_DECLARE_TR_FUNCTIONS(CTableExport)
};

ks::CFileRequest ReportRequest(const CSettings& settings) {
    return ks::SaveRequest(CTableExport::tr("Save Results to HTML File").toStdString(),
                           settings.Get(setting::kHtmlOutputDir).toStdString(),
                           {{"HTML Files (*.html)", "*.html"}, {"HTML Files (*.htm)", "*.htm"}, AllFilesFilter()});
}

}  // namespace

QString CopyTable(const CSummaryList& list) {
    QGuiApplication::clipboard()->setText(list.CopyDataText());
    return app_message::kTableCopied;
}

QString SaveHtmlReport(const CSummaryList& list, const CWindowServices& services, QWidget* parent) {
    const std::optional<CPickedFiles> picked = services.picker.Pick(parent, ReportRequest(services.settings));
    if (!picked) return {};
    const QString& path = picked->paths.front();
    switch (WriteHtmlReport(path.toStdString(), list.DisplayedTable())) {
        case ks::CWriteResult::NotOpened:
            return {};
        case ks::CWriteResult::NotCompleted:
            services.messages.ShowError(parent, app_message::ReportNotWritten(path));
            return {};
        case ks::CWriteResult::Damaged:
            services.messages.ShowError(parent, widget_message::FileDamaged(path));
            return {};
        case ks::CWriteResult::Written:
            break;
    }
    services.settings.Set(setting::kHtmlOutputDir, DriveAndFolder(path));
    return app_message::ReportSaved(path);
}
