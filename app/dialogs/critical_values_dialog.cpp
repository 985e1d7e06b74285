#include "app/dialogs/critical_values_dialog.h"
#include <memory>
#include <vector>

#include "app/dialogs/number_field.h"
#include "app/ui_critical_values_dialog.h"
#include "compare/critical_values.h"

namespace ksres {

CCriticalValuesDlg::CCriticalValuesDlg(const CCriticalValues& values, CMessages& messages, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::CCriticalValuesDlg>()), m_values(values), m_messages(messages) {
    m_ui->setupUi(this);
    for (const auto& [edit, limit] : Fields()) {
        FitNumberField(*edit);
        edit->setText(NumberText(m_values.*limit));
    }
    m_ui->averageResidualEdit->selectAll();
}

CCriticalValuesDlg::~CCriticalValuesDlg() = default;

std::vector<CCriticalValuesDlg::CField> CCriticalValuesDlg::Fields() const {
    return {{m_ui->averageResidualEdit, &CCriticalValues::averageResidual},
            {m_ui->standardDeviationEdit, &CCriticalValues::standardDeviation},
            {m_ui->corridorEdit, &CCriticalValues::corridor},
            {m_ui->correlationEdit, &CCriticalValues::correlation},
            {m_ui->tStatisticEdit, &CCriticalValues::tStatistic},
            {m_ui->momentEdit, &CCriticalValues::moment}};
}

void CCriticalValuesDlg::accept() {
    CCriticalValues edited;
    for (const auto& [edit, limit] : Fields()) {
        const auto value = ReadNumberField(*edit, m_messages);
        if (!value) return;
        edited.*limit = *value;
    }
    m_values = edited;
    QDialog::accept();
}

}  // namespace ksres
