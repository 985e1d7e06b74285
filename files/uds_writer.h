#pragma once

#include "files/number_format.h"
#include "files/uds_content.h"
#include "files/uds_fields.h"
#include "files/uds_layout.h"

#include <cstddef>
#include <vector>

namespace ks {

/// @throws CError when the point numbers cross or are equal, in this order
void CheckIndicesForWriting(const CUDSFields& fields);

/// The formats to write in: big-endian IEEE, or the machine's own.
/// @throws CError when the machine's formats are unknown
CNumberFormats OutputFormats(bool isSunOutput, const CNumberFormats& machine);

/// The bytes of the file that holds `content`, with numbers converted from the machine's formats to those of the
/// content. An arrangement other than "X-Y" and "Y" gives header records only.
/// @throws CError when the number of points is not the one of the point numbers
std::vector<std::byte> MakeUdsImage(const CUDSContent& content, const CUDSGeometry& geometry,
                                    const CNumberFormats& machine);

}  // namespace ks
