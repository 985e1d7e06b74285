#pragma once

#include "files/replacing_file.h"

#include <string>

/// Whether reports can be written: Qt draws them in a program of its own, quorvel-pdf-report, which is next to this one
/// unless it was built without the desktop program.
bool CanWritePdfReport();

/// Writes the report of the UDS-1992 file at `file` as PDF to `pdf` (both UTF-8), without a screen; `isFull` requests
/// the full report. Requires CanWritePdfReport().
/// @throws std::bad_alloc when there is too little memory
ks::CWriteResult WritePdfReport(const std::string& pdf, const std::string& file, bool isFull);
