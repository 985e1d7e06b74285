#include "cli/output/csv_table.h"

#include "compare/summary_table.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

std::string CsvField(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
        return std::string(text);
    }
    std::string field = "\"";
    for (const char c : text) {
        if (c == '"') {
            field += '"';
        }
        field += c;
    }
    field += '"';
    return field;
}

namespace {

// `textOf` returns the text of a column.
template <class TextOf>
void AppendLine(std::string& csv, const std::vector<int>& order, TextOf textOf) {
    bool isFirst = true;
    for (const int column : order) {
        if (!isFirst) {
            csv += ',';
        }
        isFirst = false;
        csv += CsvField(textOf(static_cast<std::size_t>(column)));
    }
    csv += "\r\n";
}

}  // namespace

std::string CsvTable(const CSummaryTable& table) {
    const std::vector<int> order = FixedOrder(table.columns, table.order);
    std::string csv;
    AppendLine(csv, order, [&table](std::size_t column) { return table.columns[column].header; });
    for (const CSummaryRow& row : table.rows) {
        AppendLine(csv, order, [&row](std::size_t column) { return std::string_view(row[column].text); });
    }
    return csv;
}
