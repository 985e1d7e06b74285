#include "compare/summary_table.h"

#include "compare/signal.h"
#include "compare/summary_columns.h"

#include <cstddef>
#include <numeric>
#include <span>
#include <stdexcept>
#include <vector>

namespace {

CSummaryRow MakeRow(const CSignal& signal, std::span<const CSummaryColumn> columns) {
    CSummaryRow row;
    row.reserve(columns.size());
    for (const CSummaryColumn& column : columns) row.push_back({column.text(signal), Judge(column, signal)});
    return row;
}

}  // namespace

CSummaryTable MakeSummaryTable(const std::vector<CSignal>& signalList, std::span<const CSummaryColumn> columns) {
    CSummaryTable table;
    table.columns = columns;
    table.rows.reserve(signalList.size());
    for (const CSignal& signal : signalList) table.rows.push_back(MakeRow(signal, columns));
    table.order.resize(columns.size());
    std::iota(table.order.begin(), table.order.end(), 0);
    return table;
}

std::vector<int> FixedOrder(std::span<const CSummaryColumn> columns, const std::vector<int>& order) {
    std::vector<int> fixed;
    fixed.reserve(order.size());
    for (const int column : order) {
        const auto index = static_cast<std::size_t>(column);
        if (index >= columns.size()) throw std::out_of_range("The summary table has no such column.");
        if (columns[index].isFixed) fixed.push_back(column);
    }
    return fixed;
}
