#include "app/messages.h"

#include <QApplication>
#include <QCoreApplication>
#include <QMessageBox>

namespace {

QMessageBox::Icon BoxIcon(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Warning:
            return QMessageBox::Warning;
        case MessageIcon::Error:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

}  // namespace

void CMessages::ShowError(QWidget* parent, const QString& text) {
    Show(parent, MessageIcon::Error, QCoreApplication::translate("CMessages", "Error"), text);
}

void CMessageBoxes::Show(QWidget* parent, MessageIcon icon, const QString& caption, const QString& text) {
    QMessageBox box(BoxIcon(icon), caption, text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);  // texts name files, and a file name may look like markup
    box.exec();
}

void CMessageBoxes::Beep() {
    QApplication::beep();
}
