#pragma once

#include "chart/chart_sequences.h"
#include "compare/document_host.h"
#include "compare/run_state.h"

#include <QList>
#include <QString>
#include <QWidget>

#include <cstdint>

class CChartControl;
class CQuorvelDoc;
class CSummaryList;
class QLabel;

/// What the main window shows of the document: the summary table on page 1, a chart on every other page, and a hint
/// about what to do next when there is nothing to show.
///
/// The table is a snapshot of the last completed run. When a later run stops, the document holds only parts of that
/// run: the old table stays, marked, and commands that read the document are disabled until a run completes.
class CQuorvelView : public QWidget, public CDocumentObserver {
    Q_OBJECT

public:
    /// The view watches `document` and shows its charts through `chart`; both must outlive it.
    CQuorvelView(CQuorvelDoc& document, CChartControl& chart, QWidget* parent = nullptr);
    ~CQuorvelView() override;

    void OnDocumentUpdate(int hint) override;
    void OnPageChanging() override;
    void OnRunStateChanged(CRunState run) override;

    /// The table shown, of the last run or an earlier one; null while no table is shown.
    [[nodiscard]] const CSummaryList* ShownTable() const;
    [[nodiscard]] bool IsChartShown() const;

    /// Builds and shows a page, with any messages from the document.
    void ChoosePage(std::int32_t pageId);

signals:
    /// A run began or ended; the view is already up to date.
    void RunStateChanged(CRunState run);
    /// A run completed: these pages may be chosen; the first is shown.
    void PagesAvailable(const QList<int>& pageIds);
    /// The current page has no curves, or nothing has been compared yet. Kept although nothing is connected to it: it
    /// tells the frame that the view has nothing to show, and for now the hint is enough.
    void NoDataToShow();
    /// The user asked for the context menu at this point of the screen; `path` is the file of the table's row there,
    /// empty elsewhere.
    void ContextMenuRequested(const QPoint& position, const QString& path);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void ColorHint();
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

    CQuorvelDoc& m_document;
    CChartControl& m_chart;
    CLineStyles m_lineStyles;
    QLabel* m_hint;
    QLabel* m_banner;                ///< above a table of the previous run
    CSummaryList* m_list = nullptr;  ///< made on first use
    bool m_hadFocusBefore = false;
    bool m_isReady = false;  ///< no resizing of the chart before
};
