#include "viewer/print_table.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double kGap = 0.12;  // between columns, inches

}  // namespace

CPrintTable::CPrintTable(int columns) {
    for (int column = 1; column <= std::max(columns, 1); ++column) m_names.append(QString::asprintf("Col %d", column));
}

void CPrintTable::AddRow(QStringList texts) {
    while (texts.size() > ColumnCount()) texts.removeLast();
    m_rows.push_back({std::move(texts), false, kFieldLetters});
}

void CPrintTable::AddWideRow(const QString& text) {
    m_rows.push_back({{text}, true, kFieldLetters});
}

void CPrintTable::Flow(const QStringList& texts, double width) {
    QStringList row;
    const auto finishRow = [&] {
        if (!row.isEmpty()) AddRow(std::exchange(row, {}));
    };
    for (const QString& text : texts) {
        const bool fits = kFieldLetters.Width(text) <= ColumnWidth(width) - kGap;
        if (!fits || row.size() == ColumnCount()) finishRow();
        if (fits) {
            row.append(text);
        } else {
            AddWideRow(text);
        }
    }
    finishRow();
}

double CPrintTable::Height(double width) const {
    double height = 0.0;
    for (const CRow& row : AllRows()) height += RowHeight(row, width);
    return height;
}

void CPrintTable::PlaceOn(CPage& page, QPointF place, double width) const {
    for (const CRow& row : AllRows()) {
        PlaceRow(row, page, place, width);
        place.ry() += RowHeight(row, width);
    }
}

double CPrintTable::CellWidth(const CRow& row, double width) const {
    return (row.wide ? width : ColumnWidth(width)) - kGap;
}

double CPrintTable::RowHeight(const CRow& row, double width) const {
    qsizetype lines = 1;
    for (const QString& text : row.texts)
        lines = std::max(lines, row.letters.Lines(text, CellWidth(row, width)).size());
    return static_cast<double>(lines) * row.letters.LineHeight();
}

void CPrintTable::PlaceRow(const CRow& row, CPage& page, QPointF place, double width) const {
    for (const QString& text : row.texts) {
        QPointF line = place;
        const QStringList lines = row.letters.Lines(text, CellWidth(row, width));
        for (const QString& part : lines) {
            page.AddText(line, part, row.letters);
            line.ry() += row.letters.LineHeight();
        }
        place.rx() += ColumnWidth(width);
    }
}

std::vector<CPrintTable::CRow> CPrintTable::AllRows() const {
    std::vector<CRow> rows;
    if (m_showNames) rows.push_back({m_names, false, {kFieldLetters.points, true}});
    rows.insert(rows.end(), m_rows.begin(), m_rows.end());
    return rows;
}
