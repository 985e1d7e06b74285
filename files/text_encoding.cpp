#include "files/text_encoding.h"

#include "files/utf8.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace ks {
namespace {

unsigned ByteAt(std::string_view text, std::size_t i) {
    return static_cast<unsigned char>(text[i]);
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
        const CUtf8Character first = FirstUtf8Character(utf8);
        const bool isLatin1 = first.isWellFormed && first.codePoint < 0x100;
        latin1.push_back(isLatin1 ? static_cast<char>(first.codePoint) : '?');
        utf8.remove_prefix(first.isWellFormed ? first.byteCount : 1);
    }
    return latin1;
}

}  // namespace ks
