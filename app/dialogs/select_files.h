#pragma once

#include <QDialog>
#include <memory>

#include "compare/document_host.h"
#include "files/file_request.h"

class CFilePicker;
class CMessages;
class CSettings;
namespace Ui {
class CSelectFiles;
}

/// "Select Uds Files": what to compare with what, and how the signals are prepared. Reads and writes hit lists.
///
/// Pickers start in the folders that the settings remember and store the new ones at once; hit lists that were read,
/// saved or dropped become recent files. The choice itself is an own copy; the caller takes it after OK.
class CSelectFiles : public QDialog {
    Q_OBJECT

public:
    /// Shows `offered`; a channel class other than 60, 180, 600 and 1000 leaves the drop-down without a selection.
    /// `settings`, `picker` and `messages` must outlive the dialog.
    CSelectFiles(const CFileSelection& offered, CSettings& settings, CFilePicker& picker, CMessages& messages,
                 QWidget* parent = nullptr);
    ~CSelectFiles() override;

    /// The choice; complete once the dialog was closed with OK.
    const CFileSelection& Selection() const { return m_selection; }

public slots:
    /// OK: checks the controls, takes the choice and closes; stays open where something is missing.
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
    ks::CFileRequest SignalFileRequest() const;
    ks::CFileRequest HitListRequest() const;

    std::unique_ptr<Ui::CSelectFiles> m_ui;
    CFileSelection m_selection;
    CSettings& m_settings;
    CFilePicker& m_picker;
    CMessages& m_messages;
};
