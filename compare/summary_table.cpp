#include "compare/summary_table.h"

#include <numeric>

namespace {

CSummaryRow MakeRow(const CSignal& signal) {
    CSummaryRow row;
    for (int column = 0; column < kSummaryColumnCount; ++column) {
        row.texts[static_cast<std::size_t>(column)] = signal.GetColumnText(column);
        row.colors[static_cast<std::size_t>(column)] = signal.GetColumnColor(column);
    }
    return row;
}

}  // namespace

CSummaryTable MakeSummaryTable(const std::vector<CSignal>& signalList) {
    CSummaryTable table;
    table.rows.reserve(signalList.size());
    for (const CSignal& signal : signalList) table.rows.push_back(MakeRow(signal));
    table.order.resize(kSummaryColumnCount);
    std::iota(table.order.begin(), table.order.end(), 0);
    return table;
}
