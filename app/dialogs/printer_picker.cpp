#include "app/dialogs/printer_picker.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include <memory>

std::unique_ptr<QPrintDialog> CPrinterDialogs::MakeDialog(QWidget* parent, QPrinter& printer, int pageCount) {
    auto dialog = std::make_unique<QPrintDialog>(&printer, parent);
    if (pageCount > 1) {
        dialog->setMinMax(1, pageCount);
        return dialog;
    }
    dialog->setOption(QAbstractPrintDialog::PrintPageRange, false);
    dialog->setOption(QAbstractPrintDialog::PrintCollateCopies, false);
    // The toolkit's own dialog, used on X11, offers the range anyway and shows it again if it is hidden.
    if (auto* const range = dialog->findChild<QWidget*>(QStringLiteral("gbPrintRange"))) range->setEnabled(false);
    return dialog;
}

bool CPrinterDialogs::Pick(QWidget* parent, QPrinter& printer, int pageCount) {
    return MakeDialog(parent, printer, pageCount)->exec() == QDialog::Accepted;
}

bool CPrinterDialogs::TakeDefault(QPrinter& printer) {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) return false;
    printer.setPrinterName(info.printerName());
    return true;
}
