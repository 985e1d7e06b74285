#include "app/printer_picker.h"

#include <QPrintDialog>

bool CPrinterDialogs::Pick(QWidget* parent, QPrinter& printer) {
    QPrintDialog dialog(&printer, parent);
    return dialog.exec() == QDialog::Accepted;
}
