#include "cli/output/csv_table.h"

#include <cstddef>

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

template <class Texts>
void AppendLine(std::string& csv, const std::vector<int>& order, const Texts& texts) {
    bool first = true;
    for (const int column : order) {
        if (!first) {
            csv += ',';
        }
        first = false;
        csv += CsvField(texts.at(static_cast<std::size_t>(column)));
    }
    csv += "\r\n";
}

}  // namespace

std::string CsvTable(const CSummaryTable& table) {
    std::string csv;
    AppendLine(csv, table.order, kSummaryHeaders);
    for (const CSummaryRow& row : table.rows) {
        AppendLine(csv, table.order, row.texts);
    }
    return csv;
}
