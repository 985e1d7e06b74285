#include "app/window_host.h"

#include "app/dialogs/corridor_dialog.h"
#include "app/dialogs/critical_values_dialog.h"
#include "app/dialogs/error_dialog.h"
#include "app/dialogs/file_picker.h"
#include "app/dialogs/select_files.h"
#include "app/input_blocker.h"
#include "app/message_box.h"
#include "app/settings.h"
#include "app/window_services.h"
#include "compare/critical_values.h"
#include "compare/document_host.h"
#include "compare/setting_keys.h"

#include <QApplication>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>

CWindowHost::CWindowHost(QWidget& window, const CWindowServices& services) : m_window(window), m_services(services) {}

CWindowHost::~CWindowHost() {
    if (IsBusy()) QApplication::restoreOverrideCursor();
}

std::optional<CFileSelection> CWindowHost::SelectFiles(const CFileSelection& offered) {
    CFileSelection shown = offered;
    if (m_offeredFiles) shown.files = std::exchange(m_offeredFiles, std::nullopt).value();
    CSelectFiles dialog(shown, m_services.settings, m_services.picker, m_services.messages, &m_window);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Selection();
}

void CWindowHost::BeginSaving() {
    m_savePaths.clear();
    m_hasShownErrors = false;
}

void CWindowHost::ShowErrorList(const std::vector<CRunMessage>& messages) {
    m_hasShownErrors = true;
    SetBusy(false);  // the list is read and closed by the user
    ksres::CErrorDialog::ShowMessages(messages, &m_window);
}

std::optional<double> CWindowHost::EditCorridorSize(double size) {
    CCorridorDlg dialog(size, m_services.messages, &m_window);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Size();
}

std::optional<CCriticalValues> CWindowHost::EditCriticalValues(const CCriticalValues& values) {
    ksres::CCriticalValuesDlg dialog(values, m_services.messages, &m_window);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Values();
}

std::optional<std::string> CWindowHost::AskSavePath(const ks::CFileRequest& request) {
    const std::optional<CPickedFiles> picked = m_services.picker.Pick(&m_window, request);
    if (!picked) return std::nullopt;
    m_savePaths.append(picked->paths.front());
    return picked->paths.front().toStdString();
}

std::string CWindowHost::ReadSetting(const CTextSetting& key) {
    return m_services.settings.Get(key).toStdString();
}

void CWindowHost::StoreSetting(const CTextSetting& key, const std::string& value) {
    m_services.settings.Set(key, QString::fromStdString(value));
}

void CWindowHost::Beep() {
    m_services.messages.Beep();
}

void CWindowHost::SetBusy(bool isBusy) {
    if (isBusy == IsBusy()) return;
    if (isBusy) {
        m_blocker = std::make_unique<CInputBlocker>();
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
        m_blocker.reset();
    }
    emit BusyChanged(isBusy);
}

void CWindowHost::Progress(std::size_t done, std::size_t total, const std::string& path) {
    emit ProgressChanged(static_cast<int>(done), static_cast<int>(total), QString::fromStdString(path));
    if (IsBusy()) QCoreApplication::processEvents();  // repaints; the blocker discards user input
}
