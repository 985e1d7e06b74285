#include "app/message_box.h"

#include <QApplication>
#include <QCoreApplication>
#include <QMessageBox>

namespace {

QMessageBox::Icon BoxIcon(CMessageIcon icon) {
    switch (icon) {
        case CMessageIcon::Information:
            return QMessageBox::Information;
        case CMessageIcon::Warning:
            return QMessageBox::Warning;
        case CMessageIcon::Error:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

}  // namespace

void CMessages::ShowError(QWidget* parent, const QString& text) {
    Show(parent, CMessageIcon::Error, QCoreApplication::translate("CMessages", "Error"), text);
}

void CMessageBoxes::Show(QWidget* parent, CMessageIcon icon, const QString& caption, const QString& text) {
    QMessageBox box(BoxIcon(icon), caption, text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);  // texts name files, and a file name may look like markup
    box.exec();
}

void CMessageBoxes::Beep() {
    QApplication::beep();
}
