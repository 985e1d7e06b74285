#pragma once

#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "compare/verdict.h"

#include <span>
#include <string>
#include <vector>

/// One cell of the summary table as shown.
struct CSummaryCell {
    std::string text;
    CVerdict verdict = CVerdict::None;

    bool operator==(const CSummaryCell&) const = default;
};

/// One row of the summary table: a cell per column of the table.
using CSummaryRow = std::vector<CSummaryCell>;

/// Snapshot of the summary table, judged against the current critical values.
struct CSummaryTable {
    std::span<const CSummaryColumn> columns = SummaryColumns();  ///< must outlive the table
    std::vector<CSummaryRow> rows;
    /// Columns in displayed order, each by its place in `columns`; the user may have dragged them.
    std::vector<int> order;
};

/// The table of the given signals, columns in their own order.
/// @param columns  must outlive the table
CSummaryTable MakeSummaryTable(const std::vector<CSignal>& signalList,
                               std::span<const CSummaryColumn> columns = SummaryColumns());

/// The fixed columns (CSummaryColumn::isFixed) among those of `order`, in that order.
/// @throws std::out_of_range where `order` names a column that does not exist
std::vector<int> FixedOrder(std::span<const CSummaryColumn> columns, const std::vector<int>& order);
