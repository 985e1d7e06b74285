#include "app/dialogs/customize_dialog.h"

#include "app/ui_customize_dialog.h"

#include <QAction>
#include <QListWidgetItem>
#include <QPushButton>

#include <memory>
#include <utility>

namespace {

constexpr int kIdRole = Qt::UserRole;  // QString

}  // namespace

QString PlainActionText(const QString& text) {
    const QString label = text.section(QLatin1Char('\t'), 0, 0);
    QString plain;
    for (qsizetype i = 0; i < label.size(); ++i) {
        if (label[i] == u'&') ++i;  // marks the next character; a doubled one is a literal ampersand
        if (i < label.size()) plain += label[i];
    }
    return plain;
}

CCustomizeDialog::CCustomizeDialog(const QList<QAction*>& actions, QStringList hiddenIds, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::CCustomizeDialog>()), m_hiddenIds(std::move(hiddenIds)) {
    m_ui->setupUi(this);
    for (const QAction* const action : actions) AddEntry(*action);
    m_ui->buttonList->setCurrentRow(0);
    const QPushButton* const showAll = m_ui->buttonBox->addButton(tr("Show &All"), QDialogButtonBox::ResetRole);
    connect(showAll, &QPushButton::clicked, this, &CCustomizeDialog::ShowAll);
}

CCustomizeDialog::~CCustomizeDialog() = default;

void CCustomizeDialog::AddEntry(const QAction& action) {
    const QString id = action.objectName();
    if (action.isSeparator() || id.isEmpty()) return;
    auto entry = std::make_unique<QListWidgetItem>(action.icon(), PlainActionText(action.text()));
    entry->setData(kIdRole, id);
    entry->setToolTip(action.statusTip());
    entry->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    entry->setCheckState(m_hiddenIds.contains(id) ? Qt::Unchecked : Qt::Checked);
    m_ui->buttonList->addItem(entry.release());  // owned by the list
}

void CCustomizeDialog::ShowAll() {
    for (int row = 0; row < m_ui->buttonList->count(); ++row) m_ui->buttonList->item(row)->setCheckState(Qt::Checked);
}

void CCustomizeDialog::accept() {
    m_hiddenIds.clear();
    for (int row = 0; row < m_ui->buttonList->count(); ++row) {
        const QListWidgetItem& entry = *m_ui->buttonList->item(row);
        if (entry.checkState() == Qt::Unchecked) m_hiddenIds.append(entry.data(kIdRole).toString());
    }
    QDialog::accept();
}
