#include "app/table/summary_model.h"

#include "compare/critical_values.h"
#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"
#include "compare/verdict.h"
#include "files/number_text.h"
#include "widgets/quiet_color.h"

#include <QBrush>
#include <QColor>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QPalette>
#include <QStringList>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// A sentence of the core in the user's language, with the numbers in place of its %1, %2, ...
QString Sentence(std::string_view text, const std::vector<std::string>& numbers) {
    QString sentence = QCoreApplication::translate("CCriterion", std::string(text).c_str());
    for (const std::string& number : numbers) sentence = sentence.arg(QString::fromStdString(number));
    return sentence;
}

QString HeaderText(const CSummaryColumn& column) {
    return QString::fromUtf8(column.header);
}

Qt::Alignment ColumnAlignment(const CSummaryColumn& column) {
    return Qt::AlignVCenter | (column.isName ? Qt::AlignLeft : Qt::AlignRight);
}

/// Good or bad in words; empty without a verdict.
QString VerdictWord(CVerdict verdict) {
    switch (verdict) {
        case CVerdict::Good:
            return CSummaryModel::tr("good");
        case CVerdict::Bad:
            return CSummaryModel::tr("bad");
        default:
            return {};
    }
}

/// The verdict's color; for a previous run, mixed with an equal part of white.
QColor CellColor(CVerdict verdict, bool isPreviousRun) {
    const QColor color = QColor::fromRgb(static_cast<QRgb>(ColorOf(verdict)));
    if (!isPreviousRun) return color;
    constexpr int kWhite = 255;
    return {(color.red() + kWhite) / 2, (color.green() + kWhite) / 2, (color.blue() + kWhite) / 2};
}

bool AreSame(std::span<const CSummaryColumn> a, std::span<const CSummaryColumn> b) {
    return a.data() == b.data() && a.size() == b.size();
}

}  // namespace

CSummarySnapshot MakeSummarySnapshot(const std::vector<CSignal>& signalList) {
    CSummarySnapshot snapshot;
    snapshot.table = MakeSummaryTable(signalList);
    snapshot.limits = CriticalValues();
    snapshot.paths.reserve(signalList.size());
    for (const CSignal& signal : signalList) snapshot.paths.push_back(signal.GetPath());
    return snapshot;
}

QString LimitText(const CSummaryColumn& column, const CCriticalValues& limits) {
    if (!column.judgment) return {};
    const CCriterion& criterion = CriterionOf(column.judgment->limit);
    if (column.judgment->goodSide == CGoodSide::Above) {
        return CSummaryModel::tr("above %1").arg(QString::fromStdString(ks::ShortestText(limits.*criterion.limit)));
    }
    return Sentence(criterion.demand, criterion.demandNumbers(limits.*criterion.limit));
}

QString PreviousRunText() {
    return CSummaryModel::tr("Results of the previous run");
}

void CSummaryModel::SetSnapshot(CSummarySnapshot snapshot) {
    snapshot.paths.resize(snapshot.table.rows.size());
    if (snapshot.paths == m_snapshot.paths && AreSame(snapshot.table.columns, m_snapshot.table.columns)) {
        m_snapshot = std::move(snapshot);
        TellThatCellsChanged();
        return;
    }
    beginResetModel();
    m_snapshot = std::move(snapshot);
    endResetModel();
}

void CSummaryModel::MarkPreviousRun(bool isPreviousRun) {
    if (m_snapshot.isPreviousRun == isPreviousRun) return;
    m_snapshot.isPreviousRun = isPreviousRun;
    TellThatCellsChanged();
}

void CSummaryModel::TellThatCellsChanged() {
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);  // the limits in its tool tips
    if (rowCount() == 0) return;
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int CSummaryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_snapshot.table.rows.size());
}

int CSummaryModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_snapshot.table.columns.size());
}

QVariant CSummaryModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    switch (role) {
        case Qt::DisplayRole:
            return Text(index);
        case Qt::BackgroundRole:
            return Background(index);
        case Qt::ForegroundRole:
            return Foreground(index);
        case Qt::ToolTipRole:
            return ToolTip(index);
        case Qt::AccessibleTextRole:
            return AccessibleText(index);
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(ColumnAlignment(Column(index.column())));
        case IsNameRole:
            return Column(index.column()).isName;
        case VerdictRole:
            return static_cast<int>(Cell(index).verdict);
        default:
            return {};
    }
}

QVariant CSummaryModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return QAbstractTableModel::headerData(section, orientation, role);
    if (section < 0 || section >= columnCount()) return {};
    const CSummaryColumn& column = Column(section);
    if (role == Qt::DisplayRole) return HeaderText(column);
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(ColumnAlignment(column));
    if (role != Qt::ToolTipRole) return {};
    const QString limit = LimitText(column, m_snapshot.limits);
    //: %1 is the name of a column, %2 a limit such as "below 0.2"
    return limit.isEmpty() ? HeaderText(column) : tr("%1\nGood: %2").arg(HeaderText(column), limit);
}

const CSummaryColumn& CSummaryModel::Column(int section) const {
    return m_snapshot.table.columns[static_cast<std::size_t>(section)];
}

const CSummaryCell& CSummaryModel::Cell(const QModelIndex& index) const {
    const CSummaryRow& row = m_snapshot.table.rows[static_cast<std::size_t>(index.row())];
    return row[static_cast<std::size_t>(index.column())];
}

QString CSummaryModel::Text(const QModelIndex& index) const {
    return QString::fromStdString(Cell(index).text);
}

QVariant CSummaryModel::Background(const QModelIndex& index) const {
    const CVerdict verdict = Cell(index).verdict;
    if (verdict == CVerdict::None) return {};  // the theme's own background
    return QBrush(CellColor(verdict, m_snapshot.isPreviousRun));
}

QVariant CSummaryModel::Foreground(const QModelIndex& index) const {
    if (Cell(index).verdict != CVerdict::None) return QBrush(Qt::black);
    if (!m_snapshot.isPreviousRun) return {};
    const QPalette palette = QGuiApplication::palette();
    return QBrush(QuietColor(palette.color(QPalette::Text), palette.color(QPalette::Base)));
}

QString CSummaryModel::ToolTip(const QModelIndex& index) const {
    // The value is not on the first line: a path with a "<" there would turn the tool tip into rich text.
    QStringList lines = {HeaderText(Column(index.column())), Text(index)};
    const QString verdict = VerdictWord(Cell(index).verdict);
    if (!verdict.isEmpty()) {
        lines.append(tr("Limit: %1").arg(LimitText(Column(index.column()), m_snapshot.limits)));
        lines.append(tr("Verdict: %1").arg(verdict));
    }
    if (m_snapshot.isPreviousRun) lines.append(PreviousRunText());
    return lines.join(QLatin1Char('\n'));
}

QString CSummaryModel::AccessibleText(const QModelIndex& index) const {
    const QString name = HeaderText(Column(index.column()));
    const QString verdict = VerdictWord(Cell(index).verdict);
    const QString limit = LimitText(Column(index.column()), m_snapshot.limits);
    //: %1 is a column's name, %2 a value
    QString text = verdict.isEmpty() ? tr("%1: %2").arg(name, Text(index))
                                     //: %1 is a column's name, %2 a value, %3 good or bad, %4 the limit
                                     : tr("%1: %2, %3, limit: %4").arg(name, Text(index), verdict, limit);
    if (!m_snapshot.isPreviousRun) return text;
    //: %1 is a cell's text, %2 says that it is of the previous run
    return tr("%1. %2").arg(text, PreviousRunText());
}
