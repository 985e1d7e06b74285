#include "files/ascii_points.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>

#include "files/error.h"
#include "files/input_file.h"
#include "files/messages.h"
#include "files/point_grammar.h"

namespace ks {
namespace {

constexpr std::uint64_t kLargestText = std::uint64_t{1} << 30U;
constexpr std::size_t kBytesAtATime = std::size_t{1} << 18U;

/// Points for which room is made at once; longer lists grow as their points arrive.
constexpr std::size_t kLargestReserve = std::size_t{1} << 20U;

constexpr std::size_t kNowhere = std::string_view::npos;

/// How much of the data ends where `first` is followed by `second`: nothing of the pair, its first character, or
/// kNowhere when the pair does not end the data.
std::size_t KeptOfPair(char first, char second) {
    if (first == '\n' && (second == '\n' || second == '\t')) return 1;
    if (first == '\t' && (second == '\n' || second == ' ')) return 0;
    return first == ' ' && second == ' ' ? 0 : kNowhere;
}

bool IsWhite(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// Whether any text that parses can hold the character.
bool MayStandInData(char c) {
    return (c >= '0' && c <= '9') || IsWhite(c) || c == '.' || c == ',' || c == '+' || c == '-' || c == 'e' || c == 'E';
}

/// Where a text's data end, and whether something that can never parse stands before.
class CDataEnd {
public:
    std::size_t length = kNowhere;  ///< kNowhere: not in the part looked at
    bool hopeless = false;          ///< the last character of `length` is one that no data hold
};

/// Looks at the text from `start` on, and at the pair across `start`. One scan finds what the cuts would give one
/// after the other, each for its own pair: a later cut can only move to a pair further ahead, and where two pairs
/// share a character both cuts keep the same.
CDataEnd FindDataEnd(std::string_view text, std::size_t start) {
    for (std::size_t i = start; i < text.size(); ++i) {
        const char c = text[i];
        if (!MayStandInData(c)) return {i + 1, true};
        if (i == 0 || !IsWhite(c)) continue;
        const std::size_t kept = KeptOfPair(text[i - 1], c);
        if (kept != kNowhere) return {i - 1 + kept, false};
    }
    return {};
}

/// The data of a file, read only as far as they reach. What no data can hold ends the reading, too: the parser then
/// fails on it.
std::string ReadData(CInputFile& file, const std::string& path) {
    std::string text;
    text.reserve(static_cast<std::size_t>(file.Size()) + kBytesAtATime);
    while (true) {
        const std::size_t start = text.size();
        text.resize(start + kBytesAtATime);
        const std::size_t count = file.Read(std::as_writable_bytes(std::span(text).subspan(start)));
        text.resize(start + count);
        if (text.size() > kLargestText) throw CError(ascii::TooLarge(path));
        const CDataEnd end = FindDataEnd(text, start);
        if (end.length != kNowhere) {
            text.resize(end.length);
            return text;
        }
        if (count < kBytesAtATime) {
            if (text.size() < file.Size()) throw CError(ReadFailed(path));  // a part of a signal must not pass for it
            return text;
        }
    }
}

}  // namespace

std::size_t DataLength(std::string_view text) {
    for (std::size_t start = 0; start < text.size();) {
        const CDataEnd end = FindDataEnd(text, start);
        if (!end.hopeless) return std::min(end.length, text.size());
        start = end.length;
    }
    return text.size();
}

void CPoints::ReadFile(const std::string& path) {
    m_columns = {};
    CInputFile file;
    if (!file.Open(path)) throw CError(NotOpenedForReading(path));
    if (!file.FindSize()) throw CError(NotOpenedForReading(path));
    if (file.Size() > kLargestText) throw CError(ascii::TooLarge(path));
    const std::string text = ReadData(file, path);
    try {
        ParseData(text);
    } catch (const CError& error) {
        throw CError(ascii::ParseFile(path, error.what()));
    }
}

void CPoints::ParseData(std::string_view text) {
    m_columns = {};
    const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
    m_columns.x.reserve(std::min(lines, kLargestReserve));
    m_columns.y.reserve(std::min(lines, kLargestReserve));
    if (!syntax::ParsePoints(text, m_columns)) throw CError(ascii::kParseData);
    if (!m_columns.z.empty()) m_columns.z.resize(m_columns.Count(), 0.0);
}

CPointColumns CPoints::TakeColumns() {
    return std::exchange(m_columns, {});
}

}  // namespace ks
