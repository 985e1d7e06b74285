#pragma once

#include <string>
#include <string_view>

namespace ks {

/// Latin-1 bytes of a file as UTF-8.
std::string Utf8FromLatin1(std::string_view latin1);

/// UTF-8 as Latin-1 bytes; "?" replaces each character beyond Latin-1 and each byte that is not UTF-8.
std::string Latin1FromUtf8(std::string_view utf8);

}  // namespace ks
