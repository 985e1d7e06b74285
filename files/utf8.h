#pragma once

#include <cstddef>
#include <string_view>

namespace ks {

/// Replaces what is not UTF-8.
inline constexpr char32_t kReplacementCharacter = U'\uFFFD';

/// One character of a text that should be UTF-8.
struct CUtf8Character {
    char32_t codePoint = kReplacementCharacter;
    std::size_t byteCount = 1;  ///< of a malformed sequence: the bytes before its first wrong one, at least 1
    bool isWellFormed = false;
};

/// The first character of `text`, which is not empty. Overlong forms, surrogates and what lies beyond U+10FFFF are
/// malformed: Unicode standard, chapter 3, table of well-formed byte sequences.
CUtf8Character FirstUtf8Character(std::string_view text);

}  // namespace ks
