#include "compare/html_text.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace {

/// One character of UTF-8 text.
class CDecoded {
public:
    std::uint32_t codePoint;
    std::size_t byteCount;
};

constexpr std::uint32_t kReplacement = 0xFFFD;

/// How a multi-byte character starts, and what its second byte may be; the bounds rule out overlong forms, surrogates
/// and what lies beyond U+10FFFF. From the table of well-formed byte sequences of the Unicode standard, chapter 3.
class CLeadBytes {
public:
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

/// Decodes what follows a lead byte of the given row; a broken sequence ends before its first wrong byte.
CDecoded DecodeRest(std::string_view text, const CLeadBytes& lead) {
    std::uint32_t codePoint = ByteAt(text, 0) & (0xFFU >> (lead.byteCount + 1));
    unsigned char low = lead.secondLow;
    unsigned char high = lead.secondHigh;
    for (std::size_t i = 1; i < lead.byteCount; ++i) {
        if (i >= text.size() || ByteAt(text, i) < low || ByteAt(text, i) > high) return {kReplacement, i};
        codePoint = (codePoint << 6U) | (ByteAt(text, i) & 0x3FU);
        low = 0x80;
        high = 0xBF;
    }
    return {codePoint, lead.byteCount};
}

/// The first character of `text`, which is not empty and does not start with ASCII.
CDecoded DecodeFirst(std::string_view text) {
    for (const CLeadBytes& lead : kLeadBytes) {
        if (ByteAt(text, 0) >= lead.first && ByteAt(text, 0) <= lead.last) return DecodeRest(text, lead);
    }
    return {kReplacement, 1};
}

void AppendAscii(std::string& html, char character) {
    switch (character) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '"':
            html += "&quot;";
            break;
        default:
            html += character;
    }
}

}  // namespace

void AppendEscaped(std::string& html, std::string_view text) {
    while (!text.empty()) {
        if (ByteAt(text, 0) < 0x80) {
            AppendAscii(html, text.front());
            text.remove_prefix(1);
            continue;
        }
        const CDecoded decoded = DecodeFirst(text);
        html += "&#" + std::to_string(decoded.codePoint) + ";";
        text.remove_prefix(decoded.byteCount);
    }
}
