#include "compare/export.h"
#include "compare/html_text.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"
#include "compare/verdict.h"
#include "files/replacing_file.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// The report's red is darker than the screen's, on purpose: it is the background of black text on paper.
std::string_view ColorAttribute(CVerdict verdict) {
    switch (verdict) {
        case CVerdict::Good:
            return "bgcolor=\"#00E000\" ";
        case CVerdict::Bad:
            return "bgcolor=\"#E00000\" ";
        case CVerdict::None:
            break;
    }
    return {};
}

void AppendLine(std::string& html, std::string_view text) {
    html += text;
    html += kLineEnd;
}

void AppendHeaderRow(std::string& html, std::span<const CSummaryColumn> columns, const std::vector<int>& order) {
    AppendLine(html, "<TR ALIGN=CENTER VALIGN=CENTER>");
    for (const int column : order) {
        html += "\t<TD><B>";
        AppendEscaped(html, columns[static_cast<std::size_t>(column)].header);
        AppendLine(html, "</B></TD>");
    }
    AppendLine(html, "</TR>");
}

void AppendRow(std::string& html, const CSummaryRow& row, const std::vector<int>& order) {
    AppendLine(html, "<TR ALIGN=CENTER VALIGN=CENTER>");
    for (const int column : order) {
        const CSummaryCell& cell = row[static_cast<std::size_t>(column)];
        html += "\t<TD ";
        html += ColorAttribute(cell.verdict);
        html += ">";
        AppendEscaped(html, cell.text);
        AppendLine(html, "</TD>");
    }
    AppendLine(html, "</TR>");
}

}  // namespace

std::string HtmlReport(const CSummaryTable& table) {
    std::string html;
    AppendLine(html, "<html>");
    AppendLine(html, "<head><title> Quorvel</title></head>");
    AppendLine(html, "<body>");
    html += "<h1>Quorvel</h1> ";
    AppendLine(html, "<CENTER>");
    AppendLine(html, "<TABLE BORDER=3 CELLPADDING=3 WIDTH=\"90%\" >");
    const std::vector<int> order = FixedOrder(table.columns, table.order);
    AppendHeaderRow(html, table.columns, order);
    for (const CSummaryRow& row : table.rows) AppendRow(html, row, order);
    html += "</TABLE> </CENTER> ";
    html += "</body> ";
    html += "</html> ";
    return html;
}

ks::CWriteResult WriteHtmlReport(const std::string& path, const CSummaryTable& table) {
    return ks::WriteFile(path, HtmlReport(table));
}
