#pragma once

#include "compare/summary_table.h"

#include <cstddef>
#include <string>

/// How the table is laid out for a terminal.
struct CTextTableStyle {
    std::size_t width = 80;  ///< columns to fit into; a single column of the table may still exceed it
    bool hasColor = false;   ///< color verdicts and headings by terminal sequences
};

/// All columns of the summary table, one line per signal, numbered from 1. A column that does not fit next to
/// the ones before it starts a new band of columns below them; each band repeats the numbers. Verdicts are the words
/// "good" and "BAD" after the values; a last column counts the bad ones. Long paths are cut at their front. Every line
/// ends with LF; a table without rows gives an empty text.
std::string TextTable(const CSummaryTable& table, const CTextTableStyle& style);
