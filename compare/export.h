#pragma once

#include "compare/chart_block.h"
#include "compare/summary_table.h"
#include "files/replacing_file.h"

#include <cstdint>
#include <string>

/// The HTML report of a summary table: its fixed columns in displayed order, cells colored by verdict; lines end in CR
/// LF.
/// `&`, `<`, `>` and `"` in cell texts are escaped and characters beyond ASCII are numeric references.
std::string HtmlReport(const CSummaryTable& table);

/// Writes the HTML report to `path`.
[[nodiscard]] ks::CWriteResult WriteHtmlReport(const std::string& path, const CSummaryTable& table);

/// Puts the ASCII table of a chart block into `sink`, piece by piece: one row per point, X and Y of every series side
/// by side, each followed by one blank, six significant digits, rows ended by CR LF. A padded row of a series is "0.0 "
/// twice. Takes little memory, however long the table is.
void PutAsciiTable(const CChartBlock& block, ks::CFileSink& sink);

/// Writes the ASCII table of page `pageId` to `path`; a page without a chart has no rows.
[[nodiscard]] ks::CWriteResult WriteAsciiTable(const std::string& path, const CChartBlock& block, std::int32_t pageId);
