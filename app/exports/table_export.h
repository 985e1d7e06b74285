#pragma once

#include "app/window_services.h"

#include <QString>

class CSummaryList;
class QWidget;

// Both give what was done, for the status bar; an empty text when nothing was.

/// Copies the table as text to the clipboard, columns as displayed.
[[nodiscard]] QString CopyTable(const CSummaryList& list);

/// Asks for a file above `parent` and writes the HTML report of the table to it, columns as displayed; stores the
/// file's folder. A file that cannot be opened ends the command without a message: kept, users' scripts drive the
/// command and wait for no box. One that cannot be completed is reported.
[[nodiscard]] QString SaveHtmlReport(const CSummaryList& list, const CWindowServices& services, QWidget* parent);
