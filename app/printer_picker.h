#pragma once

class QPrinter;
class QWidget;

/// Lets the user choose a printer and its options. Tests put a scripted one in its place.
class CPrinterPicker {
public:
    virtual ~CPrinterPicker() = default;
    /// False: cancelled.
    virtual bool Pick(QWidget* parent, QPrinter& printer) = 0;
};

/// The printer dialog of the platform.
class CPrinterDialogs : public CPrinterPicker {
public:
    bool Pick(QWidget* parent, QPrinter& printer) override;
};
