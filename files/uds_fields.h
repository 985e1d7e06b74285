#pragma once

#include "files/uds_field_list.h"

#include <cstdint>
#include <string>
#include <utility>

namespace ks {

/// The header of a UDS-1992 file: one getter and one setter per field, `GetNAME` and `SetNAME`, with the names, types
/// and defaults of uds_field_list.h. A new field set holds the defaults.
///
/// Texts are UTF-8 of any length; the writer cuts them to the field's width in bytes of the file's Latin-1. Nothing
/// is checked here: the values are those of the file.
class CUDSFields {
public:
    CUDSFields() = default;
    CUDSFields(const CUDSFields&) = default;
    CUDSFields(CUDSFields&&) = default;
    CUDSFields& operator=(const CUDSFields&) = default;
    CUDSFields& operator=(CUDSFields&&) = default;
    virtual ~CUDSFields() = default;

    // clang-format off
#define QUORVEL_TEXT_ACCESS(record, NAME, width, fallback)    \
    const std::string& Get##NAME() const { return m_##NAME; } \
    void Set##NAME(std::string value) { m_##NAME = std::move(value); }
#define QUORVEL_INTEGER_ACCESS(record, NAME, fallback)  \
    std::int32_t Get##NAME() const { return m_##NAME; } \
    void Set##NAME(std::int32_t value) { m_##NAME = value; }
#define QUORVEL_REAL_ACCESS(record, NAME)        \
    float Get##NAME() const { return m_##NAME; } \
    void Set##NAME(float value) { m_##NAME = value; }
    QUORVEL_UDS_FIELDS(QUORVEL_TEXT_ACCESS, QUORVEL_INTEGER_ACCESS, QUORVEL_REAL_ACCESS)
#undef QUORVEL_TEXT_ACCESS
#undef QUORVEL_INTEGER_ACCESS
#undef QUORVEL_REAL_ACCESS
    // clang-format on

private:
#define QUORVEL_TEXT_MEMBER(record, NAME, width, fallback) std::string m_##NAME{fallback};
#define QUORVEL_INTEGER_MEMBER(record, NAME, fallback) std::int32_t m_##NAME{fallback};
#define QUORVEL_REAL_MEMBER(record, NAME) float m_##NAME{0.0F};
    QUORVEL_UDS_FIELDS(QUORVEL_TEXT_MEMBER, QUORVEL_INTEGER_MEMBER, QUORVEL_REAL_MEMBER)  // NOLINT(*-string-init)
#undef QUORVEL_TEXT_MEMBER
#undef QUORVEL_INTEGER_MEMBER
#undef QUORVEL_REAL_MEMBER
};

}  // namespace ks
