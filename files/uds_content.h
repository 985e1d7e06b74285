#pragma once

#include "files/number_format.h"
#include "files/points.h"
#include "files/uds_fields.h"

#include <array>
#include <cstdint>

namespace ks {

/// What reading changed or left out.
struct CUDSRepairs {
    std::array<float, 4> userReals{};  ///< RD2 to RD5 in the file, maybe not a number; all became RD1
    std::int32_t year = 0;             ///< year of component 1 in the file; two digits became four
    std::uint64_t notNumbers = 0;      ///< other reals of header and points that were not a number; they became 0
    std::uint64_t movedTexts = 0;      ///< texts and tags with leading blanks, which are not kept
    std::uint64_t clearedRecords = 0;  ///< records with nonzero bytes after their last field or point
    std::uint64_t unusedRecords = 0;   ///< data records beyond those that the points need
};

/// What a UDS file holds, read or to be written.
struct CUDSContent {
    CUDSFields fields;
    CPointColumns columns;            ///< `z` is empty
    bool hasSecondComponent = false;  ///< the header of a second vehicle or component is present
    CNumberFormats formats;           ///< how the file's numbers are stored
    CUDSRepairs repairs;              ///< left by the last reading
};

}  // namespace ks
