#include "files/text_encoding.h"

#include <cstdint>

namespace ks {
namespace {

unsigned ByteAt(std::string_view text, std::size_t i) {
    return static_cast<unsigned char>(text[i]);
}

/// Smallest character that needs a sequence of 2, 3 or 4 bytes; a smaller one is an overlong form.
constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};

class CDecoded {
public:
    std::uint32_t character = 0;
    std::size_t length = 0;  ///< bytes used; 0 when the text does not begin with a character
};

std::size_t SequenceLength(unsigned lead) {
    if (lead < 0x80) return 1;
    if (lead < 0xC0) return 0;
    if (lead < 0xE0) return 2;
    if (lead < 0xF0) return 3;
    return lead < 0xF8 ? 4 : 0;
}

CDecoded DecodeFirst(std::string_view text) {
    const unsigned lead = ByteAt(text, 0);
    const std::size_t length = SequenceLength(lead);
    if (length == 1) return {lead, 1};
    if (length == 0 || length > text.size()) return {};

    std::uint32_t character = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((ByteAt(text, i) & 0xC0U) != 0x80U) return {};
        character = (character << 6U) | (ByteAt(text, i) & 0x3FU);
    }
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    if (character < kSmallest[length] || character > 0x10FFFF || surrogate) return {};
    return {character, length};
}

}  // namespace

std::string Utf8FromLatin1(std::string_view latin1) {
    std::string utf8;
    utf8.reserve(latin1.size());
    for (std::size_t i = 0; i < latin1.size(); ++i) {
        const unsigned byte = ByteAt(latin1, i);
        if (byte < 0x80) {
            utf8.push_back(latin1[i]);
        } else {
            utf8.push_back(static_cast<char>(0xC0U | (byte >> 6U)));
            utf8.push_back(static_cast<char>(0x80U | (byte & 0x3FU)));
        }
    }
    return utf8;
}

std::string Latin1FromUtf8(std::string_view utf8) {
    std::string latin1;
    latin1.reserve(utf8.size());
    while (!utf8.empty()) {
        const CDecoded decoded = DecodeFirst(utf8);
        const bool known = decoded.length > 0 && decoded.character < 0x100;
        latin1.push_back(known ? static_cast<char>(decoded.character) : '?');
        utf8.remove_prefix(decoded.length > 0 ? decoded.length : 1);
    }
    return latin1;
}

}  // namespace ks
