#pragma once

#include <memory>

class QPrintDialog;
class QPrinter;
class QWidget;

/// Lets the user choose a printer and its options. Tests put a scripted one in its place.
class CPrinterPicker {
public:
    virtual ~CPrinterPicker() = default;
    /// @param pageCount  of what is to be printed; of several pages the user may choose some
    /// @return           false: cancelled
    virtual bool Pick(QWidget* parent, QPrinter& printer, int pageCount) = 0;
    /// Makes `printer` the default printer of the platform, without a question; false: there is none.
    virtual bool TakeDefault(QPrinter& printer) = 0;
};

/// The printer dialog of the platform.
class CPrinterDialogs : public CPrinterPicker {
public:
    bool Pick(QWidget* parent, QPrinter& printer, int pageCount) override;
    bool TakeDefault(QPrinter& printer) override;

    /// The dialog that Pick shows.
    static std::unique_ptr<QPrintDialog> MakeDialog(QWidget* parent, QPrinter& printer, int pageCount);
};
