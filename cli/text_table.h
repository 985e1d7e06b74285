#pragma once

#include <cstddef>
#include <string>

#include "compare/summary_table.h"

/// How the table is laid out for a terminal.
class CTextTableStyle {
public:
    std::size_t width = 80;  ///< columns to fit into; a single signal may still exceed it
    bool color = false;      ///< colour verdicts and headings by terminal sequences
};

/// The summary table with its columns as rows: headers down the side, signals side by side, as many as fit, then the
/// next ones below. Verdicts are the words "good" and "BAD" behind the values. Long paths are cut at their front.
/// Every line is ended by LF; a table without rows is an empty text.
std::string TextTable(const CSummaryTable& table, const CTextTableStyle& style);
