#include "cli/text_table.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/display_text.h"
#include "cli/join.h"

namespace {

constexpr std::size_t kGap = 2;              // between columns
constexpr std::size_t kMostValueWidth = 34;  // of a path; numbers are never cut
constexpr std::string_view kGood = "good";
constexpr std::string_view kBad = "BAD";
constexpr std::size_t kVerdictWidth = kGood.size();

constexpr std::string_view kBold = "\x1b[1m";
constexpr std::string_view kGreen = "\x1b[32m";
constexpr std::string_view kRed = "\x1b[1;31m";
constexpr std::string_view kPlain = "\x1b[0m";

// One signal, ready to print.
struct CColumn {
    std::vector<std::string> values;  // in displayed order
    std::vector<CVerdictColor> colors;
    std::string number;
    std::string balance;  // how many verdicts are bad
    bool anyBad = false;
    std::size_t valueWidth = 0;

    std::size_t Width() const { return valueWidth + 1 + kVerdictWidth; }
};

CColumn MakeColumn(const CSummaryRow& row, const std::vector<int>& order, std::size_t number) {
    CColumn column;
    column.number = Join({"(", std::to_string(number), ")"});
    std::size_t judged = 0;
    std::size_t bad = 0;
    for (const int index : order) {
        const auto cell = static_cast<std::size_t>(index);
        column.values.push_back(ElideFront(DisplayText(row.texts.at(cell)), kMostValueWidth));
        column.colors.push_back(row.colors.at(cell));
        column.valueWidth = std::max(column.valueWidth, DisplayWidth(column.values.back()));
        judged += row.colors.at(cell) == CVerdictColor::White ? 0U : 1U;
        bad += row.colors.at(cell) == CVerdictColor::Red ? 1U : 0U;
    }
    column.anyBad = bad > 0;
    column.balance = Join({std::to_string(bad), " of ", std::to_string(judged)});
    return column;
}

std::string Painted(std::string text, std::string_view paint, bool color) {
    return color ? Join({paint, text, kPlain}) : text;
}

std::string_view PaintOf(CVerdictColor verdict) {
    return verdict == CVerdictColor::Green ? kGreen : kRed;
}

// A cell with its gap in front; it fills its column, so that the next one stands in line.
std::string Cell(const CColumn& column, const std::string& value, CVerdictColor verdict, bool color) {
    const std::string pad(kGap + column.valueWidth - DisplayWidth(value), ' ');
    if (verdict == CVerdictColor::White) {
        return Join({pad, value, std::string(1 + kVerdictWidth, ' ')});
    }
    const std::string_view word = verdict == CVerdictColor::Green ? kGood : kBad;
    std::string judged = Join({value, " ", word});
    return pad + Painted(std::move(judged), PaintOf(verdict), color) + std::string(kVerdictWidth - word.size(), ' ');
}

std::string Label(std::string_view text, std::size_t width) {
    return std::string(text) + std::string(width - text.size(), ' ');
}

void AppendLine(std::string& text, std::string line) {
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + "\n";
}

using CGroup = std::pair<std::size_t, std::size_t>;  // first column, one past the last

std::vector<CGroup> Groups(const std::vector<CColumn>& columns, std::size_t labelWidth, std::size_t width) {
    std::vector<CGroup> groups;
    std::size_t used = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::size_t needed = kGap + columns[i].Width();
        if (groups.empty() || used + needed > width) {
            groups.emplace_back(i, i);
            used = labelWidth;
        }
        groups.back().second = i + 1;
        used += needed;
    }
    return groups;
}

class CPrinter {
public:
    CPrinter(const std::vector<CColumn>& columns, std::size_t labelWidth, bool color)
        : m_columns(columns), m_labelWidth(labelWidth), m_color(color) {}

    void AppendGroup(std::string& text, const CSummaryTable& table, const CGroup& group) const {
        std::string head = Label("", m_labelWidth);
        std::string rule(m_labelWidth, '-');
        std::string balance = Label("Bad verdicts", m_labelWidth);
        for (std::size_t i = group.first; i < group.second; ++i) {
            const CColumn& column = m_columns[i];
            head += Cell(column, column.number, CVerdictColor::White, false);
            rule += std::string(kGap, ' ') + std::string(column.Width(), '-');
            const std::string pad(kGap + column.valueWidth - DisplayWidth(column.balance), ' ');
            balance += pad + Painted(column.balance, column.anyBad ? kRed : kGreen, m_color) +
                       std::string(1 + kVerdictWidth, ' ');
        }
        AppendLine(text, Painted(std::move(head), kBold, m_color));
        AppendLine(text, rule);
        for (std::size_t line = 0; line < table.order.size(); ++line) AppendRow(text, table, group, line);
        AppendLine(text, rule);
        AppendLine(text, balance);
    }

private:
    void AppendRow(std::string& text, const CSummaryTable& table, const CGroup& group, std::size_t line) const {
        std::string row = Label(kSummaryHeaders.at(static_cast<std::size_t>(table.order[line])), m_labelWidth);
        for (std::size_t i = group.first; i < group.second; ++i) {
            row += Cell(m_columns[i], m_columns[i].values[line], m_columns[i].colors[line], m_color);
        }
        AppendLine(text, row);
    }

    const std::vector<CColumn>& m_columns;
    std::size_t m_labelWidth;
    bool m_color;
};

}  // namespace

std::string TextTable(const CSummaryTable& table, const CTextTableStyle& style) {
    std::vector<CColumn> columns;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        columns.push_back(MakeColumn(table.rows[i], table.order, i + 1));
    }
    std::size_t labelWidth = 0;
    for (const std::string_view header : kSummaryHeaders) labelWidth = std::max(labelWidth, header.size());
    const CPrinter printer(columns, labelWidth, style.color);
    std::string text;
    for (const CGroup& group : Groups(columns, labelWidth, style.width)) {
        text += text.empty() ? "" : "\n";
        printer.AppendGroup(text, table, group);
    }
    return text;
}
