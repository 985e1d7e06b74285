#pragma once

#include "files/byte_source.h"
#include "files/uds_content.h"
#include "files/uds_layout.h"

namespace ks {

/// Reads a UDS file from a source whose size is known and of which nothing was read yet, into a new `content`.
///
/// Tags, point numbers and needed size are looked at before the data records, which are read a piece at a time, so
/// that a damaged file is refused at once and nothing larger than the file is ever allocated.
/// @throws CError with a sentence of files/messages.h; `content` is then as far as it was read
void ReadUds(CByteSource& source, const CUDSGeometry& geometry, CUDSContent& content);

}  // namespace ks
