#include "app/dialogs/file_list.h"

#include "app/dropped_files.h"
#include "app/messages.h"
#include "files/native_path.h"
#include "widgets/quiet_color.h"
#include "widgets/take_copy.h"

#include <QDir>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QStyle>
#include <QStyledItemDelegate>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

namespace {

constexpr int kPathRole = Qt::UserRole;  // QByteArray: a path need not be valid UTF-8

/// Rows as wide as the list; a longer text is shortened in the middle, so the file's name stays visible.
class CPathDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {1, std::max(QStyledItemDelegate::sizeHint(option, index).height(), option.decorationSize.height() + 2)};
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->textElideMode = Qt::ElideMiddle;
    }
};

QByteArray PathOf(const QListWidgetItem& item) {
    return item.data(kPathRole).toByteArray();
}

}  // namespace

CFileList::CFileList(QWidget* parent) : QListWidget(parent) {
    setSelectionMode(ExtendedSelection);
    setDragDropMode(DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    const int iconSize = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    setIconSize(QSize(iconSize, iconSize));
    setItemDelegate(std::make_unique<CPathDelegate>(this).release());  // owned by its parent, the list
    setUniformItemSizes(true);
}

std::vector<std::string> CFileList::Files() const {
    std::vector<std::string> files;
    files.reserve(static_cast<std::size_t>(count()));
    for (int row = 0; row < count(); ++row) files.push_back(PathOf(*item(row)).toStdString());
    return files;
}

void CFileList::AppendFiles(const std::vector<std::string>& files) {
    InsertFiles(count(), files);
}

void CFileList::InsertFiles(int row, const std::vector<std::string>& files) {
    for (const std::string& file : files) {
        auto added = std::make_unique<QListWidgetItem>(QDir::toNativeSeparators(QString::fromStdString(file)));
        added->setData(kPathRole, QByteArray::fromStdString(file));
        Mark(*added);
        insertItem(row++, added.release());
    }
}

void CFileList::RemoveSelected() {
    if (selectedIndexes().isEmpty()) return;
    QList<int> rows;
    for (const QModelIndex& index : selectedIndexes()) rows.append(index.row());
    std::sort(rows.begin(), rows.end(), std::greater<>());
    for (const int row : rows) std::unique_ptr<QListWidgetItem>(takeItem(row)).reset();
    if (currentItem() != nullptr) currentItem()->setSelected(true);
}

void CFileList::MoveSelectedUp() {
    int top = 0;
    for (int row = 0; row < count(); ++row) {
        if (!item(row)->isSelected()) continue;
        if (row > top) MoveRow(row, row - 1);
        top = std::max(row, top + 1);
    }
}

void CFileList::MoveSelectedDown() {
    int bottom = count() - 1;
    for (int row = count() - 1; row >= 0; --row) {
        if (!item(row)->isSelected()) continue;
        if (row < bottom) MoveRow(row, row + 1);
        bottom = std::min(row, bottom - 1);
    }
}

void CFileList::MoveRow(int from, int to) {
    const bool isCurrent = currentRow() == from;
    QListWidgetItem* const moved = takeItem(from);
    insertItem(to, moved);
    moved->setSelected(true);
    if (isCurrent) setCurrentItem(moved, QItemSelectionModel::NoUpdate);
}

void CFileList::RefreshMarks() {
    for (int row = 0; row < count(); ++row) Mark(*item(row));
}

void CFileList::Mark(QListWidgetItem& item) const {
    std::error_code ignored;
    const bool isMissing = !std::filesystem::is_regular_file(ks::NativePath(PathOf(item).toStdString()), ignored);
    item.setIcon(isMissing ? style()->standardIcon(QStyle::SP_MessageBoxWarning) : QIcon());
    item.setToolTip(isMissing ? app_message::FileMissing(item.text()) : item.text());
    item.setData(Qt::AccessibleTextRole, isMissing ? tr("%1 (missing)").arg(item.text()) : item.text());
}

QStringList CFileList::mimeTypes() const {
    return QListWidget::mimeTypes() << QStringLiteral("text/uri-list");
}

Qt::DropActions CFileList::supportedDropActions() const {
    return Qt::CopyAction | Qt::MoveAction;
}

bool CFileList::BringsFiles(const QDropEvent& event) const {
    return event.source() != this && !LocalPaths(*event.mimeData()).isEmpty();
}

void CFileList::dragEnterEvent(QDragEnterEvent* event) {
    QListWidget::dragEnterEvent(event);
    if (BringsFiles(*event)) TakeAsCopy(*event);
}

void CFileList::dragMoveEvent(QDragMoveEvent* event) {
    QListWidget::dragMoveEvent(event);  // scrolls near the edges
    if (BringsFiles(*event)) TakeAsCopy(*event);
}

void CFileList::dropEvent(QDropEvent* event) {
    if (!BringsFiles(*event)) {
        QListWidget::dropEvent(event);
        return;
    }
    stopAutoScroll();
    setState(NoState);
    viewport()->update();  // removes the drop marker
    if (TakeAsCopy(*event)) emit PathsDropped(LocalPaths(*event->mimeData()), DropRow(event->position().toPoint()));
}

int CFileList::DropRow(const QPoint& position) const {
    const QModelIndex index = indexAt(position);
    if (!index.isValid()) return count();
    return position.y() > visualRect(index).center().y() ? index.row() + 1 : index.row();
}

void CFileList::keyPressEvent(QKeyEvent* event) {
    const bool isAlt = event->modifiers().testFlag(Qt::AltModifier);
    if (event->matches(QKeySequence::Delete)) {
        RemoveSelected();
    } else if (isAlt && event->key() == Qt::Key_Up) {
        MoveSelectedUp();
    } else if (isAlt && event->key() == Qt::Key_Down) {
        MoveSelectedDown();
    } else {
        QListWidget::keyPressEvent(event);
    }
}

void CFileList::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    if (count() > 0) return;
    QPainter painter(viewport());
    painter.setPen(QuietColor(palette().color(QPalette::Text), palette().color(QPalette::Base)));
    painter.drawText(viewport()->rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap,
                     app_message::kHowToAddFiles);
}
