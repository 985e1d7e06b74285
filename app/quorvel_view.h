#pragma once

#include <QList>
#include <QString>
#include <QWidget>
#include <cstdint>

#include "app/commands.h"
#include "app/window_services.h"
#include "chart/chart_sequences.h"
#include "compare/document_host.h"

class CChartControl;
class CQuorvelDoc;
class CSummaryList;
class QLabel;

/// What the main window shows of the document: the summary table on page 1, a chart on every other page, a hint of what
/// to do next where there is nothing to show.
///
/// The table is a snapshot of the last completed run. When a later run stops, the document holds what that run left:
/// the old table then stays, marked, and what would read the document is off until a run completes.
class CQuorvelView : public QWidget, public CDocumentObserver {
    Q_OBJECT

public:
    /// The view watches `document` and shows its charts through `chart`; both must outlive it.
    CQuorvelView(CQuorvelDoc& document, CChartControl& chart, const CWindowServices& services,
                 QWidget* parent = nullptr);
    ~CQuorvelView() override;

    void OnDocumentUpdate(int hint) override;
    void OnRunStateChanged(RunState run) override;

    [[nodiscard]] bool IsTableShown() const;
    [[nodiscard]] bool IsChartShown() const;

    // Commands. Those that find no chart or table do nothing.

    void OnCopy();      ///< the chart, as metafile and picture, to the clipboard
    void OnCopyData();  ///< the table as text, columns as displayed, to the clipboard
    void OnSaveBmp();
    void OnSaveWmf();
    void OnSaveHtml();  ///< a file that cannot be opened ends the command silently
    void OnPrint();     ///< the chart, through the printer dialog

    /// Builds and shows a page; what the document reports about it comes up here.
    void ChoosePage(std::int32_t pageId);

signals:
    /// A run began or ended; the view has followed.
    void RunStateChanged(RunState run);
    /// A run completed: these pages may be chosen, the first is on show.
    void PagesAvailable(const QList<int>& pageIds);
    /// The page on show has no curves, or nothing was compared yet.
    void NoDataToShow();
    /// Text for the status bar: how a command ended.
    void Reported(const QString& text);
    /// The context menu was asked for at this place of the screen; `path` is the file of the table's row there, empty
    /// elsewhere.
    void ContextMenuRequested(const QPoint& position, const QString& path);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    enum class PictureKind { Bitmap, Metafile };

    void ShowRunAtWork();
    void ShowStoppedRun();
    void ShowTable();
    void ShowChartPage();
    void ShowHint(const QString& text);
    void HideAll();
    [[nodiscard]] bool HasFocusInside() const;
    void TakeFocus(bool hadFocus);
    void LayOut();
    [[nodiscard]] CSummaryList& List();
    [[nodiscard]] QString RowPath(int row) const;
    void SavePicture(PictureKind kind);

    CQuorvelDoc& m_document;
    CChartControl& m_chart;
    CWindowServices m_services;
    CLineStyles m_lineStyles;
    QLabel* m_hint;
    QLabel* m_banner;                ///< above a table of the previous run
    CSummaryList* m_list = nullptr;  ///< made on first use
    QString m_pictureFolder;         ///< of the last picture saved
    bool m_hadFocusBeforeRun = false;
    bool m_isReady = false;  ///< no resizing of the chart before
};
