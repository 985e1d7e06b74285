#include "viewer/print_table.h"

#include "viewer/page.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double kGap = 0.12;  // between columns, inches

}  // namespace

CPrintTable::CPrintTable(int columns) : m_columns(std::max(columns, 1)) {}

QString CPrintTable::ColumnName(int column) {
    return QString::asprintf("Col %d", column + 1);
}

void CPrintTable::AddRow(QStringList texts) {
    while (texts.size() > ColumnCount()) texts.removeLast();
    m_rows.push_back({std::move(texts)});
}

void CPrintTable::AddWideRow(const QString& text) {
    m_rows.push_back({{text}, true});
}

void CPrintTable::Flow(const QStringList& texts, double width) {
    QStringList row;
    const auto finishRow = [&] {
        if (!row.isEmpty()) AddRow(std::exchange(row, {}));
    };
    for (const QString& text : texts) {
        const bool fits = kFieldFont.Width(text) <= ColumnWidth(width) - kGap;
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
    for (const CRow& row : m_rows) height += RowHeight(row, width);
    return height;
}

void CPrintTable::PlaceOn(CPage& page, QPointF place, double width) const {
    for (const CRow& row : m_rows) {
        PlaceRow(row, page, place, width);
        place.ry() += RowHeight(row, width);
    }
}

double CPrintTable::CellWidth(const CRow& row, double width) const {
    return (row.isWide ? width : ColumnWidth(width)) - kGap;
}

double CPrintTable::RowHeight(const CRow& row, double width) const {
    qsizetype lines = 1;
    for (const QString& text : row.texts) lines = std::max(lines, kFieldFont.Lines(text, CellWidth(row, width)).size());
    return static_cast<double>(lines) * kFieldFont.LineHeight();
}

void CPrintTable::PlaceRow(const CRow& row, CPage& page, QPointF place, double width) const {
    for (const QString& text : row.texts) {
        QPointF line = place;
        const QStringList lines = kFieldFont.Lines(text, CellWidth(row, width));
        for (const QString& part : lines) {
            page.AddText(line, part, kFieldFont);
            line.ry() += kFieldFont.LineHeight();
        }
        place.rx() += ColumnWidth(width);
    }
}
