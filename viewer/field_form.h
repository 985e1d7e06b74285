#pragma once

#include "signal/data.h"
#include "signal/header_groups.h"

#include <QWidget>

#include <span>
#include <vector>

class CValueEdit;
class QGridLayout;
class QLabel;

/// Groups of the header, one below the other, as boxes of labels and values. Each label is the buddy of its value; Tab
/// moves from value to value in the order of the labels.
class CFieldForm : public QWidget {
    Q_OBJECT

public:
    /// Adjacent `groups` with the same title share a box.
    /// @param columns  pairs of label and value side by side, at least 1
    CFieldForm(std::span<const ks::CHeaderGroupId> groups, int columns, QWidget* parent);

    /// Shows the record's values; those of a second component that its file lacks stay empty, and a note says so.
    void ShowRecord(const ks::CData& record);

private:
    struct CField {
        const ks::CHeaderGroup* group;
        const ks::CHeaderEntry* entry;
        CValueEdit* edit;
    };

    void AddBox(const QString& title, std::span<const ks::CHeaderGroupId> groups, int columns);
    void AddField(QGridLayout& grid, const CField& field, int row, int column, int columnSpan);

    std::vector<CField> m_fields;
    QLabel* m_absentNote;
};
