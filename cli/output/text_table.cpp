#include "cli/output/text_table.h"

#include "cli/join.h"
#include "cli/output/display_text.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"
#include "compare/verdict.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t kGap = 2;             // between columns
constexpr std::size_t kMostNameWidth = 34;  // of a path; numbers are never cut
constexpr std::string_view kGood = "good";
constexpr std::string_view kBad = "BAD";

constexpr std::string_view kBold = "\x1b[1m";
constexpr std::string_view kGreen = "\x1b[32m";
constexpr std::string_view kRed = "\x1b[1;31m";
constexpr std::string_view kPlain = "\x1b[0m";

// One column of the table, ready to print.
struct CColumn : CTextColumn {
    std::size_t valueWidth = 0;
    std::size_t wordWidth = 0;  // with the blank in front; 0 in a column without verdicts

    [[nodiscard]] std::size_t Width() const { return valueWidth + wordWidth; }
};

std::string_view VerdictWord(CVerdict verdict) {
    switch (verdict) {
        case CVerdict::None:
            return "";
        case CVerdict::Good:
            return kGood;
        case CVerdict::Bad:
            break;
    }
    return kBad;
}

// The verdict after the value.
std::string_view WordOf(const CTextCell& cell) {
    return cell.hasWord ? VerdictWord(cell.verdict) : std::string_view();
}

CColumn Measured(CTextColumn source) {
    CColumn column{std::move(source)};
    for (const CTextCell& cell : column.cells) {
        column.valueWidth = std::max(column.valueWidth, DisplayWidth(cell.value));
        // "good" and "BAD" line up across the whole table, whichever of them a column has.
        column.wordWidth = std::max(column.wordWidth, WordOf(cell).empty() ? 0 : 1 + kGood.size());
    }
    const std::size_t headerWidth = std::max(DisplayWidth(column.header), DisplayWidth(column.note));
    if (headerWidth > column.Width()) {
        column.valueWidth = headerWidth - column.wordWidth;
    }
    return column;
}

CTextColumn MakeColumn(const CSummaryTable& table, std::size_t index) {
    const CSummaryColumn& source = table.columns[index];
    CTextColumn column;
    column.header = source.header;
    column.isLeftAligned = source.isName;
    for (const CSummaryRow& row : table.rows) {
        const CSummaryCell& cell = row[index];
        const std::string shown = DisplayText(cell.text);
        column.cells.push_back({source.isName ? ElideFront(shown, kMostNameWidth) : shown, cell.verdict});
    }
    return column;
}

CTextColumn NumberColumn(std::size_t count) {
    CTextColumn column;
    for (std::size_t i = 1; i <= count; ++i) column.cells.push_back({Join({"(", std::to_string(i), ")"})});
    return column;
}

CTextColumn BalanceColumn(const std::vector<std::vector<CVerdict>>& rows) {
    CTextColumn column;
    column.header = "Bad verdicts";
    for (const std::vector<CVerdict>& row : rows) {
        const auto bad = std::ranges::count(row, CVerdict::Bad);
        const auto judged = bad + std::ranges::count(row, CVerdict::Good);
        const CVerdict verdict = bad > 0 ? CVerdict::Bad : CVerdict::Good;
        column.cells.push_back({Join({std::to_string(bad), " of ", std::to_string(judged)}), verdict, false});
    }
    return column;
}

std::vector<std::vector<CVerdict>> VerdictsOf(const CSummaryTable& table) {
    std::vector<std::vector<CVerdict>> rows;
    for (const CSummaryRow& row : table.rows) {
        rows.emplace_back();
        for (const CSummaryCell& cell : row) rows.back().push_back(cell.verdict);
    }
    return rows;
}

std::string Blanks(std::size_t count) {
    return std::string(count, ' ');
}

std::string Painted(std::string_view text, std::string_view paint, bool hasColor) {
    return hasColor ? Join({paint, text, kPlain}) : std::string(text);
}

// Fills the column's width, so that the next column lines up.
std::string CellText(const CColumn& column, const CTextCell& cell, bool hasColor) {
    const std::string_view word = WordOf(cell);
    const std::string pad = Blanks(column.valueWidth - DisplayWidth(cell.value));
    const std::string rest = Blanks(column.wordWidth - (word.empty() ? 0 : 1 + word.size()));
    std::string shown = word.empty() ? cell.value : Join({cell.value, " ", word});
    if (cell.verdict != CVerdict::None) {
        shown = Painted(shown, cell.verdict == CVerdict::Good ? kGreen : kRed, hasColor);
    }
    return column.isLeftAligned ? Join({shown, pad, rest}) : Join({pad, shown, rest});
}

std::string HeaderText(const CColumn& column, bool hasColor) {
    const std::string pad = Blanks(column.Width() - DisplayWidth(column.header));
    const std::string header = column.header.empty() ? "" : Painted(column.header, kBold, hasColor);
    return column.isLeftAligned ? Join({header, pad}) : Join({pad, header});
}

// Below the header.
std::string NoteText(const CColumn& column) {
    const std::string pad = Blanks(column.Width() - DisplayWidth(column.note));
    return column.isLeftAligned ? Join({column.note, pad}) : Join({pad, column.note});
}

void AppendLine(std::string& text, std::string line) {
    line.erase(line.find_last_not_of(' ') + 1);
    text += line;
    text += '\n';
}

using CBand = std::vector<const CColumn*>;

std::vector<CBand> Bands(const CColumn& number, const std::vector<CColumn>& columns, std::size_t width) {
    std::vector<CBand> bands;
    std::size_t used = 0;
    for (const CColumn& column : columns) {
        const std::size_t needed = kGap + column.Width();
        if (bands.empty() || used + needed > width) {
            bands.push_back({&number});
            used = number.Width();
        }
        bands.back().push_back(&column);
        used += needed;
    }
    return bands;
}

template <class TextOf>
std::string Line(const CBand& band, TextOf textOf) {
    std::string line;
    for (const CColumn* const column : band) {
        line += column == band.front() ? "" : Blanks(kGap);
        line += textOf(*column);
    }
    return line;
}

void AppendBand(std::string& text, const CBand& band, bool hasColor) {
    AppendLine(text, Line(band, [hasColor](const CColumn& column) { return HeaderText(column, hasColor); }));
    if (std::ranges::any_of(band, [](const CColumn* column) { return !column->note.empty(); })) {
        AppendLine(text, Line(band, NoteText));
    }
    AppendLine(text, Line(band, [](const CColumn& column) {
                   return std::string(column.Width(), column.header.empty() ? ' ' : '-');
               }));
    for (std::size_t i = 0; i < band.front()->cells.size(); ++i) {
        AppendLine(text, Line(band, [i, hasColor](const CColumn& column) {
                       return CellText(column, column.cells[i], hasColor);
                   }));
    }
}

}  // namespace

std::string TextTable(std::vector<CTextColumn> columns, const CTextTableStyle& style) {
    if (columns.empty() || columns.front().cells.empty()) {
        return {};
    }
    const CColumn number = Measured(NumberColumn(columns.front().cells.size()));
    std::vector<CColumn> measured;
    measured.reserve(columns.size());
    for (CTextColumn& column : columns) measured.push_back(Measured(std::move(column)));
    std::string text;
    for (const CBand& band : Bands(number, measured, style.width)) {
        text += text.empty() ? "" : "\n";
        AppendBand(text, band, style.hasColor);
    }
    return text;
}

CTextColumn BalanceOf(const std::vector<CTextColumn>& columns) {
    std::vector<std::vector<CVerdict>> rows(columns.empty() ? 0 : columns.front().cells.size());
    for (const CTextColumn& column : columns) {
        for (std::size_t row = 0; row < rows.size(); ++row) rows[row].push_back(column.cells[row].verdict);
    }
    return BalanceColumn(rows);
}

std::string TextTable(const CSummaryTable& table, const CTextTableStyle& style) {
    std::vector<CTextColumn> columns;
    columns.reserve(table.order.size() + 1);
    for (const int index : table.order) columns.push_back(MakeColumn(table, static_cast<std::size_t>(index)));
    // Of every column, whether it is shown or not.
    columns.push_back(BalanceColumn(VerdictsOf(table)));
    return TextTable(std::move(columns), style);
}
