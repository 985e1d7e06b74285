#pragma once

#include <array>
#include <string>
#include <vector>

#include "compare/signal.h"

/// One row of the summary table as shown: texts and verdicts of the sixteen columns.
class CSummaryRow {
public:
    std::array<std::string, kSummaryColumnCount> texts;
    std::array<CVerdictColor, kSummaryColumnCount> colors{};
};

/// Snapshot of the summary table, judged against the critical values of the moment.
class CSummaryTable {
public:
    std::vector<CSummaryRow> rows;
    /// Columns in displayed order; the user may have dragged them.
    std::vector<int> order;
};

/// The table of the given signals, columns in their own order.
CSummaryTable MakeSummaryTable(const std::vector<CSignal>& signalList);
