#pragma once

#include "files/uds_fields.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ks {

// What reader and writer share about the records of a UDS-1992 file; see docs/formats/uds-1992.md. Frozen: files on
// disk contain these texts and numbers.

/// The record geometry of a UDS file variant.
struct CUDSGeometry {
    std::size_t recordSize = 512;       ///< bytes per record
    std::size_t tagWidth = 12;          ///< bytes of a record's tag
    std::size_t valuesPerRecord = 125;  ///< values in a data record
    std::size_t integerWidth = 4;       ///< bytes of an integer field
    std::size_t realWidth = 4;          ///< bytes of a real field or value
};

inline constexpr std::string_view kFileId = "UDS-1992";
inline constexpr std::string_view kSecondComponentTag = "CMP-2 HDR";
inline constexpr std::string_view kCurveTag = "CURVE HDR";
inline constexpr std::string_view kAbscissaTag = "X DATA";
inline constexpr std::string_view kOrdinateTag = "Y DATA";

inline constexpr std::string_view kPairsForm = "X-Y";    ///< FILEFORM of abscissas and ordinates
inline constexpr std::string_view kOrdinatesForm = "Y";  ///< FILEFORM of ordinates only

/// NLP - NFP + 1, which may be zero or negative.
inline std::int64_t CountByIndices(const CUDSFields& fields) {
    return std::int64_t{fields.GetNLP()} - fields.GetNFP() + 1;
}

/// Records that `points` values take, the last one padded.
inline std::uint64_t RecordsFor(std::uint64_t points, const CUDSGeometry& geometry) {
    return (points + geometry.valuesPerRecord - 1) / geometry.valuesPerRecord;
}

/// Completes a two-digit model year of component 1: 50 to 99 become 1950 to 1999, 1 to 49 become 2001 to 2049.
inline void RepairYear(CUDSFields& fields) {
    const std::int32_t year = fields.GetYEAR1();
    if (year < 1 || year > 99) return;
    fields.SetYEAR1(year + (year >= 50 ? 1900 : 2000));
}

}  // namespace ks
