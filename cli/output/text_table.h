#pragma once

#include "compare/summary_table.h"
#include "compare/verdict.h"

#include <cstddef>
#include <string>
#include <vector>

/// How the table is laid out for a terminal.
struct CTextTableStyle {
    std::size_t width = 80;  ///< columns to fit into; a single column of the table may still exceed it
    bool hasColor = false;   ///< color verdicts and headings by terminal sequences
};

/// One cell of a table for the terminal.
struct CTextCell {
    std::string value;
    CVerdict verdict = CVerdict::None;
    bool hasWord = true;  ///< a verdict's word follows the value; without it, only the color tells
};

/// One column of such a table: a cell per row.
struct CTextColumn {
    std::string header;
    std::string note;  ///< below the header; may be empty
    std::vector<CTextCell> cells;
    bool isLeftAligned = false;
};

/// The columns as a table, laid out as the summary table is. All columns have equally many cells.
std::string TextTable(std::vector<CTextColumn> columns, const CTextTableStyle& style);

/// The column that counts the bad verdicts in each row.
CTextColumn BalanceOf(const std::vector<CTextColumn>& columns);

/// All columns of the summary table, one line per signal, numbered from 1. A column that does not fit next to
/// the ones before it starts a new band of columns below them; each band repeats the numbers. Verdicts are the words
/// "good" and "BAD" after the values; a last column counts the bad ones. Long paths are cut at their front. Every line
/// ends with LF; a table without rows gives an empty text.
std::string TextTable(const CSummaryTable& table, const CTextTableStyle& style);
