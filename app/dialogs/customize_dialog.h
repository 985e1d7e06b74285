#pragma once

#include <QDialog>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

class QAction;

namespace Ui {
class CCustomizeDialog;
}

/// The text of an action as a list shows it: without the mnemonic's ampersand and without a tab and shortcut after
/// it.
QString PlainActionText(const QString& text);

/// "Customize": which buttons the toolbar shows, one checkable entry per action.
class CCustomizeDialog : public QDialog {
    Q_OBJECT

public:
    /// Offers `actions`, in order, except separators and actions without an id (objectName). Those whose ids are in
    /// `hiddenIds` are not checked.
    CCustomizeDialog(const QList<QAction*>& actions, QStringList hiddenIds, QWidget* parent = nullptr);
    ~CCustomizeDialog() override;

    /// The ids given; after OK, those of the unchecked actions, in order.
    [[nodiscard]] const QStringList& HiddenIds() const { return m_hiddenIds; }

public slots:
    void accept() override;

private:
    void AddEntry(const QAction& action);
    void ShowAll();

    std::unique_ptr<Ui::CCustomizeDialog> m_ui;
    QStringList m_hiddenIds;
};
