#include "app/specification_host.h"

#include "app/dialogs/file_picker.h"
#include "app/dialogs/printer_picker.h"
#include "app/message_box.h"
#include "app/settings.h"
#include "compare/setting_keys.h"
#include "viewer/viewer_host.h"

#include <optional>

void CSpecificationHost::ShowError(QWidget* parent, const QString& text) {
    m_services.messages.ShowError(parent, text);
}

std::optional<QString> CSpecificationHost::AskSavePath(QWidget* parent, const ks::CFileRequest& request) {
    ks::CFileRequest picker = request;
    picker.folder = m_services.settings.Get(setting::kAsciiOutputDir).toStdString();
    const std::optional<CPickedFiles> picked = m_services.picker.Pick(parent, picker);
    if (!picked) return std::nullopt;
    return picked->paths.front();
}

bool CSpecificationHost::AskPrinter(QWidget* parent, QPrinter& printer, int pageCount) {
    return m_services.printers.Pick(parent, printer, pageCount);
}
