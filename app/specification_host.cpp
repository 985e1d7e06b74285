#include "app/specification_host.h"

#include "app/dialogs/file_picker.h"
#include "app/dialogs/printer_picker.h"
#include "app/messages.h"
#include "app/settings.h"

void CSpecificationHost::ShowError(QWidget* parent, const QString& text) {
    m_services.messages.ShowError(parent, text);
}

std::optional<QString> CSpecificationHost::AskSavePath(QWidget* parent, const CViewerSaveRequest& request) {
    CFileRequest picker;
    picker.kind = PickerKind::Save;
    picker.title = request.title;
    for (const CViewerFilter& filter : request.filters) {
        picker.filters.push_back({filter.text.toStdString(), filter.pattern.toStdString()});
    }
    picker.folder = m_services.settings.Get(setting::kAsciiOutputDir);
    picker.suggestedName = request.suggestedName;
    picker.defaultExtension = request.defaultExtension;
    picker.askBeforeOverwriting = true;
    const std::optional<CPickedFiles> picked = m_services.picker.Pick(parent, picker);
    if (!picked) return std::nullopt;
    return picked->paths.front();
}

bool CSpecificationHost::AskPrinter(QWidget* parent, QPrinter& printer, int pageCount) {
    return m_services.printers.Pick(parent, printer, pageCount);
}
