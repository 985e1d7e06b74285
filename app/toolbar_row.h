#pragma once

#include <QList>
#include <QStringList>
#include <QToolBar>

class CCommandActions;

/// The row below the menus: the toolbar's buttons and, at the right end, the page selector's pane. The row stays while
/// the buttons are hidden; buttons without room are offered in a menu, so that nothing ever covers the pane.
class CToolbarRow : public QToolBar {
    Q_OBJECT

public:
    /// Takes `pane` over.
    CToolbarRow(QWidget* pane, QWidget* parent);

    /// The actions that the toolbar can show, in order.
    [[nodiscard]] static QList<QAction*> OfferedActions(const CCommandActions& actions);
    /// Shows their buttons, except those of the object names in `hidden`, and the one that customizes the toolbar.
    void ShowCommands(const CCommandActions& actions, const QStringList& hidden);

    QToolBar& Buttons() { return *m_buttons; }

private:
    QToolBar* m_buttons;
};
