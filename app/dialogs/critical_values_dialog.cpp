#include "app/dialogs/critical_values_dialog.h"

#include "app/dialogs/number_field.h"
#include "app/ui_critical_values_dialog.h"
#include "compare/critical_values.h"
#include "widgets/make_child.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ksres {
namespace {

QString Text(std::string_view text) {
    return text.empty() ? QString() : QCoreApplication::translate("CCriterion", std::string(text).c_str());
}

/// What messages and screen readers call the field: the value that the label names, or all of a label around the field.
QString NameOf(const CCriterion& criterion) {
    const QString label = Text(criterion.label).trimmed();
    if (label.endsWith('<')) return label.chopped(1).trimmed();
    return label + QString::fromUtf8(" … ") + Text(criterion.labelAfter);
}

}  // namespace

CCriticalValuesDlg::CCriticalValuesDlg(const CCriticalValues& values, CMessages& messages, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::CCriticalValuesDlg>()), m_values(values), m_messages(messages) {
    m_ui->setupUi(this);
    for (const CCriterion& criterion : Criteria()) AddField(criterion);
    m_fields.front().edit->setFocus();  // made after the buttons, the fields come after them in the tab order
    m_fields.front().edit->selectAll();
}

CCriticalValuesDlg::~CCriticalValuesDlg() = default;

void CCriticalValuesDlg::AddField(const CCriterion& criterion) {
    auto* const edit = MakeChild<QLineEdit>(this);
    edit->setToolTip(Text(criterion.meaning));
    edit->setAccessibleName(NameOf(criterion));
    edit->setProperty("controlId", criterion.controlId);
    edit->setText(NumberText(m_values.*criterion.limit));
    FitNumberField(*edit);
    auto* const label = MakeChild<QLabel>(Text(criterion.label), this);
    label->setAlignment(Qt::AlignRight | Qt::AlignTrailing | Qt::AlignVCenter);
    label->setBuddy(edit);
    const int row = static_cast<int>(m_fields.size());
    m_ui->valueLayout->addWidget(label, row, 0);
    m_ui->valueLayout->addWidget(edit, row, 1);
    if (!criterion.labelAfter.empty()) {
        m_ui->valueLayout->addWidget(MakeChild<QLabel>(Text(criterion.labelAfter), this), row, 2);
    }
    m_fields.push_back({edit, criterion.limit});
}

void CCriticalValuesDlg::accept() {
    CCriticalValues edited;
    for (const CField& field : m_fields) {
        const auto value = ReadNumberField(*field.edit, m_messages);
        if (!value) return;
        edited.*field.limit = *value;
    }
    m_values = edited;
    QDialog::accept();
}

}  // namespace ksres
