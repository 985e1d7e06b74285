#pragma once

#include "files/byte_source.h"
#include "files/uds_content.h"
#include "files/uds_layout.h"

namespace ks {

/// Reads a UDS file from a source that has not been read from yet, into a new `content`.
///
/// Tags, point numbers and needed size are looked at before the data records, which are read a piece at a time, so
/// that a damaged file is refused at once and nothing larger than the file is ever allocated.
/// @throws CError with a sentence of files/messages.h; `content` then holds what was read before the failure, and is
///         unchanged when the size is not a multiple of the record size
void ReadUds(CByteSource& source, const CUDSGeometry& geometry, CUDSContent& content);

}  // namespace ks
