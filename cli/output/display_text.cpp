#include "cli/output/display_text.h"

#include "files/utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// The character at `position`; each byte that is not UTF-8 counts as a character.
ks::CUtf8Character CharacterAt(std::string_view text, std::size_t position) {
    ks::CUtf8Character character = ks::FirstUtf8Character(text.substr(position));
    if (!character.isWellFormed) character.byteCount = 1;
    return character;
}

using CRange = std::pair<char32_t, char32_t>;

template <std::size_t size>
bool IsInRanges(const std::array<CRange, size>& ranges, char32_t c) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [c](const CRange& range) { return range.first <= c && c <= range.second; });
}

// The blocks that occur in file names in practice, not all of UAX #11.
constexpr std::array<CRange, 5> kZeroWidth = {
    {{0x300, 0x36F}, {0x200B, 0x200F}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}}};
constexpr std::array<CRange, 9> kDoubleWidth = {{{0x1100, 0x115F},
                                                 {0x2E80, 0xA4CF},
                                                 {0xAC00, 0xD7A3},
                                                 {0xF900, 0xFAFF},
                                                 {0xFE30, 0xFE6F},
                                                 {0xFF00, 0xFF60},
                                                 {0xFFE0, 0xFFE6},
                                                 {0x1F300, 0x1FAFF},
                                                 {0x20000, 0x3FFFD}}};

std::size_t CharacterWidth(const ks::CUtf8Character& character) {
    const char32_t c = character.isWellFormed ? character.codePoint : U'?';
    if (IsInRanges(kZeroWidth, c)) {
        return 0;
    }
    return IsInRanges(kDoubleWidth, c) ? 2 : 1;
}

bool IsControl(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c <= 0x9F);
}

std::vector<std::string_view> Words(std::string_view text) {
    std::vector<std::string_view> words;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        if (end > 0) {
            words.push_back(text.substr(0, end));
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

}  // namespace

std::string DisplayText(std::string_view text, bool shouldKeepLineFeeds) {
    std::string shown;
    shown.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const ks::CUtf8Character character = CharacterAt(text, i);
        const std::string_view bytes = text.substr(i, character.byteCount);
        i += character.byteCount;
        if (!character.isWellFormed) {
            shown += "\xEF\xBF\xBD";
        } else if (IsControl(character.codePoint) && !(shouldKeepLineFeeds && bytes == "\n")) {
            shown += '?';
        } else {
            shown += bytes;
        }
    }
    return shown;
}

std::size_t DisplayWidth(std::string_view text) {
    std::size_t width = 0;
    for (std::size_t i = 0; i < text.size();) {
        const ks::CUtf8Character character = CharacterAt(text, i);
        width += CharacterWidth(character);
        i += character.byteCount;
    }
    return width;
}

std::string ElideFront(std::string_view text, std::size_t width) {
    std::size_t excess = DisplayWidth(text);
    if (excess <= width) {
        return std::string(text);
    }
    const std::string_view dots = width < 4 ? "" : "...";
    excess = excess + dots.size() - width;
    std::size_t cut = 0;
    for (std::size_t gone = 0; cut < text.size() && gone < excess;) {
        const ks::CUtf8Character character = CharacterAt(text, cut);
        gone += CharacterWidth(character);
        cut += character.byteCount;
    }
    return std::string(dots) + std::string(text.substr(cut));
}

void AppendWrapped(std::string& target, std::string_view text, std::size_t indent, std::size_t width) {
    std::size_t column = 0;
    for (const std::string_view word : Words(text)) {
        const std::size_t length = DisplayWidth(word);
        if (column != 0 && column + 1 + length > width) {
            target += '\n';
            column = 0;
        }
        target += column == 0 ? std::string(indent, ' ') : " ";
        target += word;
        column += (column == 0 ? indent : 1) + length;
    }
    target += '\n';
}
