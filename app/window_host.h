#pragma once

#include "app/window_services.h"
#include "compare/critical_values.h"
#include "compare/document_host.h"
#include "compare/setting_keys.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class CInputBlocker;
class QWidget;

/// The program around the document: opens the dialogs above a window, reads and stores the settings, shows progress.
///
/// While busy, shows the wait cursor and repaints the window at every step of a run, but discards user input.
class CWindowHost : public QObject, public CDocumentHost {
    Q_OBJECT

public:
    /// `window` is the parent of all dialogs.
    CWindowHost(QWidget& window, const CWindowServices& services);
    ~CWindowHost() override;

    /// The next selection starts with these files instead of the document's.
    void OfferFiles(std::vector<std::string> files) { m_offeredFiles = std::move(files); }
    /// Forgets the paths and errors of earlier commands.
    void BeginSaving();
    /// Paths that the user has named since BeginSaving.
    [[nodiscard]] const QStringList& SavePaths() const { return m_savePaths; }
    /// Whether errors were shown since BeginSaving.
    [[nodiscard]] bool HasShownErrors() const { return m_hasShownErrors; }
    [[nodiscard]] bool IsBusy() const { return m_blocker != nullptr; }

    std::optional<CFileSelection> SelectFiles(const CFileSelection& offered) override;
    void ShowErrorList(const std::vector<CRunMessage>& messages) override;
    std::optional<double> EditCorridorSize(double size) override;
    std::optional<CCriticalValues> EditCriticalValues(const CCriticalValues& values) override;
    std::optional<std::string> AskSavePath(const ks::CFileRequest& request) override;
    std::string ReadSetting(const CTextSetting& key) override;
    void StoreSetting(const CTextSetting& key, const std::string& value) override;
    void Beep() override;
    void SetBusy(bool isBusy) override;
    void Progress(std::size_t done, std::size_t total, const std::string& path) override;

signals:
    void BusyChanged(bool isBusy);
    /// `done` of `total` steps of a run are done; `path` is the current file, empty when all are done.
    void ProgressChanged(int done, int total, const QString& path);

private:
    QWidget& m_window;
    CWindowServices m_services;
    std::optional<std::vector<std::string>> m_offeredFiles;
    QStringList m_savePaths;
    bool m_hasShownErrors = false;
    std::unique_ptr<CInputBlocker> m_blocker;  ///< while busy
};
