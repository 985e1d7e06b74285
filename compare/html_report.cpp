#include <string_view>

#include "compare/export.h"
#include "compare/html_text.h"

namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// The report's red is darker than the screen's, on purpose: it stands behind black text on paper.
std::string_view ColorAttribute(CVerdictColor color) {
    switch (color) {
        case CVerdictColor::Green:
            return "bgcolor=\"#00E000\" ";
        case CVerdictColor::Red:
            return "bgcolor=\"#E00000\" ";
        case CVerdictColor::White:
            break;
    }
    return {};
}

void AppendLine(std::string& html, std::string_view text) {
    html += text;
    html += kLineEnd;
}

void AppendHeaderRow(std::string& html, const std::vector<int>& order) {
    AppendLine(html, "<TR ALIGN=CENTER VALIGN=CENTER>");
    for (const int column : order) {
        html += "\t<TD><B>";
        AppendEscaped(html, kSummaryHeaders.at(static_cast<std::size_t>(column)));
        AppendLine(html, "</B></TD>");
    }
    AppendLine(html, "</TR>");
}

void AppendRow(std::string& html, const CSummaryRow& row, const std::vector<int>& order) {
    AppendLine(html, "<TR ALIGN=CENTER VALIGN=CENTER>");
    for (const int column : order) {
        html += "\t<TD ";
        html += ColorAttribute(row.colors.at(static_cast<std::size_t>(column)));
        html += ">";
        AppendEscaped(html, row.texts.at(static_cast<std::size_t>(column)));
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
    AppendHeaderRow(html, table.order);
    for (const CSummaryRow& row : table.rows) AppendRow(html, row, table.order);
    html += "</TABLE> </CENTER> ";
    html += "</body> ";
    html += "</html> ";
    return html;
}

ks::WriteResult WriteHtmlReport(const std::string& path, const CSummaryTable& table) {
    return ks::WriteFile(path, HtmlReport(table));
}
