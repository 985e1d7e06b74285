#include "chart/metafile/wmf_writer.h"

#include "chart/metafile/wmf_format.h"
#include "chart/plane_geometry.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view kFace{"Arial\0", 6};
constexpr std::int16_t kNormalWeight = 400;
constexpr std::int16_t kBoldWeight = 700;
constexpr char kSwissVariablePitch = 0x22;

class CBytes {
public:
    void Byte(char value) { m_bytes += value; }
    void Text(std::string_view text) { m_bytes += text; }
    void U16(std::uint32_t value) {
        m_bytes += static_cast<char>(value & 0xFFU);
        m_bytes += static_cast<char>((value >> 8U) & 0xFFU);
    }
    void I16(std::int16_t value) { U16(static_cast<std::uint16_t>(value)); }
    void U32(std::uint32_t value) {
        U16(value & 0xFFFFU);
        U16(value >> 16U);
    }
    /// Red is the lowest byte in a metafile.
    void Color(std::uint32_t rgb) { U32(((rgb >> 16U) & 0xFFU) | (rgb & 0xFF00U) | ((rgb & 0xFFU) << 16U)); }
    void PadToWord() {
        if (m_bytes.size() % 2 != 0) m_bytes += '\0';
    }
    [[nodiscard]] const std::string& Bytes() const { return m_bytes; }

private:
    std::string m_bytes;
};

std::string PlaceableHeader(std::int16_t width, std::int16_t height, std::uint16_t unitsPerInch) {
    CBytes header;
    header.U32(wmf::kPlaceableKey);
    header.U16(0);
    header.I16(0);
    header.I16(0);
    header.I16(width);
    header.I16(height);
    header.U16(unitsPerInch);
    header.U32(0);
    std::uint32_t checksum = 0;
    const std::string& bytes = header.Bytes();
    for (std::size_t position = 0; position < bytes.size(); position += 2) {
        checksum ^= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[position])) |
                    static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[position + 1])) << 8U;
    }
    header.U16(checksum);
    return header.Bytes();
}

std::string FileHeader(std::uint32_t fileWords, std::size_t objectCount, std::uint32_t largestRecordWords) {
    CBytes header;
    header.U16(1);
    header.U16(wmf::kHeaderBytes / 2);
    header.U16(wmf::kVersion);
    header.U32(fileWords);
    header.U16(static_cast<std::uint16_t>(objectCount));
    header.U32(largestRecordWords);
    header.U16(0);
    return header.Bytes();
}

/// Readers close an area themselves.
void DropClosingPoint(std::size_t start, std::vector<std::int16_t>& coordinates) {
    const std::size_t end = coordinates.size();
    if (end - start < 4) return;
    const bool isClosed = coordinates[start] == coordinates[end - 2] && coordinates[start + 1] == coordinates[end - 1];
    if (isClosed) coordinates.resize(end - 2);
}

}  // namespace

class CWmfWriter::CRecord : public CBytes {
public:
    explicit CRecord(std::uint16_t recordFunction) : function(recordFunction) {}
    std::uint16_t function;
};

CWmfWriter::CWmfWriter(std::int16_t width, std::int16_t height, std::uint16_t unitsPerInch)
    : m_width(width), m_height(height), m_unitsPerInch(unitsPerInch) {
    assert(width > 0 && height > 0);
    const auto setting = [this](std::uint16_t function, std::uint16_t value) {
        CRecord record(function);
        record.U16(value);
        Append(record);
    };
    const auto pair = [this](std::uint16_t function, std::int16_t y, std::int16_t x) {
        CRecord record(function);
        record.I16(y);
        record.I16(x);
        Append(record);
    };
    // No map mode: the reader of a placeable file sets it, and libwmf squeezes rotated text if the file does, too.
    pair(wmf::SetWindowOrigin, 0, 0);
    pair(wmf::SetWindowExtent, height, width);
    setting(wmf::SetBackgroundMode, wmf::kTransparent);
    setting(wmf::SetPolygonFillMode, wmf::kFillWinding);
    setting(wmf::SetTextAlign, wmf::kAlignBaseline);
}

void CWmfWriter::Polyline(std::span<const CPlanePoint> points, const CWmfPen& pen) {
    m_coordinates.clear();
    RoundInto(points, m_coordinates);
    if (m_coordinates.size() < 4) return;
    UsePen(pen);
    // Each piece starts with the last point of the previous one.
    const std::span<const std::int16_t> all(m_coordinates);
    constexpr std::size_t kPiece = std::size_t{wmf::kPolyPointLimit} * 2;
    for (std::size_t start = 0; start + 2 < all.size(); start += kPiece - 2)
        AppendPoints(wmf::Polyline, all.subspan(start, std::min(kPiece, all.size() - start)));
}

void CWmfWriter::Fill(std::span<const CPolyline> outlines, std::uint32_t rgb) {
    std::vector<std::uint16_t> counts;
    m_coordinates.clear();
    for (const CPolyline& outline : outlines) {
        const std::size_t before = m_coordinates.size();
        RoundInto(outline, m_coordinates);
        DropClosingPoint(before, m_coordinates);
        const std::size_t count = (m_coordinates.size() - before) / 2;
        const bool isTooLong = m_coordinates.size() / 2 > wmf::kPolyPointLimit;
        if (count < 3 || isTooLong) {
            m_coordinates.resize(before);
            continue;
        }
        counts.push_back(static_cast<std::uint16_t>(count));
    }
    if (counts.empty()) return;
    UsePen(std::nullopt);
    UseBrush(rgb);
    if (counts.size() == 1) {
        AppendPoints(wmf::Polygon, m_coordinates);
        return;
    }
    CRecord record(wmf::PolyPolygon);
    record.U16(static_cast<std::uint16_t>(counts.size()));
    for (const std::uint16_t count : counts) record.U16(count);
    for (const std::int16_t coordinate : m_coordinates) record.I16(coordinate);
    Append(record);
}

void CWmfWriter::Text(const CWmfText& text) {
    if (text.bytes.empty()) return;
    assert(text.bytes.size() == text.advances.size());
    UseFont(text.font);
    UseTextColor(text.rgb);
    CRecord record(wmf::ExtendedTextOut);
    record.I16(static_cast<std::int16_t>(std::lround(text.baseline.y)));
    record.I16(static_cast<std::int16_t>(std::lround(text.baseline.x)));
    record.U16(static_cast<std::uint16_t>(text.bytes.size()));
    record.U16(0);
    record.Text(text.bytes);
    record.PadToWord();
    for (const std::int16_t advance : text.advances) record.I16(advance);
    Append(record);
}

std::string CWmfWriter::Finish() {
    Append(CRecord(wmf::EndOfFile));
    const auto fileWords = static_cast<std::uint32_t>((wmf::kHeaderBytes + m_records.size()) / 2);
    std::string file = PlaceableHeader(m_width, m_height, m_unitsPerInch);
    file += FileHeader(fileWords, m_slotTaken.size(), m_largestRecordWords);
    file += m_records;
    return file;
}

void CWmfWriter::Append(const CRecord& record) {
    constexpr std::size_t kSizeAndFunctionBytes = 6;
    const auto words = static_cast<std::uint32_t>((kSizeAndFunctionBytes + record.Bytes().size()) / 2);
    CBytes start;
    start.U32(words);
    start.U16(record.function);
    m_records += start.Bytes();
    m_records += record.Bytes();
    m_largestRecordWords = std::max(m_largestRecordWords, words);
}

void CWmfWriter::AppendPoints(std::uint16_t function, std::span<const std::int16_t> coordinates) {
    CRecord record(function);
    record.U16(static_cast<std::uint16_t>(coordinates.size() / 2));
    for (const std::int16_t coordinate : coordinates) record.I16(coordinate);
    Append(record);
}

void CWmfWriter::UsePen(const std::optional<CWmfPen>& pen) {
    if (m_penSlot && m_selected.pen == pen) return;
    CRecord creation(wmf::CreatePen);
    creation.U16(pen ? wmf::kPenSolid : wmf::kPenNone);
    creation.U16(pen ? pen->width : 0);
    creation.U16(0);
    creation.Color(pen ? pen->rgb : 0);
    Replace(creation, m_penSlot);
    m_selected.pen = pen;
}

void CWmfWriter::UseBrush(std::uint32_t rgb) {
    if (m_brushSlot && m_selected.brush == rgb) return;
    CRecord creation(wmf::CreateBrush);
    creation.U16(wmf::kBrushSolid);
    creation.Color(rgb);
    creation.U16(0);
    Replace(creation, m_brushSlot);
    m_selected.brush = rgb;
}

void CWmfWriter::UseFont(const CWmfFont& font) {
    if (m_fontSlot && m_selected.font == font) return;
    CRecord creation(wmf::CreateFont);
    creation.I16(static_cast<std::int16_t>(-font.pixelHeight));  // negative: height of the letters, not of the line
    creation.I16(0);
    creation.I16(font.tenthsOfDegree);
    creation.I16(font.tenthsOfDegree);
    creation.I16(font.isBold ? kBoldWeight : kNormalWeight);
    creation.Byte(font.isItalic ? '\1' : '\0');
    creation.Text(std::string_view("\0\0\0\0\0\0", 6));  // no lines, western letters, default precision and quality
    creation.Byte(kSwissVariablePitch);
    creation.Text(kFace);
    Replace(creation, m_fontSlot);
    m_selected.font = font;
}

void CWmfWriter::UseTextColor(std::uint32_t rgb) {
    if (m_selected.textColor == rgb) return;
    CRecord record(wmf::SetTextColor);
    record.Color(rgb);
    Append(record);
    m_selected.textColor = rgb;
}

void CWmfWriter::Replace(const CRecord& creation, std::optional<std::uint16_t>& slot) {
    const auto free = std::find(m_slotTaken.begin(), m_slotTaken.end(), false);
    const auto newSlot = static_cast<std::uint16_t>(free - m_slotTaken.begin());
    if (free == m_slotTaken.end()) m_slotTaken.push_back(true);
    m_slotTaken[newSlot] = true;
    Append(creation);

    const auto onSlot = [this](std::uint16_t function, std::uint16_t number) {
        CRecord record(function);
        record.U16(number);
        Append(record);
    };
    onSlot(wmf::SelectObject, newSlot);
    if (slot) {
        onSlot(wmf::DeleteObject, *slot);
        m_slotTaken[*slot] = false;
    }
    slot = newSlot;
}

void CWmfWriter::RoundInto(std::span<const CPlanePoint> points, std::vector<std::int16_t>& coordinates) const {
    const std::size_t start = coordinates.size();
    coordinates.reserve(start + 2 * points.size());
    for (const CPlanePoint& point : points) {
        const auto x = static_cast<std::int16_t>(std::lround(std::clamp(point.x, 0.0, static_cast<double>(m_width))));
        const auto y = static_cast<std::int16_t>(std::lround(std::clamp(point.y, 0.0, static_cast<double>(m_height))));
        const std::size_t size = coordinates.size();
        if (size > start && coordinates[size - 2] == x && coordinates[size - 1] == y) continue;
        coordinates.push_back(x);
        coordinates.push_back(y);
    }
}
