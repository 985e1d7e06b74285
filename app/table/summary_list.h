#pragma once

#include "app/table/summary_model.h"
#include "compare/summary_table.h"

#include <QTableView>

#include <vector>

/// The view of the summary: all columns of CSummaryModel, which the user may drag into another order. That order
/// and the columns are kept for the list's lifetime, no matter which snapshot it shows.
///
/// Keys: arrows move, Alt+Left and Alt+Right move the current column, the menu key opens the context menu.
class CSummaryList : public QTableView {
    Q_OBJECT

public:
    explicit CSummaryList(QWidget* parent = nullptr);

    /// Shows `snapshot` and sizes every column to its contents.
    void SetSnapshot(CSummarySnapshot snapshot);
    [[nodiscard]] const CSummarySnapshot& Snapshot() const { return m_model.Snapshot(); }
    /// Marks the results as those of the previous run, or removes the mark.
    void MarkPreviousRun(bool isPreviousRun);

    /// Columns in the order shown, each by its index in the table.
    [[nodiscard]] std::vector<int> DisplayedOrder() const;
    /// The table shown, with the order of its columns.
    [[nodiscard]] CSummaryTable DisplayedTable() const;
    /// The fixed columns of the table as text: the headers, then the rows, columns in the order shown,
    /// separated by tabs; every line ends in CR LF. A tab or line end within a file's name becomes a blank.
    [[nodiscard]] QString CopyDataText() const;

    /// The row at a point of the screen; -1 where there is none.
    [[nodiscard]] int RowAt(const QPoint& globalPosition) const;

signals:
    /// The user asks for the context menu at a point of the screen, for a row or, with -1, for none.
    void ContextMenuAsked(const QPoint& globalPosition, int row);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void MoveCurrentColumn(int step);
    void DescribeState();

    CSummaryModel m_model;
};
