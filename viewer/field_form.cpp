#include "viewer/field_form.h"

#include "files/uds_field_table.h"
#include "signal/data.h"
#include "signal/header_groups.h"
#include "viewer/value_edit.h"
#include "widgets/make_child.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace {

constexpr int kWideField = 40;  // bytes in the file: a value of this width fills the whole row

QString Title(ks::CHeaderGroupId id) {
    return QString::fromUtf8(ks::HeaderGroup(id).title);
}

bool IsWide(const ks::CHeaderEntry& entry) {
    const ks::CUDSField* const field = ks::FindUdsField(entry.fields.front());
    return field != nullptr && field->width >= kWideField;
}

/// What a screen reader calls the value: "Vehicle One, Weight".
QString AccessibleName(const ks::CHeaderGroup& group, const ks::CHeaderEntry& entry) {
    return QString::fromUtf8(group.title) + QStringLiteral(", ") + QString::fromUtf8(entry.label).chopped(1);
}

QString ShownText(const ks::CHeaderEntry& entry, const ks::CData& record) {
    const QString value = QString::fromUtf8(ks::HeaderText(entry, record));
    return entry.unit.empty() ? value : value + QLatin1Char(' ') + QString::fromUtf8(entry.unit);
}

}  // namespace

CFieldForm::CFieldForm(std::span<const ks::CHeaderGroupId> groups, int columns, QWidget* parent)
    : QWidget(parent), m_absentNote(MakeChild<QLabel>(tr("The file has no second component."), this)) {
    auto* const boxes = MakeChild<QVBoxLayout>(this);
    while (!groups.empty()) {
        const QString title = Title(groups.front());
        const auto next = std::ranges::find_if(groups, [&](ks::CHeaderGroupId id) { return Title(id) != title; });
        const auto count = static_cast<std::size_t>(next - groups.begin());
        AddBox(title, groups.first(count), columns);
        groups = groups.subspan(count);
    }
    m_absentNote->hide();
    boxes->addWidget(m_absentNote);
    boxes->addStretch();
}

void CFieldForm::ShowRecord(const ks::CData& record) {
    bool isAbsent = false;
    for (const CField& field : m_fields) {
        const bool isThere = ks::HasHeaderGroup(record, *field.group);
        field.edit->ShowText(isThere ? ShownText(*field.entry, record) : QString());
        isAbsent = isAbsent || !isThere;
    }
    m_absentNote->setVisible(isAbsent);
}

/// The values run down each column; a wide one has a row to itself.
void CFieldForm::AddBox(const QString& title, std::span<const ks::CHeaderGroupId> groups, int columns) {
    auto* const box = MakeChild<QGroupBox>(title, this);
    auto* const grid = MakeChild<QGridLayout>(box);
    layout()->addWidget(box);
    for (int column = 0; column < columns; ++column) grid->setColumnStretch(2 * column + 1, 1);

    int row = 0;
    std::vector<CField> narrow;
    const auto finishBlock = [&] {
        const int rows = (static_cast<int>(narrow.size()) + columns - 1) / columns;
        for (int place = 0; place < static_cast<int>(narrow.size()); ++place)
            AddField(*grid, narrow[static_cast<std::size_t>(place)], row + place % rows, 2 * (place / rows), 1);
        row += rows;
        narrow.clear();
    };
    for (const ks::CHeaderGroupId id : groups) {
        const ks::CHeaderGroup& group = ks::HeaderGroup(id);
        for (const ks::CHeaderEntry& entry : group.entries) {
            const CField field{&group, &entry, MakeChild<CValueEdit>(box)};
            m_fields.push_back(field);
            if (!IsWide(entry)) {
                narrow.push_back(field);
                continue;
            }
            finishBlock();
            AddField(*grid, field, row++, 0, 2 * columns - 1);
        }
    }
    finishBlock();
}

void CFieldForm::AddField(QGridLayout& grid, const CField& field, int row, int column, int columnSpan) {
    auto* const label = MakeChild<QLabel>(QString::fromUtf8(field.entry->label), field.edit->parentWidget());
    label->setBuddy(field.edit);
    field.edit->setAccessibleName(AccessibleName(*field.group, *field.entry));
    grid.addWidget(label, row, column);
    grid.addWidget(field.edit, row, column + 1, 1, columnSpan);
}
