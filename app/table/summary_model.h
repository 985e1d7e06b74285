#pragma once

#include "compare/critical_values.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"

#include <QAbstractTableModel>
#include <QString>

#include <string>
#include <vector>

/// What the summary shows of one run: the texts and verdicts, the limits for these verdicts, and the files.
/// It does not change while the document starts the next run.
struct CSummarySnapshot {
    CSummaryTable table;
    std::vector<std::string> paths;  ///< file of each row, byte for byte; as many as the table has rows
    CCriticalValues limits;
    bool isPreviousRun = false;  ///< a later run stopped, so these results and the document no longer belong together
};

/// The results of the given signals, judged against the current critical values.
CSummarySnapshot MakeSummarySnapshot(const std::vector<CSignal>& signalList);

/// What each judged column demands, for example "below 5 % of the reference peak"; empty for a column without verdict.
QString LimitText(const CSummaryColumn& column, const CCriticalValues& limits);

/// Text that says that results are those of the previous run.
QString PreviousRunText();

/// What the summary's model offers in addition to the roles of Qt.
enum CSummaryRole : int {
    VerdictRole = Qt::UserRole + 1,  ///< int of the cell's Verdict
    IsNameRole,                      ///< whether the cell's column holds paths
};

/// The summary table: a row per computed signal, and always all columns of the snapshot, initially SummaryColumns().
///
/// Cells are colored by their verdict, with black text that is legible in light and dark themes. Tool tip
/// and accessible text say the same in words: column, value, limit, good or bad. Results of the previous run are pale.
class CSummaryModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Shows `snapshot`. With the same columns and files in the same order, the views keep selection and position.
    void SetSnapshot(CSummarySnapshot snapshot);
    [[nodiscard]] const CSummarySnapshot& Snapshot() const { return m_snapshot; }
    /// Marks the results as those of the previous run, or removes the mark.
    void MarkPreviousRun(bool isPreviousRun);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

private:
    void TellThatCellsChanged();
    [[nodiscard]] QString Text(const QModelIndex& index) const;
    [[nodiscard]] const CSummaryColumn& Column(int section) const;
    [[nodiscard]] const CSummaryCell& Cell(const QModelIndex& index) const;
    [[nodiscard]] QVariant Background(const QModelIndex& index) const;
    [[nodiscard]] QVariant Foreground(const QModelIndex& index) const;
    [[nodiscard]] QString ToolTip(const QModelIndex& index) const;
    [[nodiscard]] QString AccessibleText(const QModelIndex& index) const;

    CSummarySnapshot m_snapshot;
};
