#pragma once

#include "compare/document_host.h"
#include "files/file_request.h"

#include <QDialog>

#include <memory>

class CFilePicker;
class CMessages;
class CSettings;
namespace Ui {
class CSelectFiles;
}

/// "Select Uds Files": what to compare with what, and how to prepare the signals. Reads and writes hit lists.
///
/// Pickers start in the folders from the settings and store new ones at once. Hit lists that were read, saved, or
/// dropped become recent files. The dialog edits its own copy of the selection; the caller takes it after OK.
class CSelectFiles : public QDialog {
    Q_OBJECT

public:
    /// Shows `offered`. With a channel class other than 60, 180, 600, or 1000 the drop-down has no selection.
    /// `settings`, `picker` and `messages` must outlive the dialog.
    CSelectFiles(CFileSelection offered, CSettings& settings, CFilePicker& picker, CMessages& messages,
                 QWidget* parent = nullptr);
    ~CSelectFiles() override;

    /// The selection; complete after the dialog was closed with OK.
    [[nodiscard]] const CFileSelection& Selection() const { return m_selection; }

public slots:
    /// OK: checks the controls, takes the selection, and closes; stays open if something is missing.
    void accept() override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void SetShortcuts();
    void ShowSelection();
    void ConnectControls();
    void EnableControls();
    void EnableListButtons();
    void ResetInvalidTimes();
    bool ReadTimes();
    bool CheckReference();
    bool CheckFiles();
    void CheckTimes();

    void AddFiles();
    void BrowseReference();
    void ReadHitList();
    void SaveHitList();
    void TakeDropped(const QStringList& paths, int row);
    void RememberHitList(const QString& path);
    [[nodiscard]] ks::CFileRequest SignalFileRequest() const;
    [[nodiscard]] ks::CFileRequest HitListRequest() const;

    std::unique_ptr<Ui::CSelectFiles> m_ui;
    CFileSelection m_selection;
    CSettings& m_settings;
    CFilePicker& m_picker;
    CMessages& m_messages;
};
