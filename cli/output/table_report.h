#pragma once

#include "cli/commands/compare_options.h"
#include "cli/output/text_table.h"
#include "compare/document.h"
#include "compare/summary_table.h"

#include <string>

/// What a completed run prints on standard output: reference and preparation, the numbered paths, the table, and the
/// limits that its verdicts depend on.
std::string TableReport(const CCompareOptions& options, const CQuorvelDoc& document, const CSummaryTable& table,
                        const CTextTableStyle& style);

/// What --verbose prints on standard error about a stopped run: the notes of the run, and every signal that was read as
/// VerboseReport shows it. Empty when there is nothing of that.
std::string StoppedReport(const CQuorvelDoc& document);

/// What --verbose prints on standard error about a completed run: the notes of the run, and every signal with its
/// points, its warnings and its notes.
std::string VerboseReport(const CQuorvelDoc& document);
