#pragma once

#include "compare/summary_table.h"

#include <string>
#include <string_view>
#include <vector>

/// One CSV field as RFC 4180 has it: in quotes, inner quotes doubled, when it holds a comma, a quote or a line end.
std::string CsvField(std::string_view text);

/// Columns to add to those of the table.
struct CCsvColumns {
    std::vector<std::string> headers;
    std::vector<std::vector<std::string>> rows;  ///< as many as the table has, each as long as `headers`; or none
};

/// The fixed columns of the summary table as CSV: the headers, then one line per signal, columns in displayed order,
/// then those of `more`; lines end with CR LF. Bytes of file names are kept as they are.
std::string CsvTable(const CSummaryTable& table, const CCsvColumns& more = {});
