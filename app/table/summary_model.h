#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <string>
#include <vector>

#include "compare/critical_values.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"

/// What the summary shows of one run: the texts and verdicts, the limits that gave these verdicts, and the files.
/// It stays as it is while the document goes on to the next run.
class CSummarySnapshot {
public:
    CSummaryTable table;
    std::vector<std::string> paths;  ///< file of each row, byte for byte; as many as the table has rows
    CCriticalValues limits;
    bool isPreviousRun = false;  ///< a later run stopped, so these results and the document no longer belong together
};

/// The results of the given signals, judged against the critical values of the moment.
CSummarySnapshot MakeSummarySnapshot(const std::vector<CSignal>& signalList);

/// What each judged column demands, for example "below 5 % of the reference peak"; empty for a column without verdict.
QString LimitText(const CSummaryColumn& column, const CCriticalValues& limits);

/// Says that results are those of the previous run.
QString PreviousRunText();

/// What the summary's model offers in addition to the roles of Qt.
enum CSummaryRole : int {
    kVerdictRole = Qt::UserRole + 1,  ///< int of the cell's Verdict
    kIsNameRole,                      ///< whether the cell is of a column of paths
};

/// The summary table: a row per computed signal, and always all columns of the snapshot, SummaryColumns() at first.
///
/// Cells are colored by their verdict, black on the color so that they can be read in light and dark themes. Tool tip
/// and accessible text say the same in words: column, value, limit, good or bad. Results of the previous run are pale.
class CSummaryModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Shows `snapshot`. One of the same columns and files in the same order keeps selection and position of the views.
    void SetSnapshot(CSummarySnapshot snapshot);
    const CSummarySnapshot& Snapshot() const { return m_snapshot; }
    /// Marks the results as those of the previous run, or takes the mark away.
    void MarkPreviousRun(bool isPreviousRun);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    void TellThatCellsChanged();
    QString Text(const QModelIndex& index) const;
    const CSummaryColumn& Column(int section) const;
    const CSummaryCell& Cell(const QModelIndex& index) const;
    QVariant Background(const QModelIndex& index) const;
    QVariant Foreground(const QModelIndex& index) const;
    QString ToolTip(const QModelIndex& index) const;
    QString AccessibleText(const QModelIndex& index) const;

    CSummarySnapshot m_snapshot;
};
