#pragma once

#include "app/window_services.h"

#include <QString>

class CSummaryList;
class QWidget;

// Both return what was done, for the status bar; an empty text when nothing was done.

/// Copies the table as text to the clipboard, columns as displayed.
[[nodiscard]] QString CopyTable(const CSummaryList& list);

/// Asks for a file above `parent` and writes the HTML report of the table to it, columns as displayed; stores the
/// file's folder. If the file cannot be opened, the command ends without a message; kept because users' scripts
/// drive the command and do not expect a box. A file that cannot be completed is reported.
[[nodiscard]] QString SaveHtmlReport(const CSummaryList& list, const CWindowServices& services, QWidget* parent);
