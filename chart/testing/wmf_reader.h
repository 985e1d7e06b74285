#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct CWmfPlace {
    int x = 0;
    int y = 0;
    bool operator==(const CWmfPlace&) const = default;
};

struct CReadLine {
    std::vector<CWmfPlace> points;
    int penWidth = 0;
    std::uint32_t rgb = 0;
};

struct CReadArea {
    std::vector<std::vector<CWmfPlace>> outlines;
    std::uint32_t rgb = 0;
};

struct CReadText {
    CWmfPlace baseline;
    std::string bytes;
    int advance = 0;  ///< sum over the characters
    int height = 0;   ///< as stored: negative for the height of the letters
    int tenthsOfDegree = 0;
    bool isBold = false;
    bool isItalic = false;
    std::uint32_t rgb = 0;
};

/// The parsed contents of a placeable Windows metafile.
struct CWmfPicture {
    int width = 0;
    int height = 0;
    int unitsPerInch = 0;
    std::vector<CReadLine> lines;
    std::vector<CReadArea> areas;
    std::vector<CReadText> texts;
    std::string fault;  ///< the first error in the file; empty when there is none

    [[nodiscard]] bool HasText(std::string_view text) const;
    /// Points of all lines of one color.
    [[nodiscard]] std::size_t PointsOfColor(std::uint32_t rgb) const;
};

/// Reads every record and checks what a strict reader would: checksum, sizes, slots of objects, that drawing records
/// have the objects they need, and that all coordinates are inside the picture.
CWmfPicture ReadWmf(std::string_view bytes);
