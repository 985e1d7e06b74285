#include "app/table/summary_list.h"

#include "app/control_ids.h"
#include "app/table/summary_model.h"
#include "compare/summary_table.h"
#include "compare/verdict.h"
#include "files/one_line.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStringList>
#include <QStyledItemDelegate>

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace {

constexpr int kBarHeight = 2;  // pixels, of the bars that show the selection of a colored cell

/// Draws a judged cell in its color even when its row is selected; two bars then show the selection.
class CVerdictDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        if (!option.state.testFlag(QStyle::State_Selected) || !IsJudged(index)) return;
        const QBrush brush = option.palette.brush(QPalette::Highlight);
        QRect bar = option.rect;
        bar.setHeight(kBarHeight);
        painter->fillRect(bar, brush);
        bar.moveBottom(option.rect.bottom());
        painter->fillRect(bar, brush);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (IsJudged(index)) option->state.setFlag(QStyle::State_Selected, false);
        if (index.data(IsNameRole).toBool()) option->textElideMode = Qt::ElideMiddle;  // the file's name stays visible
    }

private:
    static bool IsJudged(const QModelIndex& index) {
        return index.data(VerdictRole).toInt() != static_cast<int>(CVerdict::None);
    }
};

QString OneLine(const QString& text) {
    return QString::fromStdString(ks::OneLine(text.toStdString()));
}

}  // namespace

CSummaryList::CSummaryList(QWidget* parent) : QTableView(parent) {
    setProperty("controlId", kSummaryListId);
    setAccessibleName(tr("Summary of the comparison"));
    setItemDelegate(std::make_unique<CVerdictDelegate>(this).release());  // owned by its parent, the list
    setModel(&m_model);
    setShowGrid(true);
    setWordWrap(false);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);  // Tab moves to the next control
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(verticalHeader()->minimumSectionSize() + 2 * kBarHeight);
    horizontalHeader()->setSectionsMovable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setResizeContentsPrecision(-1);  // by every row, even when scrolled out of view
    horizontalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(horizontalHeader(), &QHeaderView::customContextMenuRequested, this, [this](const QPoint& position) {
        emit ContextMenuAsked(horizontalHeader()->viewport()->mapToGlobal(position), -1);
    });
    resizeColumnsToContents();
}

void CSummaryList::SetSnapshot(CSummarySnapshot snapshot) {
    m_model.SetSnapshot(std::move(snapshot));
    resizeColumnsToContents();
    DescribeState();
}

void CSummaryList::MarkPreviousRun(bool isPreviousRun) {
    m_model.MarkPreviousRun(isPreviousRun);
    DescribeState();
}

void CSummaryList::DescribeState() {
    setAccessibleDescription(Snapshot().isPreviousRun ? PreviousRunText() : QString());
}

std::vector<int> CSummaryList::DisplayedOrder() const {
    std::vector<int> order;
    const int count = horizontalHeader()->count();
    order.reserve(static_cast<std::size_t>(count));
    for (int place = 0; place < count; ++place) order.push_back(horizontalHeader()->logicalIndex(place));
    return order;
}

CSummaryTable CSummaryList::DisplayedTable() const {
    CSummaryTable table = Snapshot().table;
    table.order = DisplayedOrder();
    return table;
}

QString CSummaryList::CopyDataText() const {
    const std::vector<int> order = FixedOrder(Snapshot().table.columns, DisplayedOrder());
    QString text;
    const auto appendLine = [&](const auto& cellText) {
        QStringList cells;
        for (const int column : order) cells.append(OneLine(cellText(column)));
        text += cells.join(QLatin1Char('\t')) + QStringLiteral("\r\n");
    };
    appendLine([&](int column) { return m_model.headerData(column, Qt::Horizontal).toString(); });
    for (int row = 0; row < m_model.rowCount(); ++row) {
        appendLine([&](int column) { return m_model.index(row, column).data().toString(); });
    }
    return text;
}

int CSummaryList::RowAt(const QPoint& globalPosition) const {
    const QPoint position = viewport()->mapFromGlobal(globalPosition);
    // A point above the viewport, on the header, would map to a row scrolled out of view.
    return viewport()->rect().contains(position) ? rowAt(position.y()) : -1;
}

void CSummaryList::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() != QContextMenuEvent::Keyboard) {
        emit ContextMenuAsked(event->globalPos(), RowAt(event->globalPos()));
        return;
    }
    const QModelIndex current = currentIndex();
    if (current.isValid()) scrollTo(current);
    const QPoint position = current.isValid() ? visualRect(current).center() : viewport()->rect().center();
    emit ContextMenuAsked(viewport()->mapToGlobal(position), current.row());
}

void CSummaryList::keyPressEvent(QKeyEvent* event) {
    const bool isAlt = event->modifiers() == Qt::AltModifier;
    if (isAlt && event->key() == Qt::Key_Left) {
        MoveCurrentColumn(-1);
    } else if (isAlt && event->key() == Qt::Key_Right) {
        MoveCurrentColumn(1);
    } else {
        QTableView::keyPressEvent(event);
    }
}

void CSummaryList::MoveCurrentColumn(int step) {
    if (!currentIndex().isValid()) return;
    const int place = horizontalHeader()->visualIndex(currentIndex().column());
    const int target = place + step;
    if (target < 0 || target >= horizontalHeader()->count()) return;
    horizontalHeader()->moveSection(place, target);
    scrollTo(currentIndex());
}
