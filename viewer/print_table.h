#pragma once

#include <QPointF>
#include <QString>
#include <QStringList>
#include <vector>

#include "viewer/page.h"

/// Rows of texts in columns of equal width. A text too wide for its column is broken into lines; its row is then
/// higher.
class CPrintTable {
public:
    /// The columns are named "Col 1", "Col 2", ... until they get other names.
    /// @param columns  at least 1
    explicit CPrintTable(int columns);

    [[nodiscard]] int ColumnCount() const { return static_cast<int>(m_names.size()); }
    /// Columns are counted from 0.
    [[nodiscard]] const QString& ColumnName(int column) const { return m_names.at(column); }
    void SetColumnName(int column, const QString& name) { m_names[column] = name; }
    /// Whether a line with the names stands above the rows. Not so at first.
    void ShowNames(bool show) { m_showNames = show; }

    /// A row with one text per column; missing ones stay empty, those too many are left out.
    void AddRow(QStringList texts);
    /// A row with one text across all columns.
    void AddWideRow(const QString& text);
    /// Adds the texts in order, each in the next free column of a table `width` inches wide; one that is too wide for a
    /// column gets a row of its own.
    void Flow(const QStringList& texts, double width);

    [[nodiscard]] int RowCount() const { return static_cast<int>(m_rows.size()); }
    /// Inches.
    [[nodiscard]] double Height(double width) const;
    /// Puts the table onto a page; `place` is its upper left corner.
    void PlaceOn(CPage& page, QPointF place, double width) const;

private:
    struct CRow {
        QStringList texts;
        bool wide = false;
        CPrintLetters letters = kFieldLetters;
    };

    [[nodiscard]] double ColumnWidth(double width) const { return width / ColumnCount(); }
    [[nodiscard]] double CellWidth(const CRow& row, double width) const;
    [[nodiscard]] double RowHeight(const CRow& row, double width) const;
    void PlaceRow(const CRow& row, CPage& page, QPointF place, double width) const;
    [[nodiscard]] std::vector<CRow> AllRows() const;

    QStringList m_names;
    bool m_showNames = false;
    std::vector<CRow> m_rows;
};
