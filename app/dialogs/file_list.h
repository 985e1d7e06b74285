#pragma once

#include <QListWidget>
#include <string>
#include <vector>

/// The list of signal files: shows their paths in order, marks those whose file is missing, lets the user remove and
/// reorder them and drop others onto it.
///
/// Keys: Delete removes the selected entries, Alt+Up and Alt+Down move them. Entries can be dragged to another place.
class CFileList : public QListWidget {
    Q_OBJECT

public:
    explicit CFileList(QWidget* parent = nullptr);

    /// The paths in the order shown, byte for byte as they were given.
    std::vector<std::string> Files() const;
    void AppendFiles(const std::vector<std::string>& files);
    /// Before the entry `row`; at the end when there is none.
    void InsertFiles(int row, const std::vector<std::string>& files);
    /// Selects a neighbour of the last one removed; without a selection it does nothing.
    void RemoveSelected();
    /// Moves the selected entries by one place; those already at the end of the list stay there, in their order.
    void MoveSelectedUp();
    void MoveSelectedDown();
    /// Looks again which files are missing.
    void RefreshMarks();

signals:
    /// Local files or folders were dropped before the entry `row`.
    void PathsDropped(const QStringList& paths, int row);

protected:
    QStringList mimeTypes() const override;
    Qt::DropActions supportedDropActions() const override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool BringsFiles(const QDropEvent& event) const;
    int DropRow(const QPoint& position) const;
    void MoveRow(int from, int to);
    void Mark(QListWidgetItem& item) const;
};
