#include "app/dialogs/error_dialog.h"

#include "app/messages.h"
#include "app/ui_error_dialog.h"
#include "compare/document_host.h"

#include <QDir>

#include <memory>
#include <string>
#include <vector>

namespace ksres {

CErrorDialog::CErrorDialog(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::CErrorDialog>()) {
    m_ui->setupUi(this);
}

CErrorDialog::~CErrorDialog() = default;

void CErrorDialog::AddMessage(const std::string& message) {
    m_text += QString::fromStdString(message) + QStringLiteral("\r\n");
}

void CErrorDialog::showEvent(QShowEvent* event) {
    m_ui->messageEdit->setPlainText(m_text.isEmpty() ? app_message::kNoErrorMessages : m_text);
    QDialog::showEvent(event);
}

void CErrorDialog::AddMessages(const std::vector<CRunMessage>& messages) {
    std::string path;
    for (const CRunMessage& message : messages) {
        if (message.path != path) {
            path = message.path;
            if (!m_text.isEmpty()) AddMessage({});
            if (!path.empty()) AddMessage(QDir::toNativeSeparators(QString::fromStdString(path)).toStdString());
        }
        AddMessage(message.text);
    }
}

void CErrorDialog::ShowMessages(const std::vector<CRunMessage>& messages, QWidget* parent) {
    if (messages.empty()) return;
    CErrorDialog dialog(parent);
    dialog.AddMessages(messages);
    dialog.exec();
}

}  // namespace ksres
