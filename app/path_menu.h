#pragma once

#include <QMenu>
#include <QStringList>

/// A menu of numbered paths. The first nine numbers are mnemonics; a long path is cut in its middle, the status bar
/// shows it whole.
class CPathMenu : public QMenu {
    Q_OBJECT

public:
    CPathMenu(const QString& title, QWidget* parent);

    /// Replaces the entries.
    void SetPaths(const QStringList& paths);

signals:
    /// Told once the menu has closed.
    void PathChosen(const QString& path);
};
