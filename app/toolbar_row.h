#pragma once

#include <QList>
#include <QStringList>
#include <QToolBar>

class CCommandActions;

/// The row below the menus: the toolbar's buttons and, at the right end, the page selector's pane. The row stays when
/// the buttons are hidden. Buttons that do not fit are offered in a menu, so that nothing ever covers the pane.
class CToolbarRow : public QToolBar {
    Q_OBJECT

public:
    /// Takes ownership of `pane`.
    CToolbarRow(QWidget* pane, QWidget* parent);

    /// The actions that the toolbar can show, in order.
    [[nodiscard]] static QList<QAction*> OfferedActions(const CCommandActions& actions);
    /// Shows their buttons, except those whose object names are in `hidden`, and the button that customizes the
    /// toolbar.
    void ShowCommands(const CCommandActions& actions, const QStringList& hidden);

    QToolBar& Buttons() { return *m_buttons; }

private:
    QToolBar* m_buttons;
};
