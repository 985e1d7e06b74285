#pragma once

class CFilePicker;
class CMessages;
class CPrinterPicker;
class CSettings;

/// What the window needs of the machine and its user; all must outlive the window. Tests put scripted ones in place.
struct CWindowServices {
    CSettings& settings;
    CFilePicker& picker;
    CMessages& messages;
    CPrinterPicker& printers;
};
