#pragma once

#include <QListWidget>

#include <string>
#include <vector>

/// The list of signal files: shows their paths in order, marks missing files, and lets the user remove files, reorder
/// them, and drop others onto it.
///
/// Keys: Delete removes the selected entries, Alt+Up and Alt+Down move them. Entries can be dragged to another place.
class CFileList : public QListWidget {
    Q_OBJECT

public:
    explicit CFileList(QWidget* parent = nullptr);

    /// The paths in the order shown, byte for byte as they were given.
    [[nodiscard]] std::vector<std::string> Files() const;
    void AppendFiles(const std::vector<std::string>& files);
    /// Inserts before the entry `row`, or at the end when there is no such entry.
    void InsertFiles(int row, const std::vector<std::string>& files);
    /// Selects the neighbor of the last entry removed. Does nothing without a selection.
    void RemoveSelected();
    /// Moves the selected entries by one place; those already at an end of the list stay there, in their order.
    void MoveSelectedUp();
    void MoveSelectedDown();
    /// Checks again which files are missing.
    void RefreshMarks();

signals:
    /// Local files or folders were dropped before the entry `row`.
    void PathsDropped(const QStringList& paths, int row);

protected:
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] bool BringsFiles(const QDropEvent& event) const;
    [[nodiscard]] int DropRow(const QPoint& position) const;
    void MoveRow(int from, int to);
    void Mark(QListWidgetItem& item) const;
};
