#pragma once

#include "compare/summary_table.h"

#include <string>
#include <string_view>

/// One CSV field as RFC 4180 has it: in quotes, inner quotes doubled, when it holds a comma, a quote or a line end.
std::string CsvField(std::string_view text);

/// The fixed columns of the summary table as CSV: the headers, then one line per signal, columns in displayed order,
/// lines ending with CR LF. Bytes of file names are kept as they are.
std::string CsvTable(const CSummaryTable& table);
