#include "app/dialogs/error_dialog.h"

#include "app/ui_error_dialog.h"

namespace ksres {

CErrorDialog::CErrorDialog(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::CErrorDialog>()) {
    m_ui->setupUi(this);
}

CErrorDialog::~CErrorDialog() = default;

void CErrorDialog::AddMessage(const std::string& message) {
    m_text += QString::fromStdString(message) + QStringLiteral("\r\n");
}

void CErrorDialog::showEvent(QShowEvent* event) {
    m_ui->messageEdit->setPlainText(m_text.isEmpty() ? tr("No Error Messages:") : m_text);
    QDialog::showEvent(event);
}

void CErrorDialog::ShowMessages(const std::vector<std::string>& messages, QWidget* parent) {
    if (messages.empty()) return;
    CErrorDialog dialog(parent);
    for (const std::string& message : messages) dialog.AddMessage(message);
    dialog.exec();
}

}  // namespace ksres
