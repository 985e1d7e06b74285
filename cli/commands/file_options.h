#pragma once

#include "signal/ascii_export.h"

#include <string>
#include <vector>

// The options of the commands for single files. Paths are UTF-8; "-" is standard output where a comment says so. Each
// parser throws CUsageError with a sentence that says what would be accepted.

/// `quorvel-cli show FILE... [--json]`
struct CShowOptions {
    std::vector<std::string> files;  ///< at least one
    bool isJson = false;
};

/// `quorvel-cli export FILE --xy|--x --out PATH`
struct CExportOptions {
    std::string file;
    ks::CAsciiForm form = ks::CAsciiForm::XY;
    std::string out;  ///< "-" is standard output
};

/// Number formats that files are written in.
enum class CTargetFormat { Ieee, Sun };

/// `quorvel-cli convert FILE --to ieee|sun --out PATH`
struct CConvertOptions {
    std::string file;
    CTargetFormat to = CTargetFormat::Ieee;
    std::string out;  ///< "-" is standard output
};

/// `quorvel-cli report FILE --pdf PATH [--full]`
struct CReportOptions {
    std::string file;
    std::string pdf;  ///< never standard output
    bool isFull = false;
};

CShowOptions ParseShowOptions(const std::vector<std::string>& arguments);
CExportOptions ParseExportOptions(const std::vector<std::string>& arguments);
CConvertOptions ParseConvertOptions(const std::vector<std::string>& arguments);
CReportOptions ParseReportOptions(const std::vector<std::string>& arguments);
