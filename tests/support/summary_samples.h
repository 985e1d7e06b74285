#pragma once

#include "compare/critical_values.h"
#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// Summary columns by name, and a table with one column more than the program has.

/// Place of the column with that header.
inline int ColumnOf(std::string_view header) {
    int place = 0;
    for (const CSummaryColumn& column : SummaryColumns()) {
        if (column.header == header) return place;
        ++place;
    }
    throw std::out_of_range(std::string(header));
}

inline const int kFilenameColumn = ColumnOf("Filename");
inline const int kPeakColumn = ColumnOf("Peak Value");
inline const int kResidualColumn = ColumnOf("Avg Residual");
inline const int kDeviationColumn = ColumnOf("Std Dev of Residual");
inline const int kCorridorColumn = ColumnOf("% in Corridor");
inline const int kCorrelationColumn = ColumnOf("Correlation Factor");
inline const int kTStatisticColumn = ColumnOf("T Statistic");
inline const int kFirstMomentColumn = ColumnOf("0 Moment Difference");
inline const int kLastMomentColumn = ColumnOf("5th Moment Difference");
inline const int kReferenceColumn = ColumnOf("Ref Filename");

/// Place of a column among the cells of a row.
inline std::size_t At(int column) {
    return static_cast<std::size_t>(column);
}

inline std::size_t ColumnCount() {
    return SummaryColumns().size();
}

/// All columns in their order, the third moved in front of the first.
inline std::vector<int> ThirdColumnFirst() {
    std::vector<int> order(ColumnCount());
    std::iota(order.begin(), order.end(), 0);
    std::rotate(order.begin(), order.begin() + 2, order.begin() + 3);
    return order;
}

/// The fixed columns, in their order.
inline std::vector<CSummaryColumn> FixedColumns() {
    std::vector<CSummaryColumn> columns;
    for (const CSummaryColumn& column : SummaryColumns()) {
        if (column.isFixed) columns.push_back(column);
    }
    return columns;
}

/// The program's columns and one that is not fixed, "Extra", before the last one: it shows the number of points,
/// and that is good above the limit of the T statistic.
inline std::vector<CSummaryColumn> ColumnsWithExtra() {
    std::vector<CSummaryColumn> columns(SummaryColumns().begin(), SummaryColumns().end());
    const auto count = [](const CSignal& signal) { return static_cast<double>(signal.GetPointCount()); };
    columns.insert(columns.end() - 1,
                   {.header = "Extra",
                    .text = [](const CSignal& signal) { return std::to_string(signal.GetPointCount()) + " points"; },
                    .judgment = CJudgment{count, &CCriticalValues::tStatistic, CGoodSide::Above}});
    return columns;
}

/// A row without verdicts whose cell k of `columns` holds "`name`.k".
inline CSummaryRow PlainRow(const std::string& name, std::size_t columns = ColumnCount()) {
    CSummaryRow row(columns);
    for (std::size_t column = 0; column < columns; ++column) row[column].text = name + "." + std::to_string(column);
    return row;
}
