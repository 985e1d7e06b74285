#pragma once

#include <QMenu>
#include <QStringList>

/// A menu of numbered paths. The first nine numbers are mnemonics. A long path is shortened in the middle; the status
/// bar shows all of it.
class CPathMenu : public QMenu {
    Q_OBJECT

public:
    CPathMenu(const QString& title, QWidget* parent);

    /// Replaces the entries.
    void SetPaths(const QStringList& paths);

signals:
    /// Called once the menu has closed.
    void PathChosen(const QString& path);
};
