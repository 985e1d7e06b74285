#include "files/ascii_points.h"

#include "files/byte_source.h"
#include "files/error.h"
#include "files/input_file.h"
#include "files/messages.h"
#include "files/point_grammar.h"
#include "files/points.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace ks {
namespace {

constexpr std::uint64_t kLargestText = std::uint64_t{1} << 30U;
constexpr std::size_t kBytesAtATime = std::size_t{1} << 18U;

/// Points to reserve memory for at once; longer lists grow as their points arrive.
constexpr std::size_t kLargestReserve = std::size_t{1} << 20U;

constexpr std::size_t kNowhere = std::string_view::npos;

/// How much of the data ends where `first` is followed by `second`: nothing of the pair, its first character, or
/// kNowhere when the pair does not end the data.
std::size_t KeptOfPair(char first, char second) {
    if (first == '\n' && (second == '\n' || second == '\t')) return 1;
    if (first == '\t' && (second == '\n' || second == ' ')) return 0;
    return first == ' ' && second == ' ' ? 0 : kNowhere;
}

/// Room for the points of a text of `size` bytes, a line each, that begins with `text`.
void MakeRoom(CPointColumns& columns, std::string_view text, std::uint64_t size) {
    if (text.empty()) return;
    const auto lines = static_cast<std::uint64_t>(std::ranges::count(text, '\n')) + 1;
    const std::uint64_t parts = (size + text.size() - 1) / text.size();
    const std::uint64_t count = std::min<std::uint64_t>(lines * parts, kLargestReserve);
    columns.x.reserve(static_cast<std::size_t>(count));
    columns.y.reserve(static_cast<std::size_t>(count));
}

void FillZ(CPointColumns& columns) {
    if (!columns.z.empty()) columns.z.resize(columns.Count(), 0.0);
}

/// Whether any text that parses can hold the character.
bool MayBeInData(char c) {
    return syntax::IsOfNumber(c) || syntax::IsWhite(c) || c == ',';
}

/// Where a text's data end, and whether something that can never parse comes before that.
struct CDataEnd {
    std::size_t length = kNowhere;  ///< kNowhere: not in the part looked at
    bool isHopeless = false;        ///< the last character of `length` is one that no data hold
};

/// Looks at the text from `start` on, and at the pair across `start`. One scan finds what the cuts would give one
/// after the other, each for its own pair: a later cut can only move to a pair further ahead, and where two pairs
/// share a character both cuts keep the same.
CDataEnd FindDataEnd(std::string_view text, std::size_t start) {
    for (std::size_t i = start; i < text.size(); ++i) {
        const char c = text[i];
        if (!MayBeInData(c)) return {i + 1, true};
        if (i == 0 || !syntax::IsWhite(c)) continue;
        const std::size_t kept = KeptOfPair(text[i - 1], c);
        if (kept != kNowhere) return {i - 1 + kept, false};
    }
    return {};
}

/// A text of which only the part not parsed yet is in memory.
class CReading {
public:
    CReading(CByteSource& source, std::size_t bytesAtATime, CPointColumns& points)
        : m_source(source), m_bytesAtATime(bytesAtATime), m_points(points), m_document(points) {}

    /// Reads and parses piece by piece, up to the end of the data. Reading also ends at a character that no data can
    /// hold, and at a beginning that no text of points has.
    /// @return whether the data are a document as a whole
    bool ReadAll(const std::string& path);

private:
    void ReadPiece(const std::string& path);
    bool Parse();

    CByteSource& m_source;
    std::size_t m_bytesAtATime;
    CPointColumns& m_points;
    syntax::CDocument m_document;
    std::string m_text;        ///< what is not parsed yet
    std::size_t m_enough = 0;  ///< length of `m_text` at which parsing again is worth its time
    std::uint64_t m_bytesRead = 0;
    bool m_isLast = false;  ///< the data end with `m_text`
};

bool CReading::ReadAll(const std::string& path) {
    while (!m_isLast) {
        ReadPiece(path);
        if (m_points.y.capacity() == 0) MakeRoom(m_points, m_text, m_isLast ? m_text.size() : m_source.Size());
        if (!Parse()) return false;
    }
    return true;
}

void CReading::ReadPiece(const std::string& path) {
    const std::size_t start = m_text.size();
    m_text.resize(start + m_bytesAtATime);
    const std::size_t count = m_source.Read(std::as_writable_bytes(std::span(m_text).subspan(start)));
    m_text.resize(start + count);
    m_bytesRead += count;
    if (m_bytesRead > kLargestText) throw CError(ascii_message::TooLarge(path));

    const CDataEnd end = FindDataEnd(m_text, start);
    m_isLast = end.length != kNowhere || count < m_bytesAtATime;
    if (end.length != kNowhere) {
        m_text.resize(end.length);
    } else if (m_isLast && m_bytesRead < m_source.Size()) {
        throw CError(read_message::ReadFailed(path));  // part of a signal must not pass for all of it
    }
}

/// Parses what is certain, or all that is left. A point of many pieces is tried again each time the text has doubled,
/// so that its length counts only once. Where nothing is certain yet, a text that can only fail is not waited for.
bool CReading::Parse() {
    if (!m_isLast && m_text.size() < m_enough) return true;
    const std::size_t certain = m_isLast ? m_text.size() : syntax::CertainLength(m_text);
    const bool isHopeless = certain == 0 && !m_isLast && !syntax::MayBeginPoint(m_text);
    const std::optional<std::size_t> taken = m_document.Take(m_text, isHopeless ? m_text.size() : certain);
    if (!taken || isHopeless) return false;
    m_text.erase(0, *taken);
    m_enough = 2 * m_text.size();
    return true;
}

}  // namespace

void CPoints::ReadFile(const std::string& path) {
    m_columns = {};
    CInputFile file;
    if (!file.Open(path)) throw CError(read_message::NotOpenedForReading(path));
    if (!file.FindSize()) throw CError(read_message::NotOpenedForReading(path));
    ReadFrom(file, path, kBytesAtATime);
}

void CPoints::ReadFrom(CByteSource& source, const std::string& path, std::size_t bytesAtATime) {
    m_columns = {};
    if (source.Size() > kLargestText) throw CError(ascii_message::TooLarge(path));
    if (!CReading(source, bytesAtATime, m_columns).ReadAll(path)) {
        throw CError(ascii_message::ParseFile(path, ascii_message::kParseData));
    }
    FillZ(m_columns);
}

void CPoints::ParseData(std::string_view text) {
    m_columns = {};
    MakeRoom(m_columns, text, text.size());
    if (!syntax::ParsePoints(text, m_columns)) throw CError(ascii_message::kParseData);
    FillZ(m_columns);
}

CPointColumns CPoints::TakeColumns() {
    return std::exchange(m_columns, {});
}

}  // namespace ks
