#include "app/table/summary_model.h"

#include <QBrush>
#include <QColor>
#include <QGuiApplication>
#include <QPalette>
#include <QStringList>
#include <utility>

#include "files/number_text.h"

namespace {

QString HeaderText(int column) {
    return QString::fromUtf8(kSummaryHeaders[static_cast<std::size_t>(column)]);
}

/// A limit as it was given.
QString Given(double limit) {
    return QString::fromStdString(ks::ShortestText(limit));
}

/// A number derived from a limit; six digits, for the shortest text of 0.07 * 100 is 7.000000000000001.
QString Derived(double value) {
    return QString::fromStdString(ks::GeneralText(value));
}

bool IsPathColumn(int column) {
    return column == kFilenameColumn || column == kReferenceColumn;
}

Qt::Alignment ColumnAlignment(int column) {
    return Qt::AlignVCenter | (IsPathColumn(column) ? Qt::AlignLeft : Qt::AlignRight);
}

/// Good or bad in words; empty without a verdict.
QString VerdictWord(CVerdictColor verdict) {
    switch (verdict) {
        case CVerdictColor::Green:
            return CSummaryModel::tr("good");
        case CVerdictColor::Red:
            return CSummaryModel::tr("bad");
        default:
            return {};
    }
}

/// The verdict's colour, mixed with as much white when it is an old one.
QColor CellColor(CVerdictColor verdict, bool isPreviousRun) {
    const QColor color = QColor::fromRgb(static_cast<QRgb>(verdict));
    if (!isPreviousRun) return color;
    constexpr int kWhite = 255;
    return {(color.red() + kWhite) / 2, (color.green() + kWhite) / 2, (color.blue() + kWhite) / 2};
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

QString LimitText(int column, const CCriticalValues& limits) {
    if (column >= kFirstMomentColumn && column <= kLastMomentColumn) {
        return CSummaryModel::tr("below %1").arg(Given(limits.moment));
    }
    switch (column) {
        case kResidualColumn:
            return CSummaryModel::tr("below %1 % of the reference peak").arg(Given(limits.averageResidual));
        case kDeviationColumn:
            return CSummaryModel::tr("below %1 % of the reference peak").arg(Given(limits.standardDeviation));
        case kCorridorColumn:
            return CSummaryModel::tr("below %1 % of the points outside the corridor")
                .arg(Derived(limits.corridor * 100.0));
        case kCorrelationColumn:
            //: %1 is the smallest correlation factor, %2 the critical value that it comes from
            return CSummaryModel::tr("above %1 (1 minus %2)")
                .arg(Derived(1.0 - limits.correlation), Given(limits.correlation));
        case kTStatisticColumn:
            return CSummaryModel::tr("below %1").arg(Given(limits.tStatistic));
        default:
            return {};
    }
}

QString PreviousRunText() {
    return CSummaryModel::tr("Results of the previous run");
}

void CSummaryModel::SetSnapshot(CSummarySnapshot snapshot) {
    snapshot.paths.resize(snapshot.table.rows.size());
    if (snapshot.paths == m_snapshot.paths) {
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
    emit headerDataChanged(Qt::Horizontal, 0, kSummaryColumnCount - 1);  // the limits in its tool tips
    if (rowCount() == 0) return;
    emit dataChanged(index(0, 0), index(rowCount() - 1, kSummaryColumnCount - 1));
}

int CSummaryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_snapshot.table.rows.size());
}

int CSummaryModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kSummaryColumnCount;
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
            return QVariant::fromValue(ColumnAlignment(index.column()));
        case kVerdictRole:
            return static_cast<int>(Verdict(index));
        default:
            return {};
    }
}

QVariant CSummaryModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return QAbstractTableModel::headerData(section, orientation, role);
    if (section < 0 || section >= kSummaryColumnCount) return {};
    if (role == Qt::DisplayRole) return HeaderText(section);
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(ColumnAlignment(section));
    if (role != Qt::ToolTipRole) return {};
    const QString limit = LimitText(section, m_snapshot.limits);
    //: %1 is the name of a column, %2 a limit such as "below 0.2"
    return limit.isEmpty() ? HeaderText(section) : tr("%1\nGood: %2").arg(HeaderText(section), limit);
}

QString CSummaryModel::Text(const QModelIndex& index) const {
    const CSummaryRow& row = m_snapshot.table.rows[static_cast<std::size_t>(index.row())];
    return QString::fromStdString(row.texts[static_cast<std::size_t>(index.column())]);
}

CVerdictColor CSummaryModel::Verdict(const QModelIndex& index) const {
    const CSummaryRow& row = m_snapshot.table.rows[static_cast<std::size_t>(index.row())];
    return row.colors[static_cast<std::size_t>(index.column())];
}

QVariant CSummaryModel::Background(const QModelIndex& index) const {
    const CVerdictColor verdict = Verdict(index);
    if (verdict == CVerdictColor::White) return {};  // the theme's own background
    return QBrush(CellColor(verdict, m_snapshot.isPreviousRun));
}

QVariant CSummaryModel::Foreground(const QModelIndex& index) const {
    if (Verdict(index) != CVerdictColor::White) return QBrush(Qt::black);
    if (m_snapshot.isPreviousRun) return QGuiApplication::palette().brush(QPalette::PlaceholderText);
    return {};
}

QString CSummaryModel::ToolTip(const QModelIndex& index) const {
    // The value is not on the first line: a path with a "<" there would make the whole a rich text.
    QStringList lines = {HeaderText(index.column()), Text(index)};
    const QString verdict = VerdictWord(Verdict(index));
    if (!verdict.isEmpty()) {
        lines.append(tr("Limit: %1").arg(LimitText(index.column(), m_snapshot.limits)));
        lines.append(tr("Verdict: %1").arg(verdict));
    }
    if (m_snapshot.isPreviousRun) lines.append(PreviousRunText());
    return lines.join(QLatin1Char('\n'));
}

QString CSummaryModel::AccessibleText(const QModelIndex& index) const {
    const QString name = HeaderText(index.column());
    const QString verdict = VerdictWord(Verdict(index));
    const QString limit = LimitText(index.column(), m_snapshot.limits);
    //: %1 is a column's name, %2 a value
    const QString text = verdict.isEmpty() ? tr("%1: %2").arg(name, Text(index))
                                           //: %1 is a column's name, %2 a value, %3 good or bad, %4 the limit
                                           : tr("%1: %2, %3, limit: %4").arg(name, Text(index), verdict, limit);
    if (!m_snapshot.isPreviousRun) return text;
    //: %1 is a cell's text, %2 says that it is of the previous run
    return tr("%1. %2").arg(text, PreviousRunText());
}
