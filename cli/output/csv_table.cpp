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

void AppendField(std::string& csv, std::string_view text, bool isFirst) {
    if (!isFirst) {
        csv += ',';
    }
    csv += CsvField(text);
}

// `textOf` returns the text of a column; the texts of `more` follow.
template <class TextOf>
void AppendLine(std::string& csv, const std::vector<int>& order, TextOf textOf, const std::vector<std::string>& more) {
    bool isFirst = true;
    for (const int column : order) {
        AppendField(csv, textOf(static_cast<std::size_t>(column)), isFirst);
        isFirst = false;
    }
    for (const std::string& text : more) {
        AppendField(csv, text, isFirst);
        isFirst = false;
    }
    csv += "\r\n";
}

}  // namespace

std::string CsvTable(const CSummaryTable& table, const CCsvColumns& more) {
    const std::vector<int> order = FixedOrder(table.columns, table.order);
    const std::vector<std::string> none;
    std::string csv;
    AppendLine(
        csv, order, [&table](std::size_t column) { return table.columns[column].header; }, more.headers);
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const CSummaryRow& row = table.rows[i];
        AppendLine(
            csv, order, [&row](std::size_t column) { return std::string_view(row[column].text); },
            i < more.rows.size() ? more.rows[i] : none);
    }
    return csv;
}
