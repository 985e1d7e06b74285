#pragma once

#include <memory>

class QPrintDialog;
class QPrinter;
class QWidget;

/// Lets the user choose a printer and its options. Tests replace it with a scripted one.
class CPrinterPicker {
public:
    virtual ~CPrinterPicker() = default;
    /// @param pageCount  of the document to print; the user can choose a range when there are several
    /// @return           false when the user canceled
    virtual bool Pick(QWidget* parent, QPrinter& printer, int pageCount) = 0;
    /// Makes `printer` the platform's default printer without asking; false when there is none.
    virtual bool TakeDefault(QPrinter& printer) = 0;
};

/// The platform's printer dialog.
class CPrinterDialogs : public CPrinterPicker {
public:
    bool Pick(QWidget* parent, QPrinter& printer, int pageCount) override;
    bool TakeDefault(QPrinter& printer) override;

    /// The dialog that Pick shows.
    static std::unique_ptr<QPrintDialog> MakeDialog(QWidget* parent, QPrinter& printer, int pageCount);
};
