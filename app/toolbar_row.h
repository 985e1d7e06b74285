#pragma once

#include <QToolBar>

/// The row below the menus: the toolbar's buttons and, at the right end, the page selector's pane. The row stays while
/// the buttons are hidden; buttons without room are offered in a menu, so that nothing ever covers the pane.
class CToolbarRow : public QToolBar {
    Q_OBJECT

public:
    /// Takes `pane` over.
    CToolbarRow(QWidget* pane, QWidget* parent);

    QToolBar& Buttons() { return *m_buttons; }

private:
    QToolBar* m_buttons;
};
