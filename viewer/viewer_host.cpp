#include "viewer/viewer_host.h"

#include <QPrintDialog>

bool CViewerHost::AskPrinter(QWidget* parent, QPrinter& printer) {
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    return dialog.exec() == QDialog::Accepted;
}
