#pragma once

class CFilePicker;
class CMessages;
class CPrinterPicker;
class CSettings;

/// What the window needs of the machine and its user; all must outlive the window. Tests use scripted ones.
struct CWindowServices {
    CSettings& settings;
    CFilePicker& picker;
    CMessages& messages;
    CPrinterPicker& printers;
};
