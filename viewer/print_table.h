#pragma once

#include "viewer/page.h"

#include <QPointF>
#include <QString>
#include <QStringList>

#include <vector>

/// Rows of texts in columns of equal width. A text too wide for its column is broken into lines, which makes
/// its row taller.
class CPrintTable {
public:
    /// @param columns  at least 1
    explicit CPrintTable(int columns);

    [[nodiscard]] int ColumnCount() const { return m_columns; }
    /// "Col 1" for column 0. The form is settled, although no report shows the names yet.
    [[nodiscard]] static QString ColumnName(int column);

    /// A row with one text per column; missing texts leave empty cells, extra ones are left out.
    void AddRow(QStringList texts);
    /// A row with one text across all columns.
    void AddWideRow(const QString& text);
    /// Adds the texts in order, each in the next free column of a table `width` inches wide; one that is too wide for a
    /// column gets its own row.
    void Flow(const QStringList& texts, double width);

    /// Inches.
    [[nodiscard]] double Height(double width) const;
    /// Puts the table onto a page; `place` is its upper left corner.
    void PlaceOn(CPage& page, QPointF place, double width) const;

private:
    struct CRow {
        QStringList texts;
        bool isWide = false;
    };

    [[nodiscard]] double ColumnWidth(double width) const { return width / ColumnCount(); }
    [[nodiscard]] double CellWidth(const CRow& row, double width) const;
    [[nodiscard]] double RowHeight(const CRow& row, double width) const;
    void PlaceRow(const CRow& row, CPage& page, QPointF place, double width) const;

    int m_columns;
    std::vector<CRow> m_rows;
};
