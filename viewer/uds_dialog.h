#pragma once

#include "signal/nsignal.h"

#include <QDialog>
#include <QString>

#include <memory>
#include <vector>

class CViewerHost;
class QPrinter;
struct CReportSubject;

namespace ksres {

namespace Ui {
class CUDSDialog;
}

class CHeaderPage;
class CPrintPreviewer;

/// "UDS File Specification - NAME": every labeled header field of one file on pages, its report in preview and on
/// paper, and its points as an ASCII file. A file dropped on the sheet replaces the one shown.
class CUDSDialog : public QDialog {
    Q_OBJECT

public:
    /// A sheet without a file. `host` must outlive it.
    explicit CUDSDialog(CViewerHost& host, QWidget* parent = nullptr);
    ~CUDSDialog() override;

    /// Reads a UDS-1992 file and shows it. If it cannot be read, shows the reader's sentence, and the
    /// sheet keeps what it shows.
    /// @return whether the file is shown
    bool Open(const QString& path);

    /// Shows a record that has already been read; `path` is its file.
    void ShowRecord(ks::CNSignal record, const QString& path);

    /// Opens a separate sheet for the file, above `parent`; closing the sheet deletes it.
    /// @return the sheet, on the screen; null for a file that cannot be read, after reporting it
    static CUDSDialog* ShowFile(const QString& path, CViewerHost& host, QWidget* parent);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void AddPages();
    void SetTabOrder();
    [[nodiscard]] CReportSubject Report() const;
    [[nodiscard]] QString FileName() const;
    void FitSize();
    void PrintReport();
    void ExportPoints();
    /// Whether a path names the file shown, which no output may replace.
    [[nodiscard]] bool IsShownFile(const QString& path) const;

    std::unique_ptr<Ui::CUDSDialog> m_ui;
    CViewerHost& m_host;
    ks::CNSignal m_record;
    QString m_path;
    std::vector<CHeaderPage*> m_pages;
    CPrintPreviewer* m_previewer = nullptr;
};

}  // namespace ksres
