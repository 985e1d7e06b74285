#include "signal/data_fields.h"

#include "files/uds_field_list.h"
#include "files/uds_fields.h"

namespace ks {

void CDataFields::SetFields(const CUDSFields& fields) {
    CUDSFields::operator=(fields);
#define QUORVEL_NO_TEXT(record, NAME, width, fallback)
#define QUORVEL_NO_INTEGER(record, NAME, fallback)
#define QUORVEL_WIDEN(record, NAME) m_##NAME = static_cast<double>(fields.Get##NAME());
    QUORVEL_UDS_FIELDS(QUORVEL_NO_TEXT, QUORVEL_NO_INTEGER, QUORVEL_WIDEN)
#undef QUORVEL_NO_TEXT
#undef QUORVEL_NO_INTEGER
#undef QUORVEL_WIDEN
}

}  // namespace ks
