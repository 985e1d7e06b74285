#include "app/save_guard.h"

#include "app/dialogs/file_picker.h"
#include "app/loaded_files.h"
#include "app/message_box.h"
#include "app/messages.h"
#include "app/window_services.h"

#include <QPrinter>

#include <optional>

CWindowServices CSaveGuard::Guarded() {
    return {m_services.settings, *this, m_services.messages, *this};
}

std::optional<CPickedFiles> CSaveGuard::Pick(QWidget* parent, const ks::CFileRequest& request) {
    std::optional<CPickedFiles> picked = m_services.picker.Pick(parent, request);
    if (picked && request.kind == ks::CPickerKind::Save && Refuses(parent, picked->paths.front())) return std::nullopt;
    return picked;
}

bool CSaveGuard::Pick(QWidget* parent, QPrinter& printer, int pageCount) {
    return m_services.printers.Pick(parent, printer, pageCount) && !Refuses(parent, printer.outputFileName());
}

bool CSaveGuard::TakeDefault(QPrinter& printer) {
    return m_services.printers.TakeDefault(printer);
}

bool CSaveGuard::Refuses(QWidget* parent, const QString& path) {
    if (!WouldReplaceLoadedFile(m_document, path.toStdString())) return false;
    m_services.messages.ShowError(parent, app_message::IsBeingCompared(path));
    return true;
}
