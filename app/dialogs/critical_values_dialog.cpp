#include "app/dialogs/critical_values_dialog.h"

#include "app/dialogs/number_field.h"
#include "app/ui_critical_values_dialog.h"

namespace ksres {

CCriticalValuesDlg::CCriticalValuesDlg(const CCriticalValues& values, CMessages& messages, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::CCriticalValuesDlg>()), m_values(values), m_messages(messages) {
    m_ui->setupUi(this);
    for (const auto& [edit, member] : Fields()) {
        FitNumberField(*edit);
        edit->setText(NumberText(m_values.*member));
    }
    m_ui->averageResidualEdit->selectAll();
}

CCriticalValuesDlg::~CCriticalValuesDlg() = default;

std::array<CCriticalValuesDlg::CField, 6> CCriticalValuesDlg::Fields() const {
    return {CField{m_ui->averageResidualEdit, &CCriticalValues::averageResidual},
            CField{m_ui->standardDeviationEdit, &CCriticalValues::standardDeviation},
            CField{m_ui->corridorEdit, &CCriticalValues::corridor},
            CField{m_ui->correlationEdit, &CCriticalValues::correlation},
            CField{m_ui->tStatisticEdit, &CCriticalValues::tStatistic},
            CField{m_ui->momentEdit, &CCriticalValues::moment}};
}

void CCriticalValuesDlg::accept() {
    CCriticalValues edited;
    for (const auto& [edit, member] : Fields()) {
        const auto value = ReadNumberField(*edit, m_messages);
        if (!value) return;
        edited.*member = *value;
    }
    m_values = edited;
    QDialog::accept();
}

}  // namespace ksres
