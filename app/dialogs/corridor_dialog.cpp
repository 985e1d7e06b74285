#include "app/dialogs/corridor_dialog.h"

#include "app/dialogs/number_field.h"
#include "app/message_box.h"
#include "app/messages.h"
#include "app/ui_corridor_dialog.h"

#include <memory>

CCorridorDlg::CCorridorDlg(double size, CMessages& messages, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::CCorridorDlg>()), m_size(size), m_messages(messages) {
    m_ui->setupUi(this);
    FitNumberField(*m_ui->sizeEdit);
    m_ui->sizeEdit->setText(NumberText(m_size));
    m_ui->sizeEdit->selectAll();
}

CCorridorDlg::~CCorridorDlg() = default;

void CCorridorDlg::accept() {
    const auto size = ReadNumberField(*m_ui->sizeEdit, m_messages);
    if (!size) return;
    m_size = *size;
    m_ui->sizeEdit->setText(NumberText(m_size));
    if (m_size > 0.0) {
        QDialog::accept();
        return;
    }
    m_messages.ShowError(this, app_message::kCorridorNotPositive);
    m_ui->sizeEdit->setFocus();
    m_ui->sizeEdit->selectAll();
}
