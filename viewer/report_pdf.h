#pragma once

#include "files/replacing_file.h"
#include "signal/data.h"

#include <chrono>
#include <optional>
#include <string>

/// How much of a file the printed report holds. The preview's choice is in this order.
enum class CReportMode {
    Specification,  ///< the labeled header fields
    Full            ///< every header field, the extrema and a plot of the curve
};

/// Paper of a report that is written to a file.
enum class CReportPaper { Letter, A4 };

/// What a report file depends on besides the record.
struct CReportFileOptions {
    std::optional<CReportPaper> paper;                 ///< none: the usual paper in the user's country
    std::optional<std::chrono::year_month_day> today;  ///< the date in the footer; none: the local date
};

/// Writes the printed report of `record` as a PDF file to `path` (UTF-8). An existing file is replaced only when the
/// new one is complete. `filePath` is the record's file: its name becomes the document's title and the plot's legend.
///
/// A QApplication must exist, on any platform; "offscreen" is enough.
[[nodiscard]] ks::CWriteResult WriteReportPdf(const std::string& path, const ks::CData& record,
                                              const std::string& filePath, CReportMode mode,
                                              const CReportFileOptions& options = {});
