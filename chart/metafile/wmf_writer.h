#pragma once

#include "chart/plane_geometry.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct CWmfPen {
    std::uint16_t width = 1;  ///< logical units
    std::uint32_t rgb = 0;    ///< 0xRRGGBB
    bool operator==(const CWmfPen&) const = default;
};

struct CWmfFont {
    std::int16_t pixelHeight = 1;     ///< of the em square, logical units
    std::int16_t tenthsOfDegree = 0;  ///< of the baseline, counter-clockwise
    bool isBold = false;
    bool isItalic = false;
    bool operator==(const CWmfFont&) const = default;
};

struct CWmfText {
    CPlanePoint baseline;                    ///< left end
    std::string_view bytes;                  ///< code page 1252, at most 32767
    std::span<const std::int16_t> advances;  ///< one per byte: distance to the next one's origin
    CWmfFont font;
    std::uint32_t rgb = 0;
};

/// Writes a placeable Windows metafile into memory. Coordinates are logical units, x to the right, y downward; the
/// caller must clip what is outside the picture. There is no transparency.
class CWmfWriter {
public:
    /// @param width, height  of the picture in logical units, 1 to 32767
    /// @param unitsPerInch   gives the picture its natural size
    CWmfWriter(std::int16_t width, std::int16_t height, std::uint16_t unitsPerInch);

    /// Points that coincide after rounding are written once; long lines are split.
    void Polyline(std::span<const CPlanePoint> points, const CWmfPen& pen);
    /// Fills closed outlines together by the winding rule, without drawing them.
    void Fill(std::span<const CPolyline> outlines, std::uint32_t rgb);
    void Text(const CWmfText& text);

    /// The whole file. The writer cannot be used afterward.
    [[nodiscard]] std::string Finish();

private:
    class CRecord;
    struct CSlots {
        std::optional<CWmfPen> pen;  ///< none: the pen that draws nothing
        std::optional<std::uint32_t> brush;
        std::optional<CWmfFont> font;
        std::optional<std::uint32_t> textColor;
    };

    void Append(const CRecord& record);
    void AppendPoints(std::uint16_t function, std::span<const std::int16_t> coordinates);
    void UsePen(const std::optional<CWmfPen>& pen);
    void UseBrush(std::uint32_t rgb);
    void UseFont(const CWmfFont& font);
    void UseTextColor(std::uint32_t rgb);
    /// Creates an object in the lowest free slot, selects it and deletes the one it replaces.
    void Replace(const CRecord& creation, std::optional<std::uint16_t>& slot);
    void RoundInto(std::span<const CPlanePoint> points, std::vector<std::int16_t>& coordinates) const;

    std::int16_t m_width;
    std::int16_t m_height;
    std::uint16_t m_unitsPerInch;
    std::string m_records;
    std::uint32_t m_largestRecordWords = 0;
    std::vector<bool> m_slotTaken;
    std::optional<std::uint16_t> m_penSlot, m_brushSlot, m_fontSlot;
    CSlots m_selected;
    std::vector<std::int16_t> m_coordinates;
};
