#include "cli/display_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>

namespace {

struct CCharacter {
    std::optional<char32_t> codePoint;  // none: a byte that is not UTF-8
    std::size_t length = 1;             // bytes
};

struct CLeadByte {
    unsigned mask, value;
    std::size_t length;
    char32_t smallest;  // anything below has a shorter form, which is not UTF-8
};

constexpr std::array<CLeadByte, 4> kLeadBytes = {{
    {0x80U, 0x00U, 1, 0x0},
    {0xE0U, 0xC0U, 2, 0x80},
    {0xF0U, 0xE0U, 3, 0x800},
    {0xF8U, 0xF0U, 4, 0x10000},
}};

bool IsScalar(char32_t c) {
    return c <= 0x10FFFF && !(c >= 0xD800 && c <= 0xDFFF);
}

CCharacter CharacterAt(std::string_view text, std::size_t position) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned>(static_cast<unsigned char>(text[i])); };
    const unsigned lead = byte(position);
    const auto* const form = std::find_if(kLeadBytes.begin(), kLeadBytes.end(),
                                          [lead](const CLeadByte& f) { return (lead & f.mask) == f.value; });
    if (form == kLeadBytes.end() || form->length > text.size() - position) {
        return {};
    }
    char32_t codePoint = lead & ~form->mask;
    for (std::size_t i = 1; i < form->length; ++i) {
        const unsigned next = byte(position + i);
        if ((next & 0xC0U) != 0x80U) {
            return {};
        }
        codePoint = (codePoint << 6U) | (next & 0x3FU);
    }
    if (codePoint < form->smallest || !IsScalar(codePoint)) {
        return {};
    }
    return {codePoint, form->length};
}

using CRange = std::pair<char32_t, char32_t>;

template <std::size_t Size>
bool InRanges(const std::array<CRange, Size>& ranges, char32_t c) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [c](const CRange& range) { return range.first <= c && c <= range.second; });
}

// The blocks that file names meet in practice; not the whole of UAX #11.
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

std::size_t CharacterWidth(const CCharacter& character) {
    const char32_t c = character.codePoint.value_or(U'?');
    if (InRanges(kZeroWidth, c)) {
        return 0;
    }
    return InRanges(kDoubleWidth, c) ? 2 : 1;
}

bool IsControl(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c <= 0x9F);
}

}  // namespace

std::string DisplayText(std::string_view text, bool keepLineFeeds) {
    std::string shown;
    shown.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const CCharacter character = CharacterAt(text, i);
        const std::string_view bytes = text.substr(i, character.length);
        i += character.length;
        if (!character.codePoint) {
            shown += "\xEF\xBF\xBD";
        } else if (IsControl(*character.codePoint) && !(keepLineFeeds && bytes == "\n")) {
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
        const CCharacter character = CharacterAt(text, i);
        width += CharacterWidth(character);
        i += character.length;
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
        const CCharacter character = CharacterAt(text, cut);
        gone += CharacterWidth(character);
        cut += character.length;
    }
    return std::string(dots) + std::string(text.substr(cut));
}
