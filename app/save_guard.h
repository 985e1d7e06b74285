#pragma once

#include "app/dialogs/file_picker.h"
#include "app/dialogs/printer_picker.h"
#include "app/window_services.h"

#include <optional>

class CQuorvelDoc;

/// Keeps the user from saving or printing over a file that `document` has loaded, whether a computed signal or the
/// reference. Forwards every question; if the answer names such a file, shows a message and reports a cancel.
class CSaveGuard : public CFilePicker, public CPrinterPicker {
public:
    /// All must outlive the guard; `document` may be constructed after it.
    CSaveGuard(const CWindowServices& services, const CQuorvelDoc& document)
        : m_services(services), m_document(document) {}

    /// The window's services, with the guard wrapped around the pickers.
    [[nodiscard]] CWindowServices Guarded();

    std::optional<CPickedFiles> Pick(QWidget* parent, const ks::CFileRequest& request) override;
    bool Pick(QWidget* parent, QPrinter& printer, int pageCount) override;
    bool TakeDefault(QPrinter& printer) override;

private:
    [[nodiscard]] bool Refuses(QWidget* parent, const QString& path);

    CWindowServices m_services;
    const CQuorvelDoc& m_document;
};
