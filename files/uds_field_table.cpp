#include "files/uds_field_table.h"

#include "files/uds_field_list.h"
#include "files/uds_fields.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace ks {
namespace {

// NOLINTBEGIN(bugprone-macro-parentheses): each is one term of a sum
#define QUORVEL_COUNT_TEXT(record, NAME, width, fallback) +1
#define QUORVEL_COUNT_INTEGER(record, NAME, fallback) +1
#define QUORVEL_COUNT_REAL(record, NAME) +1
// NOLINTEND(bugprone-macro-parentheses)
constexpr std::size_t kFieldCount = 0 QUORVEL_UDS_FIELDS(QUORVEL_COUNT_TEXT, QUORVEL_COUNT_INTEGER, QUORVEL_COUNT_REAL);
#undef QUORVEL_COUNT_TEXT
#undef QUORVEL_COUNT_INTEGER
#undef QUORVEL_COUNT_REAL

using CFieldTable = std::array<CUDSField, kFieldCount>;

/// The first byte of a record's fields: the file identification is a field itself, the other tags are not.
constexpr int FirstOffset(CUDSRecord record) {
    return record == CUDSRecord::File ? 0 : 12;
}

constexpr CFieldTable WithOffsets(CFieldTable table) {
    int offset = 0;
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (i == 0 || table[i].record != table[i - 1].record) offset = FirstOffset(table[i].record);
        table[i].offset = offset;
        offset += table[i].width;
    }
    return table;
}

#define QUORVEL_TEXT_ROW(record, NAME, width, fallback) \
    CUDSField{CUDSRecord::record, #NAME, width, 0,      \
              CUDSTextAccess{&CUDSFields::Get##NAME, &CUDSFields::Set##NAME, fallback}},
#define QUORVEL_INTEGER_ROW(record, NAME, fallback) \
    CUDSField{CUDSRecord::record, #NAME, 4, 0,      \
              CUDSIntegerAccess{&CUDSFields::Get##NAME, &CUDSFields::Set##NAME, fallback}},
#define QUORVEL_REAL_ROW(record, NAME) \
    CUDSField{CUDSRecord::record, #NAME, 4, 0, CUDSRealAccess{&CUDSFields::Get##NAME, &CUDSFields::Set##NAME}},
constexpr CFieldTable kFields =
    WithOffsets({QUORVEL_UDS_FIELDS(QUORVEL_TEXT_ROW, QUORVEL_INTEGER_ROW, QUORVEL_REAL_ROW)});
#undef QUORVEL_TEXT_ROW
#undef QUORVEL_INTEGER_ROW
#undef QUORVEL_REAL_ROW

constexpr int EndOf(CUDSRecord record) {
    int end = 0;
    for (const CUDSField& field : kFields) {
        if (field.record == record) end = field.offset + field.width;
    }
    return end;
}

}  // namespace

std::span<const CUDSField> UdsFieldTable() {
    return kFields;
}

const CUDSField* FindUdsField(std::string_view name) {
    const auto* const found = std::ranges::find(kFields, name, &CUDSField::name);
    return found == kFields.end() ? nullptr : found;
}

int UdsRecordEnd(CUDSRecord record) {
    return EndOf(record);
}

}  // namespace ks
