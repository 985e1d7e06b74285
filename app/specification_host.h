#pragma once

#include "app/window_services.h"
#include "viewer/viewer_host.h"

#include <optional>

/// The program around the file viewer: its message boxes, pickers and printers are those of the window. It reads the
/// settings and stores nothing: viewing a file changes nothing.
class CSpecificationHost : public CViewerHost {
public:
    explicit CSpecificationHost(const CWindowServices& services) : m_services(services) {}

    void ShowError(QWidget* parent, const QString& text) override;
    std::optional<QString> AskSavePath(QWidget* parent, const ks::CFileRequest& request) override;
    bool AskPrinter(QWidget* parent, QPrinter& printer, int pageCount) override;

private:
    CWindowServices m_services;
};
