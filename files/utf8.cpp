#include "files/utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace ks {
namespace {

/// How a multi-byte character starts, and what its second byte may be; these bounds rule out overlong forms,
/// surrogates and what lies beyond U+10FFFF.
struct CLeadBytes {
    unsigned char first, last;
    std::size_t byteCount;
    unsigned char secondLow, secondHigh;
};

constexpr std::array<CLeadBytes, 8> kLeadBytes{{
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
}};

unsigned char ByteAt(std::string_view text, std::size_t i) {
    return static_cast<unsigned char>(text[i]);
}

/// Decodes what follows a lead byte of the given row.
CUtf8Character DecodeRest(std::string_view text, const CLeadBytes& lead) {
    char32_t codePoint = ByteAt(text, 0) & (0xFFU >> (lead.byteCount + 1));
    unsigned char low = lead.secondLow;
    unsigned char high = lead.secondHigh;
    for (std::size_t i = 1; i < lead.byteCount; ++i) {
        if (i >= text.size() || ByteAt(text, i) < low || ByteAt(text, i) > high) {
            return {kReplacementCharacter, i, false};
        }
        codePoint = (codePoint << 6U) | (ByteAt(text, i) & 0x3FU);
        low = 0x80;
        high = 0xBF;
    }
    return {codePoint, lead.byteCount, true};
}

}  // namespace

CUtf8Character FirstUtf8Character(std::string_view text) {
    const unsigned char byte = ByteAt(text, 0);
    if (byte < 0x80) return {byte, 1, true};
    const auto* const lead = std::find_if(kLeadBytes.begin(), kLeadBytes.end(), [byte](const CLeadBytes& row) {
        return row.first <= byte && byte <= row.last;
    });
    return lead == kLeadBytes.end() ? CUtf8Character{} : DecodeRest(text, *lead);
}

}  // namespace ks
