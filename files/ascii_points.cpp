#include "files/ascii_points.h"

#include "files/byte_source.h"
#include "files/error.h"
#include "files/input_file.h"
#include "files/messages.h"
#include "files/point_grammar.h"
#include "files/points.h"

#include <algorithm>
#include <array>
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

void Reserve(CPointColumns& columns, std::uint64_t count) {
    const auto room = static_cast<std::size_t>(std::min<std::uint64_t>(count, kLargestReserve));
    columns.x.reserve(room);
    columns.y.reserve(room);
}

void FillZ(CPointColumns& columns) {
    if (!columns.z.empty()) columns.z.resize(columns.Count(), 0.0);
}

/// What a character is to the search for the data's end.
enum class CRole : unsigned char { Hopeless, White, Other };

/// By character; no text that parses can hold a hopeless one.
constexpr std::array<CRole, 256> kRoles = [] {
    std::array<CRole, 256> roles{};
    for (std::size_t i = 0; i < roles.size(); ++i) {
        const auto c = static_cast<char>(i);
        if (syntax::IsOfNumber(c) || c == ',') roles[i] = CRole::Other;
        if (syntax::IsWhite(c)) roles[i] = CRole::White;
    }
    return roles;
}();

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
        const CRole role = kRoles[static_cast<unsigned char>(text[i])];
        if (role == CRole::Hopeless) return {i + 1, true};
        if (i == 0 || role != CRole::White) continue;
        const std::size_t kept = KeptOfPair(text[i - 1], text[i]);
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
    bool AppendPiece();
    std::size_t TakeOrdinary();
    bool Parse();
    void MakeRoom();

    CByteSource& m_source;
    std::size_t m_bytesAtATime;
    CPointColumns& m_points;
    syntax::CDocument m_document;
    std::string m_text;        ///< what is not parsed yet
    std::size_t m_enough = 0;  ///< length of `m_text` at which parsing again is worth its time
    std::uint64_t m_bytesRead = 0;
    bool m_hasRoom = false;  ///< memory for all points is reserved
    bool m_isLast = false;   ///< the data end with `m_text`
};

bool CReading::ReadAll(const std::string& path) {
    while (!m_isLast) {
        ReadPiece(path);
        if (!Parse()) return false;
        MakeRoom();
    }
    return true;
}

/// Reads a piece and looks for the end of the data. Ordinary lines are taken before that: they hold nothing that ends
/// data, except that the last one's line end may be the first character of a pair, which leaves the line as it is.
/// The character after that line end is still in the text, so the pair is found.
void CReading::ReadPiece(const std::string& path) {
    const std::size_t start = m_text.size();
    const bool isWhole = AppendPiece();
    if (m_bytesRead > kLargestText) throw CError(ascii_message::TooLarge(path));

    const bool isCutShort = !isWhole && m_bytesRead < m_source.Size();
    const std::size_t taken = isCutShort ? 0 : TakeOrdinary();
    const CDataEnd end = FindDataEnd(m_text, std::max(start, taken));
    m_isLast = end.length != kNowhere || !isWhole;
    if (end.length != kNowhere) {
        m_text.resize(end.length);
    } else if (isCutShort) {
        throw CError(read_message::ReadFailed(path));  // part of a signal must not pass for all of it
    }
    m_text.erase(0, taken);
}

/// @return whether there were as many bytes as asked for
bool CReading::AppendPiece() {
    const std::size_t start = m_text.size();
    m_text.resize(start + m_bytesAtATime);
    const std::size_t count = m_source.Read(std::as_writable_bytes(std::span(m_text).subspan(start)));
    m_text.resize(start + count);
    m_bytesRead += count;
    return count == m_bytesAtATime;
}

/// @return how many characters at the start of the text the lines take; they are still there
std::size_t CReading::TakeOrdinary() {
    if (m_text.size() < m_enough || m_text.empty()) return 0;
    const auto complete = std::string_view(m_text).substr(0, m_text.size() - 1);
    const std::size_t taken = m_document.TakeOrdinary(complete, complete.size());
    if (taken > 0) m_enough = 0;
    return taken;
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

/// Once, by the first points: room for those of the whole text and some more, since later lines may be shorter.
void CReading::MakeRoom() {
    if (m_hasRoom || m_isLast || m_points.Count() == 0) return;
    m_hasRoom = true;
    const std::uint64_t count = m_points.Count() * m_source.Size() / (m_bytesRead - m_text.size());
    Reserve(m_points, count + count / 16);
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
    Reserve(m_columns, static_cast<std::uint64_t>(std::ranges::count(text, '\n')) + 1);
    if (!syntax::ParsePoints(text, m_columns)) throw CError(ascii_message::kParseData);
    FillZ(m_columns);
}

CPointColumns CPoints::TakeColumns() {
    return std::exchange(m_columns, {});
}

}  // namespace ks
