#pragma once

#include <cstddef>
#include <cstdint>

// Numbers of Windows metafiles (WMF), shared by the writer and the reader of the tests. All are little-endian; a record
// is its size in 16-bit words (32 bits), its function (16 bits) and its parameters.

namespace wmf {

inline constexpr std::uint32_t kPlaceableKey = 0x9AC6CDD7;
inline constexpr std::size_t kHeaderBytes = 18;
inline constexpr std::uint16_t kVersion = 0x0300;
inline constexpr std::uint16_t kPolyPointLimit = 8000;  ///< some readers take no more in one record

enum CFunction : std::uint16_t {
    EndOfFile = 0x0000,
    SetBackgroundMode = 0x0102,
    SetPolygonFillMode = 0x0106,
    SelectObject = 0x012D,
    SetTextAlign = 0x012E,
    DeleteObject = 0x01F0,
    SetTextColor = 0x0209,
    SetWindowOrigin = 0x020B,
    SetWindowExtent = 0x020C,
    CreatePen = 0x02FA,
    CreateFont = 0x02FB,
    CreateBrush = 0x02FC,
    Polygon = 0x0324,
    Polyline = 0x0325,
    PolyPolygon = 0x0538,
    ExtendedTextOut = 0x0A32,
};

inline constexpr std::uint16_t kTransparent = 1;
inline constexpr std::uint16_t kFillWinding = 2;
inline constexpr std::uint16_t kAlignBaseline = 24;
inline constexpr std::uint16_t kPenSolid = 0;
inline constexpr std::uint16_t kPenNone = 5;
inline constexpr std::uint16_t kBrushSolid = 0;

}  // namespace wmf
