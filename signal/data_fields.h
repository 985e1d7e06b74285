#pragma once

#include "files/uds_field_list.h"
#include "files/uds_fields.h"

namespace ks {

/// Header fields of a signal record: every real field of the header also as a double.
///
/// The getters and setters of the real fields hide those of the base and speak double; each setter also stores the
/// value narrowed to single precision in the base, so a view of the record as plain header fields is always current.
class CDataFields : public CUDSFields {
public:
    /// Takes every header field, reals widened.
    void SetFields(const CUDSFields& fields);

#define QUORVEL_NO_TEXT(record, NAME, width, fallback)
#define QUORVEL_NO_INTEGER(record, NAME, fallback)
#define QUORVEL_DOUBLE_ACCESS(record, NAME)               \
    double Get##NAME() const {                            \
        return m_##NAME;                                  \
    }                                                     \
    void Set##NAME(double value) {                        \
        m_##NAME = value;                                 \
        CUDSFields::Set##NAME(static_cast<float>(value)); \
    }
    QUORVEL_UDS_FIELDS(QUORVEL_NO_TEXT, QUORVEL_NO_INTEGER, QUORVEL_DOUBLE_ACCESS)
#undef QUORVEL_DOUBLE_ACCESS

private:
#define QUORVEL_DOUBLE_MEMBER(record, NAME) double m_##NAME{0.0};
    QUORVEL_UDS_FIELDS(QUORVEL_NO_TEXT, QUORVEL_NO_INTEGER, QUORVEL_DOUBLE_MEMBER)
#undef QUORVEL_DOUBLE_MEMBER
#undef QUORVEL_NO_TEXT
#undef QUORVEL_NO_INTEGER
};

}  // namespace ks
