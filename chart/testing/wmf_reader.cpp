#include "chart/testing/wmf_reader.h"

#include "chart/metafile/wmf_format.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace {

/// Stops reading; never leaves this file.
struct CFault : std::runtime_error {
    using std::runtime_error::runtime_error;
};

void Require(bool isMet, const char* fault) {
    if (!isMet) throw CFault(fault);
}

class CCursor {
public:
    explicit CCursor(std::string_view bytes) : m_bytes(bytes) {}

    unsigned U8() {
        Require(!m_bytes.empty(), "A record is too short.");
        const auto value = static_cast<unsigned char>(m_bytes[0]);
        m_bytes.remove_prefix(1);
        return value;
    }
    unsigned U16() {
        const unsigned low = U8();
        return low | U8() << 8U;
    }
    int I16() { return static_cast<std::int16_t>(U16()); }
    std::uint32_t U32() {
        const std::uint32_t low = U16();
        return low | static_cast<std::uint32_t>(U16()) << 16U;
    }
    std::uint32_t Color() {
        const std::uint32_t red = U8();
        const std::uint32_t green = U8();
        const std::uint32_t blue = U8();
        Require(U8() == 0, "A color is not a plain one.");
        return red << 16U | green << 8U | blue;
    }
    std::string_view Take(std::size_t count) {
        Require(count <= m_bytes.size(), "A record is too short.");
        const std::string_view taken = m_bytes.substr(0, count);
        m_bytes.remove_prefix(count);
        return taken;
    }
    [[nodiscard]] std::size_t Left() const { return m_bytes.size(); }

private:
    std::string_view m_bytes;
};

struct CPen {
    bool draws = false;
    int width = 0;
    std::uint32_t rgb = 0;
};
struct CBrush {
    std::uint32_t rgb = 0;
};
struct CFont {
    int height = 0;
    int tenthsOfDegree = 0;
    bool isBold = false;
    bool isItalic = false;
};
using Object = std::variant<CPen, CBrush, CFont>;

class CReader {
public:
    explicit CReader(std::string_view bytes) : m_bytes(bytes) {}

    CWmfPicture Read() {
        try {
            ReadPlaceableHeader();
            ReadHeader();
            while (!m_hasEnded) ReadRecord();
            Require(m_cursor.Left() == 0, "Bytes follow the last record.");
            Require(m_largestRecord == m_largestRecordSaid, "The header gives a different largest record.");
        } catch (const CFault& fault) {
            m_picture.fault = fault.what();
        }
        return m_picture;
    }

private:
    void ReadPlaceableHeader() {
        unsigned checksum = 0;
        CCursor words(m_bytes);
        for (int word = 0; word < 10; ++word) checksum ^= words.U16();
        Require(words.U16() == checksum, "The checksum is wrong.");
        Require(m_cursor.U32() == wmf::kPlaceableKey, "The key is wrong.");
        Require(m_cursor.U16() == 0 && m_cursor.I16() == 0 && m_cursor.I16() == 0,
                "The picture does not start at the origin.");
        m_picture.width = m_cursor.I16();
        m_picture.height = m_cursor.I16();
        m_picture.unitsPerInch = static_cast<int>(m_cursor.U16());
        m_cursor.Take(6);
    }

    void ReadHeader() {
        const std::size_t words = m_cursor.Left() / 2;
        Require(m_cursor.U16() == 1 && m_cursor.U16() == 9 && m_cursor.U16() == 0x300, "The header is wrong.");
        Require(m_cursor.U32() == words, "The header gives a different size.");
        m_objects.resize(m_cursor.U16());
        m_largestRecordSaid = m_cursor.U32();
        Require(m_cursor.U16() == 0, "The header is wrong.");
    }

    void ReadRecord() {
        const std::uint32_t words = m_cursor.U32();
        Require(words >= 3, "A record is shorter than its head.");
        m_largestRecord = std::max(m_largestRecord, words);
        const unsigned function = m_cursor.U16();
        CCursor record(m_cursor.Take((std::size_t{words} - 3) * 2));
        Interpret(function, record);
        Require(record.Left() == 0, "A record is longer than its contents.");
    }

    void Interpret(unsigned function, CCursor& record) {
        switch (function) {
            case wmf::EndOfFile:
                m_hasEnded = true;
                break;
            case wmf::SetBackgroundMode:
            case wmf::SetPolygonFillMode:
            case wmf::SetTextAlign:
                record.U16();
                break;
            case wmf::SetWindowOrigin:
                Require(record.I16() == 0 && record.I16() == 0, "The window does not start at the origin.");
                break;
            case wmf::SetWindowExtent:
                Require(record.I16() == m_picture.height && record.I16() == m_picture.width,
                        "Window and picture differ in size.");
                break;
            case wmf::SetTextColor:
                m_textColor = record.Color();
                break;
            case wmf::CreatePen:
                Add(ReadPen(record));
                break;
            case wmf::CreateBrush:
                Add(ReadBrush(record));
                break;
            case wmf::CreateFont:
                Add(ReadFont(record));
                break;
            case wmf::SelectObject:
                Select(record.U16());
                break;
            case wmf::DeleteObject:
                Delete(record.U16());
                break;
            case wmf::Polyline:
                ReadLine(record);
                break;
            case wmf::Polygon:
                ReadAreas(record, {record.U16()});
                break;
            case wmf::PolyPolygon:
                ReadAreas(record, Counts(record));
                break;
            case wmf::ExtendedTextOut:
                ReadText(record);
                break;
            default:
                throw CFault("A record has an unknown function.");
        }
    }

    static Object ReadPen(CCursor& record) {
        CPen pen;
        const unsigned style = record.U16();
        Require(style == wmf::kPenSolid || style == wmf::kPenNone, "A pen has an unknown style.");
        pen.draws = style == wmf::kPenSolid;
        pen.width = record.I16();
        record.U16();
        pen.rgb = record.Color();
        return pen;
    }

    static Object ReadBrush(CCursor& record) {
        Require(record.U16() == wmf::kBrushSolid, "A brush is not solid.");
        const CBrush brush{record.Color()};
        record.U16();
        return brush;
    }

    static Object ReadFont(CCursor& record) {
        CFont font;
        font.height = record.I16();
        Require(record.I16() == 0, "A font has a width.");
        font.tenthsOfDegree = record.I16();
        Require(record.I16() == font.tenthsOfDegree, "Letters and line of a font differ in direction.");
        font.isBold = record.I16() >= 700;
        font.isItalic = record.U8() != 0;
        Require(record.U8() == 0 && record.U8() == 0 && record.U8() == 0, "A font is underlined or foreign.");
        record.Take(4);
        const std::string_view face = record.Take(record.Left());
        Require(face.substr(0, face.find('\0')) == "Arial", "A font has an unknown face.");
        return font;
    }

    void Add(const Object& object) {
        const auto free = std::find(m_objects.begin(), m_objects.end(), std::nullopt);
        Require(free != m_objects.end(), "There are more objects than the header says.");
        *free = object;
    }

    [[nodiscard]] const Object& At(unsigned slot) const {
        Require(slot < m_objects.size() && m_objects[slot], "A slot without an object is used.");
        return m_objects[slot].value();
    }

    void Select(unsigned slot) { m_selected[At(slot).index()] = slot; }

    void Delete(unsigned slot) {
        const std::size_t kindOfSlot = At(slot).index();
        for (const auto& [kind, selected] : m_selected)
            Require(selected != slot || kindOfSlot != kind, "A selected object is deleted.");
        m_objects[slot].reset();
    }

    template <class Kind>
    [[nodiscard]] const Kind& Selected(std::size_t kind) const {
        const auto found = m_selected.find(kind);
        Require(found != m_selected.end(), "Something is drawn without the object it needs.");
        return std::get<Kind>(At(found->second));
    }

    std::vector<CWmfPlace> Points(CCursor& record, unsigned count) const {
        std::vector<CWmfPlace> points;
        for (unsigned point = 0; point < count; ++point) {
            const int x = record.I16();
            const int y = record.I16();
            Require(x >= 0 && x <= m_picture.width && y >= 0 && y <= m_picture.height, "A point is outside.");
            points.push_back({x, y});
        }
        return points;
    }

    void ReadLine(CCursor& record) {
        const unsigned count = record.U16();
        Require(count >= 2 && count <= wmf::kPolyPointLimit, "A line has too few or too many points.");
        const CPen& pen = Selected<CPen>(0);
        Require(pen.draws, "A line is drawn with no pen.");
        m_picture.lines.push_back({Points(record, count), pen.width, pen.rgb});
    }

    static std::vector<unsigned> Counts(CCursor& record) {
        std::vector<unsigned> counts(record.U16());
        for (unsigned& count : counts) count = record.U16();
        return counts;
    }

    void ReadAreas(CCursor& record, const std::vector<unsigned>& counts) {
        Require(!Selected<CPen>(0).draws, "An area has an outline.");
        CReadArea area{{}, Selected<CBrush>(1).rgb};
        for (const unsigned count : counts) {
            Require(count >= 3, "An area has too few points.");
            area.outlines.push_back(Points(record, count));
        }
        m_picture.areas.push_back(std::move(area));
    }

    void ReadText(CCursor& record) {
        const auto& font = Selected<CFont>(2);
        CReadText text;
        text.baseline.y = record.I16();
        text.baseline.x = record.I16();
        const unsigned count = record.U16();
        Require(record.U16() == 0, "A text has options.");
        text.bytes = record.Take(count);
        if (count % 2 != 0) record.U8();
        for (unsigned character = 0; character < count; ++character) text.advance += record.I16();
        text.height = font.height;
        text.tenthsOfDegree = font.tenthsOfDegree;
        text.isBold = font.isBold;
        text.isItalic = font.isItalic;
        text.rgb = m_textColor;
        m_picture.texts.push_back(std::move(text));
    }

    std::string_view m_bytes;
    CCursor m_cursor{m_bytes};
    CWmfPicture m_picture;
    std::vector<std::optional<Object>> m_objects;
    std::map<std::size_t, unsigned> m_selected;  ///< slot by kind of object
    std::uint32_t m_textColor = 0;
    std::uint32_t m_largestRecord = 0;
    std::uint32_t m_largestRecordSaid = 0;
    bool m_hasEnded = false;
};

}  // namespace

bool CWmfPicture::HasText(std::string_view text) const {
    return std::any_of(texts.begin(), texts.end(), [text](const CReadText& read) { return read.bytes == text; });
}

std::size_t CWmfPicture::PointsOfColor(std::uint32_t rgb) const {
    std::size_t count = 0;
    for (const CReadLine& line : lines)
        if (line.rgb == rgb) count += line.points.size();
    return count;
}

CWmfPicture ReadWmf(std::string_view bytes) {
    return CReader(bytes).Read();
}
