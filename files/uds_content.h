#pragma once

#include "files/number_format.h"
#include "files/points.h"
#include "files/uds_fields.h"

namespace ks {

/// What a UDS file holds, read or to be written.
class CUDSContent {
public:
    CUDSFields fields;
    CPointColumns columns;         ///< `z` is empty
    bool secondComponent = false;  ///< whether the header of a second vehicle or component is present
    CNumberFormats formats;        ///< how the file's numbers are stored
};

}  // namespace ks
