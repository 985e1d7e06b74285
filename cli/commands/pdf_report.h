#pragma once

#include "files/replacing_file.h"
#include "signal/nsignal.h"

#include <string>

/// Whether this build can write reports. Qt draws them, and a build without the desktop program has no Qt.
bool CanWritePdfReport();

/// Writes the report of `record`, read from the file at `file`, as PDF to `pdf` (both UTF-8), without a screen;
/// `isFull` requests the full report. Requires CanWritePdfReport().
ks::CWriteResult WritePdfReport(const std::string& pdf, const ks::CNSignal& record, const std::string& file,
                                bool isFull);
